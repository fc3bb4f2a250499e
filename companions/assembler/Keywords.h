// The words of the assembler that an editor colours, in lower case, separated by blanks: the instructions of all
// families (12, 14 and 16 bits, with the enhanced ones), the assembler's special instructions, and its directives.
#pragma once

const char *AssemblerKeywords();
