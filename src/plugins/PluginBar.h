// One of the slots for simulator plug-ins: a docking bar that holds the window of one instance of a plug-in.
#pragma once

#include <functional>
#include <string>

#include "framework/DockBar.h"

// Main thread.
class CPluginBar : public CDockBar {
public:
    static constexpr int kSlots = 26;

    // `slot`: its place, from 0. An empty slot is hidden and says so in its title.
    CPluginBar(int slot, QWidget *parent);

    // Takes in the window that a plug-in made for this slot. `library`: the plug-in's name; `instances`: how many of
    // its windows the library offers.
    void Attach(QWidget *window, const std::string &library, int instances);

    bool HasPlugin() const { return widget() != nullptr; }
    const std::string &LibraryName() const { return libraryName_; }
    int LibraryInstances() const { return libraryInstances_; }

    // Tells the plug-in the clock rate of the chip when the bar is shown and the plug-in wants to know.
    void TellClockRate(int hertz) const;
    std::function<void(int hertz)> clockRateEntry;  // the plug-in's; empty when it has none

    QSize sizeHint() const override { return {150, 150}; }

private:
    std::string libraryName_;
    int libraryInstances_ = 0;
};
