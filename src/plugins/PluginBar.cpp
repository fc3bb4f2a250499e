#include "plugins/PluginBar.h"

#include "app/BarIds.h"
#include "app/ClockRate.h"
#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/StringIds.h"
#include "framework/Language.h"
#include "plugins/PluginInstance.h"

namespace {

constexpr std::chrono::milliseconds kHidingDelay{80};

bool IsDebugging() {
    return CIDEApp::Get().session.IsAlive();
}

}  // namespace

CPluginBar::CPluginBar(int slot, QWidget *parent)
    : CDockBar(kBarPlugins + slot, LoadText(IDS_PLUGIN_BAR_EMPTY, {std::to_string(slot)}), parent) {
    hiding_.setSingleShot(true);
    hiding_.setInterval(kHidingDelay);
    connect(&hiding_, &QTimer::timeout, this, [this] { FollowVisibility(); });
    hide();
}

CPluginBar::~CPluginBar() = default;

void CPluginBar::Attach(QWidget *window, const std::string &library, int instances,
                        std::unique_ptr<CPluginInstance> instance) {
    setWidget(window);
    libraryName_ = library;
    libraryInstances_ = instances;
    instance_ = std::move(instance);
    OnPlaceChanged();
}

void CPluginBar::TellClockRate(int hertz) const {
    if (instance_ && !isHidden()) instance_->ClockRate(hertz);
}

void CPluginBar::OnPlaceChanged() {
    if (!instance_) return;
    if (IsDebugging())
        if (CMainFrame *frame = CIDEApp::Get().GetMainFrame()) frame->PostMessage(kMsgPluginsMoved);
    if (!isHidden() && !active_)
        Activate();
    else
        hiding_.start();
}

void CPluginBar::Activate() {
    active_ = true;
    if (!IsDebugging()) return;
    instance_->Start();
    instance_->ClockRate(ProjectClockRate());
}

void CPluginBar::FollowVisibility() {
    if (!instance_) return;
    if (!isHidden() && !active_) {
        Activate();
    } else if (isHidden() && active_) {
        active_ = false;
        if (IsDebugging()) instance_->Stop();
    }
}

void CPluginBar::moveEvent(QMoveEvent *event) {
    CDockBar::moveEvent(event);
    OnPlaceChanged();
}
void CPluginBar::resizeEvent(QResizeEvent *event) {
    CDockBar::resizeEvent(event);
    OnPlaceChanged();
}
void CPluginBar::showEvent(QShowEvent *event) {
    CDockBar::showEvent(event);
    OnPlaceChanged();
}
void CPluginBar::hideEvent(QHideEvent *event) {
    CDockBar::hideEvent(event);
    OnPlaceChanged();
}
