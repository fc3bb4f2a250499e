#include "navigation/ProjectTreeModel.h"

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <algorithm>

#include "app/StringIds.h"
#include "framework/Icons.h"
#include "framework/Language.h"
#include "framework/Text.h"
#include "navigation/FilePresence.h"
#include "navigation/FolderDelegate.h"
#include "platform/NativePath.h"

struct CProjectTreeModel::Row {
    RowKind kind = RowKind::none;
    Row *parent = nullptr;
    size_t place = 0;  // among the parent's rows
    FileEntry entry;
    std::string key;      // FileKey of the entry's path
    bool active = false;  // project rows only
    std::vector<std::unique_ptr<Row>> rows;

    void Append(std::unique_ptr<Row> row) {
        row->parent = this;
        row->place = rows.size();
        rows.push_back(std::move(row));
    }
    void Renumber(size_t from) {
        for (size_t i = from; i < rows.size(); ++i) rows[i]->place = i;
    }
};

namespace {

template <typename Row>
std::unique_ptr<Row> MakeRow(RowKind kind, FileEntry entry = {}) {
    auto row = std::make_unique<Row>();
    row->kind = kind;
    row->key = FileKey(entry.path);
    row->entry = std::move(entry);
    return row;
}

}  // namespace

CProjectTreeModel::CProjectTreeModel(QObject *parent) : QAbstractItemModel(parent), root_(std::make_unique<Row>()) {}

CProjectTreeModel::~CProjectTreeModel() = default;

void CProjectTreeModel::FillProject(Row &row, const ProjectEntry &project) const {
    row.active = project.active;
    std::vector<FileEntry> files = project.files;
    std::sort(files.begin(), files.end(), ComesBefore);
    for (FileEntry &file : files) row.Append(MakeRow<Row>(RowKind::file, std::move(file)));
    if (!project.hasOutputs) return;
    auto folder = MakeRow<Row>(RowKind::outputFolder);
    for (const FileEntry &output : project.outputs) folder->Append(MakeRow<Row>(RowKind::outputFile, output));
    row.Append(std::move(folder));
}

void CProjectTreeModel::AddEmptyRow() {
    root_->Append(MakeRow<Row>(RowKind::empty));
}

void CProjectTreeModel::SetProjects(const std::vector<ProjectEntry> &projects) {
    beginResetModel();
    root_->rows.clear();
    for (const ProjectEntry &project : projects) {
        auto row = MakeRow<Row>(RowKind::project, {project.name, project.path});
        FillProject(*row, project);
        root_->Append(std::move(row));
    }
    if (projects.empty()) AddEmptyRow();
    endResetModel();
}

void CProjectTreeModel::Clear() {
    beginResetModel();
    root_->rows.clear();
    endResetModel();
}

void CProjectTreeModel::Insert(Row &parent, size_t at, std::unique_ptr<Row> row) {
    beginInsertRows(IndexOf(parent), static_cast<int>(at), static_cast<int>(at));
    row->parent = &parent;
    parent.rows.insert(parent.rows.begin() + static_cast<std::ptrdiff_t>(at), std::move(row));
    parent.Renumber(at);
    endInsertRows();
}

void CProjectTreeModel::Remove(Row &parent, size_t at) {
    beginRemoveRows(IndexOf(parent), static_cast<int>(at), static_cast<int>(at));
    parent.rows.erase(parent.rows.begin() + static_cast<std::ptrdiff_t>(at));
    parent.Renumber(at);
    endRemoveRows();
}

void CProjectTreeModel::AddProject(const ProjectEntry &project) {
    size_t at = root_->rows.size();
    if (Row *old = FindProjectRow(project.path)) {
        at = old->place;
        Remove(*root_, at);
    } else if (at == 1 && root_->rows.front()->kind == RowKind::empty) {
        at = 0;
        Remove(*root_, at);
    }
    auto row = MakeRow<Row>(RowKind::project, {project.name, project.path});
    FillProject(*row, project);
    Insert(*root_, at, std::move(row));
    if (project.active) SetActiveProject(project.path);
}

void CProjectTreeModel::RemoveProject(const std::string &project) {
    const Row *row = FindProjectRow(project);
    if (!row) return;
    Remove(*root_, row->place);
    if (root_->rows.empty()) Insert(*root_, 0, MakeRow<Row>(RowKind::empty));
}

void CProjectTreeModel::SetActiveProject(const std::string &project) {
    const Row *found = project.empty() ? nullptr : FindProjectRow(project);
    for (auto &row : root_->rows) {
        const bool active = row.get() == found;
        if (row->active == active) continue;
        row->active = active;
        const QModelIndex index = IndexOf(*row);
        emit dataChanged(index, index);
    }
}

void CProjectTreeModel::AddFile(const std::string &project, const FileEntry &file) {
    Row *parent = FindProjectRow(project);
    if (!parent || FindRow(project, RowKind::file, file.path).isValid()) return;
    const auto after = std::partition_point(parent->rows.begin(), parent->rows.end(), [&](const auto &row) {
        return row->kind == RowKind::file && !ComesBefore(file, row->entry);
    });
    Insert(*parent, static_cast<size_t>(after - parent->rows.begin()), MakeRow<Row>(RowKind::file, file));
}

void CProjectTreeModel::RemoveFile(const std::string &project, const std::string &file) {
    const QModelIndex index = FindRow(project, RowKind::file, file);
    if (index.isValid()) Remove(*RowOf(index.parent()), static_cast<size_t>(index.row()));
}

void CProjectTreeModel::SetOutputs(const ProjectEntry &project) {
    Row *parent = FindProjectRow(project.path);
    if (!parent) return;
    const bool hasFolder = !parent->rows.empty() && parent->rows.back()->kind == RowKind::outputFolder;
    if (!project.hasOutputs) {
        if (hasFolder) Remove(*parent, parent->rows.size() - 1);
        return;
    }
    if (!hasFolder) Insert(*parent, parent->rows.size(), MakeRow<Row>(RowKind::outputFolder));

    Row &folder = *parent->rows.back();
    const auto same = [](const std::unique_ptr<Row> &row, const FileEntry &entry) {
        return row->entry.name == entry.name && row->entry.path == entry.path;
    };
    // Both lists are short and mostly alike: rows that went make room, then what is new comes to its place.
    for (size_t i = folder.rows.size(); i-- > 0;) {
        const bool stays = std::any_of(project.outputs.begin(), project.outputs.end(),
                                       [&](const FileEntry &entry) { return same(folder.rows[i], entry); });
        if (!stays) Remove(folder, i);
    }
    for (size_t i = 0; i < project.outputs.size(); ++i) {
        const FileEntry &entry = project.outputs[i];
        if (i < folder.rows.size() && same(folder.rows[i], entry)) continue;
        for (size_t later = i + 1; later < folder.rows.size(); ++later) {
            if (!same(folder.rows[later], entry)) continue;
            Remove(folder, later);
            break;
        }
        Insert(folder, i, MakeRow<Row>(RowKind::outputFile, entry));
    }
    while (folder.rows.size() > project.outputs.size()) Remove(folder, folder.rows.size() - 1);
}

void CProjectTreeModel::LookForFiles() {
    CFilePresence presence;
    const auto look = [&](Row &row) {
        const bool exists = presence.Exists(row.entry.path);
        if (exists == row.entry.exists) return;
        row.entry.exists = exists;
        const QModelIndex index = IndexOf(row);
        emit dataChanged(index, index);
    };
    for (auto &project : root_->rows)
        for (auto &row : project->rows) {
            if (row->kind == RowKind::file) look(*row);
            for (auto &output : row->rows) look(*output);
        }
}

RowKind CProjectTreeModel::KindOf(const QModelIndex &index) const {
    return RowOf(index)->kind;
}

std::string CProjectTreeModel::PathOf(const QModelIndex &index) const {
    return RowOf(index)->entry.path;
}

std::string CProjectTreeModel::NameOf(const QModelIndex &index) const {
    return RowOf(index)->entry.name;
}

std::string CProjectTreeModel::ProjectOf(const QModelIndex &index) const {
    const Row *row = RowOf(index);
    while (row->parent && row->parent != root_.get()) row = row->parent;
    return row->kind == RowKind::project ? row->entry.path : std::string();
}

bool CProjectTreeModel::InActiveProject(const QModelIndex &index) const {
    const Row *row = RowOf(index);
    while (row->parent && row->parent != root_.get()) row = row->parent;
    return row->active;
}

CProjectTreeModel::Row *CProjectTreeModel::FindProjectRow(const std::string &project) const {
    const std::string key = FileKey(project);
    for (const auto &row : root_->rows)
        if (row->kind == RowKind::project && row->key == key) return row.get();
    return nullptr;
}

QModelIndex CProjectTreeModel::FindProject(const std::string &project) const {
    const Row *row = FindProjectRow(project);
    return row ? IndexOf(*row) : QModelIndex();
}

QModelIndex CProjectTreeModel::FindOutputFolder(const std::string &project) const {
    const Row *row = FindProjectRow(project);
    if (!row || row->rows.empty() || row->rows.back()->kind != RowKind::outputFolder) return {};
    return IndexOf(*row->rows.back());
}

QModelIndex CProjectTreeModel::FindRow(const std::string &project, RowKind kind, const std::string &path) const {
    const Row *parent = FindProjectRow(project);
    if (!parent) return {};
    if (kind == RowKind::project) return IndexOf(*parent);
    if (kind == RowKind::outputFolder) return FindOutputFolder(project);
    if (kind == RowKind::outputFile) {
        const QModelIndex folder = FindOutputFolder(project);
        if (!folder.isValid()) return {};
        parent = RowOf(folder);
    }
    const std::string key = FileKey(path);
    for (const auto &row : parent->rows)
        if (row->kind == kind && row->key == key) return IndexOf(*row);
    return {};
}

CProjectTreeModel::Row *CProjectTreeModel::RowOf(const QModelIndex &index) const {
    return index.isValid() ? static_cast<Row *>(index.internalPointer()) : root_.get();
}

QModelIndex CProjectTreeModel::IndexOf(const Row &row) const {
    if (&row == root_.get()) return {};
    return createIndex(static_cast<int>(row.place), 0, const_cast<Row *>(&row));
}

QModelIndex CProjectTreeModel::index(int row, int column, const QModelIndex &parent) const {
    const Row *above = RowOf(parent);
    if (row < 0 || column != 0 || static_cast<size_t>(row) >= above->rows.size()) return {};
    return createIndex(row, column, above->rows[static_cast<size_t>(row)].get());
}

QModelIndex CProjectTreeModel::parent(const QModelIndex &index) const {
    return index.isValid() ? IndexOf(*RowOf(index)->parent) : QModelIndex();
}

int CProjectTreeModel::rowCount(const QModelIndex &parent) const {
    return static_cast<int>(RowOf(parent)->rows.size());
}

QVariant CProjectTreeModel::data(const QModelIndex &index, int role) const {
    if (!index.isValid()) return {};
    const Row &row = *RowOf(index);
    const bool dimmed = row.kind == RowKind::empty || !row.entry.exists;
    switch (role) {
        case Qt::DisplayRole:
            if (row.kind == RowKind::empty) return ToQString(LoadText(IDS_EMPTY_TREE));
            if (row.kind == RowKind::outputFolder) return ToQString(LoadText(IDS_OUTPUT_FOLDER));
            return ToQString(NativePathAsSpelled(row.entry.name));
        case Qt::DecorationRole:
            return IconOf(row);
        case kOpenIconRole:
            return row.kind == RowKind::outputFolder ? QVariant(Icon("folder-open")) : QVariant();
        case Qt::ToolTipRole:
            return TipOf(row);
        case Qt::FontRole: {
            if (!dimmed && !row.active) return {};
            QFont font = QApplication::font("QTreeView");
            font.setItalic(dimmed);
            font.setBold(row.active);
            return font;
        }
        case Qt::ForegroundRole:
            if (dimmed) return QApplication::palette("QTreeView").brush(QPalette::PlaceholderText);
            return {};
        default:
            return {};
    }
}

QIcon CProjectTreeModel::IconOf(const Row &row) const {
    const char *name = "";
    switch (row.kind) {
        case RowKind::none:
        case RowKind::empty:
            return {};
        case RowKind::project:
            name = row.active ? "project-active" : "project";
            break;
        case RowKind::outputFolder:
            name = "folder";
            break;
        case RowKind::file:
        case RowKind::outputFile:
            name = FileIconName(row.entry.name);
            break;
    }
    return Icon(name);
}

const QIcon &CProjectTreeModel::Icon(const char *name) const {
    auto [found, isNew] = icons_.try_emplace(name);
    if (isNew) found->second = LoadIcon(name);
    return found->second;
}

QString CProjectTreeModel::TipOf(const Row &row) const {
    if (row.entry.path.empty()) return {};
    const std::string path = DisplayPath(row.entry.path);
    return ToQString(row.entry.exists ? path : LoadText(IDS_NO_SUCH_FILE, {path}));
}

Qt::ItemFlags CProjectTreeModel::flags(const QModelIndex &index) const {
    if (!index.isValid()) return {};
    if (KindOf(index) == RowKind::empty) return Qt::ItemIsEnabled;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable;
}
