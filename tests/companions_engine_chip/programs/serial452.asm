; Sends what it keeps in a ring of 16 bytes over the serial line, by interrupts of the low level; timer 3's come at the
; high one.
    list p=18f452
    include <p18f452.inc>
    config OSC = XT, WDT = OFF, LVP = OFF, BOR = OFF, STVR = ON
put equ 0x00
get equ 0x01
seed equ 0x02
ticks equ 0x03
w_save equ 0x04
s_save equ 0x05
f_save equ 0x06
sent equ 0x07
    org 0
    goto start
    org 0x08
    bcf PIR2, TMR3IF, a
    movlw 0xfe
    movwf TMR3H, a
    clrf TMR3L, a
    incf ticks, f, a
    retfie FAST
    org 0x18
    movwf w_save, a
    movff STATUS, s_save
    movff FSR0L, f_save
    movf get, w, a
    cpfseq put, a
    bra send
    bcf PIE1, TXIE, a
    bra leave
send
    lfsr FSR0, 0x200
    movff PLUSW0, TXREG
    incf get, f, a
    bcf get, 4, a
    infsnz sent, f, a
    btg sent, 7, a
leave
    movff f_save, FSR0L
    movf w_save, w, a
    movff s_save, STATUS
    retfie
start
    clrf put, a
    clrf get, a
    clrf ticks, a
    clrf sent, a
    movlw 0x5a
    movwf seed, a
    movlw 7
    movwf SPBRG, a
    bcf TRISC, 6, a
    movlw 0x24
    movwf TXSTA, a
    movlw 0x90
    movwf RCSTA, a
    movlw 0x81
    movwf T3CON, a
    bcf IPR1, TXIP, a
    bsf IPR2, TMR3IP, a
    bsf PIE2, TMR3IE, a
    bsf RCON, IPEN, a
    movlw 0xc0
    movwf INTCON, a
    lfsr FSR1, 0x200
loop
    incf put, w, a
    andlw 0x0f
    cpfseq get, a
    bra room
    bra mix
room
    movff seed, POSTINC1
    bcf FSR1L, 4, a
    movwf put, a
    bsf PIE1, TXIE, a
mix
    rlncf seed, f, a
    movf ticks, w, a
    addwfc seed, f, a
    movf seed, w, a
    mullw 3
    movf PRODH, w, a
    xorwf seed, f, a
    dcfsnz ticks, w, a
    negf seed, a
    bra loop
    end
