; The enhanced core's own: linear data memory through FSR0 and FSR1, relative jumps, shifts, shadow registers.
    list p=16f1823
    errorlevel -302
    include <p16f1823.inc>
    __config _CONFIG1, _FOSC_INTOSC & _WDTE_OFF & _PWRTE_OFF & _MCLRE_ON & _CP_OFF & _CPD_OFF & _BOREN_OFF & _CLKOUTEN_OFF & _IESO_OFF & _FCMEN_OFF
    __config _CONFIG2, _WRT_OFF & _PLLEN_OFF & _STVREN_ON & _LVP_OFF
ticks equ 0x70
sum equ 0x71
count equ 0x72
    org 0
    goto start
    org 4
    banksel PIR1
    bcf PIR1, TMR2IF
    incf ticks, f
    retfie
start
    clrf ticks
    clrf sum
    clrf count
    banksel PR2
    movlw 0x7f
    movwf PR2
    movlw 0x04
    movwf T2CON
    banksel PIE1
    bsf PIE1, TMR2IE
    movlw 0xc0
    movwf INTCON
loop
    movlw 0x20
    movwf FSR0H
    clrf FSR0L
    movlw 0x20
    movwf FSR1H
    movlw 0x10
    movwf FSR1L
copy
    movf count, w
    addwf ticks, w
    movwi FSR0++
    movwi -1[FSR1]
    moviw --FSR1
    addwfc sum, f
    moviw ++FSR1
    lslf sum, f
    asrf sum, w
    addfsr FSR1, 1
    incf count, f
    btfss FSR0L, 4
    bra copy
    movlw 3
    andwf count, w
    brw
    nop
    nop
    incf sum, f
    call sub
    bra loop
sub
    lsrf sum, w
    subwfb count, w
    movwf sum
    return
    end
