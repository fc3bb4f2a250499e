#include "bench/peer/BigSource.h"

namespace {

constexpr int kCommentLines = 20;

void AppendComment(std::string &text) {
    text += "/*\n";
    for (int line = 2; line < kCommentLines; ++line)
        text += " * Registers, masks and the handlers that belong to them, written out for every pin of every port of the "
                "family, so that nothing is left to a macro's arithmetic.\n";
    text += " */\n";
}

void AppendFunction(std::string &text, int number) {
    const std::string name = std::to_string(number);
    text += "\n// Handler " + name + "\n";
    text += "#define MASK_" + name + " 0x" + std::to_string(number % 90 + 10) + "\n";
    text += "static unsigned char state_" + name + ";\n\n";
    text += "void handle_" + name + "(unsigned char in)\n{\n";
    text += "    unsigned char i = 0;\n";
    text += "    if (in & MASK_" + name + ") {\n";
    text += "        for (i = 0; i < " + std::to_string(number % 7 + 2) + "; i++) {\n";
    text += "            state_" + name + " ^= in << i;\n        }\n";
    text += "    } else {\n        state_" + name + " = '" + static_cast<char>('a' + number % 26) + "';\n    }\n";
    text += "    send(\"pin " + name + "\", i);\n}\n";
}

}  // namespace

std::string BigSource(size_t size) {
    std::string text;
    text.reserve(size + 1000);
    AppendComment(text);
    for (int number = 0; text.size() < size; ++number) AppendFunction(text, number);
    return text;
}
