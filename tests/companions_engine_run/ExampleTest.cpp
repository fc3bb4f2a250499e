// What a user sees of the two examples on the simulated chip.
#include <gtest/gtest.h>

#include <sstream>

#include "OwnProcess.h"
#include "SimSession.h"
#include "Toy.h"
#include "debugger/EngineApi.h"
#include "support/ScratchDirectory.h"

namespace {

using enum RunKind;

class CExample {
public:
    CExample(const std::string &name, const std::string &chip) {
        std::filesystem::copy(std::string(EXAMPLES_DIRECTORY) + "/" + name, scratch_.Native());
        std::string command = "cd '" + scratch_.Native() + "' && for f in *.asm; do gpasm -c -p " + chip.substr(3) +
                              " $f || exit 1; done >log 2>&1 && gplink -c -o x.hex *.o >>log 2>&1";
        EXPECT_EQ(system(command.c_str()), 0) << scratch_.Read("log");
        std::string error;
        session = CreateSession(chip, error);
        if (!session || !session->Load(scratch_.Windows("x.cof"), error)) ADD_FAILURE() << error;
    }

    std::unique_ptr<CSession> session;
    CEventLog events;
    std::string error;  // of the last call that gave one

    std::string File(const std::string &name) const { return scratch_.Windows(name); }
    int LineOf(const std::string &name, const std::string &text) const {
        std::istringstream file(scratch_.Read(name));
        std::string line;
        for (int number = 1; std::getline(file, line); number++)
            if (line.find(text) != std::string::npos) return number;
        ADD_FAILURE() << "no " << text << " in " << name;
        return 0;
    }
    int Break(const std::string &name, const std::string &text) {
        return session->SetBreakpoint(File(name), LineOf(name, text), error).value_or(-1);
    }

    // Does the command and gives the source text of the place where it stops.
    std::string Do(RunKind kind) {
        if (!session->Start(kind)) return "refused";
        for (int slices = 0; slices < 20'000; slices++) {
            auto end = session->Slice(events);
            if (end.stopped) return end.reason == kDbgStopped ? Text() : "reason " + std::to_string(end.reason);
        }
        return "runs";
    }
    std::string Text() {
        SessionPlace place = session->Place();
        if (place.file.empty()) return "no source";
        std::istringstream file(scratch_.Read(place.file.substr(place.file.find_last_of('\\') + 1)));
        std::string line, word, text;
        for (int number = 0; number < place.line; number++) std::getline(file, line);
        std::istringstream words(line.substr(0, line.find(';')));
        while (words >> word) text += text.empty() ? word : " " + word;
        return text;
    }
    std::string Value(const std::string &expression) {
        std::string text, error;
        return session->Evaluate(expression, kDbgDecimal, text, error) ? text : error;
    }
    int64_t ProfileSum() {
        std::istringstream rows(session->ProfileList().value_or(""));
        std::string name;
        int64_t count = 0, sum = 0;
        while (rows >> name >> count) sum += count;
        return sum;
    }

private:
    CScratchDirectory scratch_;
};

TEST(Blink, IsSteppedThrough) {
    InOwnProcess([] {
        CExample blink("blink", "PIC16F628A");
        EXPECT_EQ(blink.Text(), "goto main");
        EXPECT_EQ(blink.Do(stepOver), "call led_start");
        EXPECT_EQ(blink.Do(stepInto), "banksel port_image");
        EXPECT_EQ(blink.Do(stepOver), "clrf port_image");
        EXPECT_EQ(blink.Do(stepOut), "call timer_start");
        EXPECT_EQ(blink.Do(stepOver), "movlw BLINK_TICKS");
        EXPECT_EQ(blink.session->FrameList(), "");
        EXPECT_EQ(blink.Do(stepOut), "refused");
        ASSERT_TRUE(blink.session->Reset(false));
        EXPECT_EQ(blink.Text(), "goto main");
        EXPECT_EQ(blink.session->Cycles(), 0);
        EXPECT_EQ(blink.Do(stepOverInstr), "call led_start");
        EXPECT_EQ(blink.session->Cycles(), 2);
        EXPECT_EQ(blink.Do(stepOver), "call timer_start") << "the same after a reset";
        // Interrupts come while the main loop waits for ticks; no step shows one.
        const int from = blink.LineOf("timer.asm", "movwf   saved_w"), to = blink.LineOf("timer.asm", "retfie");
        while (blink.Do(stepOver) != "andlw 0xFF") {
        }
        for (int steps = 0; steps < 3000; steps++) {
            if (steps % 500 == 0) blink.session->Set("$TMR0", 255, blink.error);
            blink.Do(steps % 2 ? stepInto : stepOver);
            const SessionPlace place = blink.session->Place();
            ASSERT_FALSE(place.file == blink.File("timer.asm") && place.line >= from && place.line <= to) << steps;
        }
        EXPECT_EQ(blink.Value("ticks_left"), "2") << "six interrupts have come";
    });
}

TEST(Blink, StopsWhereItIsToldTo) {
    InOwnProcess([] {
        CExample blink("blink", "PIC16F628A");
        const int loop = blink.Break("main.asm", "decfsz  ticks_left");
        EXPECT_EQ(blink.Break("main.asm", "decfsz  ticks_left"), loop);
        EXPECT_EQ(blink.Break("board.inc", "BLINK_TICKS"), -1);
        ASSERT_TRUE(blink.session->SetBreakpointConditions(loop, {"ticks_left == 3", kDbgWhenTrue, 0, 0}, blink.error));
        EXPECT_FALSE(blink.session->SetBreakpointConditions(loop, {"tick_left == 3", kDbgWhenTrue, 0, 0}, blink.error));
        EXPECT_EQ(blink.Do(run), "decfsz ticks_left, F");
        EXPECT_EQ(blink.Value("ticks_left"), "3");
        EXPECT_EQ(blink.session->BreakpointHitCount(loop), 1);
        ASSERT_TRUE(blink.session->DeleteBreakpoint(loop));

        const int port = blink.session->SetWatchpoint("$PORTB", blink.error).value_or(-1);
        EXPECT_EQ(blink.session->SetWatchpoint("$6", blink.error), port);
        EXPECT_EQ(blink.Do(run), "return") << "behind the write";
        EXPECT_EQ(blink.session->FrameList()->find(' '), std::string::npos);
        const int back = static_cast<int>(std::stoul(*blink.session->FrameList(), nullptr, 16));
        const auto caller = blink.session->AddrToPos(back - 1);
        ASSERT_TRUE(caller);
        EXPECT_EQ(caller->line, blink.LineOf("main.asm", "call    led_toggle"));
        EXPECT_EQ(blink.Value("port_image"), "1");
        EXPECT_TRUE(blink.session->DeleteWatchpoint(port));
        EXPECT_EQ(blink.Do(stepOut), "goto wait_for_tick");

        ASSERT_TRUE(blink.session->SetWatchpoint("ticks_left", blink.error));
        EXPECT_EQ(blink.Do(run), "goto wait_for_tick");
        EXPECT_EQ(blink.Value("ticks_left"), "7");
    });
}

TEST(Blink, ProfileHoldsEveryCycle) {
    InOwnProcess([] {
        CExample blink("blink", "PIC16F628A");
        EXPECT_EQ(blink.ProfileSum(), 0);
        ASSERT_GT(blink.Break("led.asm", "xorwf"), 0);
        EXPECT_EQ(blink.Do(run), "xorwf port_image, F");
        EXPECT_GT(blink.session->Cycles(), 500'000);
        EXPECT_EQ(blink.ProfileSum(), blink.session->Cycles());
        EXPECT_EQ(blink.Do(stepInto), "movf port_image, W");
        const int64_t asked = blink.session->Cycles();
        EXPECT_EQ(blink.Do(stepInto), "banksel PORTB") << "which nobody wants counted";
        EXPECT_EQ(blink.ProfileSum(), asked);
        ASSERT_TRUE(blink.session->Reset(true));
        EXPECT_EQ(blink.ProfileSum(), 0);
    });
}

TEST(Greeting, IsSteppedThrough) {
    InOwnProcess([] {
        CExample greeting("greeting", "PIC18F4520");
        EXPECT_EQ(greeting.Text(), "goto main");
        EXPECT_EQ(greeting.Do(stepInto), "movlw B'01100000'");
        for (const char *text : {"movwf OSCCON, A", "clrf LATD, A", "clrf TRISD, A", "rcall start_serial_line"})
            EXPECT_EQ(greeting.Do(stepOver), text);
        EXPECT_EQ(greeting.Do(stepInto), "call serial_start");
        EXPECT_EQ(greeting.Do(stepInto), "movlw BAUD_DIVIDER");
        EXPECT_EQ(greeting.Do(stepOut), "movlw upper text_greeting");
        EXPECT_EQ(greeting.Do(stepOut), "movlw 0x01") << "over the whole greeting, whose last call is a jump";
        EXPECT_EQ(greeting.Value("$EEDATA"), "1");
        const int light = greeting.session->SetWatchpoint("$LATD", greeting.error).value_or(-1);
        ASSERT_GT(light, 0);
        EXPECT_EQ(greeting.Do(run), "rcall delay");
        EXPECT_EQ(greeting.Do(run), "bra next_light");
        EXPECT_EQ(greeting.Value("$LATD"), "2");
        EXPECT_EQ(greeting.session->ReadEeprom(0, 1), std::vector<uint8_t>{1});
        EXPECT_TRUE(greeting.session->Set("delay_high", 77, greeting.error));
        EXPECT_EQ(greeting.Value("delay_high + 1"), "78");
        EXPECT_TRUE(greeting.session->SymbolToAddr("main"));
        EXPECT_TRUE(greeting.Value("_registers").starts_with("["));
    });
}

TEST(Session, RefusesAnotherChipsProgram) {
    InOwnProcess([] {
        CExample blink("blink", "PIC16F628A");
        CScratchDirectory other;
        other.Write("a.asm", " list p=18f4520\n code\n nop\n end\n");
        const std::string build = "gpasm -c a.asm >log && gplink -c -o a.hex a.o >log";
        ASSERT_EQ(system(("cd '" + other.Native() + "' && " + build).c_str()), 0);
        std::string error;
        EXPECT_FALSE(blink.session->Load(other.Windows("a.cof"), error));
        EXPECT_NE(error.find("18F4520"), std::string::npos) << error;
        EXPECT_EQ(blink.Do(stepOver), "call led_start") << "the old one is still there";
    });
}

}  // namespace
