// What a user types as a watch or as the condition of a breakpoint.
#include "../../companions/engine/expression/Expression.h"

#include "fuzz/FuzzTarget.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    std::string error;
    const auto expression = CExpression::Parse(AsText(data, size), error);
    Expect((expression != nullptr) == error.empty(), "words come with a failure");
    if (expression) {
        const auto lookup = [](const std::string &name) {
            Expect(!name.empty() && name != "$", "a name is a word");
            return name.size() % 3 == 0 ? std::nullopt : std::optional<int64_t>(static_cast<int64_t>(name.size()) - 4);
        };
        const auto byteAt = [](uint32_t address) { return std::optional<uint8_t>(static_cast<uint8_t>(address)); };
        const auto value = expression->Evaluate(lookup, lookup, byteAt, error);
        Expect(value.has_value() == error.empty(), "words come with a failure");
        for (int format = 0; value && format < 5; ++format) {
            const std::string text = FormatNumber(*value, format);
            Expect(!text.empty() && text.size() <= 32, "a number is short");
        }
    }
    Expect(error.size() < 200, "words are short");
    return 0;
}
