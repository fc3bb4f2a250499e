#include <fcntl.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include "platform/ChildProcess.h"

CStopEvent::CStopEvent() {
    const int made = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    if (made < 0) return;
    // Clear of the numbers of the standard handles, which a child gets anew.
    descriptor_ = fcntl(made, F_DUPFD_CLOEXEC, 3);
    close(made);
}

CStopEvent::~CStopEvent() {
    if (descriptor_ >= 0) close(descriptor_);
}

void CStopEvent::Set() {
    if (descriptor_ >= 0) eventfd_write(descriptor_, 1);
}

void CStopEvent::Reset() {
    eventfd_t count;
    if (descriptor_ >= 0) eventfd_read(descriptor_, &count);
}
