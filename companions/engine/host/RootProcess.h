// The first process of the simulator's program. It never simulates: it starts the live process, is the parent of all
// that come after, and sees to it that none of them outlives the debugger or goes on without the live one.
#pragma once

// Returns when all others have ended, with the program's exit code. The descriptors are those of
// protocol/SharedBlock.h.
int RunRootProcess();
