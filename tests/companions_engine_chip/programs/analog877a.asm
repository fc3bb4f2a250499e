; Pulse width modulation that follows the converter: capture/compare 2 starts a conversion at each period of timer 1, the
; conversion's interrupt sets the width, timer 2's counts periods.
    list p=16f877a
    errorlevel -302
    include <p16f877a.inc>
    __config _CP_OFF & _WDT_OFF & _XT_OSC & _LVP_OFF & _BODEN_OFF
w_save equ 0x70
s_save equ 0x71
periods equ 0x72
width equ 0x73
results equ 0x20
sum equ 0x30
    org 0
    goto start
    org 4
    movwf w_save
    swapf STATUS, w
    clrf STATUS
    movwf s_save
    btfss PIR1, TMR2IF
    goto no_period
    bcf PIR1, TMR2IF
    incf periods, f
no_period
    btfss PIR1, ADIF
    goto no_result
    bcf PIR1, ADIF
    movf ADRESH, w
    addwf periods, w
    movwf width
    movwf CCPR1L
no_result
    btfss PIR2, CCP2IF
    goto leave
    bcf PIR2, CCP2IF
    movlw 0x08
    xorwf ADCON0, f
leave
    swapf s_save, w
    movwf STATUS
    swapf w_save, f
    swapf w_save, w
    retfie
start
    clrf periods
    clrf width
    clrf sum
    movlw 0x41
    movwf ADCON0
    movlw 0x2c
    movwf CCPR2L
    movlw 0x01
    movwf CCPR2H
    movlw 0x0b
    movwf CCP2CON
    movlw 0x0c
    movwf CCP1CON
    movlw 0x0d
    movwf T2CON
    movlw 0x01
    movwf T1CON
    bsf STATUS, RP0
    bcf TRISC, 2
    movlw 0x3f
    movwf PR2
    clrf ADCON1
    bsf PIE1, TMR2IE
    bsf PIE1, ADIE
    bsf PIE2, CCP2IE
    bcf STATUS, RP0
    movlw 0xc0
    movwf INTCON
loop
    movlw results
    movwf FSR
store
    movf width, w
    addwf sum, f
    xorwf periods, w
    movwf INDF
    incf FSR, f
    btfss FSR, 4
    goto store
    movf TMR2, w
    subwf sum, f
    rlf sum, f
    goto loop
    end
