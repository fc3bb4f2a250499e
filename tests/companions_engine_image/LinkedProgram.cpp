#include "LinkedProgram.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "platform/FileText.h"
#include "platform/NativePath.h"

namespace fs = std::filesystem;

const ProgramSources kMidRange = {"16f628a", R"(
#include <p16f628a.inc>
        __CONFIG _CP_OFF & _WDT_OFF & _INTRC_OSC_NOCLKOUT
        __IDLOCS 0x1234
        extern  helper
        udata
count   res     2
flag    res     1
        udata_shr
saved   res     1
        idata
table   db      1, 2, 3
eeprom  code    0x2100
        de      "Hi", 0
start   code    0
        goto    main
isr     code    4
        retfie
        code
main    movlw   5
        movwf   count
again   decfsz  count, f
        goto    again
        call    inner
        call    helper
        goto    $
inner   nop
        return
        end
)",
                                  R"(
#include <p16f628a.inc>
        global  helper, shared
        udata
shared  res     3
        code
helper  movlw   1
again   addwf   shared, f
        btfss   shared, 3
        goto    again
        return
        end
)"};

const ProgramSources kEnhanced = {"16f1847", R"(
#include <p16f1847.inc>
        __CONFIG _CONFIG1, _FOSC_INTOSC & _WDTE_OFF
        __CONFIG _CONFIG2, _LVP_OFF
        udata
buffer  res     4
eeprom  code    0xF000
        de      9, 8, 7
start   code    0
        pagesel main
        goto    main
banked  code    0x800
main    movlw   1
        banksel buffer
        movwf   buffer
        pagesel second
        call    second
        bra     main
page0   code    0x10
first   movlw   2
        return
second  movlw   3
        return
        end
)"};

const ProgramSources kPic18 = {"18f4520", R"(
#include <p18f4520.inc>
        CONFIG  OSC = INTIO67, WDT = OFF
        udata_acs
count   res     2
        idata
table   db      1, 2, 3
eeprom  code    0xF00000
        de      "Hi", 1
start   code    0
        goto    main
        code
main    movlw   1
        movff   count, count + 1
        lfsr    0, table
        rcall   inner
        bra     main
inner   incf    count, f, 0
        return
text    db      "text", 0
        end
)"};

CLinkedProgram::CLinkedProgram(const ProgramSources &sources) {
    std::string pattern = (fs::temp_directory_path() / "image test XXXXXX").string();
    folder_ = mkdtemp(pattern.data());
    fs::create_directories(Native("Debug"));
    fs::create_directories(Native("parts"));
    std::string objects, output;
    const auto assemble = [&](const std::string &name, const char *text) {
        if (!text) return;
        std::ofstream(Native(name + ".asm")) << text;
        const std::string object = "Debug/" + fs::path(name).filename().string() + ".o";
        output += Run("gpasm -c " + std::string(sources.options) + " -p " + sources.chip + " -o " + object + " " +
                      name + ".asm");
        objects += " " + object;
    };
    assemble("main", sources.main);
    assemble("parts/helper", sources.helper);
    output += Run("gplink -c -o Debug/demo.hex" + objects);
    if (!fs::exists(Native("Debug/demo.cof"))) ADD_FAILURE() << output;
}

CLinkedProgram::~CLinkedProgram() {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
}

std::string CLinkedProgram::Run(const std::string &command) const {
    std::string output;
    std::FILE *pipe = popen(("cd '" + folder_ + "' && " + command + " 2>&1").c_str(), "r");
    if (!pipe) return output;
    char buffer[4096];
    while (const size_t size = std::fread(buffer, 1, sizeof buffer, pipe)) output.append(buffer, size);
    pclose(pipe);
    return output;
}

std::string CLinkedProgram::Windows(const std::string &name) const {
    return FromNativePath(Native(name));
}

std::string CLinkedProgram::ImageBytes() const {
    return ReadWholeFile(ImageName()).value_or("");
}

std::unique_ptr<CImage> CLinkedProgram::Load() const {
    std::string error;
    std::unique_ptr<CImage> image = CImage::Load(ImageName(), error);
    EXPECT_TRUE(image) << error;
    return image;
}
