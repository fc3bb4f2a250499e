#include "editor/Keywords.h"

#include <array>

namespace {

std::array<std::string, kFileKinds> &Lists() {
    static std::array<std::string, kFileKinds> lists = {
        "",
        "return if else for while do continue break switch case default void asm signed unsigned char short int long "
        "goto static extern register auto enum typedef const class virtual",
        "addwf andwf clrf clrw comf decf decfsz incf incfsz iorwf movf movwf nop rlf rrf subwf swapf xorwf bcf bsf "
        "btfss btfsc addlw andlw call clrwdt goto iorlw movlw retfie retlw return sleep sublw xorlw org end equ and "
        "not or xor add clr dec decsz inc incsz rl rr sub swap clrb sb setb snb mov movsz test jmp ret retp reti "
        "retiw retw bank iread page sleep",
        "program begin end if then else while do for to downto procedure function var char integer boolean mod div "
        "asm const",
        "call branch do while end for next gosub end return goto if then elseif else endif let while wend to sub "
        "function dim as byte integer long",
    };
    return lists;
}

}  // namespace

const std::string &KeywordsOf(FileKind kind) {
    return Lists()[static_cast<size_t>(kind)];
}

void SetKeywords(FileKind kind, const std::string &words) {
    if (!words.empty()) Lists()[static_cast<size_t>(kind)] = words;
}
