// What the engine tells on its thread, carried to the main thread.
#pragma once

#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <string>

#include "framework/MessageTarget.h"

class CDebugSession;

// A stop, with its place: empty where no source is known.
struct StopRecord {
    int reason = 0;
    std::string file;
    int line = 0;  // as the engine gives it
};

class CDebugNotices {
public:
    // `directory`: of the project, with its trailing separator; relative names of the engine begin there.
    CDebugNotices(CDebugSession &session, CMessagePort frame, std::string directory)
        : session_(session), frame_(std::move(frame)), directory_(std::move(directory)) {}

    // The engine's thread.
    void OnExecution(int reason, const char *file, int line, const char *text);
    void OnClock(int passed, int clk);
    void OnInstruction(int address, int clk);

    const CMessagePort &Frame() const { return frame_; }

    // Main thread. The oldest stop not yet taken; by then the engine's thread is done with it.
    std::optional<StopRecord> TakeStop();
    bool HasStop() const;
    void OnTextShown();  // a text of the target has reached the build list
    void Release();      // the run ends: nobody waits any more

private:
    void TellStop(int reason, const char *file, int line);
    void TellPlace(const char *file, int line);
    std::string FullName(const char *file) const;
    void TellText(const char *text);
    void PostNote(int text);

    CDebugSession &session_;
    const CMessagePort frame_;
    const std::string directory_;

    // Held from the notice until the target counts as standing, and so taken before the session's own lock, never
    // behind it.
    mutable std::mutex stopping_;
    std::deque<StopRecord> stops_;

    std::mutex texts_;
    std::condition_variable textShown_;
    int textsToShow_ = 0;
    bool released_ = false;
};
