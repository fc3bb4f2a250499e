#include "navigation/FunctionStats.h"

#include <algorithm>
#include <limits>

#include "navigation/StatGrammar.h"

namespace {

int32_t AsInt(unsigned number) {
    return static_cast<int32_t>(std::min<unsigned>(number, std::numeric_limits<int32_t>::max()));
}

// The token of a name goes up to the mark behind it.
std::string WithoutLastBlanks(std::string_view name) {
    return std::string(name.substr(0, name.find_last_not_of(' ') + 1));
}

// Of one line.
struct StatParse {
    SStatData record;       // as far as it is read
    std::string className;  // before it
    std::string lastClass;  // of the line
    std::optional<SStatData> complete;

    void Begin() {
        record = {};
        className.clear();
    }

    void Complete() {
        if (!className.empty()) lastClass = className;
        if (!lastClass.empty()) record.name = lastClass + "::" + record.name;
        complete = std::move(record);
    }
};

}  // namespace

std::optional<std::vector<SStatData>> ParseFunctionStats(std::string_view text) {
    StatParse parse;
    const stat_grammar::Actions actions = {
        .class_name = [&](std::string_view name) { parse.className = WithoutLastBlanks(name); },
        .name = [&](std::string_view name) { parse.record.name = WithoutLastBlanks(name); },
        .file = [&](std::string_view file) { parse.record.file = file; },
        .line = [&](unsigned number) { parse.record.line = AsInt(number); },
        .ram_whole = [&](unsigned number) { parse.record.ramWhole = AsInt(number); },
        .ram_part = [&](unsigned number) { parse.record.ramPart = AsInt(number); },
        .rom = [&](unsigned number) { parse.record.rom = AsInt(number); },
        .begin_action = [&] { parse.Begin(); },
        .complete_action = [&] { parse.Complete(); },
    };
    const stat_grammar grammar(actions);
    const skip_grammar skip;

    std::vector<SStatData> stats;
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
        parse = {};
        if (!boost::spirit::classic::parse(line.data(), line.data() + line.size(), grammar, skip).full) return {};
        if (parse.complete) stats.push_back(std::move(*parse.complete));
    }
    return stats;
}
