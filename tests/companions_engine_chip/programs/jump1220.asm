; A jump table through PCL, timer 0 with 16 bits, and the watchdog cleared in time.
    list p=18f1220
    include <p18f1220.inc>
    config OSC = XT, WDT = ON, WDTPS = 1, LVP = OFF, BOR = OFF, STVR = ON, MCLRE = ON
count equ 0x00
sum equ 0x01
rounds equ 0x03
    org 0
    bra start
    org 0x08
    bcf INTCON, TMR0IF, a
    incf sum + 1, f, a
    retfie FAST
start
    clrf count, a
    clrf sum, a
    clrf rounds, a
    movlw 0x80
    movwf T0CON, a
    movlw 0xa0
    movwf INTCON, a
loop
    movf PCL, w, a
    movlw high jumps
    movwf PCLATH, a
    movf count, w, a
    andlw 0x03
    mullw 4
    movf PRODL, w, a
    rcall jumps
    movf TMR0L, w, a
    addwf sum, f, a
    movf TMR0H, w, a
    xorwf sum, f, a
    clrwdt
    incfsz count, f, a
    bra loop
    incf rounds, f, a
    bra loop
    org 0x200
jumps
    addwf PCL, f, a
    incf sum, f, a
    return
    decf sum, f, a
    return
    negf sum, a
    return
    rlcf sum, f, a
    return
    end
