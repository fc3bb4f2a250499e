; starts.asm: how often the program has started, kept in the data EEPROM, which remembers without power.

            include "board.inc"

            global  starts_count

starts_data code    0xF00000 + STARTS_ADDRESS
            de      0                       ; what a freshly programmed chip begins with

starts_code code

; Counts this start and gives the new count in W.
starts_count
            movlw   STARTS_ADDRESS
            movwf   EEADR, A
            bcf     EECON1, EEPGD, A        ; the data EEPROM, not the program memory
            bcf     EECON1, CFGS, A         ; and not the configuration
            bsf     EECON1, RD, A           ; the byte is in EEDATA with the next instruction
            incf    EEDATA, F, A

            bsf     EECON1, WREN, A         ; writing has to be allowed,
            movlw   0x55                    ; and asked for with these two bytes in a row
            movwf   EECON2, A
            movlw   0xAA
            movwf   EECON2, A
            bsf     EECON1, WR, A
still_writing
            btfsc   EECON1, WR, A           ; the chip clears it when the byte is written, after about 4 ms
            bra     still_writing
            bcf     EECON1, WREN, A         ; nothing writes by accident from here on

            movf    EEDATA, W, A
            return

            end
