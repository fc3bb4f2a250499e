#include "MemoryUsage.h"

#include "coff/LinkedImage.h"
#include "platform/NativePath.h"

namespace {

std::string Share(uint32_t used, uint32_t all, const char *unit) {
    std::string text = std::to_string(used);
    if (all > 0) text += " of " + std::to_string(all);
    text += unit;
    if (all > 0) text += " (" + std::to_string((uint64_t{used} * 100 + all / 2) / all) + " %)";
    return text;
}

}  // namespace

std::string DescribeMemoryUsage(const std::string &image, uint32_t programSize, bool inBytes) {
    const CObjectFile file(FromNativePath(image));
    if (file.Sections().empty()) return {};
    uint32_t program = 0, data = 0;
    for (const CObjectFile::Section &section : file.Sections()) {
        if (IsInProgram(section, programSize)) {
            program += ProgramUnits(file, section);
        } else if (section.IsData()) {
            data += section.size;
        }
    }
    return "Program memory: " + Share(program, programSize, inBytes ? " bytes" : " words") +
           "\nData memory: " + Share(data, 0, " bytes") + "\n";
}
