#include "Keywords.h"

const char *AssemblerKeywords() {
    return
        // 12 and 14 bits
        "addwf andlw andwf bcf bsf btfsc btfss call clrf clrw clrwdt comf decf decfsz goto incf incfsz iorlw iorwf "
        "movf "
        "movlw movwf nop option retlw rlf rrf sleep subwf swapf tris xorlw xorwf addlw sublw retfie return "
        // enhanced
        "addfsr addwfc asrf bra brw callw lslf lsrf movlb movlp moviw movwi reset subwfb halt "
        // 16 bits
        "bc bn bnc bnn bnov bnz bov btg bz cpfseq cpfsgt cpfslt daw dcfsnz infsnz lfsr movff mullw mulwf negf negw pop "
        "push rcall rlcf rlncf rrcf rrncf setf subfwb subfsr subulnk addulnk movsf movss pushl tblrd tblwt tlrd tlwt "
        "tstfsz movfp movpf movlr lcall "
        // special instructions
        "addcf adddcf b bdc bndc clrc clrdc clrz lgoto movfw setc setdc setz skpc skpdc skpnc skpndc skpnz skpz subcf "
        "subdcf tstf mode clrw2 "
        // directives
        "access_ovr badram badrom bankisel banksel cblock code code_pack config constant da data db de def dim direct "
        "dt dtm dw else elif elifdef elifndef end endc endif endm endw equ error errorlevel exitm expand extern file "
        "fill global idata idata_acs idlocs if ifdef ifndef ident include list local lobit macro maxram maxrom messg "
        "noexpand nolist org page pagesel pageselw processor radix res set space subtitle subtitl title type udata "
        "udata_acs udata_ovr udata_shr undefine variable while "
        "#define #include #undefine #if #ifdef #ifndef #else #elif #elifdef #elifndef #endif "
        "__badram __badrom __config __fuses __idlocs __maxram __maxrom "
        "low high upper scnsz_low scnsz_high scnsz_upper scnstart_low scnstart_high scnstart_upper scnend_low "
        "scnend_high scnend_upper";
}
