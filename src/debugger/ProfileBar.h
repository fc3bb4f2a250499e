// The bar of the profile: where the target's time goes.
#pragma once

#include "app/BarIds.h"
#include "app/StringIds.h"
#include "debugger/DebugBar.h"

class CProfileBar : public CDebugBar {
public:
    explicit CProfileBar(QWidget *parent) : CDebugBar(kBarProfile, IDS_BAR_PROFILE, parent) {}
};
