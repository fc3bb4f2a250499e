#include "app/Settings.h"

#include <gtest/gtest.h>

#include "support/ScratchDirectory.h"

namespace {

TEST(Settings, TheUsersSectionHidesTheMachines) {
    const CScratchDirectory scratch;
    const std::string machine = scratch.Native("machine.db");
    {
        CUserStore installer(machine);
        installer.WriteInt("Margins", "HAlignment", 2);
        installer.WriteString("Margins", "Unit", "mm");
        installer.WriteInt("MDITabs", "Top", 0);
    }
    CSettings settings(scratch.Native("user.db"), machine);
    EXPECT_EQ(settings.GetInt("Margins", "HAlignment", 1), 2);
    EXPECT_EQ(settings.GetString("Margins", "Unit", "inches"), "mm");
    EXPECT_EQ(settings.GetString("Margins", "HAlignment", "text"), "text");
    settings.User().WriteString("Margins", "Header", "");
    EXPECT_EQ(settings.GetInt("Margins", "HAlignment", 1), 1);
    EXPECT_EQ(settings.GetString("Margins", "Header", "&F"), "");
    EXPECT_EQ(settings.GetInt("MDITabs", "Top", 1), 0);
    settings.User().DeleteKey("Margins", "Header");
    EXPECT_EQ(settings.GetString("Margins", "Unit", "inches"), "inches");
    settings.User().DeleteSection("Margins");
    EXPECT_EQ(settings.GetString("Margins", "Unit", "inches"), "mm");
    EXPECT_FALSE(settings.User().HasSection("MDITabs")) << "written by reading";
}

TEST(Settings, TheProgramsCallsUseItsProfile) {
    const CScratchDirectory scratch;
    setenv("XDG_CONFIG_HOME", scratch.Native("home").c_str(), 1);
    setenv("XDG_CONFIG_DIRS", scratch.Native("etc").c_str(), 1);
    CUserStore(MachineStorePath("Probe")).WriteInt("News", "Enabled", 1);
    OpenUserSettings("Probe");
    EXPECT_EQ(GetUserInt("News", "Enabled", 0), 1);
    EXPECT_EQ(GetProfileIntA("News", "Enabled", 7), 7) << "read beyond the user's own";
    const std::vector<uint8_t> state = {1, 0, 2};
    EXPECT_TRUE(WriteUserBinary("Edit Bar State", "State", state));
    EXPECT_EQ(GetUserBinary("Edit Bar State", "State"), state);
    EXPECT_TRUE(WriteUserString("Workspace", "Last Workspace", "c:\\p.__c"));
    EXPECT_EQ(GetProfileStringA("Workspace", "Last Workspace", ""), "c:\\p.__c");
    EXPECT_EQ(CUserStore(scratch.Native("home/ThornwellIDE/Probe.db")).ReadString("Workspace", "Last Workspace"),
              "c:\\p.__c");
    OpenUserSettings(kDefaultProfileName);
    unsetenv("XDG_CONFIG_HOME");
    unsetenv("XDG_CONFIG_DIRS");
}

}  // namespace
