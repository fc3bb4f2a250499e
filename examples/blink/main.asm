; main.asm: where the chip starts, and the main loop.
;
; The program lets an LED blink about once a second. It has three parts, one source each:
;
;   main.asm    the start, and the loop that waits for ticks and tells the LED
;   timer.asm   timer 0 and its interrupt: gives a tick every 65.536 ms
;   led.asm     the only place that touches the LED's port
;
; Each part says with `global` what others may use, and with `extern` what it uses of others. The linker puts the parts
; together and chooses the addresses.

            include "board.inc"

            __config _INTOSC_OSC_NOCLKOUT & _WDT_OFF & _PWRTE_ON & _MCLRE_OFF & _BOREN_ON & _LVP_OFF & _CP_OFF

            extern  timer_start, timer_take_tick
            extern  led_start, led_toggle
            global  main

            udata
ticks_left  res     1                       ; ticks until the LED changes

; The chip starts at address 0 and finds a jump there: the interrupt's code lies at address 4.
start       code    0x0000
            goto    main

main_code   code
main
            call    led_start
            call    timer_start
            movlw   BLINK_TICKS
            banksel ticks_left
            movwf   ticks_left

wait_for_tick
            call    timer_take_tick         ; W: 1 when a tick has come since the last call, else 0
            andlw   0xFF                    ; sets Z by W
            btfsc   STATUS, Z
            goto    wait_for_tick

            banksel ticks_left
            decfsz  ticks_left, F
            goto    wait_for_tick

            movlw   BLINK_TICKS             ; half a second is over
            movwf   ticks_left
            call    led_toggle
            goto    wait_for_tick

            end
