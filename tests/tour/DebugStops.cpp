// Debug runs of the examples: start, steps, a breakpoint with a condition, the way back, the end.
#include <QCheckBox>
#include <QDockWidget>
#include <QLineEdit>
#include <QToolBar>
#include <map>

#include "Stops.h"
#include "Tour.h"
#include "debugger/DebugBars.h"
#include "debugger/StackBar.h"
#include "debugger/StackListBox.h"
#include "editor/IDEDoc.h"
#include "editor/IDEView.h"
#include "editor/ListBar.h"
#include "editor/ListingView.h"
#include "editor/ViewSetup.h"
#include "framework/DesktopTheme.h"
#include "framework/MDIChildWnd.h"
#include "framework/MessageTarget.h"
#include "navigation/OpenSource.h"

namespace {

// Where a bar with a title or with buttons is; nothing when it is hidden.
using BarPlaces = std::map<std::string, QRect>;

BarPlaces PlacesOfBars(CProgram &program) {
    program.Settle();
    BarPlaces places;
    for (QWidget *bar : program.Frame().findChildren<QWidget *>())
        if ((qobject_cast<QDockWidget *>(bar) || qobject_cast<QToolBar *>(bar)) && bar->isVisible())
            places[bar->objectName().toStdString()] = bar->geometry();
    return places;
}

// What is to be seen of one example.
struct DebugPlan {
    const char *example;
    std::vector<const char *> sources;
    const char *atMain;                    // the line of the first stop
    const char *inside;                    // a line of a routine that steps lead into
    const char *file, *line;               // where the breakpoint goes
    const char *condition, *name, *value;  // of it, and what it makes of a variable
};

class CDebugStop {
public:
    CDebugStop(CTour &tour, CProgram &program) : tour_(tour), program_(program) {}

    // Gives a command and waits until the stop behind it is shown.
    void Do(int command) {
        program_.Command(command);
        const CDebugSession &session = program_.App().session;
        const auto stands = [&] { return (!session.IsOpen() || session.IsStanding()) && WaitingMessages() == 0; };
        tour_.Check(program_.WaitFor(stands), "the target stops");
    }
    std::string Value(const std::string &name) {
        std::string text;
        tour_.Check(program_.App().debugger.Evaluate(name, text, 0, nullptr), "there is a value of " + name);
        return text;
    }
    bool StandsAt(const char *line) { return Contains(MarkedLine(*program_.ActiveView()), line); }
    void CheckListing() {
        const std::string line = MarkedLine(program_.Frame().ListBar().ListingView());
        tour_.Check(!line.empty() && std::stoi(line, nullptr, 16) == std::stoi(Value("$pc")),
                    "the listing shows the instruction at " + Value("$pc") + ": " + line);
    }
    void StepTo(const char *line) {
        for (int steps = 0; steps < 100 && !StandsAt(line); ++steps) Do(ID_DEBUG_STEP_INTO);
        tour_.Check(StandsAt(line), std::string("steps lead to ") + line);
    }

private:
    static std::string MarkedLine(const CIDEView &view) {
        const intptr_t line = view.Send(SCI_MARKERNEXT, 0, 1 << kMarkerExecution);
        return line < 0 ? std::string() : view.Sci().GetLine(line);
    }

    CTour &tour_;
    CProgram &program_;
};

void SetCondition(CTour &tour, CProgram &program, const DebugPlan &plan, const std::string &picture) {
    program.Frame().FocusActiveView();  // from the listing
    CIDEView &view = *program.ActiveView();
    view.Send(SCI_GOTOPOS, view.Sci().GetText().find(plan.line));
    program.Command(ID_BREAKPOINT_TOGGLE);
    view.contextLine = view.CaretLine();  // as the context menu leaves it
    const auto fill = [&](QWidget &dialog) {
        dialog.findChild<QCheckBox *>()->setChecked(true);
        dialog.findChild<QLineEdit *>()->setText(plan.condition);
    };
    tour.Dialog(program, ID_BREAKPOINT_PROPERTIES, picture, fill, true);
}

void DebugExample(CTour &tour, const DebugPlan &plan) {
    const std::string name = plan.example;
    CScratch scratch;
    scratch.CopyExample(name);
    CProgram program(scratch, {scratch.Native(name + "/" + name + ".__c")});
    tour.Say("Debug " + name);
    tour.Check(program.Start(), "the program starts");
    program.Frame().resize(1400, 900);
    std::vector<std::string> before;
    for (const char *source : plan.sources) {
        tour.Check(program.App().FindOrOpenDocument(scratch.Windows(name + "/" + source), true), "a source opens");
        before.push_back(scratch.Read(name + "/" + source));
    }
    program.ActiveView()->GetParentFrame()->showMaximized();
    tour.Check(program.Build(), "the build ends");
    const BarPlaces places = PlacesOfBars(program);

    CDebugStop stop(tour, program);
    stop.Do(ID_DEBUG_START);
    tour.Check(program.WaitFor([&] { return program.ActiveFile() == "main.asm" && stop.StandsAt(plan.atMain); }),
               "the run stops at main");
    const CStackBar &stack = static_cast<CStackBar &>(*program.Frame().DebugBars().stack);
    tour.Check(stack.IsShowing(), "the stack is shown");
    tour.Picture(program, "debug-at-main");

    tour.Say("Step by line into a routine, then by instruction with the listing shown");
    stop.StepTo(plan.inside);
    tour.Check(stack.List().GetCount() > 0, "the stack tells who called");
    program.Command(ID_VIEW_LISTING_BAR);
    tour.Check(program.Frame().ListBar().IsShowing(), "the listing is shown");
    for (int i = 0; i < 3; ++i) {
        stop.CheckListing();
        stop.Do(ID_DEBUG_STEP_INTO);
    }
    tour.Picture(program, "debug-inside");

    tour.Say("Run to a breakpoint with a condition");
    tour.Check(OpenSourceAtLine(scratch.Windows(name + "/" + plan.file), 1), "its source is shown");
    SetCondition(tour, program, plan, "debug-condition");
    stop.Do(ID_DEBUG_CONTINUE);
    tour.Say(program.BuildText());
    tour.Check(stop.StandsAt(plan.line), "the run stops at the breakpoint");
    tour.Check(stop.Value(plan.name) == plan.value, "its condition holds: " + stop.Value(plan.name));
    stop.CheckListing();
    tour.Picture(program, "debug-breakpoint");

    tour.Say("Step on and back");
    const std::string pc = stop.Value("$pc");
    stop.Do(ID_DEBUG_STEP_OVER);
    tour.Check(stop.Value("$pc") != pc, "the step goes on");
    stop.Do(ID_DEBUG_STEP_BACK);
    tour.Check(stop.Value("$pc") == pc && stop.Value(plan.name) == plan.value, "the step back takes it back");
    stop.CheckListing();
    SetDesktopDark(true);
    tour.Picture(program, "debug-step-back-dark");
    SetDesktopDark(false);

    tour.Say("End the run");
    program.Command(ID_DEBUG_END);
    tour.Check(!program.App().session.IsOpen(), "the run is over");
    tour.Check(PlacesOfBars(program) == places, "the layout for editing is back");
    for (size_t i = 0; i < plan.sources.size(); ++i)
        tour.Check(scratch.Read(name + "/" + plan.sources[i]) == before[i], "the sources are as they were");
    tour.Check(!program.ActiveView()->IsReadOnly() && !program.ActiveDocument()->IsModified(), "and can be edited");
    tour.Picture(program, "debug-ended");
    tour.Check(program.Unexpected().empty(), "no box came up");
}

}  // namespace

void DebugTheExamples(CTour &tour) {
    DebugExample(tour, {"blink",
                        {"main.asm", "timer.asm", "led.asm"},
                        "call    led_start",
                        "clrf    PORTB",
                        "main.asm",
                        "decfsz  ticks_left",
                        "ticks_left == 5",
                        "ticks_left",
                        "5"});
    DebugExample(tour, {"greeting",
                        {"main.asm", "serial.asm", "starts.asm", "texts.asm"},
                        "movlw   B'01100000'",
                        "BAUD_DIVIDER",
                        "main.asm",
                        "decfsz  delay_high",
                        "delay_high == 100",
                        "delay_high",
                        "100"});
}
