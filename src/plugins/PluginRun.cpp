#include "plugins/PluginRun.h"

#include "app/ClockRate.h"
#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "plugins/PluginBar.h"
#include "plugins/PluginInstance.h"

namespace {

// The bars are there for the life of the frame, which a run doesn't outlive.
template <typename Act>
void ForEachBar(Act act) {
    CMainFrame *const frame = CIDEApp::Get().GetMainFrame();
    if (!frame) return;
    for (int slot = 0; slot < CPluginBar::kSlots; ++slot)
        if (CPluginBar &bar = frame->PluginBar(slot); bar.Instance()) act(bar, *bar.Instance());
}

template <typename Act>
void ForEachActive(Act act) {
    ForEachBar([&](const CPluginBar &bar, CPluginInstance &instance) {
        if (bar.IsActive()) act(instance);
    });
}

template <typename Act>
void ForEachShown(Act act) {
    ForEachBar([&](const CPluginBar &bar, CPluginInstance &instance) {
        if (!bar.isHidden()) act(instance);
    });
}

}  // namespace

bool IsAnyPluginShown() {
    bool shown = false;
    ForEachShown([&](CPluginInstance &) { shown = true; });
    return shown;
}

void StartPlugins() {
    const int hertz = ProjectClockRate();
    ForEachShown([&](CPluginInstance &plugin) {
        plugin.Start();
        plugin.ClockRate(hertz);
    });
}

void StopPlugins() {
    ForEachShown([](CPluginInstance &plugin) { plugin.Stop(); });
}

void KeepPluginStates() {
    ForEachBar([](const CPluginBar &, CPluginInstance &plugin) { plugin.KeepState(); });
}

void TellPluginsClock(int clk, int passed) {
    ForEachActive([&](CPluginInstance &plugin) { plugin.Clock(clk, passed); });
}

void TellPluginsInstruction(int clk, int address) {
    ForEachActive([&](CPluginInstance &plugin) { plugin.Instruction(clk, address); });
}

void TellPluginsReset() {
    ForEachActive([](CPluginInstance &plugin) { plugin.Reset(); });
}

void TellPluginsStep(bool back) {
    ForEachActive([&](CPluginInstance &plugin) { plugin.Step(back); });
    if (back) ForEachBar([](const CPluginBar &, CPluginInstance &plugin) { plugin.LoadState(); });
}
