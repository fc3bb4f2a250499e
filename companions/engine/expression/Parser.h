// From the text of an expression to its steps.
#pragma once

#include <string>
#include <string_view>

#include "Code.h"
#include "Tokens.h"

class CExpressionParser {
public:
    explicit CExpressionParser(std::string_view text) : tokens_(text) {}

    // The whole text; false with words in `error`.
    bool Parse(std::string &error);

    std::vector<Step> steps;
    std::vector<std::string> names;

private:
    bool ParseChoice();             // with ?:
    bool ParseBinary(int weakest);  // operators that bind as strongly as `weakest` or stronger
    bool ParseUnary();
    bool ParsePrimary();
    bool ParseName(bool addressOnly);  // with the index behind it

    bool Advance();  // to the next word
    bool Accept(std::string_view sign);
    bool Expect(std::string_view sign, const char *missing);
    bool Fail(const std::string &words);  // at the present word
    size_t Emit(Op op, int column, int64_t number = 0);
    void JumpHere(size_t step) { steps[step].number = static_cast<int64_t>(steps.size()); }

    CTokens tokens_;
    Token token_;
    int depth_ = 0;
    std::string error_;
};
