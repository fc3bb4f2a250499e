// Expressions over the names of a debug run, as watches and the conditions of breakpoints have them.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

// The value of a name, or nothing when there is none. Names are symbols of the image ("ticks", "main"), "$NAME" a
// register, "$32" a byte of data memory by its decimal address, "$pc".
using NameLookup = std::function<std::optional<int64_t>(const std::string &name)>;

// An expression that has been read once and is evaluated often. Operators of C on 64-bit integers, with their
// precedence: ?: || && | ^ & == != < <= > >= << >> + - * / % and ! ~ - + in front, brackets; numbers decimal, 0x..,
// 0b.., 0.. octal, 'c'; [n] behind a name is the byte at its address + n; unary & gives a symbol's address. Results
// wrap round at 64 bits; a shift by 64 and more leaves nothing but the sign of what goes right. What && || ?: pass over
// is not evaluated.
class CExpression {
public:
    // Null, with words for the user in `error` that say what is wrong where ("... at column 3", from 1). No text is too
    // long or too deep to be answered. Words are short of 200 bytes, here and below.
    static std::unique_ptr<CExpression> Parse(std::string_view text, std::string &error);
    ~CExpression();

    // Nothing, with words in `error`, for an unknown name, a byte that can't be read, a division by zero, a shift by a
    // negative number. `addressOf` answers for & and []. Several threads may evaluate at once.
    std::optional<int64_t> Evaluate(const NameLookup &valueOf, const NameLookup &addressOf,
                                    const std::function<std::optional<uint8_t>(uint32_t)> &byteAt,
                                    std::string &error) const;

private:
    struct Code;
    explicit CExpression(std::unique_ptr<const Code> code);
    std::unique_ptr<const Code> code_;
};

// `value` in a DbgFormat of EngineApi.h, as the watch view shows it: decimal; binary in multiples of eight digits, at
// most 32; octal with a leading 0; hexadecimal with 0x, at most eight digits. Zero in binary is "0". Any other format
// is decimal.
std::string FormatNumber(int64_t value, int format);
