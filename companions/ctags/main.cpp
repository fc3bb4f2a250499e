// ctags.exe: the program's tag generator. Hands over to Universal Ctags and adds what that doesn't know: names in
// sources for the PIC assembler, under the kind letters that the program understands.
//
//   ctags.exe --c-types=<letters> -f <tag file> [-n|-N] [-a] [--recurse=yes] [-L <list>] [sources and directories...]
//
// or with --pascal-types or --basic-types. Names are native ones. The front writes the assembler's tags and gives its
// place to Universal Ctags, which puts the others among them: its exit code, signals and descriptors are the
// generator's own. A line without one of the three options, or without -f, goes to it as it stands. The user's own
// configuration of the generator plays no part. Exit code 127: there is no Universal Ctags; 126: it can't be run.
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <string>
#include <vector>

#include "AssemblerScan.h"
#include "LanguageKinds.h"
#include "SourceList.h"
#include "TagOutput.h"
#include "TagRequest.h"
#include "platform/NativeFile.h"

namespace {

constexpr int kExitNotRunnable = 126;
constexpr int kExitNotFound = 127;

// The name that the package gives it comes first: "ctags" can be another one, if several are installed.
constexpr const char *kGenerators[] = {"ctags-universal", "ctags"};

bool IsSelf(const struct stat &file) {
    struct stat self;
    return stat("/proc/self/exe", &self) == 0 && self.st_dev == file.st_dev && self.st_ino == file.st_ino;
}

// On PATH; empty when there is none.
std::string FindGenerator() {
    const char *path = std::getenv("PATH");
    for (const char *name : kGenerators) {
        std::istringstream directories(path ? path : "");
        for (std::string directory; std::getline(directories, directory, ':');) {
            const std::string program = (directory.empty() ? "." : directory) + "/" + name;
            struct stat file;
            if (stat(program.c_str(), &file) == 0 && S_ISREG(file.st_mode) && access(program.c_str(), X_OK) == 0 &&
                !IsSelf(file)) {
                return program;
            }
        }
    }
    return {};
}

int HandOver(const std::string &generator, std::vector<std::string> words) {
    words.insert(words.begin(), generator);
    std::vector<char *> arguments;
    for (std::string &word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    execv(generator.c_str(), arguments.data());
    std::fprintf(stderr, "ctags.exe: %s can't be run: %s\n", generator.c_str(), std::strerror(errno));
    return kExitNotRunnable;
}

// The tags of the assembler's sources. An include file of a compiler goes to the other sources.
std::vector<std::string> AssemblerLines(const AssemblerKinds &kinds, SourceList &sources) {
    std::vector<std::string> lines;
    for (const std::string &source : sources.assembler) {
        const auto text = ReadNativeFile(source);
        if (!text) continue;
        if (IsIncludeFile(source) && !LooksLikeAssembler(*text)) {
            sources.others.push_back(source);
            continue;
        }
        if (!kinds.Any()) continue;
        for (const AssemblerTag &tag : ScanAssembler(*text, kinds)) {
            std::string line = TagFileLine(tag.name, source, tag.line, tag.kind);
            if (!line.empty()) lines.push_back(std::move(line));
        }
    }
    return lines;
}

// Makes a list the standard input, from a file that has no name.
bool GiveAsInput(const std::vector<std::string> &names) {
    const int list = memfd_create("sources", MFD_CLOEXEC);
    if (list < 0) return false;
    std::string text;
    for (const std::string &name : names)
        if (name.find('\n') == std::string::npos) text += name + "\n";
    for (size_t done = 0; done < text.size();) {
        const ssize_t written = write(list, text.data() + done, text.size() - done);
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        done += static_cast<size_t>(written);
    }
    return lseek(list, 0, SEEK_SET) == 0 && dup2(list, STDIN_FILENO) == STDIN_FILENO;
}

// What the generator is told.
std::vector<std::string> GeneratorWords(const TagRequest &request, bool append) {
    std::vector<std::string> words = {"--quiet=yes", "--options=NONE", "--fields=k", "--pattern-length-limit=0"};
    for (std::string &option : LanguageOptions(request)) words.push_back(std::move(option));
    words.insert(words.end(), request.options.begin(), request.options.end());
    words.insert(words.end(), {"-f", request.output});
    if (append) words.push_back("-a");
    words.insert(words.end(), {"-L", "-"});
    return words;
}

}  // namespace

int main(int argc, char **argv) {
    const std::vector<std::string> words(argv + 1, argv + argc);
    const std::string generator = FindGenerator();
    if (generator.empty()) {
        std::fprintf(stderr,
                     "ctags.exe: there is no \"ctags\" on PATH; Universal Ctags has to be installed (package "
                     "\"universal-ctags\")\n");
        return kExitNotFound;
    }
    const TagRequest request = ReadRequest(words);
    if (request.dialect == TagDialect::none || request.output.empty() || request.output == "-")
        return HandOver(generator, words);

    SourceList sources = ListSources(request);
    DropDamagedOutput(request.output);
    const std::vector<std::string> lines = AssemblerLines(AssemblerKindsFor(request), sources);
    const bool written = !lines.empty() && WriteTagLines(request.output, request.append, lines);
    if (!GiveAsInput(sources.others)) {
        std::fprintf(stderr, "ctags.exe: the list of sources can't be handed over: %s\n", std::strerror(errno));
        return kExitNotRunnable;
    }
    return HandOver(generator, GeneratorWords(request, request.append || written));
}
