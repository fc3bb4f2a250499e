// The search for simulator plug-ins, once at the start, on a thread of its own.
#pragma once

#include <atomic>
#include <semaphore>
#include <string>
#include <thread>
#include <vector>

#include "framework/MessageTarget.h"

// A library that passed the search.
struct PluginFile {
    std::string name;  // what the plug-in calls itself
};

// Made and ended on the main thread.
class CPluginDiscovery {
public:
    ~CPluginDiscovery() { Stop(); }

    // Starts the thread. It ends by posting `message` to `report`, with the number of plug-ins, but not before the
    // start-up is over.
    void Start(CMessagePort report, unsigned message);
    void StartupIsOver();
    void Stop();  // ends the thread early and waits for it; no report comes after that

    const std::vector<PluginFile> &Plugins() const { return plugins_; }  // once the report has come

    // Held by the thread while it works on one library, and by who needs the plug-ins to stay as they are.
    std::binary_semaphore &Guard() { return guard_; }

private:
    void Run(const CMessagePort &report, unsigned message);

    std::thread thread_;
    std::binary_semaphore guard_{1};
    std::counting_semaphore<> wake_{0};  // something of what follows has changed
    std::atomic<bool> startupOver_ = false;
    std::atomic<bool> stop_ = false;
    std::vector<PluginFile> plugins_;
};
