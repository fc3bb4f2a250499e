// The program's window in a debug run, as the benchmarks set it up.
#pragma once

class CProgram;

void StartDebugRun(CProgram &program);  // until the first stop is shown
bool Stands(CProgram &program);         // the target, and its stop is shown
void ShowAllBars(CProgram &program);    // side by side, none behind another
