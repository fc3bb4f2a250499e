// The rows of the project tree: projects, their files, and a folder with what their build leaves.
#pragma once

#include <QAbstractItemModel>
#include <QIcon>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "navigation/ProjectEntries.h"

enum class RowKind { none, project, file, outputFolder, outputFile, empty };

// Projects and files are named by full paths in the Windows form. Operations on a project that has no row do nothing.
class CProjectTreeModel : public QAbstractItemModel {
public:
    explicit CProjectTreeModel(QObject *parent = nullptr);
    ~CProjectTreeModel() override;

    void SetProjects(const std::vector<ProjectEntry> &projects);  // one row "empty" when there are none
    void Clear();                                                 // no row at all
    void AddProject(const ProjectEntry &project);                 // replaces the rows that it has
    void RemoveProject(const std::string &project);
    void SetActiveProject(const std::string &project);  // empty: none is active
    void AddFile(const std::string &project, const FileEntry &file);
    void RemoveFile(const std::string &project, const std::string &file);
    void SetOutputs(const ProjectEntry &project);  // its `outputs`; leaves rows that stay the same alone
    void LookForFiles();                           // which sources and outputs exist by now

    RowKind KindOf(const QModelIndex &index) const;
    std::string PathOf(const QModelIndex &index) const;     // of a project or file row, else empty
    std::string NameOf(const QModelIndex &index) const;     // as the project or workspace spells it
    std::string ProjectOf(const QModelIndex &index) const;  // of a row and all above it; empty for none
    bool InActiveProject(const QModelIndex &index) const;
    QModelIndex FindProject(const std::string &project) const;
    QModelIndex FindRow(const std::string &project, RowKind kind, const std::string &path) const;
    QModelIndex FindOutputFolder(const std::string &project) const;

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &) const override { return 1; }
    QVariant data(const QModelIndex &index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    struct Row;
    Row *RowOf(const QModelIndex &index) const;  // the invisible root for an invalid index
    QModelIndex IndexOf(const Row &row) const;
    Row *FindProjectRow(const std::string &project) const;
    void Insert(Row &parent, size_t at, std::unique_ptr<Row> row);
    void Remove(Row &parent, size_t at);
    void FillProject(Row &row, const ProjectEntry &project) const;
    void AddEmptyRow();
    QIcon IconOf(const Row &row) const;
    const QIcon &Icon(const char *name) const;
    QString TipOf(const Row &row) const;

    std::unique_ptr<Row> root_;
    mutable std::map<std::string, QIcon> icons_;
};
