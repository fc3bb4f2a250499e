; Writes running numbers into the EEPROM, waits for the write's interrupt, and reads them back; timer 1 runs along.
    list p=16f628a
    errorlevel -302
    include <p16f628a.inc>
    __config _CP_OFF & _WDT_OFF & _XT_OSC & _LVP_OFF & _BODEN_OFF & _MCLRE_ON
w_save equ 0x70
s_save equ 0x71
done equ 0x72
overflows equ 0x73
at equ 0x20
value equ 0x21
sum equ 0x22
    org 0
    goto start
    org 4
    movwf w_save
    swapf STATUS, w
    clrf STATUS
    movwf s_save
    btfsc PIR1, EEIF
    bsf done, 0
    bcf PIR1, EEIF
    btfss PIR1, TMR1IF
    goto leave
    bcf PIR1, TMR1IF
    incf overflows, f
    movlw 0xf0
    movwf TMR1H
leave
    swapf s_save, w
    movwf STATUS
    swapf w_save, f
    swapf w_save, w
    retfie
start
    clrf at
    clrf value
    clrf sum
    clrf overflows
    movlw 0xf0
    movwf TMR1H
    movlw 0x01
    movwf T1CON
    bsf STATUS, RP0
    bsf PIE1, EEIE
    bsf PIE1, TMR1IE
    bcf STATUS, RP0
    movlw 0xc0
    movwf INTCON
loop
    clrf done
    movlw 7
    addwf value, f
    incf at, f
    movlw 0x7f
    andwf at, w
    bsf STATUS, RP0
    movwf EEADR
    bcf STATUS, RP0
    movf value, w
    bsf STATUS, RP0
    movwf EEDATA
    bsf EECON1, WREN
    bcf INTCON, GIE
    movlw 0x55
    movwf EECON2
    movlw 0xaa
    movwf EECON2
    bsf EECON1, WR
    bsf INTCON, GIE
    bcf STATUS, RP0
wait
    incf sum + 1, f
    btfss done, 0
    goto wait
    bsf STATUS, RP0
    clrf EEDATA
    bsf EECON1, RD
    movf EEDATA, w
    bcf STATUS, RP0
    subwf value, w
    addwf sum, f
    goto loop
    end
