#include "plugins/PluginBar.h"

#include "app/BarIds.h"
#include "app/StringIds.h"
#include "framework/Language.h"

CPluginBar::CPluginBar(int slot, QWidget *parent)
    : CDockBar(kBarPlugins + slot, LoadText(IDS_PLUGIN_BAR_EMPTY, {std::to_string(slot)}), parent) {
    hide();
}

void CPluginBar::Attach(QWidget *window, const std::string &library, int instances) {
    setWidget(window);
    libraryName_ = library;
    libraryInstances_ = instances;
}

void CPluginBar::TellClockRate(int hertz) const {
    if (HasPlugin() && !isHidden() && clockRateEntry) clockRateEntry(hertz);
}
