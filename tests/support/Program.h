// The whole program in a scratch home, driven by commands and input as a user would.
#pragma once

#include <QPointer>
#include <QWidget>
#include <chrono>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/CommandIds.h"
#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "framework/MessageBox.h"
#include "support/Scratch.h"

class CIDEDoc;
class CIDEView;
class QTimer;

// One program at a time; needs a QApplication. A modal window without a prepared answer is a fault of the test: it is
// dismissed and noted in Unexpected().
class CProgram {
public:
    // `home`: where the settings lie. `arguments`: native command-line arguments behind the program's name.
    explicit CProgram(const CScratch &home, std::vector<std::string> arguments = {});
    ~CProgram();  // closes it without saving

    bool Start();                 // until the start-up ticks are over
    bool StartWithoutWaiting();   // until the window is shown
    bool Close();                 // as the user's close; false when it stayed open

    CIDEApp &App() { return *app_; }
    CMainFrame &Frame() { return *app_->GetMainFrame(); }

    // Turns the event loop until `done`, at most `limit`. False at the limit.
    bool WaitFor(const std::function<bool()> &done, std::chrono::seconds limit = std::chrono::seconds(30));
    void Settle(int milliseconds = 60);

    void Command(int id) { Frame().RunCommand(id); }
    bool IsEnabled(int id) { return QueryCommand(Frame(), id).enabled; }
    bool Build(int id = ID_BUILD);  // until the queue is empty

    std::vector<std::string> BuildLines();
    std::string BuildText();  // lines joined by "\n"

    CIDEDoc *ActiveDocument();
    CIDEView *ActiveView();
    std::string ActiveFile();  // its title without directory: "main.asm"
    void Type(const std::string &keys);

    // Answers for the modal windows to come, in order.
    void Answer(BoxResult button);
    void AnswerFiles(std::vector<std::string> nativePaths);  // of an open or save dialog; empty: cancelled
    void AnswerDialog(std::function<void(QWidget &)> act);    // acts on the dialog, which it has to end
    size_t AnswersLeft() const { return answers_.size(); }
    const std::vector<std::string> &Unexpected() const { return unexpected_; }  // texts of unprepared boxes
    const std::vector<std::string> &Boxes() const { return boxes_; }            // texts of all message boxes

    void Grab(const std::string &nativePng);  // picture of the main window, or of the modal window over it

private:
    void LookForModal();

    std::unique_ptr<CIDEApp> app_;
    std::unique_ptr<QTimer> watch_;
    std::deque<std::function<void(QWidget &)>> answers_;
    std::vector<std::string> unexpected_, boxes_;
    QPointer<QWidget> handled_;  // the modal window that had the last answer; it gets one again after another window's
};

// Process-wide set-up of a test program: off-screen unless told otherwise; call first in main.
void PrepareTestProcess();
