// The six bars that show the target's state, as a run treats them.
#pragma once

#include <array>
#include <string>

class CDebugBar;

// Owned by the main frame's window. Main thread.
struct DebugBars {
    CDebugBar *registers = nullptr, *stack = nullptr, *ram = nullptr, *eeprom = nullptr, *watch = nullptr;
    CDebugBar *profile = nullptr;

    void BeginRun();            // their content is made for the target of a run that starts
    void BlankValues();
    void RefreshShown();        // at a stop
    void RefreshShownValues();  // while the target runs: all but the profile, which has its own pace
    void EndRun();              // what the project keeps of them is written; the last values stay on view
    void Clear();               // another project is active

    void MarkWatchpoint(const std::string &name, bool on);
    void ClearWatchpointMarks();

private:
    std::array<CDebugBar *, 6> All() const { return {registers, stack, ram, eeprom, watch, profile}; }
};
