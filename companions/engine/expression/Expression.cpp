#include "Expression.h"

#include <limits>

#include "Parser.h"

namespace {

// Arithmetic that wraps round is that of the unsigned numbers.
int64_t Wrapped(uint64_t value) {
    return static_cast<int64_t>(value);
}

uint64_t Bits(int64_t value) {
    return static_cast<uint64_t>(value);
}

// Nothing for what has no result.
std::optional<int64_t> Combine(Op op, int64_t a, int64_t b) {
    constexpr int64_t kLowest = std::numeric_limits<int64_t>::min();
    switch (op) {
        case Op::multiply:
            return Wrapped(Bits(a) * Bits(b));
        case Op::divide:
            return b == 0 ? std::nullopt : std::optional(b == -1 ? Wrapped(0 - Bits(a)) : a / b);
        case Op::remainder:
            return b == 0 ? std::nullopt : std::optional(a == kLowest && b == -1 ? 0 : a % b);
        case Op::add:
            return Wrapped(Bits(a) + Bits(b));
        case Op::subtract:
            return Wrapped(Bits(a) - Bits(b));
        case Op::shiftLeft:
            return b < 0 ? std::nullopt : std::optional(b > 63 ? 0 : Wrapped(Bits(a) << b));
        case Op::shiftRight:
            return b < 0 ? std::nullopt : std::optional(a >> (b > 63 ? 63 : b));
        case Op::less:
            return a < b;
        case Op::lessEqual:
            return a <= b;
        case Op::greater:
            return a > b;
        case Op::greaterEqual:
            return a >= b;
        case Op::equal:
            return a == b;
        case Op::notEqual:
            return a != b;
        case Op::bitAnd:
            return a & b;
        case Op::bitXor:
            return a ^ b;
        default:
            return a | b;
    }
}

const char *WhyNoResult(Op op) {
    return op == Op::divide || op == Op::remainder ? "Division by zero" : "A shift by a negative number";
}

}  // namespace

CExpression::CExpression(std::unique_ptr<const Code> code) : code_(std::move(code)) {}

CExpression::~CExpression() = default;

std::unique_ptr<CExpression> CExpression::Parse(std::string_view text, std::string &error) {
    CExpressionParser parser(text);
    if (!parser.Parse(error)) return nullptr;
    auto code = std::make_unique<Code>();
    code->steps = std::move(parser.steps);
    code->names = std::move(parser.names);
    return std::unique_ptr<CExpression>(new CExpression(std::move(code)));
}

std::optional<int64_t> CExpression::Evaluate(const NameLookup &valueOf, const NameLookup &addressOf,
                                             const std::function<std::optional<uint8_t>(uint32_t)> &byteAt,
                                             std::string &error) const {
    std::vector<int64_t> stack;
    stack.reserve(16);
    const auto pop = [&stack] {
        const int64_t top = stack.back();
        stack.pop_back();
        return top;
    };
    const auto fail = [&error](const std::string &words, int column) {
        error = AtColumn(words, column);
        return std::nullopt;
    };

    for (size_t next = 0; next < code_->steps.size();) {
        const Step &step = code_->steps[next++];
        switch (step.op) {
            case Op::number:
                stack.push_back(step.number);
                break;
            case Op::value:
            case Op::address: {
                const std::string &name = code_->names[static_cast<size_t>(step.number)];
                const NameLookup &lookup = step.op == Op::value ? valueOf : addressOf;
                const auto found = lookup ? lookup(name) : std::nullopt;
                if (!found && step.op == Op::value) return fail("There is no value for " + Quoted(name), step.column);
                if (!found) return fail("There is no address for " + Quoted(name), step.column);
                stack.push_back(*found);
                break;
            }
            case Op::byteAt: {
                const int64_t index = pop();
                const int64_t address = Wrapped(Bits(pop()) + Bits(index));
                const bool possible = byteAt && address >= 0 && address <= std::numeric_limits<uint32_t>::max();
                const auto byte = possible ? byteAt(static_cast<uint32_t>(address)) : std::nullopt;
                if (!byte) return fail("There is no byte at address " + std::to_string(address), step.column);
                stack.push_back(*byte);
                break;
            }
            case Op::negate:
                stack.back() = Wrapped(0 - Bits(stack.back()));
                break;
            case Op::invert:
                stack.back() = ~stack.back();
                break;
            case Op::logicalNot:
                stack.back() = stack.back() == 0;
                break;
            case Op::truth:
                stack.back() = stack.back() != 0;
                break;
            case Op::jump:
                next = static_cast<size_t>(step.number);
                break;
            case Op::jumpIfZero:
                if (pop() == 0) next = static_cast<size_t>(step.number);
                break;
            case Op::keepIfZero:
            case Op::keepIfTrue:
                if ((stack.back() != 0) == (step.op == Op::keepIfTrue)) {
                    stack.back() = step.op == Op::keepIfTrue;
                    next = static_cast<size_t>(step.number);
                } else {
                    stack.pop_back();
                }
                break;
            default: {
                const int64_t right = pop();
                const auto result = Combine(step.op, stack.back(), right);
                if (!result) return fail(WhyNoResult(step.op), step.column);
                stack.back() = *result;
            }
        }
    }
    return stack.back();
}
