// One run of a command.
#pragma once

#include <sys/types.h>

#include "LaunchCommand.h"
#include "ProcessTree.h"

// Starts a command and stays until it ends, or ends it with everything that it started when
//  - the stop event is set,
//  - the process that started the launcher ends, or
//  - SIGINT, SIGTERM or SIGHUP comes, unless it came in ignored.
// What a command leaves running when it ends by itself is left alone. Single-threaded; one object per process, made
// before anything else opens a descriptor.
class CLauncher {
 public:
    // `stopEvent`: an inherited descriptor that is readable once set (event, pipe or socket), or whose other end is
    // closed; anything else means that there is no event. It doesn't reach the command.
    explicit CLauncher(int stopEvent);

    // The exit code: the command's own, 128 + n when signal n ended it, 126 when it can't be run (`error` tells why).
    int Run(const LaunchCommand &command, std::string &error);

 private:
    void WatchSignals();
    pid_t Start(const LaunchCommand &command, std::string &error);
    [[noreturn]] void Execute(const LaunchCommand &command, int report) const;
    bool WaitForEvent();  // false when the command has to be ended

    const pid_t parent_;
    int stopEvent_;
    int parentDescriptor_;
    int signals_ = -1;  // descriptor
    CProcessTree tree_;
};
