; Sends by interrupts over a serial line that is switched on in the first cycles, before its rate is set; the program
; takes back the flag of the empty buffer itself.
    list p=16f877a
    include <p16f877a.inc>
    errorlevel -302
    __config _XT_OSC & _WDT_OFF & _LVP_OFF & _BODEN_OFF
w_save equ 0x70
s_save equ 0x71
next equ 0x72
sent equ 0x73
turns equ 0x74
    org 0
    goto start
    org 4
    movwf w_save
    swapf STATUS, w
    movwf s_save
    clrf STATUS
    btfss PIR1, TXIF
    goto leave
    bcf PIR1, TXIF
    movf next, w
    movwf TXREG
    incf next, f
    incf sent, f
leave
    swapf s_save, w
    movwf STATUS
    swapf w_save, f
    swapf w_save, w
    retfie
start
    clrf next
    clrf sent
    clrf turns
    movlw 0x90
    movwf RCSTA
    movlw 0xc0
    movwf INTCON
    banksel TRISC
    bcf TRISC, 6
    bsf PIE1, TXIE
    movlw 0x26
    movwf TXSTA
    movlw 7
    movwf SPBRG
    banksel PORTB
loop
    incf turns, f
    movf sent, w
    addwf turns, w
    movwf PORTB
    goto loop
    end
