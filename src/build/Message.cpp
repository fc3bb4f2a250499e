#include "build/Message.h"

#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/PathNames.h"
#include "app/ProjectDirScope.h"
#include "app/StringIds.h"
#include "build/DocumentRefresh.h"
#include "build/FileTracking.h"
#include "build/StepName.h"
#include "framework/Language.h"
#include "platform/FileText.h"
#include "platform/NativePath.h"
#include "platform/PathCalls.h"
#include "project/CurrentWorkspace.h"
#include "project/Workspace.h"

namespace {

constexpr int kNoParameter = -1;

void WriteLine(const std::string &text) { CIDEApp::Get().AddOutputLine(text); }

bool IsStandardStep(const std::string &name, int nameId) { return SameStepName(name, LoadText(nameId)); }

bool NamesProjectSource(const std::string &command) {
    return command.find("%name%.asm") != std::string::npos || command.find("%shortname%.asm") != std::string::npos;
}

}  // namespace

std::string CMessage::GetName() const {
    return tool < 0 ? LoadText(IDS_STEP_PLAIN) : WorkspaceOrNone().GetToolActionName(project, tool);
}

bool CMessage::Execute() {
    const ProjectDirScope scope(project);
    return tool < 0 ? Launch(command, scope.Directory(), kNoParameter) : ExecuteTool(scope.Directory());
}

bool CMessage::ExecuteTool(const std::string &directory) {
    CMainFrame &frame = *CIDEApp::Get().GetMainFrame();
    const boost::shared_ptr<CWorkspace> workspace = CurrentWorkspace();
    if (!workspace) {
        frame.ShowError(LoadText(IDS_NO_WORKSPACE));
        return false;
    }
    outputFiles.clear();
    if (!workspace->FindProject(project)) {
        ArmOpenDocuments();
        return false;
    }
    ToolCommand step;
    step.inputs = workspace->GetSourceFiles(project);
    for (int earlier = 0; earlier < tool; ++earlier)
        if (!workspace->GetOutputFiles(project, earlier, step.inputs)) return false;
    if (!workspace->GetToolCmdLine(project, tool, step)) {
        frame.ShowError(LoadText(IDS_STEP_COMMAND_FAILED, {GetName()}));
        return false;
    }
    logFile = step.logFile;
    outputFiles = step.outputs;
    if (IsStandardStep(GetName(), IDS_STEP_SECOND) && NamesProjectSource(step.command))
        WriteLine(LoadText(IDS_STEP_NAME_WARNING));

    std::string commandLine = step.command;
    frame.ExpandMacros(project, commandLine);
    for (const std::string &line : {std::string(step.title), std::string(), commandLine, std::string()})
        WriteLine(line);
    return Launch(commandLine, directory, step.extra);
}

bool CMessage::Launch(const std::string &commandLine, const std::string &directory, int parameter) {
    DisarmOpenDocuments();
    if (CIDEApp::Get().redirect.RunCommand(commandLine, directory, parameter)) return true;
    WriteLine(LoadText(IDS_STEP_START_FAILED, {GetName()}));
    ArmOpenDocuments();
    return false;
}

bool CMessage::PostProcess() {
    if (!outputFiles.empty()) RefreshOpenDocuments(project, outputFiles);
    const bool complete = CheckOutputs();
    ShowLog();
    if (const boost::shared_ptr<CWorkspace> workspace = CurrentWorkspace();
        workspace && (tool < 0 || IsStandardStep(GetName(), IDS_STEP_FIRST))) {
        CStringList sources = workspace->GetSourceFiles(project);
        const ProjectDirScope scope(project);
        workspace->PreprocessListing(project, sources);
    }
    WriteLine(LoadText(IDS_STEP_DONE));
    WriteLine("");
    return complete;
}

// Tells the first file that is missing.
bool CMessage::CheckOutputs() const {
    for (const std::string &output : outputFiles) {
        const std::string file = PathUnquoteSpacesA(output);
        if (FileExists(file)) continue;
        WriteLine(LoadText(IDS_OUTPUT_MISSING, {DisplayPath(file)}));
        return false;
    }
    return true;
}

// Whole lines only: what stands behind the last line end isn't shown.
void CMessage::ShowLog() const {
    if (logFile.empty()) return;
    const std::optional<std::string> log = ReadWholeFile(PathUnquoteSpacesA(logFile));
    if (!log) return;
    std::string line;
    for (const char c : *log) {
        if (c == '\n') {
            WriteLine(line);
            line.clear();
        } else if (c == '\t') {
            line += "    ";
        } else if (c != '\r') {
            line += c;
        }
    }
}
