#include "BuildPlan.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>

#include <unistd.h>

#include "MakeText.h"
#include "platform/NativePath.h"
#include "platform/PathCalls.h"
#include "platform/Profile.h"
#include "platform/ProgramDirectory.h"

namespace fs = std::filesystem;

namespace {

constexpr const char *kProgramExtensions[] = {".hex", ".cof", ".lst", ".map", ".cod"};

bool IsAbsolute(const std::string &name) {
    return name.starts_with('\\') || name.starts_with('/') || (name.size() > 1 && name[1] == ':');
}

std::string ProjectDirectory(const std::string &project) {
    const SplitPath path = _splitpath(project);
    return path.drive + path.directory;
}

// The native spelling of a name of the project, seen from its directory.
std::string FromProject(const std::string &project, const std::string &name) {
    const std::string directory = ProjectDirectory(project);
    const bool absolute = IsAbsolute(name);
    const std::string file = ToNativePath(absolute ? name : directory + name);
    std::string base = ToNativePath(directory);
    if (!base.ends_with('/')) base += '/';
    std::string relative = file;
    if (file.starts_with(base) && file.size() > base.size()) {
        relative = fs::path(file.substr(base.size())).lexically_normal().string();
    } else if (!absolute) {
        relative = fs::path(file).lexically_normal().lexically_relative(fs::path(base).lexically_normal()).string();
    }
    return relative.starts_with('-') ? "./" + relative : relative;
}

uint32_t Hash(const std::string &text) {
    uint32_t hash = 2166136261u;
    for (const char c : text) hash = (hash ^ static_cast<uint8_t>(c)) * 16777619u;
    return hash;
}

std::string Hexadecimal(uint32_t value) {
    char text[9];
    std::snprintf(text, sizeof text, "%08x", value);
    return text;
}

// A title in letters, digits, "_" and "-" only.
std::string TameTitle(const std::string &title) {
    std::string tame = title;
    for (char &c : tame)
        if (!(c >= 0 && std::isalnum(static_cast<unsigned char>(c))) && c != '_' && c != '-') c = '_';
    return tame;
}

// Objects lie in one directory. A source of the project's own directory gives its title; others, and titles with
// unusual characters, a name that no other source has.
std::string ObjectTitle(const std::string &source) {
    const std::string title = fs::path(source).stem().string();
    const std::string tame = TameTitle(title);
    const bool plain = tame == title && source.find('/') == std::string::npos;
    return plain ? tame : tame + "-" + Hexadecimal(Hash(source));
}

// A library without a directory may be one that comes with the program.
std::string FindLibrary(const std::string &project, const std::string &name) {
    if (!IsAbsolute(name) && !FileExists(ProjectDirectory(project) + name)) {
        const std::string shipped = ProgramFile("Lib") + "\\" + name;
        if (FileExists(shipped)) return ToNativePath(shipped);
    }
    return FromProject(project, name);
}

std::string CheckOptions(const Options &options) {
    for (const std::string &define : options.defines)
        if (std::string error = CheckDefine(define); !error.empty()) return error;
    for (const std::string &path : options.includePaths)
        if (std::string error = CheckIncludePath(path); !error.empty()) return error;
    for (const std::string *extra : {&options.assemblerExtra, &options.linkerExtra})
        if (std::string error = CheckExtra(*extra); !error.empty()) return error;
    return {};
}

std::string CheckTools() {
    for (const char *tool : {"gpasm", "gplink", "gplib"})
        if (FindProgram(tool).empty())
            return std::string("The program \"") + tool + "\" is missing. Install the package \"gputils\".";
    return {};
}

std::string CheckOutputDirectory(const BuildPlan &plan) {
    std::error_code error;
    const fs::path directory = fs::path(plan.directory) / plan.outputDirectory;
    fs::create_directories(directory, error);
    if (error || access(directory.c_str(), W_OK | X_OK) != 0)
        return "The directory " + directory.string() + " can't be written.";
    return {};
}

std::string AddSource(BuildPlan &plan, const std::string &project, const std::string &given) {
    const std::string name = PathUnquoteSpacesA(given);
    const std::string extension = _splitpath(name).extension;
    if (EqualNoCase(extension, ".lib")) {
        plan.libraries.push_back(FindLibrary(project, name));
        return FitsMakefile(plan.libraries.back()) ? "" : "The name of " + DisplayPath(name) + " can't be handled.";
    }
    if (!EqualNoCase(extension, ".asm"))
        return DisplayPath(name) + " is no source of the Assembler toolsuite, which builds .asm and .lib files.";

    PlannedSource source;
    source.source = FromProject(project, name);
    if (!FitsMakefile(source.source)) return "The name of " + DisplayPath(name) + " can't be handled.";
    const std::string title = ObjectTitle(source.source);
    const std::string base = plan.outputDirectory + "/" + title;
    source.object = base + ".o";
    source.rules = base + ".dep";
    if (!EqualNoCase(base, plan.image)) source.listing = base + ".lst";
    source.ownDirectory = fs::path(source.source).parent_path().string();
    plan.sources.push_back(std::move(source));
    return {};
}

std::string OutputTitle(const std::string &project, const std::string &config) {
    return ConfigurationName(project, config) + "\\" + _splitpath(project).name;
}

}  // namespace

std::vector<std::string> BuildPlan::ProgramFiles() const {
    std::vector<std::string> files;
    for (const char *extension : kProgramExtensions) files.push_back(Image(extension));
    return files;
}

std::optional<BuildPlan> PlanBuild(const CStringList &sources, const std::string &project, const std::string &config,
                                   std::string &error) {
    BuildPlan plan;
    if (error = CheckTools(); !error.empty()) return std::nullopt;

    const std::string target = ReadProfileString("Settings", "Target", "", project);
    const Device *device = FindDevice(target.empty() ? "PIC16F628A" : target);
    if (!device) {
        error = "The assembler does not know the target \"" + target + "\". Choose another one in the target dialog.";
        return std::nullopt;
    }
    plan.device = *device;
    plan.options = LoadOptions(project, config);
    if (error = CheckOptions(plan.options); !error.empty()) return std::nullopt;

    const std::string title = _splitpath(project).name;
    plan.directory = ToNativePath(ProjectDirectory(project));
    plan.outputDirectory = ConfigurationName(project, config);
    plan.image = plan.outputDirectory + "/" + title;
    plan.stamp = plan.outputDirectory + "/" + TameTitle(title);
    plan.libraryDirectory = ToNativePath(ProgramFile("Lib"));
    if (!FitsMakefile(plan.image)) {
        error = "The project's name \"" + title + "\" can't be handled.";
        return std::nullopt;
    }
    for (const std::string &path : plan.options.includePaths) plan.includePaths.push_back(FromProject(project, path));
    if (!plan.options.linkerScript.empty()) plan.linkerScript = FromProject(project, plan.options.linkerScript);
    for (const std::string &source : sources)
        if (error = AddSource(plan, project, source); !error.empty()) return std::nullopt;
    if (plan.sources.empty()) {
        error = "The project has no assembler sources. Add at least one .asm file to it.";
        return std::nullopt;
    }
    if (error = CheckOutputDirectory(plan); !error.empty()) return std::nullopt;
    return plan;
}

CStringList ProgramOutputs(const std::string &project, const std::string &config) {
    const std::string title = OutputTitle(project, config);
    return {title + ".hex", title + ".cof", title + ".lst", title + ".map"};
}

std::string LibraryOutput(const std::string &project, const std::string &config) {
    return OutputTitle(project, config) + ".lib";
}

std::string DisassemblyOutput(const std::string &project, const std::string &config) {
    return OutputTitle(project, config) + ".dis";
}
