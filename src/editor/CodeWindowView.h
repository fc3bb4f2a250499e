// A view of the listing bar that is there only while the active toolsuite has something for it to show.
#pragma once

#include "framework/View.h"

class CCodeWindowView : public CView {
public:
    using CView::CView;

    virtual void Load(bool onlyIfNeeded) = 0;  // what the active configuration's last build left
    virtual void Clear() = 0;                  // no project is open
};
