// How far the target goes after a run command.
#pragma once

enum class RunKind : int { run, stepInto, stepIntoInstr, stepOver, stepOverInstr, stepOut };
