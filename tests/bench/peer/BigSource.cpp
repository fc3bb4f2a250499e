#include "bench/peer/BigSource.h"

namespace {

constexpr int kCommentLines = 14;

void AppendComment(std::string &text) {
    text += "/*\n";
    for (int line = 2; line < kCommentLines; ++line)
        text +=
            " * Registers, masks and the handlers that belong to them, written out for every pin of every port of the "
            "family, so that nothing is left to a macro's arithmetic.\n";
    text += " */\n";
}

// About 2 KB, as long functions go: a file of many small ones would measure an outline of symbols and not the opening.
void AppendFunction(std::string &text, int number) {
    const std::string name = std::to_string(number);
    text += "\n// Messages of station " + name + ".\n";
    text += "unsigned char station_" + name + "(unsigned char in)\n{\n";
    text += "    unsigned char i, sum = 0;\n\n    switch (in) {\n";
    for (int message = 0; message < 24; ++message) {
        const std::string code = std::to_string(number % 90 * 100 + message);
        text += "    case " + std::to_string(message) + ":  /* \"" + code + "\" */\n";
        text += "        for (i = 0; i < " + std::to_string(message % 7 + 2) + "; i++)\n";
        text += "            sum ^= in << i;\n        break;\n";
    }
    text += "    default:\n        send(\"station " + name + "\");\n    }\n    return sum;\n}\n";
}

}  // namespace

std::string BigSource(size_t size) {
    std::string text;
    text.reserve(size + 10'000);
    AppendComment(text);
    for (int number = 0; text.size() < size; ++number) AppendFunction(text, number);
    return text;
}
