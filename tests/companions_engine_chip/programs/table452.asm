; Reads a table from program memory, multiplies, keeps it by way of the FSRs; two interrupt levels, EEPROM.
    list p=18f452
    include <p18f452.inc>
    config OSC = XT, WDT = OFF, LVP = OFF, BOR = OFF, STVR = ON
index equ 0x00
sum equ 0x01
low_ticks equ 0x03
high_ticks equ 0x04
w_save equ 0x05
s_save equ 0x06
    org 0
    goto start
    org 0x08
    bcf INTCON, TMR0IF
    incf high_ticks, f, a
    retfie FAST
    org 0x18
    movwf w_save, a
    movff STATUS, s_save
    bcf PIR1, TMR2IF, a
    infsnz low_ticks, f, a
    setf low_ticks, a
    movf w_save, w, a
    movff s_save, STATUS
    retfie
start
    clrf sum, a
    clrf sum + 1, a
    clrf low_ticks, a
    clrf high_ticks, a
    movlw 0x63
    movwf PR2, a
    movlw 0x04
    movwf T2CON, a
    bcf IPR1, TMR2IP, a
    bsf PIE1, TMR2IE, a
    movlw 0xc1
    movwf T0CON, a
    bsf RCON, IPEN, a
    bsf INTCON2, TMR0IP, a
    movlw 0xe0
    movwf INTCON, a
loop
    movlw upper values
    movwf TBLPTRU, a
    movlw high values
    movwf TBLPTRH, a
    movlw low values
    movwf TBLPTRL, a
    lfsr FSR0, 0x100
    lfsr FSR1, 0x1ff
    movlw 8
    movwf index, a
read
    tblrd*+
    movf TABLAT, w, a
    mulwf sum, a
    movf PRODL, w, a
    addwf sum, f, a
    movff PRODH, POSTINC0
    movwf POSTDEC1, a
    movlw 2
    movff PLUSW0, sum + 1
    decfsz index, f, a
    bra read
    movlb 1
    movf 0x02, w, b
    rcall mix
    call keep, 1
    movf index, w, a
    bra loop
mix
    rlncf WREG, w, a
    xorwf sum, f, a
    daw
    return 1
keep
    movff sum, EEADR
    movff sum + 1, EEDATA
    bcf EECON1, EEPGD, a
    bcf EECON1, CFGS, a
    btfsc EECON1, WR, a
    return
    bsf EECON1, WREN, a
    bcf INTCON, GIEH, a
    movlw 0x55
    movwf EECON2, a
    movlw 0xaa
    movwf EECON2, a
    bsf EECON1, WR, a
    bsf INTCON, GIEH, a
    return 1
    org 0x400
values
    db 3, 0x8d, 59, 26, 53, 58, 97, 93
    end
