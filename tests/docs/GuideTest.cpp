#include <gtest/gtest.h>

#include "RunShell.h"
#include "platform/SharedLibrary.h"
#include "project/ToolsuiteApi.h"
#include "support/ScratchDirectory.h"

namespace {

constexpr const char *kSound = " list p=16f628a\n org 0\nmain goto main\n end\n";
constexpr const char *kFaulty = " list p=16f628a\n org 0\nmain movlq 1\n end\n";

// The toolsuite of the guide on a project with one source in a scratch directory.
class GuideExample : public testing::Test {
protected:
    bool GenMake(CStringList sources) {
        const auto genMake = library_.Get<ToolGenMakeFn>("toolGenMake");
        FILE *makefile = std::fopen(scratch_.Native("makefile").c_str(), "w");
        outputs_.clear();
        const int done = genMake(&sources, &outputs_, makefile, &error_, scratch_.Windows("my light.__c").c_str(),
                                 scratch_.Windows("my light.Debug.__f").c_str());
        std::fclose(makefile);
        return done != 0;
    }
    Ran MakeGoal(const std::string &goal) {
        return RunShell("cd '" + scratch_.Native() + "' && make -f makefile " + goal);
    }

    CScratchDirectory scratch_;
    CSharedLibrary library_{FromNativePath(GUIDE_EXAMPLE)};
    CStringList outputs_;
    CString error_;
};

}  // namespace

TEST_F(GuideExample, BuildsAndCleansAProject) {
    CString name;
    ASSERT_NE(library_.Get<ToolGetToolNameFn>("toolGetToolName")(&name), 0);
    scratch_.Write("it's $1.asm", kSound);
    ASSERT_TRUE(GenMake({"board.inc", "\"it's $1.asm\""})) << error_;
    ASSERT_EQ(outputs_, CStringList{"Debug\\my light.hex"});
    const Ran made = MakeGoal("all");
    EXPECT_TRUE(scratch_.Exists("Debug/my light.hex")) << made.output;
    MakeGoal("clean");
    EXPECT_FALSE(scratch_.Exists("Debug"));
}

TEST_F(GuideExample, TellsFaultsInAFormThatTheProgramReads) {
    scratch_.Write("main.asm", kSound);
    ASSERT_TRUE(GenMake({"main.asm"})) << error_;
    MakeGoal("all");
    scratch_.Write("main.asm", kFaulty);
    const Ran made = MakeGoal("all");
    EXPECT_NE(made.output.find("main.asm(3): Error["), std::string::npos) << made.output;
    EXPECT_FALSE(scratch_.Exists("Debug/my light.hex")) << "the old image is gone";

    EXPECT_FALSE(GenMake({"board.inc"}));
    EXPECT_FALSE(error_.empty());
    EXPECT_FALSE(GenMake({"a.asm", "b.asm"}));
}
