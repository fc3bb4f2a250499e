#include "Launched.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <sstream>
#include <thread>

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

namespace {

constexpr auto kLimit = 20s;

bool Drain(int pipe, std::string &text) {
    char buffer[4096];
    const ssize_t size = read(pipe, buffer, sizeof buffer);
    if (size > 0) text.append(buffer, static_cast<size_t>(size));
    return size > 0;
}

}  // namespace

CLaunched::CLaunched(const Words &command, const Options &options) {
    int pipes[3][2];
    for (auto &ends : pipes) EXPECT_EQ(pipe2(ends, O_CLOEXEC), 0);
    pid_ = fork();
    if (pid_ == 0) {
        dup2(pipes[0][0], 0);
        dup2(pipes[1][1], 1);
        dup2(pipes[2][1], 2);
        if (options.inherited >= 0) fcntl(options.inherited, F_SETFD, 0);
        if (!options.directory.empty() && chdir(options.directory.c_str()) != 0) _exit(99);
        for (const auto &[name, value] : options.environment) setenv(name.c_str(), value.c_str(), 1);
        std::vector<char *> arguments;
        for (const auto &word : command) arguments.push_back(const_cast<char *>(word.c_str()));
        arguments.push_back(nullptr);
        execv(arguments[0], arguments.data());
        _exit(98);
    }
    close(pipes[0][0]);
    close(pipes[1][1]);
    close(pipes[2][1]);
    input_ = pipes[0][1];
    output_ = pipes[1][0];
    error_ = pipes[2][0];
    fcntl(output_, F_SETFL, O_NONBLOCK);
    fcntl(error_, F_SETFL, O_NONBLOCK);
}

CLaunched::~CLaunched() {
    for (const int pipe : {input_, output_, error_}) {
        if (pipe >= 0) close(pipe);
    }
}

void CLaunched::WriteInput(const std::string &text) {
    EXPECT_EQ(write(input_, text.data(), text.size()), static_cast<ssize_t>(text.size()));
    close(input_);
    input_ = -1;
}

bool CLaunched::ReadMore() {
    pollfd pipes[] = {{output_, POLLIN, 0}, {error_, POLLIN, 0}};
    poll(pipes, 2, 10);
    const bool any = Drain(output_, output);
    return Drain(error_, error) || any;
}

bool CLaunched::ReadUntil(const std::string &text) {
    for (const auto limit = Clock::now() + kLimit; Clock::now() < limit; ReadMore()) {
        if (output.find(text) != std::string::npos) return true;
    }
    ADD_FAILURE() << "no \"" << text << "\" but: " << output << error;
    return false;
}

int CLaunched::Wait() {
    for (const auto limit = Clock::now() + kLimit; Clock::now() < limit;) {
        ReadMore();
        int status;
        if (waitpid(pid_, &status, WNOHANG) != pid_) continue;
        while (ReadMore()) {
        }
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    ADD_FAILURE() << "doesn't end; read: " << output << error;
    kill(pid_, SIGKILL);
    return -1;
}

Words Pspawn(const Words &command, int stopEvent) {
    Words words = {PSPAWN_FILE, "7", std::to_string(stopEvent)};
    words.insert(words.end(), command.begin(), command.end());
    return words;
}

void AdoptOrphans() {
    prctl(PR_SET_CHILD_SUBREAPER, 1);
}

static void KillChildren() {
    for (const auto &entry : std::filesystem::directory_iterator("/proc")) {
        std::string name, rest;
        std::ifstream stat(entry.path() / "stat");
        if (!std::getline(stat, rest)) continue;
        int parent = 0;
        char state;
        std::istringstream(rest.substr(rest.rfind(')') + 1)) >> state >> parent;
        if (parent == getpid()) kill(std::stoi(entry.path().filename()), SIGKILL);
    }
}

static bool ReapAll() {  // false while one lives
    pid_t pid;
    while ((pid = waitpid(-1, nullptr, WNOHANG)) > 0) {
    }
    return pid < 0;
}

static bool AllEnd(Clock::duration time) {
    const auto limit = Clock::now() + time;
    bool none = ReapAll();
    while (!none && Clock::now() < limit) {
        std::this_thread::sleep_for(5ms);
        none = ReapAll();
    }
    const bool result = none;
    while (!none) {
        KillChildren();
        std::this_thread::sleep_for(5ms);
        none = ReapAll();
    }
    return result;
}

bool NothingLeft() {
    return AllEnd(0s);
}
bool NothingLeftSoon() {
    return AllEnd(kLimit);
}

CScratch::CScratch() {
    std::string name = (std::filesystem::temp_directory_path() / "launchXXXXXX").string();
    root_ = mkdtemp(name.data());
    directory_ = root_ / "two words";
    std::filesystem::create_directory(directory_);
}

CScratch::~CScratch() {
    std::error_code ignored;
    std::filesystem::remove_all(root_, ignored);
}

std::string CScratch::Write(const std::string &name, const std::string &text, int mode) const {
    std::ofstream(directory_ / name, std::ios::binary) << text;
    std::filesystem::permissions(directory_ / name, static_cast<std::filesystem::perms>(mode));
    return Path(name);
}

std::string CScratch::Read(const std::string &name) const {
    std::ostringstream text;
    text << std::ifstream(directory_ / name, std::ios::binary).rdbuf();
    return text.str();
}
