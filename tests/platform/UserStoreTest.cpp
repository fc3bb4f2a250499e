#include "platform/UserStore.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/ScratchDirectory.h"

namespace {

class UserStore : public testing::Test {
protected:
    CScratchDirectory scratch_;
    std::string path_ = scratch_.Native("deep/config/store.db");
};

TEST_F(UserStore, KeepsTypedValues) {
    const std::vector<uint8_t> bytes = {0, 1, 255};
    {
        CUserStore store(path_);
        EXPECT_FALSE(store.HasSection("S"));
        EXPECT_FALSE(store.ReadInt("S", "k"));
        EXPECT_TRUE(store.DeleteKey("S", "k"));
        EXPECT_FALSE(std::filesystem::exists(path_)) << "made without a write";
        EXPECT_TRUE(store.WriteInt("S", "int", INT32_MIN));
        EXPECT_TRUE(store.WriteString("S", "number text", "0012"));
        EXPECT_TRUE(store.WriteString("S", "empty", ""));
        EXPECT_TRUE(store.WriteString("S", "zero", std::string("a\0b", 3)));
        EXPECT_TRUE(store.WriteBinary("S", "bytes", bytes));
        EXPECT_TRUE(store.WriteBinary("S", "no bytes", {}));
    }
    const CUserStore store(path_);
    EXPECT_EQ(store.ReadInt("s", "INT"), INT32_MIN);
    EXPECT_EQ(store.ReadString("S", "number text"), "0012");
    EXPECT_EQ(store.ReadString("S", "empty"), "");
    EXPECT_EQ(store.ReadString("S", "zero"), std::string("a\0b", 3));
    EXPECT_EQ(store.ReadBinary("S", "bytes"), bytes);
    EXPECT_EQ(store.ReadBinary("S", "no bytes"), std::vector<uint8_t>());
    EXPECT_FALSE(store.ReadInt("S", "number text"));
    EXPECT_FALSE(store.ReadString("S", "int"));
    EXPECT_FALSE(store.ReadString("S", "bytes"));
}

TEST_F(UserStore, SectionsLiveFromTheirFirstWriteOn) {
    CUserStore store(path_);
    store.WriteInt("UsrMacro\\0\\1", "Type", 1);
    store.WriteInt("UsrMacro2", "k", 1);
    store.WriteInt("UsrMacro", "k", 1);
    EXPECT_TRUE(store.HasSection("usrmacro\\0"));
    EXPECT_TRUE(store.DeleteKey("UsrMacro", "K"));
    EXPECT_FALSE(store.ReadInt("UsrMacro", "k"));
    EXPECT_TRUE(store.HasSection("UsrMacro"));
    EXPECT_TRUE(store.DeleteSection("USRMACRO"));
    EXPECT_FALSE(store.HasSection("UsrMacro"));
    EXPECT_FALSE(store.HasSection("UsrMacro\\0\\1"));
    EXPECT_FALSE(store.ReadInt("UsrMacro\\0\\1", "Type"));
    EXPECT_EQ(store.ReadInt("UsrMacro2", "k"), 1);
}

TEST_F(UserStore, SharesItsFileWithOtherProcessesStores) {
    CUserStore one(path_), two(path_);
    EXPECT_FALSE(two.ReadInt("S", "k"));
    EXPECT_TRUE(one.WriteInt("S", "k", 1));
    EXPECT_EQ(two.ReadInt("S", "k"), 1);
    EXPECT_TRUE(two.WriteInt("S", "k", 2));
    EXPECT_EQ(one.ReadInt("S", "k"), 2);
}

TEST_F(UserStore, PutsAFileThatIsNoStoreAside) {
    const std::string text(5000, 'x');
    scratch_.Write("deep/config/store.db", text);
    {
        CUserStore store(path_);
        EXPECT_FALSE(store.HasSection("S"));
        EXPECT_EQ(scratch_.Read("deep/config/store.db"), text) << "changed by reading";
        EXPECT_TRUE(store.WriteInt("S", "k", 1));
        EXPECT_TRUE(store.IsWritable());
        EXPECT_EQ(store.ReadInt("S", "k"), 1);
    }
    EXPECT_EQ(scratch_.Read("deep/config/store.db.broken"), text);
    scratch_.Write("deep/config/store.db", "another broken one, too long to be taken for an empty file");
    EXPECT_TRUE(CUserStore(path_).WriteInt("S", "k", 1));
    EXPECT_EQ(scratch_.Read("deep/config/store.db.broken"), text);
    EXPECT_FALSE(scratch_.Read("deep/config/store.db.broken.2").empty());
}

TEST_F(UserStore, FailsWithAWordWhereItCannotWrite) {
    scratch_.Write("file", "");
    CUserStore below(scratch_.Native("file/store.db"));
    EXPECT_TRUE(below.IsWritable());
    EXPECT_FALSE(below.WriteInt("S", "k", 1));
    EXPECT_FALSE(below.IsWritable());
    EXPECT_FALSE(CUserStore(scratch_.Native()).WriteInt("S", "k", 1)) << "a directory";

    CUserStore(path_).WriteInt("S", "k", 1);
    CUserStore readOnly(path_, true);
    EXPECT_FALSE(readOnly.IsWritable());
    EXPECT_FALSE(readOnly.WriteInt("S", "k", 2));
    EXPECT_FALSE(readOnly.DeleteSection("S"));
    EXPECT_EQ(readOnly.ReadInt("S", "k"), 1);
}

TEST_F(UserStore, ReadsAForeignNumberOnlyWithinItsRange) {
    CUserStore(path_).WriteInt("S", "k", 1);
    sqlite3 *database = nullptr;
    ASSERT_EQ(sqlite3_open(path_.c_str(), &database), SQLITE_OK);
    sqlite3_exec(database, "UPDATE setting SET value = 4294967296", nullptr, nullptr, nullptr);
    sqlite3_close(database);
    EXPECT_FALSE(CUserStore(path_).ReadInt("S", "k"));
}

// Each write that was reported before the kill is there after it.
TEST_F(UserStore, LosesNothingWhenKilled) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const pid_t writer = fork();
    ASSERT_GE(writer, 0);
    if (writer == 0) {
        CUserStore store(path_);
        for (int i = 0;; ++i)
            if (!store.WriteInt("S", std::to_string(i), i) || write(ends[1], &i, sizeof i) < 0) _exit(1);
    }
    close(ends[1]);
    int last = -1, number;
    while (read(ends[0], &number, sizeof number) == sizeof number) {
        last = number;
        if (last == 100) kill(writer, SIGKILL);
    }
    close(ends[0]);
    waitpid(writer, nullptr, 0);
    ASSERT_GE(last, 100);
    const CUserStore store(path_);
    for (int i = 0; i <= last; ++i) ASSERT_EQ(store.ReadInt("S", std::to_string(i)), i);
}

TEST(StorePaths, FollowTheEnvironment) {
    const char *names[] = {"XDG_CONFIG_HOME", "XDG_CONFIG_DIRS", "HOME"};
    std::optional<std::string> before[3];
    for (int i = 0; i < 3; ++i)
        if (const char *value = getenv(names[i])) before[i] = value;
    setenv("HOME", "/h", 1);
    setenv("XDG_CONFIG_HOME", "relative", 1);
    setenv("XDG_CONFIG_DIRS", "relative:/first:/second", 1);
    EXPECT_EQ(UserStorePath("Thornwell IDE"), "/h/.config/ThornwellIDE/Thornwell IDE.db");
    EXPECT_EQ(MachineStorePath("a/b"), "/first/ThornwellIDE/a_b.db");
    setenv("XDG_CONFIG_HOME", "/x", 1);
    unsetenv("XDG_CONFIG_DIRS");
    EXPECT_EQ(UserStorePath("p"), "/x/ThornwellIDE/p.db");
    EXPECT_EQ(MachineStorePath("p"), "/etc/xdg/ThornwellIDE/p.db");
    for (int i = 0; i < 3; ++i) before[i] ? setenv(names[i], before[i]->c_str(), 1) : unsetenv(names[i]);
}

}  // namespace
