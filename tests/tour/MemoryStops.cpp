// The views of a debug run: what a step changes in each, values typed over, a watchpoint, a minute's profile.
#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QTest>
#include <QTimer>

#include "Stops.h"
#include "Tour.h"
#include "app/StringIds.h"
#include "debugger/DebugBars.h"
#include "debugger/EepromBar.h"
#include "debugger/ProfileBar.h"
#include "debugger/ProfileListBox.h"
#include "debugger/RamBar.h"
#include "debugger/RegisterBar.h"
#include "debugger/StackBar.h"
#include "debugger/StackListBox.h"
#include "debugger/ValueFormat.h"
#include "debugger/WatchBar.h"
#include "editor/IDEView.h"
#include "framework/DesktopTheme.h"
#include "framework/Language.h"
#include "framework/MDIChildWnd.h"
#include "framework/MessageTarget.h"
#include "framework/Text.h"
#include "widgets/GridCtrl.h"
#include "widgets/PropTree.h"

namespace {

constexpr int kPortB = 0x06, kPcl = 0x02, kTrisB = 0x86, kFree = 0x30, kEeData18 = 0xFA8;
constexpr int64_t kMinute = 60'000'000;  // cycles at 4 MHz

class CViewStop {
public:
    CViewStop(CTour &tour, CProgram &program) : tour_(tour), program_(program) {}

    CRamBar &Ram() { return static_cast<CRamBar &>(*Bars().ram); }
    CEepromBar &Eeprom() { return static_cast<CEepromBar &>(*Bars().eeprom); }
    CPropTree &Registers() { return static_cast<CRegisterBar &>(*Bars().registers).Tree(); }
    CPropTree &Watches() { return static_cast<CWatchBar &>(*Bars().watch).Tree(); }
    CProfileListBox &Profile() { return static_cast<CProfileBar &>(*Bars().profile).List(); }
    int Calls() { return static_cast<CStackBar &>(*Bars().stack).List().GetCount(); }
    const CGridCellByte &Byte(const CMemoryBar &bar, int address) {
        return static_cast<const CGridCellByte &>(bar.Grid().Cell(CMemoryBar::HexPlace(address)));
    }
    // The row of this label, at any level.
    CPropTreeItem &Row(CPropTree &tree, const std::string &label) {
        CPropTreeItem *const row = Find(tree.Items(), label);
        tour_.Check(row, "there is a row of " + label);
        return *row;
    }
    bool Shows(CPropTree &tree, const std::string &label, const std::string &value, PropLook look) {
        const CPropTreeItem &row = Row(tree, label);
        if (row.Value() != value || row.Look() != look)
            tour_.Say(label + " shows " + row.Value() + ", look " + std::to_string(static_cast<int>(row.Look())));
        return row.Value() == value && row.Look() == look;
    }
    std::string Value(const std::string &expression) {
        std::string text;
        program_.App().debugger.Evaluate(expression, text, kDecimal, nullptr);
        return text;
    }

    // Starts the run of an example, with all bars of it.
    void Start(const std::string &source) {
        tour_.Check(program_.Start(), "the program starts");
        program_.Frame().resize(1600, 1050);
        tour_.Check(program_.App().FindOrOpenDocument(source, true), "a source opens");
        program_.ActiveView()->GetParentFrame()->showMaximized();
        tour_.Check(program_.Build(), "the build ends");
        Do(ID_DEBUG_START);
        PlaceBars();
    }
    void Do(int command) {
        program_.Command(command);
        const CDebugSession &session = program_.App().session;
        const auto stands = [&] { return (!session.IsOpen() || session.IsStanding()) && WaitingMessages() == 0; };
        tour_.Check(program_.WaitFor(stands), "the target stops");
    }
    void Watch(const std::string &expression, int format) {
        program_.AnswerDialog([expression](QWidget &dialog) {
            dialog.findChild<QComboBox *>()->setEditText(ToQString(expression));
            static_cast<QDialog &>(dialog).accept();
        });
        program_.Command(ID_WATCH_ADD);
        tour_.Check(Watches().Items().back()->Label() == expression, expression + " is watched");
        program_.Command(ID_WATCH_FORMAT_FIRST + format);
    }
    // As the user does it: F2 on the row, the new value, Return. `meanwhile`: while the editor is open.
    void TypeOver(CPropTree &tree, const std::string &label, const char *text,
                  const std::function<void()> &meanwhile = {}) {
        CPropTreeItem &row = Row(tree, label);
        for (CPropTreeItem *above = row.Parent(); above; above = above->Parent()) tree.Expand(above, true);
        tree.setFocus();
        tree.SelectItem(&row);
        QTest::keyClick(&tree, Qt::Key_F2);
        auto *const editor = tree.viewport()->findChild<QLineEdit *>();
        tour_.Check(editor, label + " can be typed over");
        QTest::keyClicks(editor, text);
        if (meanwhile) meanwhile();
        QTest::keyClick(editor, Qt::Key_Return);
        program_.Settle(5);
    }
    void Type(const CMemoryBar &bar, GridPlace place, const char *keys) {
        bar.Grid().setFocus();
        bar.Grid().SetCurrent(place);
        QTest::keyClicks(&bar.Grid(), keys);
    }
    // Chooses the entry with `text` in the menu of what is at `at`.
    void ChooseInMenu(QWidget &viewport, const QPoint &at, const std::string &text, const std::string &picture) {
        bool chosen = false;
        QTimer::singleShot(50, [&] {
            auto *const menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
            if (!menu) return;
            tour_.PictureOf(*menu, picture);
            for (QAction *entry : menu->actions()) {
                if (FromQString(entry->text()) != text) continue;
                chosen = true;
                entry->trigger();
            }
            menu->close();
        });
        QContextMenuEvent ask(QContextMenuEvent::Mouse, at, viewport.mapToGlobal(at));
        QApplication::sendEvent(&viewport, &ask);
        tour_.Check(chosen, "the menu has " + text);
    }
    void ChooseInMenu(CPropTree &tree, const std::string &label, const std::string &text, const std::string &picture) {
        tree.SelectItem(&Row(tree, label));
        ChooseInMenu(*tree.viewport(), tree.visualRect(tree.currentIndex()).center(), text, picture);
    }
    void Pictures(const std::string &name) {
        tour_.Picture(program_, name);
        SetDesktopDark(true);
        tour_.Picture(program_, name + "-dark");
        SetDesktopDark(false);
    }

private:
    DebugBars &Bars() { return program_.Frame().DebugBars(); }
    static CPropTreeItem *Find(const std::vector<std::unique_ptr<CPropTreeItem>> &rows, const std::string &label) {
        for (const auto &row : rows) {
            if (row->Label() == label) return row.get();
            if (CPropTreeItem *const below = Find(row->Children(), label)) return below;
        }
        return nullptr;
    }
    // All side by side: the registers in full height, the others beside them.
    void PlaceBars() {
        CMainFrame &frame = program_.Frame();
        const DebugBars &bars = Bars();
        for (CDebugBar *bar : {bars.ram, bars.eeprom, bars.watch, bars.profile}) bar->show();
        frame.splitDockWidget(bars.registers, bars.ram, Qt::Horizontal);
        frame.splitDockWidget(bars.ram, bars.eeprom, Qt::Vertical);
        frame.splitDockWidget(bars.eeprom, bars.watch, Qt::Vertical);
        frame.splitDockWidget(bars.watch, bars.profile, Qt::Vertical);
        program_.Settle();
        frame.resizeDocks({bars.registers, bars.ram}, {260, 450}, Qt::Horizontal);
        frame.resizeDocks({bars.ram, bars.eeprom, bars.watch, bars.profile}, {250, 150, 250, 200}, Qt::Vertical);
        program_.Settle();
    }

    CTour &tour_;
    CProgram &program_;
};

}  // namespace

void LookIntoMemory(CTour &tour) {
    CScratch scratch;
    scratch.CopyExample("blink");
    CProgram program(scratch, {scratch.Native("blink/blink.__c")});
    tour.Say("Look at the views of a debug run");
    CViewStop stop(tour, program);
    stop.Start(scratch.Windows("blink/main.asm"));
    program.Command(ID_DEBUG_PROFILING);
    const struct {
        const char *expression;
        int format;
    } watches[] = {{"ticks_left", kDecimal},     {"$OPTION_REG", kOctal},  {"$TRISB", kBinary},
                   {"$pc", kHexadecimal},        {"$PORTB", kBinary},      {"ticks_left * 256 + port_image", kDecimal},
                   {"port_image", kHexadecimal}, {"no_such_name", kOctal}, {"$TMR0", kHexadecimal}};
    for (const auto &watch : watches) stop.Watch(watch.expression, watch.format);
    stop.Do(ID_DEBUG_STEP_OVER);
    for (int i = 0; i < 20 && stop.Value("$OPTION_REG") != "135"; ++i) stop.Do(ID_DEBUG_STEP_INTO);
    CPropTree &registers = stop.Registers(), &watched = stop.Watches();
    tour.Check(stop.Shows(registers, "OPTION_REG", "135", PropLook::changed), "a step changes a register");
    tour.Check(stop.Shows(registers, "TRISB", "254", PropLook::normal), "and not what it leaves alone");
    tour.Check(stop.Shows(watched, "$OPTION_REG", "0207", PropLook::changed), "the watch shows it in its format");
    tour.Check(stop.Shows(watched, "$TRISB", "11111110", PropLook::normal), "and another one in its own");
    tour.Check(stop.Row(watched, "no_such_name").Look() == PropLook::error, "what has no value tells why");
    tour.Check(stop.Byte(stop.Ram(), kPcl).State() == ByteState::changed, "the memory shows the step");
    tour.Check(stop.Byte(stop.Ram(), kFree).State() == ByteState::same, "and what it leaves alone");
    tour.Check(stop.Calls() == 1, "the stack tells who called");
    const uint64_t counted = stop.Profile().Rows().List().front().total;
    tour.Check(counted > 10, "the profile counts");
    stop.Pictures("views-after-step");

    tour.Say("Type over a register, a bit, a byte of memory and of EEPROM, and a watch");
    stop.TypeOver(registers, "TRISB", "128", [&] { tour.Picture(program, "views-typing"); });
    tour.Check(stop.Byte(stop.Ram(), kTrisB).Value() == 128, "the memory shows the register that was written");
    stop.TypeOver(registers, "TRISB6", "1");
    stop.Type(stop.Ram(), CMemoryBar::HexPlace(kFree), "5A");
    stop.Type(stop.Eeprom(), CMemoryBar::HexPlace(0x10), "C3");
    stop.Type(stop.Eeprom(), CMemoryBar::CharPlace(0x11), "Hi");
    stop.TypeOver(watched, "ticks_left", "65");
    tour.Check(stop.Byte(stop.Ram(), kFree).State() == ByteState::written, "the byte of memory is written");
    tour.Check(stop.Byte(stop.Eeprom(), 0x10).State() == ByteState::written, "and that of the EEPROM");
    tour.Check(stop.Value("ticks_left * 256 + port_image") == "16640", "and the variable");
    stop.Pictures("views-typed-over");
    stop.Do(ID_DEBUG_STEP_INTO);
    const auto stands = [&](const CMemoryBar &bar, int address, int value) {
        return stop.Byte(bar, address).Value() == value && stop.Byte(bar, address).State() == ByteState::same;
    };
    tour.Check(stop.Value("$TRISB") == "192" && stop.Row(registers, "TRISB").Value() == "192" &&
                   stop.Row(registers, "TRISB6").Value() == "1" && stop.Row(watched, "$TRISB").Value() == "11000000",
               "the next stop confirms the register and the bit");
    tour.Check(stop.Value("$48") == "90" && stands(stop.Ram(), kFree, 0x5A), "the byte of memory");
    tour.Check(stands(stop.Eeprom(), 0x10, 0xC3) && stands(stop.Eeprom(), 0x11, 'H'), "the bytes of the EEPROM");
    tour.Check(stop.Value("ticks_left") == "65" && stop.Row(watched, "ticks_left").Value() == "65 'A'", "the watch");
    tour.Check(stop.Profile().Rows().List().front().total > counted, "and the profile counts on");
    stop.Pictures("views-confirmed");

    tour.Say("Stop where port B is written, and profile a minute of the program's time");
    stop.ChooseInMenu(registers, "PORTB", LoadText(IDS_MENU_SET_WATCHPOINT, {"PORTB"}), "views-register-menu");
    tour.Check(stop.Row(registers, "PORTB").IsMarked() && stop.Byte(stop.Ram(), kPortB).IsMarked(),
               "both bars mark the register");
    stop.Do(ID_DEBUG_CONTINUE);
    tour.Check(program.ActiveFile() == "led.asm" && stop.Byte(stop.Ram(), kPortB).Value() == 1,
               "the run stops when the LED is lit");
    tour.Check(stop.Shows(registers, "PORTB", "1", PropLook::changed) &&
                   stop.Shows(watched, "$PORTB", "00000001 'SOH'", PropLook::changed) &&
                   stop.Shows(watched, "port_image", "0x1 'SOH'", PropLook::changed),
               "which all views show");
    stop.Pictures("views-watchpoint");
    const QPoint cell = stop.Ram().Grid().CellRect(CMemoryBar::HexPlace(kPortB)).center();
    stop.ChooseInMenu(*stop.Ram().Grid().viewport(), cell, LoadText(IDS_MENU_CLEAR_WATCHPOINT, {"0x0006"}),
                      "views-memory-menu");
    tour.Check(!stop.Row(registers, "PORTB").IsMarked() && !stop.Byte(stop.Ram(), kPortB).IsMarked(),
               "by its address it is no longer watched");
    program.Command(ID_DEBUG_CONTINUE);
    const auto isOver = [&] { return program.App().session.Clock().CurrentTick() > kMinute; };
    tour.Check(program.WaitFor(isOver, std::chrono::seconds(120)), "a minute goes by");
    stop.Do(ID_DEBUG_STOP);
    const auto &rows = stop.Profile().Rows().List();
    tour.Check(rows.front().Percent() > 40 && rows.front().count >= rows.back().count,
               "the profile is sorted by weight");
    tour.Check(rows.front().total > kMinute / 2, "and has counted the run");
    stop.Pictures("views-profile");
    QListView &list = stop.Profile();
    const QRect row = list.visualRect(list.model()->index(1, 0));
    const bool inTimer = rows[1].name == "timer_take_tick";
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, row.center());
    tour.Check(program.ActiveFile() == (inTimer ? "timer.asm" : "main.asm"), "a double click leads to the source");
    program.Command(ID_DEBUG_END);
    tour.Check(program.Unexpected().empty(), "no box came up");
}

void LookIntoLargeMemory(CTour &tour) {
    CScratch scratch;
    scratch.CopyExample("greeting");
    CProgram program(scratch, {scratch.Native("greeting/greeting.__c")});
    tour.Say("See how a large chip writes its EEPROM");
    CViewStop stop(tour, program);
    stop.Start(scratch.Windows("greeting/main.asm"));
    stop.Watch("$EEDATA", kHexadecimal);
    stop.Watch("delay_high", kBinary);
    CIDEView &view = *program.ActiveView();
    view.Send(SCI_GOTOPOS, static_cast<intptr_t>(view.Sci().GetText().find("call    starts_count")));
    stop.Do(ID_DEBUG_RUN_TO_CURSOR);
    tour.Check(stop.Byte(stop.Eeprom(), 0).Value() == 0, "no start is counted");
    stop.Do(ID_DEBUG_STEP_OVER);
    tour.Check(stop.Byte(stop.Eeprom(), 0).Value() == 1 && stop.Byte(stop.Eeprom(), 0).State() == ByteState::changed,
               "the step writes a byte");
    tour.Check(stop.Shows(stop.Registers(), "EEDATA", "1", PropLook::changed) &&
                   stop.Shows(stop.Watches(), "$EEDATA", "0x1 'SOH'", PropLook::changed),
               "which the registers and the watches show, too");
    stop.Registers().SelectItem(&stop.Row(stop.Registers(), "EEDATA"));
    stop.Ram().Grid().SetCurrent(CMemoryBar::HexPlace(kEeData18));
    tour.Check(stop.Byte(stop.Ram(), kEeData18).Value() == 1, "and the memory at its far end");
    stop.Pictures("views-eeprom");
    program.Command(ID_DEBUG_END);
    tour.Check(program.Unexpected().empty(), "no box came up");
}
