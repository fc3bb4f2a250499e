// An X server of the benchmark's own, with a user's eyes and hands. There is no window manager and no session bus on
// it: what a program costs there is its own work.
#pragma once

#include <sys/types.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "bench/peer/Picture.h"

class CVirtualDisplay {
public:
    static constexpr uint32_t kUnpainted = 0xff00ff;  // what shows where no program has painted

    CVirtualDisplay();  // ends the benchmark program if there is no server
    ~CVirtualDisplay();

    std::string Name() const;  // for DISPLAY

    struct Window {
        uint32_t id;
        Area area;
        bool popup;  // a menu, not managed as a window
    };
    std::vector<Window> Windows() const;       // those on show, the undermost first
    std::optional<Window> MainWindow() const;  // the largest that is no popup
    std::optional<Window> Popup() const;

    // As a window manager does when a window opens.
    void Focus(const Window &window) const;
    // Closes it as its close button does.
    void AskToClose(const Window &window) const;
    void MoveTo(const Window &window, const Area &area) const;

    Picture Grab(const Area &area) const;  // what lies outside the screen is cut off

    // Presses and releases a key, with another one held; X11 key symbols.
    void Press(uint32_t key, uint32_t held = 0) const;

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};
