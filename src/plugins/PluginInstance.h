// One instance of a simulator plug-in, as a debug run calls it. Calls that the plug-in's library doesn't offer do
// nothing.
#pragma once

class CPluginInstance {
public:
    virtual ~CPluginInstance() = default;

    // Main thread.
    virtual void Start() = 0;                // a run begins, or the bar comes to be seen during one
    virtual void ClockRate(int hertz) = 0;
    virtual void Stop() = 0;                 // the run ends, or the bar is hidden during one
    virtual void KeepState() = 0;            // before each run command: for a step back

    // The engine's thread; none of them locks or allocates on the host's side.
    virtual void Clock(int clk, int passed) = 0;
    virtual void Instruction(int clk, int address) = 0;
    virtual void Reset() = 0;                // at a stop behind a reset
    virtual void Step(bool back) = 0;        // at any other stop
    virtual void LoadState() = 0;            // behind Step(true): the state that was kept last and not yet taken back
};
