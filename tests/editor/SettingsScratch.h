// The user's settings in a directory of one test's own.
#pragma once

#include <cstdlib>

#include "support/ScratchDirectory.h"
#include "app/Settings.h"

class CSettingsScratch {
public:
    CSettingsScratch() {
        setenv("XDG_CONFIG_HOME", directory_.Native("user").c_str(), 1);
        setenv("XDG_CONFIG_DIRS", directory_.Native("machine").c_str(), 1);
        OpenUserSettings("Test");
    }

private:
    CScratchDirectory directory_;
};
