#include "ScratchProject.h"

#include <sys/stat.h>
#include <sys/wait.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

#include "platform/NativePath.h"
#include "platform/Profile.h"

namespace fs = std::filesystem;

const CSharedLibrary &Module() {
    static const CSharedLibrary module = [] {
        setenv("THORNWELL_PROGRAM_DIR", PROGRAM_DIRECTORY, 1);
        return CSharedLibrary(FromNativePath(std::string(PROGRAM_DIRECTORY) + "/assembler.dll"));
    }();
    return module;
}

std::string RunShell(const std::string &command, int *exitCode) {
    std::FILE *pipe = popen((command + " 2>&1").c_str(), "r");
    std::string output;
    char buffer[4096];
    while (const size_t size = std::fread(buffer, 1, sizeof buffer, pipe)) output.append(buffer, size);
    const int status = pclose(pipe);
    if (exitCode) *exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return output;
}

CScratchProject::CScratchProject(const std::string &name, const std::string &target) : title(name) {
    std::string pattern = (fs::temp_directory_path() / "asm test XXXXXX").string();
    directory_ = mkdtemp(pattern.data());
    project = FromNativePath(Path(title + ".__c"));
    config = FromNativePath(Path(title + ".Debug.__f"));
    WritePrivateProfileStringA("Settings", "Target", target.c_str(), project.c_str());
}

CScratchProject::~CScratchProject() {
    std::error_code ignored;
    fs::remove_all(directory_, ignored);
}

void CScratchProject::Write(const std::string &name, const std::string &text) {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));  // behind what a build has just left
    fs::create_directories(fs::path(Path(name)).parent_path());
    std::ofstream(Path(name), std::ios::binary) << text;
}

std::string CScratchProject::Read(const std::string &name) const {
    std::ostringstream text;
    text << std::ifstream(Path(name), std::ios::binary).rdbuf();
    return text.str();
}

bool CScratchProject::Has(const std::string &name) const {
    return fs::exists(Path(name));
}
void CScratchProject::Remove(const std::string &name) {
    fs::remove(Path(name));
}

void CScratchProject::CopyFrom(const std::string &nativeDirectory) {
    for (const auto &entry : fs::directory_iterator(nativeDirectory))
        if (entry.is_regular_file())
            fs::copy_file(entry.path(), Path(entry.path().filename()), fs::copy_options::overwrite_existing);
}

void CScratchProject::SetOption(const std::string &section, const std::string &key, const std::string &value) {
    WritePrivateProfileStringA(section.c_str(), key.c_str(), value.c_str(), config.c_str());
}

bool CScratchProject::Generate(const CStringList &sources) {
    CStringList given = sources;
    outputs_.clear();
    error_.clear();
    std::FILE *file = std::fopen(Path("makefile." + title).c_str(), "w");
    std::fputs("# a header line\n", file);
    const bool done =
        Export<ToolGenMakeFn>("toolGenMake")(&given, &outputs_, file, &error_, project.c_str(), config.c_str());
    std::fclose(file);
    return done;
}

std::string CScratchProject::Make(const std::string &goal) {
    return RunShell("cd '" + directory_ + "' && make -f 'makefile." + title + "' " + goal, &exitCode_);
}

std::string CScratchProject::Build(const CStringList &sources) {
    return Generate(sources) ? Make() : error_;
}

bool CScratchProject::HasOutputs() const {
    if (outputs_.empty()) return false;
    for (const std::string &file : outputs_)
        if (!Has(ToNativePath(file))) return false;
    return true;
}
