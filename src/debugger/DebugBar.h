// What the bars of a debug run have in common: a quiet text while nothing is debugged, and a refresh from the target.
#pragma once

#include "framework/DockBar.h"

class CDebugBar : public CDockBar {
public:
    // `title`: id of the bar's title among the texts.
    CDebugBar(int id, int title, QWidget *parent);

    // Reads what the bar shows from the target. During a run, at each stop while the bar shows and when it comes to the
    // front; a bar that stays hidden costs no reads.
    virtual void Refresh() {}

    QSize sizeHint() const override;
};
