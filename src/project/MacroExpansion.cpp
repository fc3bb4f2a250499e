#include "project/MacroExpansion.h"

#include <string_view>

#include "app/Path.h"
#include "platform/PathCalls.h"
#include "platform/ProgramDirectory.h"
#include "project/CurrentWorkspace.h"
#include "project/Workspace.h"

namespace {

void Replace(std::string &text, std::string_view variable, const std::function<std::string()> &value) {
    for (size_t at = text.find(variable); at != std::string::npos;) {
        const std::string replacement = value ? value() : "";
        text.replace(at, variable.size(), replacement);
        at = text.find(variable, at + replacement.size());
    }
}

}  // namespace

std::string ShortTarget(const std::string &target) {
    for (const char *prefix : {"PIC", "SX"})
        if (StartsWithNoCase(target, prefix)) return target.substr(std::string_view(prefix).size());
    return target;
}

void ExpandMacroText(std::string &text, const MacroValues &values) {
    Replace(text, "%name%", values.name);
    Replace(text, "%shortname%", values.shortName);
    Replace(text, "%target%", values.target);
    Replace(text, "%shorttarget%", [&values] { return values.target ? ShortTarget(values.target()) : ""; });
    Replace(text, "%appdir%", values.appDir);
    Replace(text, "%config%", values.config);
}

MacroValues ProjectMacroValues(const std::string &project, std::function<std::string()> config) {
    MacroValues values;
    values.name = [project] { return CPath(WorkspaceOrNone().GetProjectFileName(project)).GetTitle(); };
    values.shortName = [project] {
        const std::string file = WorkspaceOrNone().GetProjectFileName(project);
        std::string shortName;
        return CPath(GetShortPathNameA(shortName, file) ? shortName : file).GetTitle();
    };
    values.target = [] { return WorkspaceOrNone().GetTarget(); };
    values.appDir = [] { return ProgramDirectory(); };
    values.config = std::move(config);
    return values;
}
