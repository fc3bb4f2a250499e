#include "Launcher.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/signalfd.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace {

constexpr int kParentPollMs = 500;  // where the system has no descriptors for processes

bool IsEvent(int descriptor) {
    struct stat status;
    if (descriptor <= STDERR_FILENO || fstat(descriptor, &status) != 0) return false;
    return (status.st_mode & S_IFMT) == 0 || S_ISFIFO(status.st_mode) || S_ISSOCK(status.st_mode);
}

// Readable once the process has ended; -1 where it can't be had.
int OpenProcess(pid_t pid) {
    return static_cast<int>(syscall(SYS_pidfd_open, pid, 0));
}

bool IsIgnored(int signal) {
    struct sigaction action;
    return sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

// In the foreground of a terminal the command belongs to the launcher's own group, or it could neither read the
// terminal nor be interrupted from it.
bool HasTerminal() {
    return isatty(STDIN_FILENO) && tcgetpgrp(STDIN_FILENO) == getpgrp();
}

}  // namespace

CLauncher::CLauncher(int stopEvent)
    : parent_(getppid()), stopEvent_(IsEvent(stopEvent) ? stopEvent : -1), parentDescriptor_(OpenProcess(parent_)) {
    close_range(STDERR_FILENO + 1, ~0U, CLOSE_RANGE_CLOEXEC);
    WatchSignals();
}

void CLauncher::WatchSignals() {
    signal(SIGCHLD, SIG_DFL);
    signal(SIGPIPE, SIG_IGN);
    sigset_t watched;
    sigemptyset(&watched);
    sigaddset(&watched, SIGCHLD);
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
        if (!IsIgnored(number)) sigaddset(&watched, number);
    }
    sigprocmask(SIG_SETMASK, &watched, nullptr);
    signals_ = signalfd(-1, &watched, SFD_CLOEXEC | SFD_NONBLOCK);
}

void CLauncher::Execute(const LaunchCommand &command, int report) const {
    if (!HasTerminal()) setpgid(0, 0);
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    signal(SIGPIPE, SIG_DFL);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);

    std::vector<char *> arguments;
    for (const std::string &argument : command.arguments) arguments.push_back(const_cast<char *>(argument.c_str()));
    arguments.push_back(nullptr);
    execv(command.file.c_str(), arguments.data());

    const int code = errno;
    [[maybe_unused]] const ssize_t written = write(report, &code, sizeof code);
    _exit(kExitNotRunnable);
}

pid_t CLauncher::Start(const LaunchCommand &command, std::string &error) {
    int report[2];  // closed by a successful exec, else it tells the error number
    if (pipe2(report, O_CLOEXEC) != 0) {
        error = std::strerror(errno);
        return -1;
    }
    const pid_t pid = fork();
    if (pid == 0) Execute(command, report[1]);
    int code = pid < 0 ? errno : 0;
    close(report[1]);
    if (pid > 0 && read(report[0], &code, sizeof code) <= 0) code = 0;
    close(report[0]);
    if (code == 0) return pid;

    error = command.arguments[0] + ": can't be run: ";
    error += code == ENOENT ? "the interpreter that it names is missing" : std::strerror(code);
    return -1;
}

bool CLauncher::WaitForEvent() {
    pollfd events[] = {{signals_, POLLIN, 0}, {stopEvent_, POLLIN, 0}, {parentDescriptor_, POLLIN, 0}};
    if (poll(events, std::size(events), parentDescriptor_ < 0 ? kParentPollMs : -1) < 0) return errno == EINTR;

    if (events[1].revents & (POLLIN | POLLHUP)) return false;
    if (events[1].revents) stopEvent_ = -1;  // no event after all
    if (events[2].revents || getppid() != parent_) return false;

    signalfd_siginfo signal;
    while (read(signals_, &signal, sizeof signal) == sizeof signal) {
        if (signal.ssi_signo != SIGCHLD) return false;
    }
    return true;
}

int CLauncher::Run(const LaunchCommand &command, std::string &error) {
    const pid_t pid = Start(command, error);
    if (pid < 0) return kExitNotRunnable;

    tree_.SetMain(pid);
    while (WaitForEvent()) {
        tree_.Reap();
        if (const auto exitCode = tree_.ExitCode()) return *exitCode;
    }
    if (!tree_.End()) error = std::to_string(Descendants().size()) + " processes of the command can't be ended";
    return tree_.ExitCode().value_or(128 + SIGKILL);
}
