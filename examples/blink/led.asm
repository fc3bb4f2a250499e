; led.asm: the LED on RB0.

            include "board.inc"

            global  led_start, led_toggle

            udata
port_image  res     1                       ; what port B shall show

led_code    code

; Makes the LED's pin an output, with the LED off.
led_start
            banksel port_image
            clrf    port_image
            banksel PORTB
            clrf    PORTB
            banksel TRISB
            bcf     TRISB, 0
            banksel PORTB
            return

; Turns the LED on when it is off, and off when it is on.
;
; The new state is made in memory and then written to the port as a whole. Reading a port gives the levels at its pins,
; and with a heavy load these may differ from what was written.
led_toggle
            banksel port_image
            movlw   LED_MASK
            xorwf   port_image, F
            movf    port_image, W
            banksel PORTB
            movwf   PORTB
            return

            end
