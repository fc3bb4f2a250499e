#include "platform/ChildProcess.h"

#include <fcntl.h>
#include <linux/close_range.h>
#include <poll.h>
#include <signal.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "platform/ChildReaper.h"
#include "platform/NativePath.h"
#include "platform/PathCalls.h"
#include "platform/ProgramDirectory.h"

namespace {

CChildReaper &Reaper() {
    static CChildReaper reaper;
    return reaper;
}

void CloseIt(int &descriptor) {
    if (descriptor >= 0) close(descriptor);
    descriptor = -1;
}

// A pipe whose ends are closed at exec and lie above the standard handles.
bool MakePipe(int (&ends)[2]) {
    if (pipe2(ends, O_CLOEXEC) != 0) return false;
    for (int &end : ends) {
        if (end > 2) continue;
        const int moved = fcntl(end, F_DUPFD_CLOEXEC, 3);
        if (moved < 0) return false;
        close(std::exchange(end, moved));
    }
    return true;
}

// The pipes between parent and child; what isn't taken out is closed.
struct Pipes {
    int standard[3][2] = {{-1, -1}, {-1, -1}, {-1, -1}};
    int fault[2] = {-1, -1};  // carries errno when the program can't be run, and ends when it runs

    ~Pipes() {
        for (auto &ends : standard)
            for (int &end : ends) CloseIt(end);
        for (int &end : fault) CloseIt(end);
    }
    bool Make() { return MakePipe(standard[0]) && MakePipe(standard[1]) && MakePipe(standard[2]) && MakePipe(fault); }
    int ChildEnd(int handle) const { return standard[handle][handle == 0 ? 0 : 1]; }
    int &ParentEnd(int handle) { return standard[handle][handle == 0 ? 1 : 0]; }
};

// Between fork and exec: nothing here may allocate or lock.
[[noreturn]] void BecomeProgram(const Pipes &pipes, const char *program, char *const *arguments, const char *directory,
                                int inherited) {
    setsid();
    struct sigaction standard = {};
    standard.sa_handler = SIG_DFL;
    for (int signal = 1; signal < NSIG; ++signal) sigaction(signal, &standard, nullptr);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);

    bool good = true;
    for (int handle = 0; handle < 3 && good; ++handle) good = dup2(pipes.ChildEnd(handle), handle) >= 0;
    good = good && close_range(3, ~0u, CLOSE_RANGE_CLOEXEC) == 0;
    if (good && inherited >= 0) good = fcntl(inherited, F_SETFD, 0) == 0;
    if (good && *directory) good = chdir(directory) == 0;
    if (good) execv(program, arguments);
    const int fault = errno;
    if (write(pipes.fault[1], &fault, sizeof fault) < 0) _exit(126);
    _exit(127);
}

// The code of a child that ended, collecting it; empty while it runs. `known` tells whether there was a child at all.
std::optional<int> Collect(int pid, int flags, bool &known) {
    int status = 0;
    pid_t result;
    do result = waitpid(pid, &status, flags);
    while (result < 0 && errno == EINTR);
    known = result >= 0;
    if (result <= 0) return {};
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

}  // namespace

CChildProcess::~CChildProcess() {
    for (int &end : pipes_) CloseIt(end);
    if (pid_ > 0 && !HasEnded()) Reaper().Adopt(pid_, std::exchange(pidDescriptor_, -1));
    CloseIt(pidDescriptor_);
}

bool CChildProcess::Start(const std::vector<std::string> &arguments, const std::string &directory, int inherited) {
    if (pid_ != -1 || arguments.empty() || (inherited >= 0 && inherited < 3)) return false;
    std::string program = FindProgram(arguments.front());
    if (program.empty()) return false;
    if (!program.starts_with('/')) {
        // As seen from here, not from the child's directory.
        program = NativePathAsSpelled(GetCurrentDirectoryA()) + "/" + program;
    }
    Pipes pipes;
    if (!pipes.Make()) return false;
    const std::string nativeDirectory = ToNativePath(directory);
    std::vector<char *> pointers{program.data()};
    for (size_t i = 1; i < arguments.size(); ++i) pointers.push_back(const_cast<char *>(arguments[i].c_str()));
    pointers.push_back(nullptr);

    // No handler of this program may run in the child before its signals are reset.
    sigset_t all, before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    const pid_t pid = fork();
    if (pid == 0) BecomeProgram(pipes, program.c_str(), pointers.data(), nativeDirectory.c_str(), inherited);
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    if (pid < 0) return false;

    CloseIt(pipes.fault[1]);
    int fault = 0;
    ssize_t count;
    do count = read(pipes.fault[0], &fault, sizeof fault);
    while (count < 0 && errno == EINTR);
    const int descriptor = count == 0 ? static_cast<int>(syscall(SYS_pidfd_open, pid, 0)) : -1;
    if (descriptor < 0) {
        bool known;
        if (count == 0) kill(pid, SIGKILL);
        Collect(pid, 0, known);
        return false;
    }
    pid_ = pid;
    pidDescriptor_ = descriptor;
    for (int handle = 0; handle < 3; ++handle) {
        pipes_[handle] = std::exchange(pipes.ParentEnd(handle), -1);
        fcntl(pipes_[handle], F_SETFL, fcntl(pipes_[handle], F_GETFL) | O_NONBLOCK);
    }
    return true;
}

size_t CChildProcess::Read(Pipe pipe, char *buffer, size_t size) {
    int &end = pipes_[pipe == Pipe::output ? 1 : 2];
    if (end < 0 || size == 0) return 0;
    ssize_t count;
    do count = read(end, buffer, size);
    while (count < 0 && errno == EINTR);
    if (count > 0) return static_cast<size_t>(count);
    if (count == 0 || errno != EAGAIN) CloseIt(end);
    return 0;
}

void CChildProcess::WaitForData(std::chrono::milliseconds limit) {
    // Closed ends are -1 and passed over.
    pollfd waits[] = {{pipes_[1], POLLIN, 0}, {pipes_[2], POLLIN, 0}, {pidDescriptor_, POLLIN, 0}};
    const auto time = std::clamp<std::chrono::milliseconds::rep>(limit.count(), 0, 1 << 30);
    poll(waits, std::size(waits), static_cast<int>(time));
}

bool CChildProcess::HasEnded() {
    if (pid_ <= 0 || exitCode_ || pidDescriptor_ < 0) return true;
    bool known = true;
    exitCode_ = Collect(pid_, WNOHANG, known);
    if (!known) CloseIt(pidDescriptor_);  // someone else collected it
    return exitCode_ || !known;
}

void CChildProcess::Kill() {
    if (!HasEnded()) kill(pid_, SIGKILL);
}

std::optional<int> CChildProcess::WaitForExit() {
    if (!HasEnded()) {
        bool known;
        exitCode_ = Collect(pid_, 0, known);
        if (!known) CloseIt(pidDescriptor_);
    }
    return exitCode_;
}
