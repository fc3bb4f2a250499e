// A generic Qt plugin for programs whose start-up is measured: once the first main window has been painted, it writes
// one byte to the descriptor named in THORNWELL_BENCH_FD and ends the process on the spot.
#include <unistd.h>

#include <QCoreApplication>
#include <QEvent>
#include <QGenericPlugin>
#include <QMainWindow>

namespace {

class CFirstFrameWatch : public QObject {
public:
    CFirstFrameWatch() { QCoreApplication::instance()->installEventFilter(this); }

    bool eventFilter(QObject *receiver, QEvent *event) override {
        if (event->type() == QEvent::Paint && !painting_ && qobject_cast<QMainWindow *>(receiver)) {
            painting_ = true;
            // The widgets inside are painted by the same event; this one comes behind them.
            QCoreApplication::postEvent(this, new QEvent(QEvent::User), Qt::HighEventPriority);
        }
        return QObject::eventFilter(receiver, event);
    }

protected:
    bool event(QEvent *event) override {
        if (event->type() != QEvent::User) return QObject::event(event);
        const char done = '1';
        _exit(write(qEnvironmentVariableIntValue("THORNWELL_BENCH_FD"), &done, 1) == 1 ? 0 : 1);
    }

private:
    bool painting_ = false;
};

}  // namespace

class CFirstFramePlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "FirstFrame.json")

public:
    QObject *create(const QString &, const QString &) override { return new CFirstFrameWatch; }
};

#include "FirstFrame.moc"
