#include "AssemblerScan.h"

#include <algorithm>
#include <set>
#include <utility>

#include "AssemblerWords.h"

namespace {

constexpr std::string_view kBlanks = " \t\f\v";

constexpr bool IsNameStart(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' || c == '.' || c == '?' || c == '@';
}

constexpr bool IsNamePart(char c) {
    return IsNameStart(c) || (c >= '0' && c <= '9');
}

// Reads words off the front of a line.
class CLineReader {
public:
    explicit CLineReader(std::string_view line) : rest_(line) {}

    void SkipBlanks() { rest_.remove_prefix(std::min(rest_.find_first_not_of(kBlanks), rest_.size())); }

    bool Skip(char c) {
        if (!rest_.starts_with(c)) return false;
        rest_.remove_prefix(1);
        return true;
    }

    // Empty when no name stands here.
    std::string_view TakeName() {
        if (rest_.empty() || !IsNameStart(rest_.front())) return {};
        const auto end = std::ranges::find_if_not(rest_, IsNamePart);
        const std::string_view name(rest_.begin(), end);
        rest_.remove_prefix(name.size());
        return name;
    }

    // Up to the next comma at this level, which is passed too, or up to the comment. False: the list is over.
    bool SkipToNext() {
        char quote = '\0';
        int depth = 0;
        for (size_t i = 0; i < rest_.size(); ++i) {
            const char c = rest_[i];
            if (quote) {
                if (c == quote) quote = '\0';
            } else if (c == '\'' || c == '"') {
                quote = c;
            } else if (c == ';') {
                break;
            } else if (c == '(') {
                ++depth;
            } else if (c == ')') {
                --depth;
            } else if (c == ',' && depth <= 0) {
                rest_.remove_prefix(i + 1);
                return true;
            }
        }
        return false;
    }

    std::string_view Rest() const { return rest_; }

private:
    std::string_view rest_;
};

class CScan {
public:
    explicit CScan(const AssemblerKinds &kinds) : kinds_(kinds) {}

    bool ReadLine(std::string_view line);  // false: the source is over
    std::vector<AssemblerTag> Tags() && { return std::move(tags_); }

private:
    AssemblerWord TakeWord(CLineReader &line);
    std::string_view TakeLabel(CLineReader &line);
    bool ReadStatement(std::string_view label, AssemblerWord word, CLineReader &line);
    void AddList(CLineReader &line, char kind);
    void AddLabel(std::string_view name);
    void Add(std::string_view name, char kind);

    const AssemblerKinds kinds_;
    std::vector<AssemblerTag> tags_;
    std::set<std::pair<std::string_view, char>> known_;
    std::set<std::string_view> locals_;  // of the macro
    int line_ = 0;
    bool inBlock_ = false, inMacro_ = false, inData_ = false;
};

void CScan::Add(std::string_view name, char kind) {
    if (!kind || name.empty() || (inMacro_ && locals_.contains(name))) return;
    if (known_.emplace(name, kind).second) tags_.push_back({name, line_, kind});
}

void CScan::AddLabel(std::string_view name) {
    if (!inMacro_) Add(name, inData_ ? kinds_.variable : kinds_.label);
}

void CScan::AddList(CLineReader &line, char kind) {
    do {
        line.SkipBlanks();
        Add(line.TakeName(), kind);
    } while (line.SkipToNext());
}

// A word of the assembler in the first column is no label, but for one that a colon follows; neither is a name that is
// only put together when a macro is used, as in "again#v(i)".
std::string_view CScan::TakeLabel(CLineReader &line) {
    CLineReader ahead = line;
    const std::string_view name = ahead.TakeName();
    if (name.empty()) return {};
    const bool colon = ahead.Skip(':');
    if (!colon && FindAssemblerWord(name) != AssemblerWord::other) return {};
    const bool whole = !ahead.Rest().starts_with('#');
    line = ahead;
    return whole ? name : std::string_view();
}

AssemblerWord CScan::TakeWord(CLineReader &line) {
    line.SkipBlanks();
    if (line.Rest().starts_with('='))
        return line.Rest().starts_with("==") ? AssemblerWord::other : AssemblerWord::assign;
    line.Skip('#');
    return FindAssemblerWord(line.TakeName());
}

bool CScan::ReadLine(std::string_view text) {
    ++line_;
    CLineReader line(text);
    if (inBlock_) {
        line.SkipBlanks();
        CLineReader ahead = line;
        inBlock_ = TakeWord(ahead) != AssemblerWord::endBlock;
        if (inBlock_) AddList(line, kinds_.variable);
        return true;
    }
    const std::string_view label = TakeLabel(line);
    const AssemblerWord word = TakeWord(line);
    return ReadStatement(label, word, line);
}

bool CScan::ReadStatement(std::string_view label, AssemblerWord word, CLineReader &line) {
    switch (word) {
        case AssemblerWord::assign:
            Add(label, kinds_.macro);
            break;
        case AssemblerWord::constant:
        case AssemblerWord::define:
            AddLabel(label);
            line.SkipBlanks();
            if (word == AssemblerWord::constant)
                AddList(line, kinds_.macro);
            else
                Add(line.TakeName(), kinds_.macro);
            break;
        case AssemblerWord::macro:
            Add(label, kinds_.macro);
            inMacro_ = true;
            break;
        case AssemblerWord::endMacro:
            inMacro_ = false;
            locals_.clear();
            break;
        case AssemblerWord::local:
            do {
                line.SkipBlanks();
                locals_.insert(line.TakeName());
            } while (line.SkipToNext());
            break;
        case AssemblerWord::block:
            AddLabel(label);
            inBlock_ = true;
            break;
        case AssemblerWord::codeSection:
        case AssemblerWord::dataSection:
            inData_ = word == AssemblerWord::dataSection;
            break;
        case AssemblerWord::absolute:
            inData_ = false;
            AddLabel(label);
            break;
        case AssemblerWord::reserve:
            if (!inMacro_) Add(label, kinds_.variable);
            break;
        case AssemblerWord::end:
            AddLabel(label);
            return inMacro_;
        case AssemblerWord::other:
        case AssemblerWord::plain:
        case AssemblerWord::endBlock:
            // What is changed by "+=", "++" and the like has its definition elsewhere.
            if (line.Rest().find_first_of("+-*/%&|^<>!=") != 0) AddLabel(label);
            break;
    }
    return true;
}

// Calls `use` with each line until it returns false; a line ends at a carriage return, a line feed or both.
template <typename Use>
void ForEachLine(std::string_view text, Use use) {
    while (!text.empty()) {
        const size_t length = std::min(text.find_first_of("\r\n"), text.size());
        const std::string_view line = text.substr(0, length);
        text.remove_prefix(length);
        if (text.starts_with("\r\n"))
            text.remove_prefix(2);
        else if (!text.empty())
            text.remove_prefix(1);
        if (!use(line)) return;
    }
}

}  // namespace

std::vector<AssemblerTag> ScanAssembler(std::string_view text, const AssemblerKinds &kinds) {
    CScan scan(kinds);
    ForEachLine(text, [&](std::string_view line) { return scan.ReadLine(line); });
    return std::move(scan).Tags();
}

bool LooksLikeAssembler(std::string_view text) {
    int assembler = 0, compiler = 0;  // lines that can only be one of them
    ForEachLine(text, [&](std::string_view line) {
        const size_t first = line.find_first_not_of(kBlanks), last = line.find_last_not_of(kBlanks);
        if (first == std::string_view::npos) return true;
        const std::string_view body = line.substr(first, last - first + 1);
        if (body.starts_with(';')) {
            ++assembler;
        } else if (body.starts_with("//") || body.starts_with("/*") || body.ends_with("*/") || body.ends_with(';') ||
                   body.ends_with('{') || body.ends_with('}')) {
            ++compiler;
        } else {
            CLineReader reader(line);
            CLineReader afterLabel = reader;
            const bool hasLabel = !afterLabel.TakeName().empty();
            if (hasLabel) reader = afterLabel;
            reader.Skip(':');
            reader.SkipBlanks();
            const std::string_view rest = reader.Rest();
            // In a list of a compiler a comma follows.
            assembler += hasLabel && rest.starts_with('=') && !rest.starts_with("==") && !body.ends_with(',');
            const std::string_view word = reader.TakeName();
            assembler += word != "else" && word != "if" && word != "while" && word != "end" && word != "goto" &&
                         FindAssemblerWord(word) != AssemblerWord::other;
        }
        return true;
    });
    return assembler > compiler;
}
