#include <gtest/gtest.h>

#include <QKeySequence>
#include <cctype>
#include <set>
#include <string>

#include "IdHeader.h"
#include "LanguageModule.h"
#include "app/CommandIds.h"
#include "app/StringIds.h"

TEST(LanguageAccelerators, EachIsOneKeyOfOneCommand) {
    const auto accelerators = module::Accelerators(IDR_MAINFRAME);
    ASSERT_FALSE(accelerators.empty());
    std::set<std::string> taken;
    for (const auto &accelerator : accelerators) {
        EXPECT_TRUE(IsKnownCommand(accelerator.command)) << accelerator.keys;
        const auto keys = QKeySequence::fromString(QString::fromUtf8(accelerator.keys), QKeySequence::PortableText);
        ASSERT_EQ(keys.count(), 1) << accelerator.keys;
        EXPECT_NE(keys[0].key(), Qt::Key_unknown) << accelerator.keys;
        EXPECT_TRUE(taken.insert(keys.toString(QKeySequence::PortableText).toStdString()).second) << accelerator.keys;
    }
}

TEST(LanguageAccelerators, LeaveTheTopLevelMenusTheirAccessKeys) {
    std::set<std::string> menuKeys;
    for (const auto &entry : module::Menu(IDR_MAINFRAME))
        if (entry.depth == 0) menuKeys.insert(std::string("alt+") + module::AccessKey(entry.text));
    for (const auto &accelerator : module::Accelerators(IDR_MAINFRAME)) {
        std::string keys = accelerator.keys;
        for (char &c : keys) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        EXPECT_FALSE(menuKeys.contains(keys)) << accelerator.keys;
    }
}

// A build command given with Ctrl held down is a rebuild.
TEST(LanguageAccelerators, BuildKeysDoWithoutCtrl) {
    int found = 0;
    for (const auto &accelerator : module::Accelerators(IDR_MAINFRAME)) {
        if (accelerator.command != ID_BUILD && accelerator.command != ID_BUILD_ALL) continue;
        found++;
        EXPECT_EQ(std::string(accelerator.keys).find("Ctrl"), std::string::npos) << accelerator.keys;
    }
    EXPECT_EQ(found, 2);
}
