; serial.asm: sends over the chip's serial port.

            include "board.inc"

            global  serial_start, serial_send, serial_send_hex, serial_send_text

            udata_acs
hex_byte    res     1                       ; the byte that serial_send_hex is at

serial_code code

; Sets the port up for sending.
serial_start
            movlw   BAUD_DIVIDER
            movwf   SPBRG, A
            movlw   B'00100100'             ; TXEN: send; BRGH: the fast divider
            movwf   TXSTA, A
            movlw   B'10000000'             ; SPEN: RC6 and RC7 belong to the port
            movwf   RCSTA, A
            return

; Sends the byte in W. Waits until the port can take it.
serial_send
            btfss   PIR1, TXIF, A
            bra     serial_send
            movwf   TXREG, A
            nop                             ; TXIF shows the new state an instruction later
            return

; Sends the text in the program memory that the table pointer points to, up to its zero byte.
serial_send_text
            tblrd   *+                      ; a byte to TABLAT; the pointer goes on to the next
            movf    TABLAT, W, A
            btfsc   STATUS, Z, A
            return
            rcall   serial_send
            bra     serial_send_text

; Sends the byte in W as two hexadecimal digits.
serial_send_hex
            movwf   hex_byte, A
            swapf   hex_byte, W, A          ; the high digit first
            rcall   send_digit
            movf    hex_byte, W, A
send_digit
            andlw   0x0F
            addlw   -.10                    ; carry: the digit is 10 or more
            btfsc   STATUS, C, A
            addlw   'A' - '0' - .10
            addlw   '0' + .10
            bra     serial_send

            end
