// The child window numbers of the bars. They name the bars in saved layouts, so a number never changes its bar.
#pragma once

enum BarId : int {
    kBarMain = 0xe800,
    kBarOutput = 0xe86d,
    kBarWorkspace = 0xe86e,
    kBarBuild = 0xe874,
};
