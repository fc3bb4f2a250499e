; Counts in the main loop and in the interrupt of timer 0, with the context saved in between.
    list p=16f84
    errorlevel -302
    include <p16f84.inc>
    __config _CP_OFF & _WDT_OFF & _XT_OSC
w_save equ 0x0c
s_save equ 0x0d
ticks equ 0x10
count equ 0x12
sum equ 0x14
    org 0
    goto start
    org 4
    movwf w_save
    swapf STATUS, w
    movwf s_save
    bcf INTCON, T0IF
    incf ticks, f
    btfsc STATUS, Z
    incf ticks + 1, f
    movlw 0x9c
    movwf TMR0
    swapf s_save, w
    movwf STATUS
    swapf w_save, f
    swapf w_save, w
    retfie
start
    bsf STATUS, RP0
    movlw 0x80
    movwf OPTION_REG
    clrf TRISB
    bcf STATUS, RP0
    clrf ticks
    clrf ticks + 1
    clrf count
    clrf sum
    movlw 0xa0
    movwf INTCON
loop
    incfsz count, f
    goto add
    incf count + 1, f
add
    movf count, w
    call mix
    xorwf ticks, w
    movwf PORTB
    btfss count, 3
    goto loop
    rlf sum, f
    goto loop
mix
    addwf sum, f
    rrf sum, w
    return
    end
