// The words of an expression.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

struct Token {
    enum class Kind { end, number, name, sign } kind = Kind::end;
    int column = 1;         // from 1, in bytes
    std::string_view text;  // of a name or a sign
    int64_t number = 0;
};

class CTokens {
public:
    explicit CTokens(std::string_view text) : text_(text) {}

    // Nothing, with words for the user in `error`, for what is no word of an expression.
    std::optional<Token> Next(std::string &error);

private:
    std::optional<Token> ReadNumber(Token token, std::string &error);
    std::optional<Token> ReadCharacter(Token token, std::string &error);
    char At(size_t index) const { return index < text_.size() ? text_[index] : '\0'; }

    std::string_view text_;
    size_t position_ = 0;
};

// What the user has written, for a message: shortened, and without what can't be shown.
std::string Quoted(std::string_view text);

// `words` with the place behind them.
std::string AtColumn(const std::string &words, int column);
