// The bars that show the target's state, but for the listing, as a run treats them.
#pragma once

#include <array>
#include <string>

class CCmdUI;
class CDebugBar;

// Owned by the main frame's window. Main thread.
struct DebugBars {
    CDebugBar *registers = nullptr, *stack = nullptr, *ram = nullptr, *eeprom = nullptr, *watch = nullptr;
    CDebugBar *profile = nullptr;

    void BeginRun();            // all but the profile: their content is made for the target of a run that starts
    void BlankValues();
    void RefreshShown();        // at a stop
    void RefreshShownValues();  // while the target runs: all but the profile, which has its own pace
    void RefreshBehindEdit(const CDebugBar &edited);  // others that show the bytes which the user has written in one
    void EndRun();              // what the project keeps of them is written; the last values stay on view
    void Clear();               // another project is active

    // From the first stop of a run that is shown to its end: a bar that comes to the front reads the target.
    bool AreOnView() const { return onView_; }

    bool OnCmdMsg(int id, CCmdUI *ui) const;  // the commands on rows and cells of a bar; see CCmdTarget

    void MarkWatchpoint(const std::string &name, bool on);
    void ClearWatchpointMarks();

private:
    std::array<CDebugBar *, 6> All() const { return {registers, stack, ram, eeprom, watch, profile}; }

    bool onView_ = false;
};
