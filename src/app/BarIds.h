// The child window numbers of the bars. They name the bars in saved layouts, so a number never changes its bar.
#pragma once

enum BarId : int {
    kBarMain = 0xe800,
    kBarStatus = 0xe801,
    kBarMenu = 0xe806,
    kBarOutput = 0xe86d,
    kBarWorkspace = 0xe86e,
    kBarRegisters = 0xe86f,
    kBarWatch = 0xe870,
    kBarRam = 0xe871,
    kBarStack = 0xe872,
    kBarMacro = 0xe873,
    kBarBuild = 0xe874,
    kBarProfile = 0xe875,
    kBarEeprom = 0xe876,
    kBarListing = 0xe877,
    kBarDebug = 0xe878,
    kBarEdit = 0xe879,
    kBarPlugins = 0xe900,  // 26 slots
};
