#include "editor/KeyMacro.h"

#include <gtest/gtest.h>

#include "SettingsScratch.h"

TEST(CKeyMacro, SurvivesTheProgramsEnd) {
    const CSettingsScratch settings;
    const std::vector<CMacroCommand> commands = {{0, 2170, 0, "t\xC3\xA4xt\n"}, {0, 2300, 0, ""}, {0, 2001, 3, "abc"}};
    CKeyMacro recorded;
    for (const CMacroCommand &command : commands) recorded.Append(command);
    recorded.Store();
    EXPECT_EQ(GetUserInt("Macro", "Msg1", 0), 2300);
    EXPECT_EQ(GetUserString("Macro", "lPar2", ""), "abc");

    CKeyMacro loaded;
    loaded.Append({0, 1, 1, "old"});
    loaded.Load();
    EXPECT_EQ(loaded.Commands(), commands);

    loaded.Clear();
    loaded.Append(commands[1]);
    loaded.Store();
    CKeyMacro shorter;
    shorter.Load();
    EXPECT_EQ(shorter.Commands(), std::vector<CMacroCommand>{commands[1]});
}

TEST(CKeyMacro, TakesDamagedSettings) {
    const CSettingsScratch settings;
    WriteUserInt("Macro", "Count", 2'000'000'000);
    WriteUserInt("Macro", "Msg0", 2013);
    CKeyMacro macro;
    macro.Load();
    EXPECT_EQ(macro.Commands(), (std::vector<CMacroCommand>{{0, 2013, 0, ""}}));
    WriteUserInt("Macro", "Count", -5);
    macro.Load();
    EXPECT_TRUE(macro.Commands().empty());
}
