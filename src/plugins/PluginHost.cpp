#include "plugins/PluginHost.h"

void StorePluginState(const std::string &) {}

void LoadPluginState(const std::string &) {}
