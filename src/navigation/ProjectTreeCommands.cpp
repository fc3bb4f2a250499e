// The commands on the selected row of the project tree. Their menu entries name the row.
#include "app/CommandIds.h"
#include "app/StringIds.h"
#include "framework/Language.h"
#include "framework/Text.h"
#include "navigation/ProjectTree.h"
#include "navigation/WorkspaceBarHost.h"

namespace {

constexpr qsizetype kLongestName = 48;  // characters of a row's text in a menu entry

// A row's text in a menu entry: of bounded width, and with no letter of it taken for the entry's key.
std::string MenuName(const std::string &text) {
    QString name = ToQString(text);
    if (name.size() > kLongestName) {
        const qsizetype half = kLongestName / 2;
        name = name.left(half) + QChar(0x2026) + name.right(half);
    }
    return FromQString(name.replace("&", "&&"));
}

void NameRow(CCmdUI &ui, int text, const std::string &row) {
    if (!row.empty()) ui.SetText(LoadText(text, {MenuName(row)}));
}

struct BuildCommand {
    int command, text;
    ProjectBuild kind;
};
constexpr BuildCommand kBuildCommands[] = {{ID_ROW_BUILD, IDS_ROW_BUILD, ProjectBuild::build},
                                           {ID_ROW_REBUILD, IDS_ROW_REBUILD, ProjectBuild::rebuild},
                                           {ID_ROW_CLEAN, IDS_ROW_CLEAN, ProjectBuild::clean}};

}  // namespace

void CProjectTree::MapCommands() {
    MapProjectCommands();
    MapFileCommands();
}

void CProjectTree::MapProjectCommands() {
    // Of the project of the selected row; without one, of the active project.
    const auto map = [this](int command, int text, void (CWorkspaceBarHost::*run)(const std::string &)) {
        OnCommand(
            command, [this, run] { (host_.*run)(SelectedProject()); },
            [this, text](CCmdUI &ui) {
                ui.Enable(!SelectedProject().empty());
                NameRow(ui, text, ProjectText());
            });
    };
    map(ID_PROJECT_ADD_FILES, IDS_ROW_ADD_FILES, &CWorkspaceBarHost::AskForFiles);
    map(ID_PROJECT_ADD_NEW_FILE, IDS_ROW_ADD_NEW_FILE, &CWorkspaceBarHost::AskForNewFile);
    map(ID_ROW_OUTPUT_LIST, IDS_ROW_OUTPUT_LIST, &CWorkspaceBarHost::EditOutputs);
    for (const BuildCommand &each : kBuildCommands)
        OnCommand(
            each.command, [this, kind = each.kind] { host_.Build(SelectedProject(), kind); },
            [this, text = each.text](CCmdUI &ui) {
                ui.Enable(!SelectedProject().empty() && host_.CanBuild());
                NameRow(ui, text, ProjectText());
            });
    OnCommand(
        ID_PROJECT_ACTIVATE, [this] { MakeProjectActive(SelectedProject()); },
        [this](CCmdUI &ui) {
            ui.Enable(!SelectedProject().empty() && !model_->InActiveProject(currentIndex()));
            NameRow(ui, IDS_ROW_ACTIVATE, ProjectText());
        });
    OnCommand(
        ID_PROJECT_REMOVE, [this] { host_.RemoveProject(SelectedProject()); },
        [this](CCmdUI &ui) {
            ui.Enable(!SelectedProject().empty() && host_.HoldsManyProjects());
            NameRow(ui, IDS_ROW_REMOVE_PROJECT, ProjectText());
        });
}

void CProjectTree::MapFileCommands() {
    OnCommand(
        ID_ROW_OPEN_FILE, [this] { OpenRow(currentIndex()); },
        [this](CCmdUI &ui) {
            const RowKind kind = model_->KindOf(currentIndex());
            ui.Enable(kind == RowKind::file || kind == RowKind::outputFile);
            if (ui.enabled) NameRow(ui, IDS_ROW_OPEN, RowText());
        });
    OnCommand(
        ID_PROJECT_REMOVE_FILE, [this] { RemoveSelectedFile(); },
        [this](CCmdUI &ui) {
            ui.Enable(!SelectedFile().empty());
            if (ui.enabled) NameRow(ui, IDS_ROW_REMOVE, RowText());
        });
    OnCommand(
        ID_ROW_MAKE_RELATIVE, [this] { MakeSelectedFileRelative(); },
        [this](CCmdUI &ui) {
            ui.Enable(!SelectedFile().empty() &&
                      host_.CanMakeRelative(SelectedProject(), model_->NameOf(currentIndex())));
            if (!SelectedFile().empty()) NameRow(ui, IDS_ROW_RELATIVE, RowText());
        });
}

bool CProjectTree::OnCmdMsg(int id, CCmdUI *ui) {
    if (CCmdTarget::OnCmdMsg(id, ui)) return true;
    // What the program does to the active project only must not seem to be done to another one.
    const bool activeOnly = id == ID_PROJECT_TARGET || id == ID_PROJECT_OPTIONS || id == ID_PROJECT_ADD_LIBRARY;
    if (!activeOnly || model_->InActiveProject(currentIndex())) return false;
    if (ui) ui->Enable(false);
    return true;
}

std::string CProjectTree::ProjectText() const {
    return FromQString(model_->FindProject(SelectedProject()).data().toString());
}

std::string CProjectTree::RowText() const {
    return FromQString(currentIndex().data().toString());
}

void CProjectTree::MakeProjectActive(const std::string &project) {
    if (!project.empty() && !model_->InActiveProject(model_->FindProject(project))) host_.ActivateProject(project);
}

void CProjectTree::RemoveSelectedFile() {
    const std::string file = SelectedFile();
    if (!file.empty()) host_.RemoveFile(SelectedProject(), file);
}

void CProjectTree::MakeSelectedFileRelative() {
    const std::string project = SelectedProject(), file = SelectedFile();
    if (file.empty()) return;
    host_.MakeRelative(project, model_->NameOf(currentIndex()));
    const QModelIndex row = model_->FindRow(project, RowKind::file, file);
    if (row.isValid()) setCurrentIndex(row);
}
