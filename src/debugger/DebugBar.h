// What the bars of a debug run have in common: a quiet text while there is nothing to show, and a refresh from the
// target.
#pragma once

#include <string>

#include "framework/DockBar.h"

class QStackedWidget;

class CDebugBar : public CDockBar {
public:
    // `title`: id of the bar's title among the texts.
    CDebugBar(int id, int title, QWidget *parent);

    virtual void BeginRun() {}  // a run starts: the content is made for its target, still without values

    // Reads what the bar shows from the target. During a run, at each stop while the bar shows and when it comes to the
    // front; a bar that stays hidden costs no reads.
    virtual void Refresh() {}
    virtual void BlankValues() {}              // no value holds any longer, the rows stay
    virtual void EndRun() {}                   // what is kept of the bar with its project is written
    virtual void Clear() { ShowQuietText(); }  // another project is active

    // The mark of a watchpoint at what `name` names ("$NAME" or "$%d"; see WatchpointManager.h), if it shows here.
    virtual void MarkWatchpoint(const std::string & /*name*/, bool /*on*/) {}
    virtual void ClearWatchpointMarks() {}

    QSize sizeHint() const override;

protected:
    // The bar's window, which it takes over; once, in the constructor. Keyboard focus finds the content while it shows.
    void SetContent(QWidget *content);
    void ShowContent();    // in place of the quiet text
    void ShowQuietText();  // the state that the bar begins in

    // For values that are compared with the ones before, once a refresh: whether the target stands where it did at the
    // last one. What its stop has changed goes on standing out then.
    bool ReadsStopAgain();

private:
    QStackedWidget *pages_;
    QWidget *quiet_;
    QWidget *content_ = nullptr;
    unsigned readStop_ = 0;  // the stop of the target that was last read
};
