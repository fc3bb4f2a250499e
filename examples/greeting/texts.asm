; texts.asm: the texts that the program sends. They lie in the program memory, two characters to a word, each with a zero
; byte at its end.

            include "board.inc"

            global  text_greeting, text_line_end

texts       code_pack

text_greeting
            db      "Hello! Start ", 0

text_line_end
            db      "\r\n", 0

            end
