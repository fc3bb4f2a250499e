; timer.asm: a tick every 65.536 ms, from timer 0 and its interrupt.

            include "board.inc"

            global  timer_start, timer_take_tick

            udata
ticks       res     1                       ; ticks that nobody has taken yet

; The interrupt comes at any time, with any bank selected. What it saves first lies in the 16 bytes at 0x70 that are the
; same in all banks.
            udata_shr
saved_w     res     1
saved_status res    1

; The chip jumps to address 4 when an interrupt comes.
interrupt   code    0x0004
            movwf   saved_w                 ; `swapf` moves without changing STATUS, `movf` would change Z
            swapf   STATUS, W
            movwf   saved_status

            bcf     INTCON, T0IF            ; the next overflow shall be seen too
            banksel ticks
            incf    ticks, F

            swapf   saved_status, W
            movwf   STATUS
            swapf   saved_w, F
            swapf   saved_w, W
            retfie                          ; returns, and lets interrupts in again

timer_code  code

; Starts timer 0 and lets its interrupt in.
timer_start
            banksel ticks
            clrf    ticks
            banksel OPTION_REG
            movlw   B'10000111'             ; pull-ups off; timer 0 from the instruction clock, divided by 256
            movwf   OPTION_REG
            banksel TMR0
            clrf    TMR0
            bcf     INTCON, T0IF
            bsf     INTCON, T0IE
            bsf     INTCON, GIE
            return

; Takes one tick, if there is one: W is 1 then, else 0.
timer_take_tick
            banksel ticks
            movf    ticks, W
            btfsc   STATUS, Z
            retlw   0
            decf    ticks, F                ; one instruction: an interrupt comes before or after it, never inside
            retlw   1

            end
