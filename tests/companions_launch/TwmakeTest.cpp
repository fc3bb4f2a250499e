#include <gtest/gtest.h>
#include <unistd.h>

#include "Launched.h"
#include "platform/NativePath.h"

namespace {

const char kMakefile[] =
    "all: out\n"
    "out: in\n\tcp in out\n\techo $(WORD) >> log\n"
    "clean:\n\trm -f out\n"
    "fail:\n\texit 9\n"
    "slow1 slow2:\n\t@echo $@; sleep 0.2; echo $@\n";

class Twmake : public testing::Test {
 protected:
    void SetUp() override {
        scratch_.Write("makefile.My Project", kMakefile);
        scratch_.Write("in", "text");
    }

    // Runs with " -c -f <makefile> " before `rest`.
    int Make(const Words &rest, const std::vector<std::pair<std::string, std::string>> &environment = {}) {
        Words words = {TWMAKE_FILE, "-c", "-f", "makefile.My Project"};
        words.insert(words.end(), rest.begin(), rest.end());
        CLaunched launched(words, {.directory = scratch_.Path(), .environment = environment});
        const int exitCode = launched.Wait();
        output_ = launched.output;
        error_ = launched.error;
        return exitCode;
    }

    CScratch scratch_;
    std::string output_, error_;
};

}  // namespace

TEST_F(Twmake, BuildsRebuildsAndCleans) {
    const struct {
        Words words;
        const char *log;  // one word for each run of the recipe up to now
        bool built;
    } steps[] = {
        {{"WORD=first", "all"}, "first\n", true},
        {{"WORD=idle", "all"}, "first\n", true},
        {{"WORD=again", "-a", "all"}, "first\nagain\n", true},
        {{"clean"}, "first\nagain\n", false},
        {{"-n", "all"}, "first\nagain\n", false},
        {{"WORD=last", "all"}, "first\nagain\nlast\n", true},
    };
    for (const auto &step : steps) {
        EXPECT_EQ(Make(step.words), 0) << error_;
        EXPECT_EQ(error_, "");
        EXPECT_EQ(scratch_.Read("log"), step.log) << step.words[0];
        EXPECT_EQ(access(scratch_.Path("out").c_str(), F_OK) == 0, step.built) << step.words[0];
    }
}

TEST_F(Twmake, RunsUnderTheLauncherWithAMakefileInWindowsForm) {
    const std::string makefile = FromNativePath(scratch_.Path("MAKEFILE.my project"));
    CLaunched launched(Pspawn({"twmake.exe -c -f \"" + makefile + "\"  -j1 -a all"}), {.directory = scratch_.Path()});
    EXPECT_EQ(launched.Wait(), 0) << launched.error;
    EXPECT_EQ(scratch_.Read("out"), "text");
}

TEST_F(Twmake, GivesMakesExitCodeAndItsOwnForWhatGoesWrongBefore) {
    const struct {
        Words words;
        const char *path;  // for PATH; null: as it is
        int exitCode;
        const char *error;
    } cases[] = {
        {{TWMAKE_FILE, "-f", "makefile.My Project", "fail"}, nullptr, 2, "fail] Error 9"},
        {{TWMAKE_FILE, "-c", "-f", "makefile.none", "all"}, nullptr, 2, "makefile.none"},
        {{TWMAKE_FILE, "-c", "-f"}, nullptr, 2, "-f needs"},
        {{TWMAKE_FILE, "-c", "-f", "makefile.My Project", "all"}, "/nowhere", 127, "no \"make\" on PATH"},
    };
    for (const auto &c : cases) {
        CLaunched::Options options = {.directory = scratch_.Path()};
        if (c.path) options.environment = {{"PATH", c.path}};
        CLaunched launched(c.words, options);
        EXPECT_EQ(launched.Wait(), c.exitCode) << c.error;
        EXPECT_NE(launched.error.find(c.error), std::string::npos) << launched.error;
    }
}

TEST_F(Twmake, KeepsTheOutputOfParallelTargetsApart) {
    EXPECT_EQ(Make({"-j4", "slow1", "slow2"}), 0);
    EXPECT_TRUE(output_ == "slow1\nslow1\nslow2\nslow2\n" || output_ == "slow2\nslow2\nslow1\nslow1\n") << output_;
}

TEST_F(Twmake, IsNoPartOfAnOuterMake) {
    const std::vector<std::pair<std::string, std::string>> outer = {
        {"MAKELEVEL", "1"}, {"MAKEFLAGS", "n -j4 --jobserver-auth=88,89"}, {"MFLAGS", "-n"}};
    EXPECT_EQ(Make({"WORD=x", "all"}, outer), 0);
    EXPECT_EQ(error_, "");
    EXPECT_EQ(scratch_.Read("log"), "x\n");
}
