#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTimer>
#include <cstring>

#include "MemoryProgram.h"

namespace {

constexpr int kTimer0 = 1, kPcl = 2, kFsr = 4, kPortB = 6, kPclath = 10, kFree = 0x30;

}  // namespace

TEST_F(MemoryProgram, EachByteIsTheEnginesAndShowsWhatAStepHasChanged) {
    DebugWithBars();
    EXPECT_EQ(Eeprom().Grid().RowCount(), 16);
    EXPECT_EQ(Texts(Eeprom(), 0), "00.");
    StepAndCompare(64, 12, 20);  // the program counter alone is at four places
}

TEST_F(MemoryProgram, ALargeChipShowsAllItsMemoryAndItsWidePointer) {
    DebugWithBars("greeting");
    StepAndCompare(512, 4, 4);
    Type(Ram(), CMemoryBar::HexPlace(0xFEA), "01");
    Type(Ram(), CMemoryBar::HexPlace(0xFE9), "34");
    EXPECT_EQ(Ram().PointerAddress(), 0x134);
}

TEST_F(MemoryProgram, BytesAreTypedOverInBothWays) {
    DebugWithBars();
    const CRamBar &ram = Ram();
    const auto hex = [](int address) { return CMemoryBar::HexPlace(address); };
    const auto character = [](int address) { return CMemoryBar::CharPlace(address); };
    struct {
        GridPlace at;
        const char *keys;
        int address, value;
        GridPlace then;
    } cases[] = {
        {hex(kFree), "g", kFree, 0, hex(kFree)},
        {hex(kFree), "a", kFree, 0xA0, hex(kFree)},
        {hex(kFree), "4x1", kFree, 0x41, hex(kFree + 1)},
        {hex(kFree + 7), "bcd", kFree + 7, 0xBC, hex(kFree + 8)},  // over the gap into the next row, half typed
        {character(kFree + 15), "~", kFree + 15, 0x7E, character(kFree + 16)},
        {character(kFree + 2), "\xC3\xA9\xE2\x82\xAC", kFree + 2, 0xE9, character(kFree + 3)},  // a euro has no byte
        {hex(7), "12", 7, -1, hex(7)},                                                          // absent
    };
    for (const auto &c : cases) {
        EXPECT_EQ(Type(ram, c.at, c.keys), c.then) << c.keys;
        EXPECT_EQ(Engine(c.address), c.value) << c.keys;
    }
    EXPECT_EQ(Texts(ram, kFree), "41A");
    EXPECT_EQ(Hex(ram, kFree).State(), ByteState::written);
    EXPECT_EQ(Engine(kFree + 8), 0xD0);
    Type(Eeprom(), hex(5), "2B");
    uint8_t byte = 0;
    EXPECT_EQ(program.App().debugger.Call(&EngineCalls::DbgGetEepromVal, 5, 1, &byte), kDbgOk);
    EXPECT_EQ(byte, 0x2B);

    Ram().resize(640, 400);
    program.Settle();
    QTest::mouseClick(ram.Grid().viewport(), Qt::LeftButton, {}, ram.Grid().CellRect({kFree / 8, 0}).center());
    QTest::keyClick(&ram.Grid(), Qt::Key_4);
    EXPECT_EQ(ram.Grid().Current(), hex(kFree)) << "the first byte of the row that was chosen";

    QTest::keyClick(&ram.Grid(), Qt::Key_Right, Qt::ShiftModifier);
    QTest::keyClick(&ram.Grid(), Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&ram.Grid(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(FromQString(QApplication::clipboard()->text()), "41\t00\nD0\t00\n");

    Do(ID_DEBUG_STEP_INTO);
    EXPECT_EQ(Hex(ram, kFree).State(), ByteState::same);
    EXPECT_EQ(Texts(ram, kFree), "41A");

    // The target changes the byte between two digits.
    Type(ram, hex(kFree), "7");
    program.App().debugger.Call(&EngineCalls::DbgSetReg, kFree, 0x25);
    Ram().Refresh();
    QTest::keyClick(&ram.Grid(), Qt::Key_3);
    EXPECT_EQ(Engine(kFree), 0x73);

    // Refused: no program at that page. Typed back, it is as it was.
    const std::string before = Hex(ram, kPcl).Text();
    Type(ram, hex(kPclath), "1F");
    Type(ram, hex(kPcl), before == "AA" ? "BB" : "AA");
    EXPECT_EQ(Hex(ram, kPcl).State(), ByteState::notWritten);
    Type(ram, hex(kPcl), before.c_str());
    EXPECT_EQ(Hex(ram, kPcl).State(), ByteState::same);

    program.App().session.EndAtOnce();
    Type(ram, hex(kFree), "55");
    EXPECT_EQ(Texts(ram, kFree), "73s") << "it had that last";
}

TEST_F(MemoryProgram, TheIndirectPointerIsMarked) {
    DebugWithBars();
    Type(Ram(), CMemoryBar::HexPlace(kFsr), "20");
    EXPECT_TRUE(Hex(Ram(), 0x20).IsPointed());
    program.App().debugger.SetValue("$STATUS", 0x80);
    Ram().Refresh();
    EXPECT_EQ(Ram().PointerAddress(), 0x120);
    EXPECT_FALSE(Hex(Ram(), 0x20).IsPointed());
    EXPECT_TRUE(Hex(Ram(), 0x120).IsPointed());
}

TEST_F(MemoryProgram, AWatchpointHasTwoNamesStopsTheRunAndStaysWithTheProject) {
    DebugWithBars();
    Watchpoints().Toggle("$portb");
    EXPECT_TRUE(IsMarked(kPortB));
    EXPECT_NE(Watchpoints().Find("$6"), -1);
    EXPECT_TRUE(Watchpoints().Add("$PORTB", false));
    EXPECT_EQ(Watchpoints().List().size(), 1U);
    Watchpoints().Toggle("$6");
    EXPECT_FALSE(IsMarked(kPortB));
    EXPECT_EQ(Watchpoints().List().size(), 0U);
    for (const auto &[name, words] : {std::pair("$NOSUCH", "on $NOSUCH. "), {"$4095", "on 0x0FFF. "}}) {
        Watchpoints().Toggle(name);
        const std::string told = program.BuildText();
        const size_t at = told.find(words);
        ASSERT_NE(at, std::string::npos) << told;
        EXPECT_NE(told[at + std::strlen(words)], '\n') << "the simulator says why";
    }

    // By the menu key of the cell: the bar takes the command for it.
    Ram().Grid().SetCurrent(CMemoryBar::HexPlace(kPortB));
    QString offer;
    QTimer::singleShot(50, [&] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        ASSERT_TRUE(menu);
        offer = menu->actions().front()->text();
        menu->actions().front()->trigger();
        menu->close();
    });
    QContextMenuEvent ask(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(Ram().Grid().viewport(), &ask);
    EXPECT_NE(offer.indexOf("0x0006"), -1) << FromQString(offer);
    EXPECT_TRUE(IsMarked(kPortB));
    Do(ID_DEBUG_CONTINUE);
    EXPECT_NE(MarkedLine(*program.ActiveView()).find("TRISB"), std::string::npos);  // behind "clrf PORTB"

    Do(ID_DEBUG_END);
    EXPECT_EQ(Watchpoints().List().size(), 0U);
    EXPECT_FALSE(IsMarked(kPortB));
    EXPECT_NE(Project().find("Expr0=$6"), std::string::npos);
}

TEST_F(MemoryProgram, AHandEditedSectionOfWatchpointsCostsOnlyItsBadEntries) {
    scratch.CopyExample("blink");
    scratch.Write("blink/blink.__c", Project() +
                                         "[Watchpoint]\r\nCount=2000000000\r\nExpr1=$TMR0\r\nExpr2=no such\r\n"
                                         "Expr3=$99999999999\r\nExpr4=$1\r\nExpr5=$\r\n");
    ASSERT_TRUE(program.Start());
    ASSERT_TRUE(program.App().OpenWorkspace(scratch.Windows("blink/blink.__c").c_str(), false));
    ASSERT_TRUE(program.Build());
    Do(ID_DEBUG_START);
    ASSERT_TRUE(program.WaitFor([&] { return !Watchpoints().List().empty(); })) << program.BuildText();
    EXPECT_EQ(Watchpoints().List().size(), 2U);
    EXPECT_TRUE(IsMarked(kTimer0));
    Watchpoints().Toggle("$1");  // the register's other name keeps the byte watched
    EXPECT_TRUE(IsMarked(kTimer0));
    EXPECT_NE(Watchpoints().Find("$1"), -1);
    program.App().session.EndAtOnce();
    EXPECT_NE(Project().find("Count=1\r\nExpr1=$TMR0"), std::string::npos) << Project();
    EXPECT_NE(Project().find("Expr0=$TMR0"), std::string::npos) << Project();
}

TEST_F(MemoryProgram, TheProfileCountsSortsAndLeadsToTheSource) {
    Debug("blink");
    EXPECT_TRUE(Profile().List().Rows().List().empty());
    program.Command(ID_DEBUG_PROFILING);
    ASSERT_TRUE(Profile().IsShowing());
    EXPECT_EQ(Profile().List().Rows().List().front().name, "start");  // by address
    program.Command(ID_DEBUG_CONTINUE);
    program.Settle(700);
    Do(ID_DEBUG_STOP);
    const auto &rows = Profile().List().Rows().List();
    ASSERT_GT(rows.size(), 4U);
    for (size_t i = 1; i < rows.size(); ++i) EXPECT_GE(rows[i - 1].count, rows[i].count);
    uint64_t sum = 0;
    for (const ProfileRow &row : rows) sum += row.count;
    EXPECT_EQ(sum, rows.front().total);
    EXPECT_GT(sum, 10000U);

    const auto toggle = std::ranges::find(rows, "led_start", &ProfileRow::name) - rows.begin();
    ASSERT_LT(static_cast<size_t>(toggle), rows.size());
    Profile().List().setCurrentIndex(Profile().List().model()->index(static_cast<int>(toggle), 0));
    QTest::keyClick(&Profile().List(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_NE(QApplication::clipboard()->text().indexOf("\nled_start\t0%\t"), -1);
    QTest::keyClick(&Profile().List(), Qt::Key_Return);
    EXPECT_EQ(program.ActiveFile(), "led.asm");
}
