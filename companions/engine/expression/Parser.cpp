#include "Parser.h"

namespace {

constexpr int kDeepest = 100;  // brackets inside each other: far from what the stack of a thread holds

struct BinaryOperator {
    std::string_view sign;
    Op op;
    int strength;
};

constexpr BinaryOperator kOperators[] = {
    {"||", Op::keepIfTrue, 1}, {"&&", Op::keepIfZero, 2}, {"|", Op::bitOr, 3},         {"^", Op::bitXor, 4},
    {"&", Op::bitAnd, 5},      {"==", Op::equal, 6},      {"!=", Op::notEqual, 6},     {"<", Op::less, 7},
    {"<=", Op::lessEqual, 7},  {">", Op::greater, 7},     {">=", Op::greaterEqual, 7}, {"<<", Op::shiftLeft, 8},
    {">>", Op::shiftRight, 8}, {"+", Op::add, 9},         {"-", Op::subtract, 9},      {"*", Op::multiply, 10},
    {"/", Op::divide, 10},     {"%", Op::remainder, 10},
};

const BinaryOperator *FindOperator(const Token &token) {
    if (token.kind != Token::Kind::sign) return nullptr;
    for (const BinaryOperator &candidate : kOperators) {
        if (candidate.sign == token.text) return &candidate;
    }
    return nullptr;
}

}  // namespace

bool CExpressionParser::Parse(std::string &error) {
    bool good = Advance();
    if (good && token_.kind == Token::Kind::end) good = Fail("The expression is empty");
    good = good && ParseChoice() && (token_.kind == Token::Kind::end || Fail("An operator is missing"));
    if (!good) error = error_;
    return good;
}

bool CExpressionParser::ParseChoice() {
    if (++depth_ > kDeepest) return Fail("There are too many brackets inside each other");
    std::vector<size_t> ends;
    for (;;) {
        if (!ParseBinary(1)) return false;
        const int column = token_.column;
        if (!Accept("?")) break;
        const size_t otherwise = Emit(Op::jumpIfZero, column);
        if (!ParseChoice() || !Expect(":", "A \":\" is missing")) return false;
        ends.push_back(Emit(Op::jump, column));
        JumpHere(otherwise);
    }
    for (const size_t end : ends) JumpHere(end);
    --depth_;
    return error_.empty();
}

bool CExpressionParser::ParseBinary(int weakest) {
    if (!ParseUnary()) return false;
    while (const BinaryOperator *found = FindOperator(token_)) {
        if (found->strength < weakest) break;
        const int column = token_.column;
        const bool decides = found->op == Op::keepIfTrue || found->op == Op::keepIfZero;
        const size_t decision = decides ? Emit(found->op, column) : 0;
        if (!Advance() || !ParseBinary(found->strength + 1)) return false;
        Emit(decides ? Op::truth : found->op, column);
        if (decides) JumpHere(decision);
    }
    return error_.empty();
}

bool CExpressionParser::ParseUnary() {
    constexpr struct {
        std::string_view sign;
        Op op;
    } kPrefixes[] = {{"-", Op::negate}, {"~", Op::invert}, {"!", Op::logicalNot}};
    std::vector<Step> prefixes;
    for (bool more = true; more;) {
        more = Accept("+");
        for (const auto &prefix : kPrefixes) {
            const int column = token_.column;
            if (!Accept(prefix.sign)) continue;
            prefixes.push_back({prefix.op, column});
            more = true;
        }
    }
    if (!error_.empty()) return false;
    if (!(Accept("&") ? ParseName(true) : ParsePrimary())) return false;
    steps.insert(steps.end(), prefixes.rbegin(), prefixes.rend());
    return true;
}

bool CExpressionParser::ParsePrimary() {
    if (token_.kind == Token::Kind::name) return ParseName(false);
    if (token_.kind == Token::Kind::number) {
        Emit(Op::number, token_.column, token_.number);
        return Advance();
    }
    if (Accept("(")) return ParseChoice() && Expect(")", "A \")\" is missing");
    return Fail(token_.kind == Token::Kind::end ? "A name or a number is missing"
                                                : "A name or a number is missing before " + Quoted(token_.text));
}

bool CExpressionParser::ParseName(bool addressOnly) {
    if (token_.kind != Token::Kind::name) return Fail("A name is missing behind \"&\"");
    const int nameColumn = token_.column;
    names.emplace_back(token_.text);
    const auto name = static_cast<int64_t>(names.size() - 1);
    if (!Advance()) return false;
    const int column = token_.column;
    if (!Accept("[")) {
        Emit(addressOnly ? Op::address : Op::value, nameColumn, name);
        return error_.empty();
    }
    Emit(Op::address, nameColumn, name);
    if (!ParseChoice() || !Expect("]", "A \"]\" is missing")) return false;
    Emit(addressOnly ? Op::add : Op::byteAt, column);
    return true;
}

bool CExpressionParser::Advance() {
    const auto next = tokens_.Next(error_);
    token_ = next.value_or(Token());  // behind a failure nothing more is accepted
    return next.has_value();
}

bool CExpressionParser::Accept(std::string_view sign) {
    return token_.kind == Token::Kind::sign && token_.text == sign && (Advance(), true);
}

bool CExpressionParser::Expect(std::string_view sign, const char *missing) {
    if (!Accept(sign)) return Fail(missing);
    return error_.empty();
}

bool CExpressionParser::Fail(const std::string &words) {
    if (error_.empty()) error_ = AtColumn(words, token_.column);
    return false;
}

size_t CExpressionParser::Emit(Op op, int column, int64_t number) {
    steps.push_back({op, column, number});
    return steps.size() - 1;
}
