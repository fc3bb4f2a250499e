#include "platform/ChildReaper.h"

#include <poll.h>
#include <signal.h>
#include <sys/eventfd.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdint>
#include <system_error>

CChildReaper::~CChildReaper() {
    if (thread_.joinable()) {
        {
            const std::lock_guard guard(lock_);
            ending_ = true;
        }
        eventfd_write(wake_, 1);
        thread_.join();
    }
    for (const Child &child : children_) close(child.descriptor);
    if (wake_ >= 0) close(wake_);
}

void CChildReaper::Adopt(int pid, int pidDescriptor) {
    const std::lock_guard guard(lock_);
    children_.push_back({pid, pidDescriptor});
    if (thread_.joinable() || Begin()) eventfd_write(wake_, 1);
}

bool CChildReaper::Begin() {
    if (wake_ < 0) wake_ = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    if (wake_ < 0) return false;
    // The program's signals are for its other threads.
    sigset_t all, before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    try {
        thread_ = std::thread(&CChildReaper::Run, this);
    } catch (const std::system_error &) {
    }
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    return thread_.joinable();
}

void CChildReaper::Run() {
    for (;;) {
        std::vector<pollfd> waits;
        {
            const std::lock_guard guard(lock_);
            if (ending_) return;
            std::erase_if(children_, [](const Child &child) {
                if (waitpid(child.pid, nullptr, WNOHANG) == 0) return false;
                close(child.descriptor);
                return true;
            });
            for (const Child &child : children_) waits.push_back({child.descriptor, POLLIN, 0});
        }
        waits.push_back({wake_, POLLIN, 0});
        poll(waits.data(), waits.size(), -1);
        eventfd_t count;
        eventfd_read(wake_, &count);
    }
}
