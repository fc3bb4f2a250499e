#include "bench/peer/Process.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

#include "bench/Measure.h"

namespace {

std::vector<char *> Pointers(const std::vector<std::string> &words) {
    std::vector<char *> pointers;
    for (const std::string &word : words) pointers.push_back(const_cast<char *>(word.c_str()));
    pointers.push_back(nullptr);
    return pointers;
}

std::string ProcFile(pid_t id, const char *name) {
    return "/proc/" + std::to_string(id) + "/" + name;
}

// The process and its descendants, those that still run.
std::vector<pid_t> Family(pid_t root) {
    std::vector<pid_t> family = {root};
    for (size_t i = 0; i < family.size(); ++i) {
        std::error_code gone;
        for (const auto &thread : std::filesystem::directory_iterator(ProcFile(family[i], "task"), gone)) {
            std::ifstream children(thread.path() / "children");
            for (pid_t child; children >> child;) family.push_back(child);
        }
    }
    return family;
}

}  // namespace

void CProcess::Start(const std::vector<std::string> &words, const std::vector<std::string> &environment) {
    const std::vector<char *> arguments = Pointers(words), variables = Pointers(environment);
    const pid_t parent = getpid();
    id_ = fork();
    Require(id_ >= 0, "no further process");
    if (id_ > 0) return;
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent) _exit(127);
    const int nowhere = open("/dev/null", O_RDWR);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) dup2(nowhere, stream);
    execvpe(arguments[0], arguments.data(), variables.data());
    _exit(127);
}

bool CProcess::WaitForEnd(std::chrono::seconds limit) {
    const auto end = std::chrono::steady_clock::now() + limit;
    while (id_ > 0 && std::chrono::steady_clock::now() < end) {
        if (waitpid(id_, nullptr, WNOHANG) == id_)
            id_ = -1;
        else
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return id_ <= 0;
}

void CProcess::Kill() {
    if (id_ <= 0) return;
    kill(id_, SIGKILL);
    waitpid(id_, nullptr, 0);
    id_ = -1;
}

CProcess::Memory CProcess::ReadMemory() const {
    Memory memory{0, 0};
    for (const pid_t each : Family(id_)) {
        std::ifstream file(ProcFile(each, "smaps_rollup"));
        for (std::string line; std::getline(file, line);) {
            std::istringstream words(line);
            std::string name;
            double kibibytes = 0;
            words >> name >> kibibytes;
            if (name == "Rss:") memory.resident += kibibytes * 1024;
            if (name == "Anonymous:") memory.anonymous += kibibytes * 1024;
        }
    }
    Require(memory.resident > 0, "the memory of a program can't be read");
    return memory;
}

long CProcess::ReadCpuTime() const {
    long ticks = 0;
    for (const pid_t each : Family(id_)) {
        std::ifstream file(ProcFile(each, "stat"));
        std::string line;
        std::getline(file, line);
        const size_t name = line.rfind(')');  // the name may have spaces in it
        if (name == std::string::npos) continue;
        std::istringstream words(line.substr(name + 1));
        std::string word;
        for (int field = 3; field <= 13; ++field) words >> word;
        long user = 0, system = 0;
        words >> user >> system;
        ticks += user + system;
    }
    return ticks;
}
