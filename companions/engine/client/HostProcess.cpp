#include "HostProcess.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "platform/NativePath.h"
#include "platform/ProgramDirectory.h"

namespace {

constexpr char kProgram[] = "simhost.exe";
constexpr int kEndLimit = 5000;  // milliseconds for all processes of a run to end

// Descriptors that are handed over lie above the numbers that they get in the new program.
int MoveUp(int descriptor) {
    if (descriptor < 0) return -1;
    const int moved = fcntl(descriptor, F_DUPFD_CLOEXEC, kMemoryDescriptor + 1);
    close(descriptor);
    return moved;
}

void CloseIt(int &descriptor) {
    if (descriptor >= 0) close(descriptor);
    descriptor = -1;
}

// The file for the program's error output, which exists and can be written.
const char *LogFile() {
    const char *const log = getenv("THORNWELL_SIMHOST_LOG");
    const int file = log && *log ? open(log, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644) : -1;
    if (file < 0) return "/dev/null";
    close(file);
    return log;
}

// What posix_spawn is told.
struct SpawnPlan {
    posix_spawn_file_actions_t actions;
    posix_spawnattr_t attributes;

    SpawnPlan() {
        posix_spawn_file_actions_init(&actions);
        posix_spawnattr_init(&attributes);
    }
    ~SpawnPlan() {
        posix_spawn_file_actions_destroy(&actions);
        posix_spawnattr_destroy(&attributes);
    }
    bool Make(int life, int memory) {
        const char *const log = LogFile();
        sigset_t none, all;
        sigemptyset(&none);
        sigfillset(&all);
        return posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0) == 0 &&
               posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0) == 0 &&
               posix_spawn_file_actions_addopen(&actions, 2, log, O_WRONLY | O_APPEND, 0) == 0 &&
               posix_spawn_file_actions_adddup2(&actions, life, kLifeDescriptor) == 0 &&
               posix_spawn_file_actions_adddup2(&actions, memory, kMemoryDescriptor) == 0 &&
               posix_spawn_file_actions_addclosefrom_np(&actions, kMemoryDescriptor + 1) == 0 &&
               posix_spawnattr_setsigmask(&attributes, &none) == 0 &&
               posix_spawnattr_setsigdefault(&attributes, &all) == 0 &&
               posix_spawnattr_setflags(&attributes,
                                        POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSID) == 0;
    }
};

}  // namespace

CHostProcess::~CHostProcess() {
    End();
    CloseIt(pidDescriptor_);
    if (block_) munmap(block_, sizeof(SharedBlock));
}

bool CHostProcess::MakeMemory(int &memory) {
    memory = MoveUp(memfd_create("thornwell-simulator", MFD_CLOEXEC));
    if (memory < 0 || ftruncate(memory, sizeof(SharedBlock)) != 0) return false;
    void *const mapped = mmap(nullptr, sizeof(SharedBlock), PROT_READ | PROT_WRITE, MAP_SHARED, memory, 0);
    if (mapped == MAP_FAILED) return false;
    block_ = static_cast<SharedBlock *>(mapped);
    return true;
}

bool CHostProcess::Start(std::string &error) {
    int life[2] = {-1, -1}, memory = -1;
    bool good = socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, life) == 0 && MakeMemory(memory);
    life[1] = MoveUp(life[1]);
    life_ = life[0];
    if (!good || life[1] < 0) {
        error = "The simulator can't be reached: ";
        error += strerror(errno);
        good = false;
    }
    good = good && Spawn(life[1], memory, error);
    CloseIt(life[1]);
    CloseIt(memory);
    return good;
}

bool CHostProcess::Spawn(int life, int memory, std::string &error) {
    const std::string program = FindProgram(kProgram);
    if (program.empty()) {
        error = "The simulator (";
        error += kProgram;
        error += ") is missing in " + DisplayPath(ProgramDirectory()) + ".";
        return false;
    }
    SpawnPlan plan;
    char name[sizeof kProgram];
    memcpy(name, kProgram, sizeof kProgram);
    char *const arguments[] = {name, nullptr};
    pid_t pid = -1;
    const int fault = plan.Make(life, memory)
                          ? posix_spawn(&pid, program.c_str(), &plan.actions, &plan.attributes, arguments, environ)
                          : EINVAL;
    if (fault != 0) {
        error = "The simulator (" + program + ") can't be started: " + strerror(fault);
        return false;
    }
    pid_ = pid;
    pidDescriptor_ = static_cast<int>(syscall(SYS_pidfd_open, pid, 0));
    return pidDescriptor_ >= 0;
}

bool CHostProcess::IsThere() const {
    if (pidDescriptor_ < 0 || !block_ || block_->gone != 0) return false;
    pollfd wait{pidDescriptor_, POLLIN, 0};
    return poll(&wait, 1, 0) == 0;
}

void CHostProcess::End() {
    CloseIt(life_);
    if (pid_ <= 0) return;
    pollfd wait{pidDescriptor_, POLLIN, 0};
    int ready = 0;
    do ready = pidDescriptor_ >= 0 ? poll(&wait, 1, kEndLimit) : 0;
    while (ready < 0 && errno == EINTR);
    if (ready <= 0) kill(pid_, SIGKILL);
    while (waitpid(pid_, nullptr, 0) < 0 && errno == EINTR) {
    }
    pid_ = -1;
    // The root has seen to all others, unless it was ended from outside.
    if (block_) block_->DismissSnapshots();
}
