// The memory of a debug run: what a step changes, a byte typed over, a watchpoint that stops the run, the profile.
#include <QApplication>
#include <QKeyEvent>

#include "Stops.h"
#include "Tour.h"
#include "debugger/DebugBars.h"
#include "debugger/EepromBar.h"
#include "debugger/ProfileBar.h"
#include "debugger/ProfileListBox.h"
#include "debugger/RamBar.h"
#include "editor/IDEView.h"
#include "framework/DesktopTheme.h"
#include "framework/MDIChildWnd.h"
#include "framework/MessageTarget.h"
#include "widgets/GridCtrl.h"

namespace {

constexpr int kPortB = 0x06, kPcl = 0x02, kFree = 0x30;
constexpr int64_t kMinute = 60'000'000;  // cycles at 4 MHz

class CMemoryStop {
public:
    CMemoryStop(CTour &tour, CProgram &program) : tour_(tour), program_(program) {}

    CRamBar &Ram() { return static_cast<CRamBar &>(*program_.Frame().DebugBars().ram); }
    const CGridCellByte &Byte(int address) {
        return static_cast<const CGridCellByte &>(Ram().Grid().Cell(CMemoryBar::HexPlace(address)));
    }
    void Do(int command) {
        program_.Command(command);
        AwaitStop();
    }
    void AwaitStop() {
        const auto stands = [this] { return !program_.App().session.IsRunning() && WaitingMessages() == 0; };
        tour_.Check(program_.WaitFor(stands), "the target stops");
    }
    void Type(int address, const char *keys) {
        Ram().Grid().setFocus();
        Ram().Grid().SetCurrent(CMemoryBar::HexPlace(address));
        for (const char *key = keys; *key; ++key) {
            QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(*key));
            QApplication::sendEvent(&Ram().Grid(), &press);
        }
    }

private:
    CTour &tour_;
    CProgram &program_;
};

// Registers and RAM side by side, each whole; the profile with room for its bars.
void PlaceBars(CProgram &program) {
    CMainFrame &frame = program.Frame();
    const DebugBars &bars = frame.DebugBars();
    bars.ram->show();
    bars.eeprom->show();
    frame.splitDockWidget(bars.registers, bars.ram, Qt::Horizontal);
    frame.splitDockWidget(bars.ram, bars.eeprom, Qt::Vertical);
    frame.splitDockWidget(bars.watch, bars.profile, Qt::Vertical);
    program.Settle();
    frame.resizeDocks({bars.registers, bars.ram}, {240, 440}, Qt::Horizontal);
    program.Settle();
}

}  // namespace

void LookIntoMemory(CTour &tour) {
    CScratch scratch;
    scratch.CopyExample("blink");
    CProgram program(scratch, {scratch.Native("blink/blink.__c")});
    tour.Say("Look into the memory of a debug run");
    tour.Check(program.Start(), "the program starts");
    program.Frame().resize(1600, 1000);
    tour.Check(program.App().FindOrOpenDocument(scratch.Windows("blink/main.asm"), true), "a source opens");
    program.ActiveView()->GetParentFrame()->showMaximized();
    tour.Check(program.Build(), "the build ends");
    CMemoryStop stop(tour, program);
    stop.Do(ID_DEBUG_START);
    PlaceBars(program);
    stop.Do(ID_DEBUG_STEP_OVER);
    tour.Check(stop.Byte(kPcl).State() == ByteState::changed, "a step changes the program counter");
    tour.Check(stop.Byte(kFree).State() == ByteState::same, "and not what it leaves alone");
    tour.Picture(program, "memory-after-step");
    SetDesktopDark(true);
    tour.Picture(program, "memory-after-step-dark");
    SetDesktopDark(false);

    tour.Say("Type over a byte");
    stop.Type(kFree, "5A");
    tour.Check(stop.Byte(kFree).State() == ByteState::written, "the byte is written");
    tour.Picture(program, "memory-typed-over");
    stop.Do(ID_DEBUG_STEP_OVER);
    tour.Check(stop.Byte(kFree).Value() == 0x5A && stop.Byte(kFree).State() == ByteState::same,
               "the next stop confirms it");

    tour.Say("Stop where port B is written, and profile a minute of the program's time");
    program.App().watchpoints.Toggle("$PORTB");
    tour.Check(stop.Byte(kPortB).IsMarked(), "the byte is marked");
    program.Command(ID_DEBUG_PROFILING);
    stop.Do(ID_DEBUG_CONTINUE);
    tour.Check(stop.Byte(kPortB).Value() == 1 && program.ActiveFile() == "led.asm",
               "the run stops when the LED is lit");
    tour.Picture(program, "memory-watchpoint");
    program.App().watchpoints.Toggle("$6");
    tour.Check(!stop.Byte(kPortB).IsMarked(), "by its address it is no longer watched");
    program.Command(ID_DEBUG_CONTINUE);
    const auto isOver = [&] { return program.App().session.Clock().CurrentTick() > kMinute; };
    tour.Check(program.WaitFor(isOver, std::chrono::seconds(120)), "a minute goes by");
    stop.Do(ID_DEBUG_STOP);
    const auto &rows = static_cast<CProfileBar &>(*program.Frame().DebugBars().profile).List().Rows().List();
    tour.Check(rows.front().Percent() > 40 && rows.front().count >= rows.back().count,
               "the profile is sorted by weight");
    tour.Check(rows.front().total > kMinute / 2, "and has counted the run");
    tour.Picture(program, "memory-profile");
    program.Command(ID_DEBUG_END);
    tour.Check(program.Unexpected().empty(), "no box came up");
}
