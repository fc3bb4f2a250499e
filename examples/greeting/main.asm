; main.asm: where the chip starts, and the order of things.
;
; At each start the program sends a greeting with the number of starts so far, "Hello! Start 01", and then lets a light run
; along port D for ever. It has four parts, one source each:
;
;   main.asm    the start and the running light
;   serial.asm  sends bytes, numbers and texts of the program memory
;   starts.asm  keeps the count of starts in the data EEPROM
;   texts.asm   the texts, in the program memory

            include "board.inc"

            config  OSC = INTIO67, WDT = OFF, MCLRE = OFF, LVP = OFF, PBADEN = OFF, BOREN = OFF

            extern  serial_start, serial_send_text, serial_send_hex
            extern  starts_count
            extern  text_greeting, text_line_end
            global  main

            udata_acs
delay_low   res     1
delay_high  res     1

start       code    0x0000
            goto    main

main_code   code
main
            movlw   B'01100000'             ; the internal oscillator at 4 MHz
            movwf   OSCCON, A
            clrf    LATD, A
            clrf    TRISD, A                ; port D drives the LEDs
            rcall   start_serial_line

            movlw   0x01                    ; the light begins at RD0
            movwf   LATD, A
next_light
            rcall   delay
            rlncf   LATD, F, A              ; one on, and from RD7 back to RD0
            bra     next_light

; Sends the greeting and counts this start.
start_serial_line
            call    serial_start

            ; The address of a text has 21 bits and goes to the table pointer, from which the text is read.
            movlw   upper text_greeting
            movwf   TBLPTRU, A
            movlw   high text_greeting
            movwf   TBLPTRH, A
            movlw   low text_greeting
            movwf   TBLPTRL, A
            call    serial_send_text

            call    starts_count            ; W: how often the program has started, this time counted
            call    serial_send_hex

            movlw   upper text_line_end
            movwf   TBLPTRU, A
            movlw   high text_line_end
            movwf   TBLPTRH, A
            movlw   low text_line_end
            movwf   TBLPTRL, A
            goto    serial_send_text

; Waits about 100 ms: 130 times 256 rounds of three cycles of a microsecond.
delay
            movlw   .130
            movwf   delay_high, A
            clrf    delay_low, A
delay_loop
            decfsz  delay_low, F, A
            bra     delay_loop
            decfsz  delay_high, F, A
            bra     delay_loop
            return

            end
