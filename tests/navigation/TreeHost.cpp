#include "TreeHost.h"

ProjectEntry *TreeHost::Find(const std::string &path) {
    for (ProjectEntry &project : projects)
        if (project.path == path) return &project;
    return nullptr;
}

std::optional<ProjectEntry> TreeHost::Project(const std::string &name) const {
    for (const ProjectEntry &project : projects)
        if (project.path == name) return project;
    return std::nullopt;
}

FileEntry TreeHost::File(const std::string &project, const std::string &file) const {
    return {file, project.substr(0, project.rfind('\\') + 1) + file};
}

ProjectEntry TreeHost::Outputs(const std::string &project) const {
    return Project(project).value_or(ProjectEntry());
}

std::string TreeHost::ActiveProject() const {
    for (const ProjectEntry &project : projects)
        if (project.active) return project.path;
    return {};
}

void TreeHost::AddFiles(const std::string &project, const std::vector<std::string> &files) {
    for (const std::string &file : files) calls.push_back("add " + project + " " + file);
}

void TreeHost::RemoveFile(const std::string &project, const std::string &file) {
    calls.push_back("remove " + project + " " + file);
}

void TreeHost::ShowMenu(int resource, const QPoint &, CCmdTarget &target) {
    calls.push_back("menu " + std::to_string(resource));
    enabledCommands.clear();
    texts.clear();
    for (const int command : askedCommands) {
        const CCmdUI ui = QueryCommand(target, command);
        if (!ui.enabled) continue;
        enabledCommands.push_back(command);
        texts.push_back(ui.text.value_or(""));
    }
}

void TreeHost::Build(const std::string &project, ProjectBuild kind) {
    static constexpr const char *kNames[] = {"build ", "rebuild ", "clean "};
    calls.push_back(kNames[static_cast<size_t>(kind)] + project);
}

ProjectEntry MakeProject(const std::string &directory, const std::string &name, bool active,
                         const std::vector<std::string> &files, const std::vector<std::string> &outputs) {
    const auto entry = [&](const std::string &file) { return FileEntry{file, directory + "\\" + file}; };
    ProjectEntry project{name, directory + "\\" + name, active};
    for (const std::string &file : files) project.files.push_back(entry(file));
    for (const std::string &file : outputs) project.outputs.push_back(entry(file));
    project.hasOutputs = !outputs.empty();
    return project;
}
