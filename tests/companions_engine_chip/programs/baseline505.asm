; A chip of 12 bits: banks by FSR, tables of RETLW, timer 0 read as it runs, no interrupts.
    list p=16f505
    errorlevel -224
    include <p16f505.inc>
    __config _WDT_OFF & _OSC_IntRC_RB4EN & _MCLRE_ON & _CP_OFF
sum equ 0x08
count equ 0x09
at equ 0x0a
low_sum equ 0x0b
    org 0
    movwf OSCCAL
    clrwdt
    goto start
values
    andlw 7
    addwf PCL, f
    retlw 0x31
    retlw 0x41
    retlw 0x59
    retlw 0x26
    retlw 0x53
    retlw 0x58
    retlw 0x97
    retlw 0x93
mix
    xorwf sum, w
    rlf sum, f
    swapf low_sum, f
    addwf low_sum, f
    btfsc STATUS, C
    incf sum, f
    subwf at, w
    retlw 0x5a
start
    movlw 0xd1
    option
    movlw 0x0f
    tris 6
    clrf sum
    clrf low_sum
    clrf at
loop
    movlw 0x30
    movwf FSR
each
    movf at, w
    call values
    addwf TMR0, w
    movwf INDF
    call mix
    xorwf INDF, f
    incf at, f
    incf FSR, f
    btfsc FSR, 4
    goto each
    movlw 0x50
    movwf FSR
    movlw 4
    movwf count
turn
    rrf 0x11, f
    comf 0x12, f
    decf 0x13, f
    movf 0x11, w
    iorwf 0x12, w
    movwf 0x14
    incfsz 0x15, f
    bsf 0x16, 3
    decfsz count, f
    goto turn
    clrwdt
    movf TMR0, w
    movwf PORTC
    movf PORTC, w
    goto loop
    org 0x3ff
    movlw 0x40
    end
