#include "support/Program.h"

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "app/CommandLine.h"
#include "app/Path.h"
#include "app/Settings.h"
#include "build/BuildListBox.h"
#include "build/OutputBar.h"
#include "editor/IDEDoc.h"
#include "editor/IDEView.h"
#include "framework/Text.h"

void PrepareTestProcess() {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    setenv("THORNWELL_PROGRAM_DIR", THORNWELL_TEST_PROGRAM_DIR, 0);
    setenv("XDG_CONFIG_DIRS", "/nonexistent", 1);
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
}

CProgram::CProgram(const CScratch &home, std::vector<std::string> arguments) {
    setenv("XDG_CONFIG_HOME", home.Native("config").c_str(), 1);
    arguments.insert(arguments.begin(), "thornwell-ide");
    app_ = std::make_unique<CIDEApp>(ComposeCommandLine(arguments));
    app_->showSplash = false;
    watch_ = std::make_unique<QTimer>();
    QObject::connect(watch_.get(), &QTimer::timeout, watch_.get(), [this] { LookForModal(); });
    watch_->start(10);
}

CProgram::~CProgram() {
    if (!app_) return;
    app_->redirect.Stop();
    app_->messageList.Clear();
    app_->CloseAllDocuments();
    app_->ExitInstance();
    app_.reset();
}

bool CProgram::StartWithoutWaiting() { return app_->InitInstance(); }

bool CProgram::Start() {
    return StartWithoutWaiting() && WaitFor([this] { return Frame().ArePluginsReady(); }) && (Settle(), true);
}

bool CProgram::Close() {
    if (!Frame().close()) return false;
    app_->ExitInstance();
    app_.reset();
    return true;
}

bool CProgram::WaitFor(const std::function<bool()> &done, std::chrono::seconds limit) {
    QElapsedTimer clock;
    clock.start();
    while (!done()) {
        if (clock.hasExpired(std::chrono::duration_cast<std::chrono::milliseconds>(limit).count())) return false;
        // Sleeps while nothing happens: the watch for modal windows wakes it often enough.
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
}

void CProgram::Settle(int milliseconds) {
    QElapsedTimer clock;
    clock.start();
    WaitFor([&] { return clock.hasExpired(milliseconds); });
}

bool CProgram::Build(int id) {
    Command(id);
    return WaitFor([this] { return app_->build.IsIdle() && WaitingMessages() == 0; }, std::chrono::seconds(60));
}

std::vector<std::string> CProgram::BuildLines() {
    std::vector<std::string> lines;
    const CBuildListBox &list = Frame().OutputBar().BuildList();
    for (int i = 0; i < list.GetCount(); ++i) lines.emplace_back(list.GetText(i));
    return lines;
}

std::string CProgram::BuildText() {
    std::string text;
    for (const std::string &line : BuildLines()) text += line + "\n";
    return text;
}

CIDEView *CProgram::ActiveView() { return dynamic_cast<CIDEView *>(Frame().GetActiveView()); }

CIDEDoc *CProgram::ActiveDocument() {
    CIDEView *view = ActiveView();
    return view ? view->GetIDEDoc() : nullptr;
}

std::string CProgram::ActiveFile() {
    CIDEDoc *document = ActiveDocument();
    return document ? CPath(document->GetPathName()).GetFileName() : std::string();
}

void CProgram::Type(const std::string &keys) {
    if (QWidget *focus = QApplication::focusWidget()) QTest::keyClicks(focus, ToQString(keys));
}

void CProgram::Answer(BoxResult button) {
    answers_.push_back([button](QWidget &window) {
        auto *box = qobject_cast<QMessageBox *>(&window);
        if (!box) {
            window.close();
            return;
        }
        const QMessageBox::StandardButton standard = button == IDYES    ? QMessageBox::Yes
                                                     : button == IDNO   ? QMessageBox::No
                                                     : button == IDOK   ? QMessageBox::Ok
                                                                        : QMessageBox::Cancel;
        if (QAbstractButton *each = box->button(standard))
            each->click();
        else
            box->reject();
    });
}

void CProgram::AnswerFiles(std::vector<std::string> nativePaths) {
    answers_.push_back([paths = std::move(nativePaths)](QWidget &window) {
        auto *dialog = qobject_cast<QFileDialog *>(&window);
        if (!dialog || paths.empty()) {
            window.close();
            return;
        }
        QString names;
        for (const std::string &path : paths)
            names +=
                (names.isEmpty() ? "" : " ") + (paths.size() > 1 ? "\"" + ToQString(path) + "\"" : ToQString(path));
        dialog->findChild<QLineEdit *>("fileNameEdit")->setText(names);
        QMetaObject::invokeMethod(dialog, "accept");
    });
}

void CProgram::AnswerDialog(std::function<void(QWidget &)> act) { answers_.push_back(std::move(act)); }

void CProgram::LookForModal() {
    QWidget *window = QApplication::activeModalWidget();
    if (!window || !window->isVisible() || window == handled_) return;
    handled_ = window;
    auto *box = qobject_cast<QMessageBox *>(window);
    if (box) boxes_.push_back(FromQString(box->text()));
    if (answers_.empty()) {
        unexpected_.push_back(FromQString(box ? box->text() : window->windowTitle()));
        if (auto *dialog = qobject_cast<QDialog *>(window)) dialog->reject();
        return;
    }
    const auto answer = std::move(answers_.front());
    answers_.pop_front();
    const QPointer<QWidget> answered = window;
    answer(*window);
    if (handled_ == answered && answered && !answered->isVisible()) handled_ = nullptr;  // it may be shown again
}

void CProgram::Grab(const std::string &nativePng) {
    Settle();
    QWidget *window = QApplication::activeModalWidget();
    (window ? window : &Frame())->grab().save(ToQString(nativePng));
}
