#include "platform/SharedLibrary.h"

#include <gtest/gtest.h>

#include "support/ScratchDirectory.h"

namespace {

TEST(SharedLibrary, LoadsAModuleByItsStoredName) {
    const CScratchDirectory scratch;
    std::filesystem::create_symlink(TEST_MODULE, scratch.Native("Sample.dll"));
    CSharedLibrary library(scratch.Windows("SAMPLE.dll"));
    ASSERT_TRUE(library.IsLoaded()) << library.Error();
    EXPECT_EQ(library.Path(), scratch.Windows("SAMPLE.dll"));
    ASSERT_NE(library.Find("sampleAdd"), nullptr);
    EXPECT_EQ(library.Get<int(int, int)>("sampleAdd")(2, 3), 5);
    EXPECT_EQ(library.Find("none"), nullptr);

    CSharedLibrary other = std::move(library);
    EXPECT_FALSE(library.IsLoaded());
    EXPECT_EQ(library.Find("sampleAdd"), nullptr);
    other = CSharedLibrary();
    EXPECT_FALSE(other.IsLoaded());
}

TEST(SharedLibrary, TellsWhyALoadFailed) {
    const CScratchDirectory scratch;
    scratch.Write("text.dll", "no module");
    for (const char *name : {"none.dll", "text.dll"}) {
        const CSharedLibrary library(scratch.Windows(name));
        EXPECT_FALSE(library.IsLoaded());
        EXPECT_FALSE(library.Error().empty()) << name;
    }
    EXPECT_FALSE(CSharedLibrary("libc.so.6").IsLoaded()) << "a bare name is one of the current directory";
}

}  // namespace
