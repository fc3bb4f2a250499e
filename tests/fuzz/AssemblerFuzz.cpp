// Sources for the assembler, whose names the tag generator's front finds.
#include "../../companions/ctags/AssemblerScan.h"

#include "fuzz/FuzzTarget.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const std::string_view text = AsText(data, size);
    LooksLikeAssembler(text);
    int line = 1;
    for (const AssemblerTag &tag : ScanAssembler(text, {'f', 'v', 'd'})) {
        Expect(!tag.name.empty() && tag.name.find_first_of(" \t\r\n;,:=") == std::string_view::npos,
               "a name is a word");
        Expect(tag.line >= line, "lines come in their order");
        line = tag.line;
    }
    return 0;
}
