#include "NewFiles.h"

#include <cctype>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "platform/PathCalls.h"

namespace {

// The title as a name of the assembler: letters, digits and "_", not beginning with a digit.
std::string AsName(const std::string &title) {
    std::string name;
    for (const char c : title) name += c >= 0 && std::isalnum(static_cast<unsigned char>(c)) ? c : '_';
    return name.empty() || (name[0] >= '0' && name[0] <= '9') ? "_" + name : name;
}

// Whether the chip's linker script gives data memory in shared banks only: a plain data section has no place there.
bool HasSharedMemoryOnly(const std::string &processor) {
    const char *path = std::getenv("GPUTILS_LKR_PATH");
    std::ifstream script(std::string(path ? path : "/usr/share/gputils/lkr") + "/" + processor.substr(1) + "_g.lkr");
    bool shared = false;
    for (std::string line; std::getline(script, line);) {
        std::string kind;
        std::istringstream(line) >> kind;
        if (line.find("PROTECTED") != std::string::npos) continue;
        if (EqualNoCase(kind, "DATABANK")) return false;
        if (EqualNoCase(kind, "SHAREBANK")) shared = true;
    }
    return shared;
}

const char *DataSection(const std::string &processor) {
    if (processor.starts_with("p18")) return "udata_acs";
    return HasSharedMemoryOnly(processor) ? "udata_shr" : "udata    ";
}

}  // namespace

std::string NewSourceText(const std::string &title, const std::string &processor) {
    const bool pic18 = processor.starts_with("p18");
    const std::string scratch =
        pic18 ? "            movlw   0x0F\n            movwf   count, A        ; A: the access bank\n"
              : "            banksel count\n            movlw   0x0F\n            movwf   count\n";
    return "; " + title +
           ".asm\n"
           ";\n"
           "; A relocatable source: the linker places its sections in the chip's memory.\n"
           "\n"
           "            include \"" +
           processor +
           ".inc\"   ; names of the chip's registers and bits\n"
           "\n"
           "            global  main            ; what other sources may use\n"
           "\n"
           "            " +
           DataSection(processor) +
           "               ; variables\n"
           "count       res     1\n"
           "\n"
           "reset_" +
           AsName(title) +
           " code 0x0000         ; where the chip starts\n"
           "            goto    main\n"
           "\n"
           "            code                    ; program memory, anywhere\n"
           "main\n" +
           scratch +
           "loop\n"
           "            goto    loop\n"
           "\n"
           "            end\n";
}

std::string NewHeaderText(const std::string &title) {
    const std::string guard = AsName(title) + "_inc";
    return "; " + title +
           ".inc\n"
           "\n"
           "            ifndef  " +
           guard +
           "\n"
           "            variable " +
           guard +
           " = 1      ; included once only\n"
           "\n"
           "            endif\n";
}
