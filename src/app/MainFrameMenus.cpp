// The menus that are made anew each time one opens.
#include <QMenu>
#include <QMenuBar>
#include <map>

#include "app/CommandIds.h"
#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/StringIds.h"
#include "editor/UserMacros.h"
#include "framework/Icons.h"
#include "framework/Language.h"
#include "framework/RecentList.h"
#include "framework/Text.h"
#include "platform/PathCalls.h"
#include "project/Workspace.h"

namespace {

constexpr qsizetype kMacroMenuEntries = 8;  // of its own, in front of the saved macros

// Manuals that no menu shows.
constexpr int kManuals[] = {ID_HELP_OSPREYC, ID_HELP_OSPREYCPP, ID_HELP_OSPREYP, ID_HELP_WIZARD};

// A name as a menu shows it as it stands.
std::string MenuText(const std::string &name) { return FromQString(ToQString(name).replace("&", "&&")); }

void RemoveEntry(QMenu *menu, QAction *entry) {
    menu->removeAction(entry);
    if (entry->menu())
        entry->menu()->deleteLater();  // takes the entry with it
    else
        entry->deleteLater();
}

}  // namespace

void CMainFrame::OnInitMenu() {
    RemoveManuals();
    FillMacroMenu();
    FillToolsMenu();
    FillPluginMenu();
    FillRecentMenu(IDS_MENU_RECENT_FILES, ID_RECENT_FILES);
    FillRecentMenu(IDS_MENU_RECENT_WORKSPACES, ID_RECENT_WORKSPACES);
    if (QMenu *menu = FindTopMenu(LoadText(IDS_MENU_WINDOW)))
        FillWindowList(menu, ID_WINDOW_LIST, LoadText(IDS_MENU_ALL_WINDOWS));
}

void CMainFrame::RemoveManuals() {
    for (const QAction *top : menuBar()->actions())
        if (top->menu())
            for (const int manual : kManuals) RemoveCommands(top->menu(), manual, manual);
}

QMenu *CMainFrame::FindChangingMenu(int text, int missing, int withoutMenu) {
    const QAction *entry = FindTopEntry(LoadText(text));
    if (entry && entry->menu()) return entry->menu();
    const int number = entry ? withoutMenu : missing;
    CIDEApp::Get().AddOutputLine("Internal error #" + std::to_string(number) + " in CMainFrame::OnInitMenu.");
    return nullptr;
}

void CMainFrame::FillMacroMenu() {
    QMenu *menu = FindChangingMenu(IDS_MENU_MACRO, 1, 2);
    if (!menu) return;
    for (QAction *entry : menu->actions().mid(kMacroMenuEntries)) RemoveEntry(menu, entry);
    const int count = UserMacroCount();
    if (count == 0) return;
    menu->addSeparator();
    for (int macro = 0; macro < count; ++macro) {
        const std::string name = UserMacroName(macro);
        if (!name.empty()) menu->addAction(MakeCommandAction(ID_USER_MACROS + macro, MenuText(name), menu));
    }
}

void CMainFrame::FillToolsMenu() {
    QMenu *menu = FindChangingMenu(IDS_MENU_TOOLS, 5, 6);
    if (!menu) return;
    RemoveCommands(menu, ID_TOOL_STEPS, ID_TOOL_STEPS + kMaxToolSteps - 1);
    const auto &workspace = CIDEApp::Get().workspace;
    const int steps = workspace ? std::min(workspace->GetToolsNumber(), kMaxToolSteps) : 0;
    for (int step = 0; step < steps; ++step) {
        const std::string name = workspace->GetToolActionName("", step);
        QAction *action = MakeCommandAction(ID_TOOL_STEPS + step, name, menu);
        action->setIcon(StandardStepIcon(name));
        menu->addAction(action);
    }
    if (menu->isEmpty()) menu->addAction(MakeCommandAction(ID_TOOL_STEPS, LoadText(IDS_EMPTY_TREE), menu));
}

QIcon CMainFrame::StandardStepIcon(const std::string &name) const {
    static constexpr struct {
        int name, command;
    } kSteps[] = {{IDS_STEP_FIRST, ID_STEP_FIRST_RUN},
                  {IDS_STEP_SECOND, ID_STEP_SECOND_RUN},
                  {IDS_STEP_THIRD, ID_STEP_THIRD_RUN},
                  {IDS_STEP_FOURTH, ID_STEP_FOURTH_RUN},
                  {IDS_STEP_FIFTH, ID_STEP_FIFTH_RUN}};
    for (const auto &step : kSteps)
        if (EqualNoCase(LoadText(step.name), name)) return LoadIcon(CLanguage::Current().CommandIcon(step.command));
    return {};
}

// The bars of a plug-in that offers several stand in a sub-menu of its name.
void CMainFrame::FillPluginMenu() {
    QMenu *menu = FindChangingMenu(IDS_MENU_PLUGINS, 3, 4);
    if (!menu) return;
    RemoveCommands(menu, ID_PLUGIN_NONE, ID_PLUGIN_BARS + CPluginBar::kSlots - 1);
    for (QAction *entry : menu->actions())
        if (entry->menu()) RemoveEntry(menu, entry);

    discovery_.Guard().acquire();
    std::map<std::string, QMenu *> libraries;
    for (int slot = 0; slot < CPluginBar::kSlots; ++slot) {
        const CPluginBar &bar = PluginBar(slot);
        if (!bar.HasPlugin()) continue;
        QMenu *place = menu;
        if (bar.LibraryInstances() > 1) {
            QMenu *&library = libraries[bar.LibraryName()];
            if (!library) library = AddSubMenu(menu, MenuText(bar.LibraryName()));
            place = library;
        }
        const std::string title = FromQString(bar.windowTitle());
        place->addAction(MakeCommandAction(ID_PLUGIN_BARS + slot, MenuText(title), place));
    }
    discovery_.Guard().release();
    if (menu->isEmpty()) menu->addAction(MakeCommandAction(ID_PLUGIN_NONE, LoadText(IDS_PLUGIN_MENU_EMPTY), menu));
}

// The sub-menu of a recent list holds one entry for each name, or a single one that is off.
void CMainFrame::FillRecentMenu(int text, int firstCommand) {
    for (QMenu *menu : findChildren<QMenu *>()) {
        if (menu->title() != ToQString(LoadText(text))) continue;
        RemoveCommands(menu, firstCommand, firstCommand + static_cast<int>(CRecentList::kEntries) - 1);
        for (int command = firstCommand; command < firstCommand + static_cast<int>(CRecentList::kEntries); ++command) {
            const CCmdUI ui = QueryCommand(*this, command);
            if (ui.enabled || command == firstCommand)
                menu->addAction(MakeCommandAction(command, ui.text.value_or(LoadText(IDS_EMPTY_TREE)), menu));
        }
    }
}
