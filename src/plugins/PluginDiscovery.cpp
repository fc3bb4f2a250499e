#include "plugins/PluginDiscovery.h"

#include <chrono>
#include <tuple>

namespace {

constexpr std::chrono::milliseconds kPoll(50);

}  // namespace

void CPluginDiscovery::Start(CMessagePort report, unsigned message) {
    if (thread_.joinable()) return;
    thread_ = std::thread([this, report = std::move(report), message] { Run(report, message); });
}

void CPluginDiscovery::Stop() {
    if (!thread_.joinable()) return;
    stop_ = true;
    wake_.release();
    thread_.join();
}

void CPluginDiscovery::StartupIsOver() {
    startupOver_ = true;
    wake_.release();
}

// The bars can take plug-ins only when the layout of the start stands.
void CPluginDiscovery::Run(const CMessagePort &report, unsigned message) {
    while (!startupOver_ && !stop_) std::ignore = wake_.try_acquire_for(kPoll);
    if (stop_) return;
    report.Post(message, static_cast<intptr_t>(plugins_.size()));
}
