// One of the slots for simulator plug-ins: a docking bar that holds the window of one instance of a plug-in.
#pragma once

#include <QTimer>
#include <atomic>
#include <memory>
#include <string>

#include "framework/DockBar.h"

class CPluginInstance;

// Main thread, except for IsActive and Instance during a run.
class CPluginBar : public CDockBar {
public:
    static constexpr int kSlots = 26;

    // `slot`: its place, from 0. An empty slot is hidden and says so in its title.
    CPluginBar(int slot, QWidget *parent);
    ~CPluginBar() override;

    // Takes in the window that a plug-in made for this slot. `library`: the plug-in's name; `instances`: how many of
    // its windows the library offers; `instance`, which may be null: its calls.
    void Attach(QWidget *window, const std::string &library, int instances,
                std::unique_ptr<CPluginInstance> instance);

    bool HasPlugin() const { return widget() != nullptr; }
    const std::string &LibraryName() const { return libraryName_; }
    int LibraryInstances() const { return libraryInstances_; }
    CPluginInstance *Instance() const { return instance_.get(); }
    bool IsActive() const { return active_; }  // it is shown, so its plug-in hears of clock and stops

    // Tells the plug-in the clock rate of the chip when the bar is shown.
    void TellClockRate(int hertz) const;

    QSize sizeHint() const override { return {150, 150}; }

protected:
    void moveEvent(QMoveEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void OnPlaceChanged();
    void Activate();
    void FollowVisibility();

    std::unique_ptr<CPluginInstance> instance_;
    std::string libraryName_;
    int libraryInstances_ = 0;
    std::atomic<bool> active_ = false;
    QTimer hiding_;  // a bar that comes back at once was never hidden for its plug-in
};
