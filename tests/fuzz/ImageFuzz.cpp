// The linker's image as a debug run reads it.
#include "fuzz/FuzzTarget.h"
#include "image/Image.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    std::string error;
    const auto image = CImage::FromBytes(std::string(AsText(data, size)), "\\tmp\\Debug\\image.cof", error);
    Expect(image || !error.empty(), "a refusal has its reason");
    if (!image) return 0;
    uint32_t end = 0;
    for (const ImageFunction &function : image->Functions()) {
        Expect(end <= function.begin && function.begin < function.end, "functions lie one behind the other");
        Expect(image->FunctionAt(function.end - 1) == &function, "a function is found by its addresses");
        end = function.end;
    }
    const ChipProgram &program = image->Program();
    Expect(program.code.size() + program.config.size() + program.eeprom.size() <= size, "each word has its bytes");
    int64_t before = -1;
    for (const ChipProgram::Word &word : program.code) {
        Expect(before < word.address, "words lie one behind the other");
        before = word.address;
        const auto place = image->PlaceAt(word.address);
        Expect(!place || (place->line > 0 && place->file.starts_with('\\')), "a place is a line of a full name");
        if (!image->IsLineStart(word.address)) continue;
        Expect(place.has_value(), "a line's start has its place");
        const auto line = image->FindLine(place->file, place->line);
        Expect(line && line->line == place->line, "a line is found by its name");
        if (word.address > 64) break;
    }
    return 0;
}
