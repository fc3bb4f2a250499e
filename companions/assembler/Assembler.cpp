// The toolsuite "Assembler": what the host calls, over the parts that know gpasm, gplink and make.
#include <QMessageBox>
#include <cstring>
#include <exception>
#include <span>
#include <type_traits>

#include "BuildPlan.h"
#include "DeviceList.h"
#include "Keywords.h"
#include "Makefile.h"
#include "NewFiles.h"
#include "Options.h"
#include "OptionsDialog.h"
#include "Steps.h"
#include "TargetDialog.h"
#include "platform/ChildProcess.h"
#include "platform/FileText.h"
#include "platform/NativePath.h"
#include "platform/PathCalls.h"
#include "platform/Profile.h"
#include "platform/ProgramDirectory.h"
#include "project/ToolsuiteApi.h"

#define TOOL_EXPORT extern "C" [[gnu::visibility("default")]]
#define CHECK_EXPORT(name, type) static_assert(std::is_same_v<decltype(name), type>)

namespace {

constexpr const char *kDefaultTarget = "PIC16F628A";
constexpr const char *kSourceFilter = "Asm Files (*.asm)|*.asm|";
constexpr size_t kOutputFilterSize = 1024;  // of the host's buffer
constexpr int kAssemblerLanguage = 2;
constexpr int kCallTreeWindow = 1, kFunctionInfoWindow = 2;
constexpr int kTargetChosen = 1, kTargetKept = 2;

// No exception may leave the library: a call that can't be done gives the neutral answer.
template <typename Result, typename Call>
Result Guarded(Result neutral, Call call) {
    try {
        return call();
    } catch (const std::exception &) {
        return neutral;
    }
}

// A text result stays valid until the next call.
const char *Keep(std::string text) {
    static std::string kept;
    kept = std::move(text);
    return kept.c_str();
}

std::string ProjectTarget(const std::string &project) {
    const std::string target = ReadProfileString("Settings", "Target", "", project);
    return target.empty() ? kDefaultTarget : target;
}

std::string lastProcessor = "p16f628a";  // of the project that was asked about last, for the text of a new source

void RememberTarget(const std::string &target) {
    if (const Device *device = FindDevice(target)) lastProcessor = device->processor;
}

MakefileGoals GoalsOf(const std::string &project) {
    return {IsStepActive(Step::link, project), IsStepActive(Step::library, project),
            IsStepActive(Step::disassemble, project), IsStepActive(Step::memoryUsage, project)};
}

// What a build must leave: the images, or at least the objects.
CStringList DeclaredOutputs(const BuildPlan &plan, const MakefileGoals &goals, const std::string &project,
                            const std::string &config) {
    CStringList files;
    if (goals.link) files = ProgramOutputs(project, config);
    if (goals.library) files.push_back(LibraryOutput(project, config));
    if (goals.link && goals.disassemble) files.push_back(DisassemblyOutput(project, config));
    if (files.empty())
        for (const PlannedSource &source : plan.sources) files.push_back(FromNativePath(source.object));
    return files;
}

std::string OptionsDirectory(const std::string &project) {
    const SplitPath path = _splitpath(project);
    return path.drive + path.directory;
}

// The makefile of the single steps, beside the images: the host's own is only there after a build.
bool WriteStepMakefile(const CStringList &sources, const std::string &project, const std::string &config,
                       std::string &name, std::string &error) {
    const std::optional<BuildPlan> plan = PlanBuild(sources, project, config, error);
    if (!plan) return false;
    name = plan->stamp + ".mak";
    return ReplaceWholeFile(OptionsDirectory(project) + FromNativePath(name), MakefileText(*plan, GoalsOf(project)));
}

CStringList SourcesAmong(const CStringList &files) {
    CStringList sources;
    for (const std::string &file : files) {
        const std::string extension = _splitpath(PathUnquoteSpacesA(file)).extension;
        if (EqualNoCase(extension, ".asm") || EqualNoCase(extension, ".lib")) sources.push_back(file);
    }
    return sources;
}

}  // namespace

TOOL_EXPORT int toolGetToolName(CString *name) {
    return Guarded(0, [&] {
        *name = "Assembler";
        return 1;
    });
}
CHECK_EXPORT(toolGetToolName, ToolGetToolNameFn);

TOOL_EXPORT int toolConfigure(const char *project, const char *config, QWidget *parent, QWidget **pages,
                              int pageCount) {
    return Guarded(0, [&] {
        COptionsDialog dialog(LoadOptions(project, config), ConfigurationName(project, config),
                              OptionsDirectory(project), std::span(pages, pages ? static_cast<size_t>(pageCount) : 0),
                              parent);
        while (dialog.exec() == QDialog::Accepted) {
            if (SaveOptions(dialog.Result(), config)) return 1;
            QMessageBox::critical(parent, dialog.windowTitle(),
                                  QString("The options can't be written to %1.").arg(DisplayPath(config).c_str()));
        }
        return 0;
    });
}
CHECK_EXPORT(toolConfigure, ToolConfigureFn);

TOOL_EXPORT int toolTarget(const char *, QWidget *parent, CString *target) {
    return Guarded(kTargetKept, [&] {
        CTargetDialog dialog(*target, parent);
        if (dialog.exec() != QDialog::Accepted || dialog.Target().empty()) return kTargetKept;
        *target = dialog.Target();
        RememberTarget(*target);
        return kTargetChosen;
    });
}
CHECK_EXPORT(toolTarget, ToolTargetFn);

TOOL_EXPORT int toolIsValidTarget(const char *, const char *target) {
    return Guarded(0, [&] {
        if (!target) return 0;
        if (Devices().empty()) return 1;  // no assembler, which the build tells; no reason to change the target
        if (!FindDevice(target)) return 0;
        RememberTarget(target);
        return 1;
    });
}
CHECK_EXPORT(toolIsValidTarget, ToolIsValidTargetFn);

TOOL_EXPORT const char *toolGetDefTarget(const char *, CString *) {
    return kDefaultTarget;
}
CHECK_EXPORT(toolGetDefTarget, ToolGetDefTargetFn);

TOOL_EXPORT int16_t toolGetToolsNumber() {
    return kStepCount;
}
CHECK_EXPORT(toolGetToolsNumber, ToolGetToolsNumberFn);

TOOL_EXPORT void toolSetActive(int step, int active, int, const char *project) {
    Guarded(0, [&] {
        if (FindStep(step)) SetStepActive(static_cast<Step>(step), active != 0, project);
        return 0;
    });
}
CHECK_EXPORT(toolSetActive, ToolSetActiveFn);

TOOL_EXPORT int toolGetActive(int step, const char *project) {
    return Guarded(0, [&] { return FindStep(step) && IsStepActive(static_cast<Step>(step), project) ? 1 : 0; });
}
CHECK_EXPORT(toolGetActive, ToolGetActiveFn);

TOOL_EXPORT const char *toolGetToolActionName(int step) {
    const StepInfo *info = FindStep(step);
    return info ? info->name : "";
}
CHECK_EXPORT(toolGetToolActionName, ToolGetToolActionNameFn);

TOOL_EXPORT const char *toolGetQuickProjectFilter() {
    return kSourceFilter;
}
CHECK_EXPORT(toolGetQuickProjectFilter, ToolGetQuickProjectFilterFn);

TOOL_EXPORT const char *toolGetFilterName() {
    return "Asm Files (*.asm)";
}
CHECK_EXPORT(toolGetFilterName, ToolGetFilterNameFn);

TOOL_EXPORT const char *toolGetFilterExt() {
    return ".asm";
}
CHECK_EXPORT(toolGetFilterExt, ToolGetFilterExtFn);

TOOL_EXPORT const char *toolGetHeaderExt() {
    return ".inc";
}
CHECK_EXPORT(toolGetHeaderExt, ToolGetHeaderExtFn);

TOOL_EXPORT const char *toolEmptyHdrContent(const char *title) {
    return Guarded("", [&] { return Keep(NewHeaderText(title)); });
}
CHECK_EXPORT(toolEmptyHdrContent, ToolEmptyContentFn);

TOOL_EXPORT const char *toolEmptySrcContent(const char *title) {
    return Guarded("", [&] { return Keep(NewSourceText(title, lastProcessor)); });
}
CHECK_EXPORT(toolEmptySrcContent, ToolEmptyContentFn);

TOOL_EXPORT const char *toolGetFileOpenFilter() {
    return "Assembler Files|*.asm;*.inc;*.lib;*.lkr|Asm Files (*.asm)|*.asm|Include Files (*.inc)|*.inc|"
           "Libraries (*.lib)|*.lib|Linker Scripts (*.lkr)|*.lkr|All Files (*.*)|*.*|";
}
CHECK_EXPORT(toolGetFileOpenFilter, ToolGetFileOpenFilterFn);

TOOL_EXPORT void toolLoaded() {
    Guarded(0, [] { return static_cast<int>(Devices().size()); });  // the first question about a target is then quick
}
CHECK_EXPORT(toolLoaded, ToolLoadedFn);

TOOL_EXPORT int toolGenMake(CStringList *sources, CStringList *outputs, FILE *makefile, CString *error,
                            const char *project, const char *config) {
    return Guarded(0, [&] {
        const std::optional<BuildPlan> plan = PlanBuild(*sources, project, config, *error);
        if (!plan) return 0;
        const MakefileGoals goals = GoalsOf(project);
        const std::string text = MakefileText(*plan, goals);
        if (std::fwrite(text.data(), 1, text.size(), makefile) != text.size() || std::fflush(makefile) != 0) {
            *error = "The makefile can't be written.";
            return 0;
        }
        *outputs = DeclaredOutputs(*plan, goals, project, config);
        RememberTarget(ProjectTarget(project));
        return 1;
    });
}
CHECK_EXPORT(toolGenMake, ToolGenMakeFn);

TOOL_EXPORT int toolGenMakeAttr(CString *arguments, const char *) {
    return Guarded(0, [&] {
        arguments->clear();
        return 1;
    });
}
CHECK_EXPORT(toolGenMakeAttr, ToolGenMakeAttrFn);

TOOL_EXPORT int toolGetOutputFiles(int step, CStringList *files, const char *project, const char *config) {
    return Guarded(0, [&] {
        if (!FindStep(step)) return 0;
        switch (static_cast<Step>(step)) {
            case Step::assemble: {
                std::string ignored;
                const auto plan = PlanBuild(SourcesAmong(*files), project, config, ignored);
                if (!plan) return 1;  // the step itself tells why
                for (const PlannedSource &source : plan->sources) files->push_back(FromNativePath(source.object));
                break;
            }
            case Step::link:
                files->splice(files->end(), ProgramOutputs(project, config));
                break;
            case Step::library:
                files->push_back(LibraryOutput(project, config));
                break;
            case Step::disassemble:
                files->push_back(DisassemblyOutput(project, config));
                break;
            case Step::memoryUsage:
                break;
        }
        return 1;
    });
}
CHECK_EXPORT(toolGetOutputFiles, ToolGetOutputFilesFn);

TOOL_EXPORT int toolGetToolCmdLine(int step, CString *command, CString *log, CString *title, CStringList *inputs,
                                   CStringList *outputs, CStringList *further, int32_t *extra, const char *project,
                                   const char *config) {
    return Guarded(0, [&] {
        const StepInfo *info = FindStep(step);
        if (!info) return 0;
        const CStringList sources = SourcesAmong(*inputs);
        std::string makefile, error;
        log->clear();
        further->clear();
        outputs->clear();
        *extra = -1;
        *title = info->name;
        if (!WriteStepMakefile(sources, project, config, makefile, error)) {
            if (error.empty()) error = "The step's makefile can't be written.";
            *command = "asmtool.exe fail " + QuoteWord(error);  // says so where the user looks
            return 1;
        }
        const std::string rebuild = static_cast<Step>(step) == Step::assemble ? "-a " : "";
        *command = "twmake.exe -c -f " + makefile + " " + rebuild + info->goal;
        if (static_cast<Step>(step) == Step::assemble) *outputs = sources;
        toolGetOutputFiles(step, outputs, project, config);
        if (static_cast<Step>(step) == Step::assemble)
            outputs->erase(outputs->begin(), std::next(outputs->begin(), static_cast<std::ptrdiff_t>(sources.size())));
        return 1;
    });
}
CHECK_EXPORT(toolGetToolCmdLine, ToolGetToolCmdLineFn);

TOOL_EXPORT void toolGetDefOutputFilter(char *buffer, const char *) {
    std::strncpy(buffer, "%config%/%name%.lst;%config%/%name%.map;%config%/%name%.hex", kOutputFilterSize - 1);
    buffer[kOutputFilterSize - 1] = '\0';
}
CHECK_EXPORT(toolGetDefOutputFilter, ToolGetDefOutputFilterFn);

TOOL_EXPORT int toolGetKeywords(int kind, CString *keywords) {
    return Guarded(0, [&] {
        if (kind != kAssemblerLanguage) return 0;
        *keywords = AssemblerKeywords();
        return 1;
    });
}
CHECK_EXPORT(toolGetKeywords, ToolGetKeywordsFn);

TOOL_EXPORT int toolSupportedCodeWindowType(int type) {
    return type == kCallTreeWindow || type == kFunctionInfoWindow;
}
CHECK_EXPORT(toolSupportedCodeWindowType, ToolSupportedCodeWindowTypeFn);
