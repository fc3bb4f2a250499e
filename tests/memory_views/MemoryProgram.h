// The blink example in a debug run, with the views of its memory.
#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QTest>

#include "debug_views/DebugProgram.h"
#include "debugger/EepromBar.h"
#include "debugger/ProfileBar.h"
#include "debugger/ProfileListBox.h"
#include "debugger/RamBar.h"
#include "framework/Text.h"
#include "widgets/GridCtrl.h"

class MemoryProgram : public DebugProgram {
protected:
    CRamBar &Ram() { return static_cast<CRamBar &>(*program.Frame().DebugBars().ram); }
    CEepromBar &Eeprom() { return static_cast<CEepromBar &>(*program.Frame().DebugBars().eeprom); }
    CProfileBar &Profile() { return static_cast<CProfileBar &>(*program.Frame().DebugBars().profile); }
    CWatchpointManager &Watchpoints() { return program.App().watchpoints; }

    void DebugWithBars(const std::string &example = "blink") {
        Debug(example);
        for (CDebugBar *bar : {static_cast<CDebugBar *>(&Ram()), static_cast<CDebugBar *>(&Eeprom())}) {
            bar->show();
            bar->setFloating(true);  // side by side with the others
        }
        program.Settle();
    }

    static CGridCellByte &Hex(const CMemoryBar &bar, int address) {
        return static_cast<CGridCellByte &>(bar.Grid().Cell(CMemoryBar::HexPlace(address)));
    }
    static std::string Texts(const CMemoryBar &bar, int address) {
        return Hex(bar, address).Text() + bar.Grid().Cell(CMemoryBar::CharPlace(address)).Text();
    }
    // Types into the cell at `place`; where the current cell is then.
    static GridPlace Type(const CMemoryBar &bar, GridPlace place, const char *keys) {
        bar.Grid().SetCurrent(place);
        for (const QChar key : ToQString(keys)) {
            QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, key);
            QApplication::sendEvent(&bar.Grid(), &press);
        }
        return bar.Grid().Current();
    }
    int Engine(int address) {
        std::string text;
        return program.App().debugger.Evaluate("$" + std::to_string(address), text, kDbgDecimal, nullptr)
                   ? std::atoi(text.c_str())
                   : -1;
    }
    // Each byte is what the engine says at each step, and stands out when it has changed.
    void StepAndCompare(int rows, int steps, int leastChanges) {
        ASSERT_EQ(Ram().Grid().RowCount(), rows);
        int changes = 0;
        for (int step = 0; step < steps; ++step) {
            std::vector<std::string> before;
            for (int address = 0; address < 8 * rows; ++address) before.push_back(Hex(Ram(), address).Text());
            Do(ID_DEBUG_STEP_INTO);
            for (int address = 0; address < 8 * rows; ++address) {
                const CGridCellByte &cell = Hex(Ram(), address);
                if (cell.IsAbsent()) {
                    ASSERT_EQ(Texts(Ram(), address), "---") << address;
                    continue;
                }
                ASSERT_EQ(cell.Value(), Engine(address)) << address;
                const bool changed = cell.Text() != before[static_cast<size_t>(address)];
                ASSERT_EQ(cell.State(), changed ? ByteState::changed : ByteState::same) << address;
                changes += changed;
            }
        }
        EXPECT_GE(changes, leastChanges);
    }
    bool IsMarked(int address) { return Hex(Ram(), address).IsMarked(); }
    std::string Project() { return scratch.Read("blink/blink.__c"); }
};
