// Expressions over the names of a debug run, as watches and the conditions of breakpoints have them.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

// The value of a name, or nothing when there is none. Names are symbols of the image ("ticks", "main"), "$NAME" a register,
// "$32" a byte of data memory by its decimal address, "$pc".
using NameLookup = std::function<std::optional<int64_t>(const std::string &name)>;

// An expression that has been read once and is evaluated often. Operators of C on 64-bit integers, with their
// precedence: ?: || && | ^ & == != < <= > >= << >> + - * / % and ! ~ - + in front, brackets; numbers decimal, 0x..,
// 0b.., 0.. octal, 'c'; [n] behind a name is the byte at its address + n; unary & gives a symbol's address.
class CExpression {
public:
    // Null, with words for the user in `error` that say what is wrong where.
    static std::unique_ptr<CExpression> Parse(std::string_view text, std::string &error);
    ~CExpression();

    // Nothing, with words in `error`, for an unknown name or a division by zero. `addressOf` answers for & and [].
    std::optional<int64_t> Evaluate(const NameLookup &valueOf, const NameLookup &addressOf,
                                    const std::function<std::optional<uint8_t>(uint32_t)> &byteAt, std::string &error) const;

private:
    struct Node;
    explicit CExpression(std::unique_ptr<Node> root);
    std::unique_ptr<Node> root_;
};

// `value` in a DbgFormat of EngineApi.h, as the watch view shows it: decimal; binary in multiples of eight digits; octal
// with a leading 0; hexadecimal with 0x, at most eight digits.
std::string FormatNumber(int64_t value, int format);
