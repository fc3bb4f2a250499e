// What a debug run tells the simulator plug-ins, each of the bars in the order of their slots.
#pragma once

// Main thread.
bool IsAnyPluginShown();
void StartPlugins();         // the shown ones, each with the project's clock rate behind it
void StopPlugins();          // the shown ones
void KeepPluginStates();     // before a run command

// The engine's thread. Only plug-ins whose bar is active hear of the clock and of stops.
void TellPluginsClock(int clk, int passed);
void TellPluginsInstruction(int clk, int address);
void TellPluginsReset();
void TellPluginsStep(bool back);  // with `back` each gets its state back, an active one or not
