// The calls for what stands around the chip, with the simulator's own program.
#include <atomic>
#include <limits>

#include "DebugRun.h"
#include "companions_engine_image/LinkedProgram.h"

namespace {

// A button from RB0 to ground lights the lamp at RB1.
const ProgramSources kLamp = {"16f84", R"(
#include <p16f84.inc>
        __CONFIG _WDT_OFF & _XT_OSC
start   code    0
        clrf    PORTB
        bsf     STATUS, RP0
        bcf     OPTION_REG, NOT_RBPU    ; pulls the lamp up as well, until it is an output
        bcf     TRISB, 1
        bcf     STATUS, RP0
dark    bcf     PORTB, 1
        btfsc   PORTB, 0
        goto    $ - 1
        bsf     PORTB, 1
        btfss   PORTB, 0
        goto    $ - 1
        goto    dark
        end
)"};

const ProgramSources kDog = {"16f84", R"(
#include <p16f84.inc>
        __CONFIG _WDT_ON & _XT_OSC
start   code    0
        bsf     STATUS, RP0
        bsf     OPTION_REG, PSA
        movlw   0xF8
        andwf   OPTION_REG, f
        goto    $
        end
)"};

constexpr double kOpen = std::numeric_limits<double>::infinity();

struct Heard {
    const CDebugger *debugger = nullptr;  // asked for `place`
    std::atomic<int> place = -1;          // where the target is while it is told
    std::atomic<int> times = 0, handle = 0;
    std::atomic<double> last = -1;
};
void OnVolts(int pin, double volts, void *user) {
    auto &heard = *static_cast<Heard *>(user);
    heard.handle = pin;
    if (heard.debugger) heard.place = std::stoi(heard.debugger->Evaluate("$pc"));
    heard.last = volts;
    ++heard.times;
}
void OnValue(int handle, int value, void *user) {
    OnVolts(handle, value, user);
}

int Connect(const CDebugger &debugger, const char *pin) {
    int connection = -1;
    EXPECT_EQ(debugger.Call<DbgMakeConnectionToPinFn>("DbgMakeConnectionToPin", pin, &connection), kDbgOk) << pin;
    return connection;
}

double Volts(const CDebugger &debugger, int connection) {
    double volts = -99;
    debugger.Call<DbgGetPinVFn>("DbgGetPinV", connection, &volts);
    return volts;
}

int SetOhms(const CDebugger &debugger, int connection, double ohms) {
    return debugger.Call<DbgSetConnectionRFn>("DbgSetConnectionR", connection, ohms);
}

}  // namespace

TEST(RealPins, LampFollowsButtonAlsoThroughStepsBackAndResets) {
    const CSilence silence;
    const CDebugger debugger(PROGRAM_DIR);
    const CLinkedProgram program(kLamp);
    CDebugRun run(debugger, true, kLamp.chip, program.ImageName());
    const int button = Connect(debugger, "RB0"), lamp = Connect(debugger, "portb1"), meter = Connect(debugger, "rb0");
    Heard light{&debugger}, port;
    ASSERT_EQ(debugger.Call<DbgPinVChangeCallBackFn>("DbgAddPinVChangeCallBack", lamp, &OnVolts, &light), kDbgOk);
    ASSERT_EQ(debugger.Call<DbgRegChangeCallBackFn>("DbgAddRegChangeCallBack", 6, &OnValue, &port), kDbgOk);
    ASSERT_EQ(debugger.Command("DbgRun"), kDbgOk);
    ASSERT_TRUE(WaitUntil([&] { return light.last == 0.0; }));
    EXPECT_EQ(Volts(debugger, meter), 5.0) << "the pull-up";
    ASSERT_EQ(SetOhms(debugger, button, 0), kDbgOk);
    ASSERT_TRUE(WaitUntil([&] { return light.last == 5.0; }));
    EXPECT_EQ(light.handle, lamp);
    EXPECT_EQ(light.place, 9) << "behind the instruction";
    ASSERT_EQ(debugger.Command("DbgSimLock"), kDbgOk);
    const int64_t clk = debugger.Clk();
    EXPECT_EQ(SetOhms(debugger, button, kOpen), kDbgOk);
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_EQ(debugger.Clk(), clk);
    EXPECT_EQ(light.last, 5.0);
    EXPECT_EQ(SetOhms(debugger, button, 0), kDbgOk);
    ASSERT_EQ(debugger.Command("DbgSimUnlock"), kDbgOk);
    EXPECT_TRUE(WaitUntil([&] { return debugger.Clk() > clk; }));
    ASSERT_EQ(SetOhms(debugger, lamp, 150), kDbgOk);
    EXPECT_TRUE(WaitUntil([&] { return std::abs(light.last - 2.5) < 0.001; })) << "a load";
    EXPECT_TRUE(WaitUntil([&] { return (static_cast<int>(port.last) & 3) == 2; })) << "register, by input and program";
    ASSERT_EQ(run.Do("DbgStop").reason, kDbgStopped);

    // The lamp is lit by the run that is taken back, the button stays pressed.
    ASSERT_EQ(SetOhms(debugger, lamp, kOpen), kDbgOk);
    const int late = Connect(debugger, "RA0");
    ASSERT_EQ(debugger.Call<DbgReleaseConnectionFn>("DbgReleaseConnection", meter), kDbgOk);
    const int presses = light.times;
    ASSERT_EQ(run.Do("DbgStepBack").reason, kDbgAfterStepBack);
    EXPECT_GT(light.times, presses) << "told before the stop";
    EXPECT_LT(light.last, 1.0);
    EXPECT_NEAR(Volts(debugger, button), 0, 0.001);
    EXPECT_EQ(Volts(debugger, meter), -99);
    EXPECT_NE(Volts(debugger, late), -99);
    EXPECT_GT(Connect(debugger, "RA0"), late);
    for (const char *command : {"DbgReset", "DbgPowerOnReset"}) {
        EXPECT_EQ(run.Do(command).reason, kDbgAfterReset);
        ASSERT_EQ(debugger.Command("DbgRun"), kDbgOk);
        EXPECT_TRUE(WaitUntil([&] { return light.last == 5.0 && light.place == 9; })) << command;
        ASSERT_EQ(run.Do("DbgStop").reason, kDbgStopped);
    }

    // While the target stands, the calls themselves bring the changes.
    ASSERT_EQ(SetOhms(debugger, button, kOpen), kDbgOk);
    EXPECT_TRUE(WaitUntil([&] { return (static_cast<int>(port.last) & 3) == 3; }));
    ASSERT_EQ(debugger.Call<DbgSetRegFn>("DbgSetReg", 6, 0), kDbgOk);
    EXPECT_TRUE(WaitUntil([&] { return light.last == 0.0; }));
    EXPECT_EQ(SetOhms(debugger, button, -1), kDbgFailed);
    EXPECT_EQ(SetOhms(debugger, meter, 1), kDbgFailed);
    int none = 0;
    EXPECT_EQ(debugger.Call<DbgMakeConnectionToPinFn>("DbgMakeConnectionToPin", "RC0", &none), kDbgFailed);
}

TEST(RealPins, WatchdogKnowsTheClockRate) {
    const CSilence silence;
    const CDebugger debugger(PROGRAM_DIR);
    const CLinkedProgram program(kDog);
    CDebugRun run(debugger, true, kDog.chip, program.ImageName());
    int id = 0;
    ASSERT_EQ(
        debugger.Call<DbgSetBreakpointByLineFn>("DbgSetBreakpointByLine", program.Windows("main.asm").c_str(), 5, &id),
        kDbgOk);
    auto bark = [&] {  // cycles between two resets of the watchdog
        run.Do("DbgRun");
        const int64_t before = debugger.Clk();
        EXPECT_EQ(run.Do("DbgRun").address, 0);
        return static_cast<double>(debugger.Clk() - before);
    };
    auto setRate = [&](int hertz) { return debugger.Call<DbgSetClkRateFn>("DbgSetClkRate", hertz); };
    EXPECT_NEAR(bark(), 90'000, 50) << "18 ms at 20 MHz";
    for (const int refused : {0, -4'000'000}) EXPECT_EQ(setRate(refused), kDbgFailed);
    ASSERT_EQ(setRate(4'000'000), kDbgOk);
    EXPECT_NEAR(bark(), 18'000, 50);
    ASSERT_EQ(run.Do("DbgStepBack").reason, kDbgAfterStepBack);
    ASSERT_EQ(setRate(32'000'000), kDbgOk);
    ASSERT_EQ(run.Do("DbgStepBack").reason, kDbgAfterStepBack);
    EXPECT_NEAR(bark(), 144'000, 50);
    ASSERT_EQ(run.Do("DbgPowerOnReset").reason, kDbgAfterReset);
    EXPECT_NEAR(bark(), 144'000, 50);
}
