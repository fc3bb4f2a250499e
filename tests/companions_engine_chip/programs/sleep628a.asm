; Works for a while, sleeps, and is woken by the watchdog; clears it in between.
    list p=16f628a
    errorlevel -302
    include <p16f628a.inc>
    __config _CP_OFF & _WDT_ON & _XT_OSC & _LVP_OFF & _BODEN_OFF & _MCLRE_ON
count equ 0x20
wakes equ 0x22
sum equ 0x23
    org 0
    bsf STATUS, RP0
    movlw 0xd7
    movwf OPTION_REG
    bcf STATUS, RP0
    clrf wakes
    clrf sum
    clrf count
    clrf count + 1
work
    movf count, w
    addwf sum, f
    btfsc STATUS, C
    incf sum + 1, f
    decfsz count, f
    goto work
    clrwdt
    incf count + 1, f
    movlw 0x41
    subwf count + 1, w
    btfss STATUS, Z
    goto work
    clrf count + 1
    sleep
    nop
    btfss STATUS, NOT_TO
    incf wakes, f
    goto work
    end
