// One of the two programs that are compared, each with a home of its own, watched from outside like any other program.
#pragma once

#include <string>
#include <vector>

#include "bench/Measure.h"
#include "bench/peer/Process.h"
#include "bench/peer/VirtualDisplay.h"
#include "support/ScratchDirectory.h"

// All times count from the program's start. Whatever doesn't happen in time ends the benchmark program.
class CCandidate {
public:
    CCandidate(const CVirtualDisplay &display, std::string command);

    // Starts the program once and closes it politely, so that its settings are made and its files are in memory.
    void WarmUp();
    std::string Home(const std::string &name = "") const { return home_.Native(name); }

    void Start(const std::vector<std::string> &arguments = {});
    // Until the window is on show, all of it painted, with a menu bar's texts.
    Milliseconds AwaitWindow();
    // Until the File menu, called by its key now, is on show. Closes it again.
    Milliseconds AwaitMenu();
    // Until text stands in the middle of the window, or is gone from there.
    Milliseconds AwaitText(bool there);
    void Press(uint32_t key, uint32_t held = 0) const { display_.Press(key, held); }
    CProcess::Memory MemoryAtRest();  // once the program has stopped working
    void Kill();

private:
    std::vector<std::string> Environment() const;
    void Await(const std::string &what, const std::function<bool()> &holds) const;
    CVirtualDisplay::Window Window() const;
    Milliseconds SinceStart() const { return std::chrono::steady_clock::now() - start_; }

    const CVirtualDisplay &display_;
    std::string command_;
    CScratchDirectory home_;
    CProcess process_;
    std::chrono::steady_clock::time_point start_;
};
