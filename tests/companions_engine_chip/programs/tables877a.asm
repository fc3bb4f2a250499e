; Computed jumps into tables, indirect addressing over two banks, and a stack eight levels deep.
    list p=16f877a
    errorlevel -302, -306
    include <p16f877a.inc>
    __config _CP_OFF & _WDT_OFF & _XT_OSC & _LVP_OFF & _BODEN_OFF & _PWRTE_OFF
index equ 0x20
sum equ 0x21
count equ 0x22
    org 0
    goto start
    org 4
    bcf PIR1, TMR2IF
    incf 0x7f, f
    retfie
start
    clrf index
    clrf count
    bsf STATUS, RP0
    movlw 0x63
    movwf PR2
    bcf STATUS, RP0
    movlw 0x05
    movwf T2CON
refill
    movlw 0x30
    movwf FSR
    bcf STATUS, IRP
next
    movf index, w
    call table
    movwf INDF
    addwf sum, f
    incf index, f
    incf FSR, f
    btfss FSR, 6
    goto next
    bsf STATUS, IRP
    movlw 0x10
    movwf FSR
    movf sum, w
    movwf INDF
    incf INDF, f
    decfsz INDF, f
    movf INDF, w
    bcf STATUS, IRP
    call deep1
    movlw high jumps
    movwf PCLATH
    movf count, w
    andlw 0x03
    goto jumps
back
    clrf PCLATH
    incf count, f
    goto refill
deep1
    call deep2
    return
deep2
    call deep3
    return
deep3
    call deep4
    return
deep4
    call deep5
    return
deep5
    call deep6
    retlw 5
deep6
    call deep7
    return
deep7
    call deep8
    return
deep8
    comf sum, f
    return
    org 0x100
table
    movlw high values
    movwf PCLATH
    movf index, w
    andlw 0x07
    addwf PCL, f
values
    retlw 3
    retlw 0x8d
    retlw 59
    retlw 26
    retlw 53
    retlw 58
    retlw 97
    retlw 93
    org 0x200
jumps
    addwf PCL, f
    goto one
    goto two
    goto three
    movlw high back
    movwf PCLATH
    goto back
one
    rlf sum, f
    movlw high back
    movwf PCLATH
    goto back
two
    swapf sum, f
    movlw high back
    movwf PCLATH
    goto back
three
    xorwf sum, f
    movlw high back
    movwf PCLATH
    goto back
    end
