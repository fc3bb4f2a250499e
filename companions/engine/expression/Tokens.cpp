#include "Tokens.h"

#include <charconv>

namespace {

constexpr size_t kQuotedBytes = 40;

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool IsNameStart(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == '.' || c == '$';
}

bool IsNamePart(char c) {
    return IsDigit(c) || (IsNameStart(c) && c != '$');
}

constexpr std::string_view kSigns[] = {"||", "&&", "==", "!=", "<=", ">=", "<<", ">>", "|", "^", "&", "<", ">",
                                       "+",  "-",  "*",  "/",  "%",  "!",  "~",  "?",  ":", "(", ")", "[", "]"};

constexpr struct {
    char letter, meaning;
} kEscapes[] = {{'n', '\n'}, {'r', '\r'}, {'t', '\t'}, {'a', '\a'},  {'b', '\b'}, {'f', '\f'},
                {'v', '\v'}, {'0', '\0'}, {'"', '"'},  {'\\', '\\'}, {'\'', '\''}};

}  // namespace

std::string Quoted(std::string_view text) {
    std::string shown = "\"";
    for (const char c : text.substr(0, kQuotedBytes)) shown += c >= ' ' && c <= '~' ? c : '?';
    return shown + (text.size() > kQuotedBytes ? "...\"" : "\"");
}

std::string AtColumn(const std::string &words, int column) {
    return words + " at column " + std::to_string(column);
}

std::optional<Token> CTokens::ReadNumber(Token token, std::string &error) {
    const size_t begin = position_;
    while (IsNamePart(At(position_))) ++position_;
    const std::string_view word = text_.substr(begin, position_ - begin);

    std::string_view digits = word;
    while (digits.size() > 1 && std::string_view("uUlL").find(digits.back()) != std::string_view::npos) {
        digits.remove_suffix(1);
    }
    int base = 10;
    if (digits.size() > 1 && digits[0] == '0') {
        const char mark = digits[1];
        base = mark == 'x' || mark == 'X' ? 16 : mark == 'b' || mark == 'B' ? 2 : 8;
        digits.remove_prefix(base == 8 ? 1 : 2);
    }
    uint64_t number = 0;
    const auto [end, failure] = std::from_chars(digits.data(), digits.data() + digits.size(), number, base);
    if (failure == std::errc::result_out_of_range) {
        error = AtColumn("The number " + Quoted(word) + " is too large", token.column);
        return std::nullopt;
    }
    if (failure != std::errc() || end != digits.data() + digits.size()) {
        error = AtColumn(Quoted(word) + " is no number", token.column);
        return std::nullopt;
    }
    token.kind = Token::Kind::number;
    token.number = static_cast<int64_t>(number);
    return token;
}

std::optional<Token> CTokens::ReadCharacter(Token token, std::string &error) {
    size_t at = position_ + 1;
    bool known = At(at) >= ' ' && At(at) <= '~' && At(at) != '\'';
    token.number = static_cast<unsigned char>(At(at));
    if (At(at) == '\\') {
        const char letter = At(++at);
        known = false;
        for (const auto &escape : kEscapes) {
            if (escape.letter != letter || at >= text_.size()) continue;
            token.number = escape.meaning;
            known = true;
        }
    }
    if (!known || At(at + 1) != '\'') {
        error = AtColumn("A single character is expected between apostrophes", token.column);
        return std::nullopt;
    }
    position_ = at + 2;
    token.kind = Token::Kind::number;
    return token;
}

std::optional<Token> CTokens::Next(std::string &error) {
    while (At(position_) == ' ' || (At(position_) >= '\t' && At(position_) <= '\r')) ++position_;
    Token token;
    token.column = static_cast<int>(position_) + 1;
    if (position_ >= text_.size()) return token;

    const char first = text_[position_];
    if (IsDigit(first)) return ReadNumber(token, error);
    if (first == '\'') return ReadCharacter(token, error);
    if (IsNameStart(first)) {
        const size_t begin = position_++;
        while (IsNamePart(At(position_))) ++position_;
        token.kind = Token::Kind::name;
        token.text = text_.substr(begin, position_ - begin);
        if (token.text != "$" && token.text != ".") return token;
        error = AtColumn("A name is missing behind " + Quoted(token.text), token.column);
        return std::nullopt;
    }
    for (const std::string_view sign : kSigns) {
        if (!text_.substr(position_).starts_with(sign)) continue;
        position_ += sign.size();
        token.kind = Token::Kind::sign;
        token.text = sign;
        return token;
    }
    error = first == '='
                ? AtColumn("\"==\" is expected in place of \"=\"", token.column)
                : AtColumn("The character " + Quoted(text_.substr(position_, 1)) + " has no meaning", token.column);
    return std::nullopt;
}
