// The words of the assembler that matter to the names in a source.
#pragma once

#include <string_view>

enum class AssemblerWord {
    other,     // of no account, or no word of the assembler
    plain,     // instruction or directive, of no account for names
    assign,    // name = value
    constant,  // a list of names with values
    define,    // #define name text
    macro,     // begins one, named before it
    endMacro,
    local,  // a list of names of the macro's own
    block,  // begins variables, lists of names with sizes
    endBlock,
    codeSection,  // the name before it is the section's
    dataSection,  // this one too
    absolute,     // code from here on; the name before it is a label
    reserve,      // data memory
    end,          // of the source
};

// In any case, without "#". An instruction is known here if every chip has it: the others serve as names too, as "push"
// does in sources for chips without a stack to push to.
AssemblerWord FindAssemblerWord(std::string_view word);
