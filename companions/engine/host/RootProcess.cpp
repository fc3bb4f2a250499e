#include "RootProcess.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

#include "Server.h"
#include "protocol/SharedBlock.h"

namespace {

SharedBlock *MapBlock() {
    struct stat status;
    if (fstat(kMemoryDescriptor, &status) != 0 || status.st_size < static_cast<off_t>(sizeof(SharedBlock)))
        return nullptr;
    void *memory = mmap(nullptr, sizeof(SharedBlock), PROT_READ | PROT_WRITE, MAP_SHARED, kMemoryDescriptor, 0);
    return memory == MAP_FAILED ? nullptr : static_cast<SharedBlock *>(memory);
}

// The user's Ctrl+C is for the debugger. Children are collected by the system: nobody asks for their exit codes.
void SetSignals() {
    for (const int number : {SIGINT, SIGQUIT, SIGHUP, SIGPIPE, SIGCHLD}) signal(number, SIG_IGN);
}

// True when the debugger is gone, false when the live process is.
bool WaitForAnEnd(const SharedBlock &block) {
    for (;;) {
        const pid_t live = block.livePid;
        const int descriptor = static_cast<int>(syscall(SYS_pidfd_open, live, 0));
        if (descriptor < 0 && live == block.livePid) return false;
        pollfd waits[] = {{kLifeDescriptor, POLLIN, 0}, {descriptor, POLLIN, 0}};
        while (descriptor >= 0 && poll(waits, 2, -1) < 0 && errno == EINTR) {
        }
        if (descriptor >= 0) close(descriptor);
        if (waits[0].revents != 0) return true;
        // A step back hands over to another process before the old one ends.
        if (live == block.livePid) return false;
    }
}

}  // namespace

int RunRootProcess() {
    SharedBlock *const block = MapBlock();
    int life[2];
    if (!block || pipe2(life, O_CLOEXEC) != 0) return 2;
    SetSignals();
    prctl(PR_SET_CHILD_SUBREAPER, 1);

    const pid_t root = getpid();
    const pid_t first = fork();
    if (first < 0) return 2;
    if (first == 0) {
        setpgid(0, 0);
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (getppid() != root) _exit(0);
        close(life[1]);
        close(kLifeDescriptor);
        CServer(*block, kMemoryDescriptor, life[0]).Run();
    }
    setpgid(first, first);
    close(life[0]);
    block->livePid = first;

    const bool asked = WaitForAnEnd(*block);
    block->gone = 1;
    block->toCaller.Ring();
    block->toEngine.Ring();
    kill(-first, SIGKILL);
    while (wait(nullptr) >= 0 || errno == EINTR) {
    }
    return asked ? 0 : 1;
}
