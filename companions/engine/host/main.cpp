// The simulator's process, started by debugger.dll for one debug run.
#include "RootProcess.h"

int main() {
    return RunRootProcess();
}
