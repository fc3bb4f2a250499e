#include "Component.h"

#include <QAccessibleWidget>
#include <QContextMenuEvent>
#include <QWheelEvent>

#include "ProgramNames.h"

namespace {

// The component's own answer to assistive tools counts characters from the start of the text at each step of the caret,
// whether such a tool listens or not: in large texts that takes seconds. Without a listener a plain one does.
QAccessibleInterface *MakeAccessible(const QString &className, QObject *object) {
    if (className != QLatin1String("QsciScintillaBase") || QAccessible::isActive()) return nullptr;
    auto *component = dynamic_cast<CComponent *>(object);
    return component ? new QAccessibleWidget(component, QAccessible::EditableText) : nullptr;
}

void InstallAccessibleOnce() {
    [[maybe_unused]] static const bool installed = [] {
        QAccessible::installFactory(MakeAccessible);
        return true;
    }();
}

}  // namespace

CComponent::CComponent(QWidget *parent) : QsciScintillaBase(parent) {
    InstallAccessibleOnce();  // behind the component's own, which its first window installs: the last is asked first
    setFrameShape(QFrame::NoFrame);
    SendScintilla(SCI_SETCODEPAGE, static_cast<unsigned long>(SC_CP_UTF8));
    ConnectTextNotifications();
    ConnectPointerNotifications();
}

void CComponent::SetNotify(SciLexerNotifyFn *notify, void *context) {
    notify_ = notify;
    context_ = context;
}

void CComponent::Tell(const SciLexerNotification &notification) const {
    if (notify_) notify_(context_, &notification);
}

void CComponent::Tell(uint32_t code) const {
    SciLexerNotification notification{};
    notification.code = code;
    Tell(notification);
}

void CComponent::ConnectTextNotifications() {
    connect(this, &QsciScintillaBase::SCN_CHARADDED, this, [this](int character) {
        SciLexerNotification notification{};
        notification.code = program::SCN_CHARADDED;
        notification.ch = character;
        Tell(notification);
    });
    connect(this, &QsciScintillaBase::SCN_SAVEPOINTREACHED, this, [this] { Tell(program::SCN_SAVEPOINTREACHED); });
    connect(this, &QsciScintillaBase::SCN_SAVEPOINTLEFT, this, [this] { Tell(program::SCN_SAVEPOINTLEFT); });
    connect(this, &QsciScintillaBase::SCN_MODIFYATTEMPTRO, this, [this] { Tell(program::SCN_MODIFYATTEMPTRO); });
    connect(this, &QsciScintillaBase::SCN_MODIFIED, this,
            [this](int position, int type, const char *text, int length, int linesAdded, int line, int levelNow,
                   int levelBefore, int, int) {
                SciLexerNotification notification{};
                notification.code = program::SCN_MODIFIED;
                notification.position = position;
                notification.modificationType = type;
                notification.text = text;
                notification.length = length;
                notification.linesAdded = linesAdded;
                notification.line = line;
                notification.foldLevelNow = levelNow;
                notification.foldLevelPrev = levelBefore;
                Tell(notification);
            });
    connect(this, &QsciScintillaBase::SCN_MACRORECORD, this,
            [this](unsigned message, unsigned long wParam, void *lParam) {
                SciLexerNotification notification{};
                notification.code = program::SCN_MACRORECORD;
                notification.message = message;
                notification.wParam = wParam;
                notification.lParam = reinterpret_cast<intptr_t>(lParam);
                Tell(notification);
            });
}

void CComponent::ConnectPointerNotifications() {
    connect(this, &QsciScintillaBase::SCN_UPDATEUI, this, [this](int updated) {
        SciLexerNotification notification{};
        notification.code = program::SCN_UPDATEUI;
        notification.updated = updated;
        Tell(notification);
    });
    connect(this, &QsciScintillaBase::SCN_MARGINCLICK, this, [this](int position, int modifiers, int margin) {
        SciLexerNotification notification{};
        notification.code = program::SCN_MARGINCLICK;
        notification.position = position;
        notification.modifiers = modifiers;
        notification.margin = margin;
        Tell(notification);
    });
    const auto tellDwell = [this](uint32_t code) {
        return [this, code](int position, int x, int y) {
            SciLexerNotification notification{};
            notification.code = code;
            notification.position = position;
            notification.x = x;
            notification.y = y;
            Tell(notification);
        };
    };
    connect(this, &QsciScintillaBase::SCN_DWELLSTART, this, tellDwell(program::SCN_DWELLSTART));
    connect(this, &QsciScintillaBase::SCN_DWELLEND, this, tellDwell(program::SCN_DWELLEND));
}

void CComponent::wheelEvent(QWheelEvent *event) {
    const int turn = event->angleDelta().y();
    if (!(event->modifiers() & Qt::ControlModifier) || turn == 0) {
        QsciScintillaBase::wheelEvent(event);
        return;
    }
    SendScintilla(turn > 0 ? SCI_ZOOMIN : SCI_ZOOMOUT);
    event->accept();
}

void CComponent::contextMenuEvent(QContextMenuEvent *event) {
    QsciScintillaBase::contextMenuEvent(event);
    event->ignore();
}
