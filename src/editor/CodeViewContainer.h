// The tabs of the listing bar.
#pragma once

#include "framework/TabView.h"

class CCodeViewContainer : public CTabView {
public:
    explicit CCodeViewContainer(QWidget *parent);
};
