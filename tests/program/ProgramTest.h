// The whole program in a scratch home, started and restarted by a test.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "app/StringIds.h"
#include "framework/Language.h"
#include "platform/UserStore.h"
#include "support/Program.h"

class QMenu;

class ProgramTest : public testing::Test {
protected:
    void TearDown() override { End(); }

    // A program of its own for `arguments` (native), up to the end of its start.
    CProgram &Start(std::vector<std::string> arguments = {});
    void Make(std::vector<std::string> arguments = {});  // without starting it
    void End();                                          // notes boxes that nobody expected
    void CloseAndEnd();                                  // as the user closes it

    CIDEApp &App() { return program->App(); }
    CMainFrame &Frame() { return program->Frame(); }
    std::string Title();

    // What lies in the settings, by a store of its own.
    std::string Setting(const std::string &section, const std::string &key);
    int SettingNumber(const std::string &section, const std::string &key, int fallback = -1);
    void Set(const std::string &section, const std::string &key, const std::string &value);
    void Set(const std::string &section, const std::string &key, int value);
    bool SettingsExist() { return scratch.Exists("config/ThornwellIDE"); }

    static std::string Text(int id, std::initializer_list<std::string> values = {}) { return LoadText(id, values); }
    static std::string Line(int id, std::initializer_list<std::string> values = {});  // as the build list shows it
    bool Says(const std::string &line);                                               // a line of the build list

    CIDEDoc *Open(const std::string &name);  // a file of the scratch directory
    CIDEView &ViewOf(CIDEDoc *document);
    void Edit(CIDEDoc *document, const std::string &text);  // puts it in front

    QMenu *OpenMenu(const std::string &title);  // as the user opens it: of the menu bar, or of one of its menus
    static std::vector<std::string> Texts(const QMenu *menu);

    CUserStore Store() { return CUserStore(scratch.Native("config/ThornwellIDE/ThornwellIDE.db")); }

    CScratch scratch;
    std::unique_ptr<CProgram> program;
};
