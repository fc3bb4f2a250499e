// One window of the editing component.
#pragma once

#include <Qsci/qsciscintillabase.h>

#include "editor/SciLexerApi.h"

class CComponent : public QsciScintillaBase {
 public:
    explicit CComponent(QWidget *parent);

    void SetNotify(SciLexerNotifyFn *notify, void *context);

 protected:
    void wheelEvent(QWheelEvent *event) override;              // with Ctrl: zooms
    void contextMenuEvent(QContextMenuEvent *event) override;  // the parent gets it too

 private:
    void ConnectTextNotifications();
    void ConnectPointerNotifications();
    void Tell(const SciLexerNotification &notification) const;
    void Tell(uint32_t code) const;

    SciLexerNotifyFn *notify_ = nullptr;
    void *context_ = nullptr;
};
