// What the source lines behind an image's words tell: where a label stands, and which lines hold data.
//
// Each file is read once, when it is first asked about; one that can't be read has no labels and no data. Names are
// native paths as the assembler was given them. Labels compare without regard to case.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

class CSourceTexts {
public:
    // The last line at or before `line` that begins with the label; the first one behind it when there is none.
    std::optional<int> LabelLine(const std::string &file, std::string_view label, int line);
    bool IsDataLine(const std::string &file, int line);  // "db", "dt" and the like

private:
    struct Text {
        std::unordered_map<std::string, std::vector<int>> labels;  // lower case; lines in order
        std::vector<bool> data;                                    // by line, from 0
    };
    const Text &Read(const std::string &file);

    std::unordered_map<std::string, Text> texts_;
};
