#include "MessageRewriter.h"

#include <algorithm>
#include <charconv>
#include <filesystem>

#include "LinkPlaces.h"
#include "SourceScan.h"
#include "platform/NativePath.h"
#include "platform/PathCalls.h"

namespace {

constexpr std::string_view kKinds[] = {"Error", "Warning", "Message"};
constexpr std::string_view kSuperseded = "Warning[215]";

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// "Error[113]   text" or "Error text": the kind's length, 0 when the text begins with none.
size_t KindLength(std::string_view text) {
    for (const std::string_view kind : kKinds) {
        if (!text.starts_with(kind) || text.size() == kind.size()) continue;
        if (text[kind.size()] == ' ') return kind.size();
        if (text[kind.size()] != '[') continue;
        size_t i = kind.size() + 1;
        while (i < text.size() && IsDigit(text[i])) ++i;
        if (i > kind.size() + 1 && i < text.size() && text[i] == ']') return i + 1;
    }
    return 0;
}

// One blank between the kind and its text.
std::string Tidy(std::string_view text, size_t kindLength) {
    std::string_view rest = text.substr(kindLength);
    rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size()));
    std::string kind(text.substr(0, kindLength));
    if (kind.back() != ']') kind += ':';
    return kind + " " + std::string(rest);
}

struct Placed {
    std::string_view file, text;
    int line;
};

// "file:12:Error..." at the first place where it reads so; the file's name may hold colons.
bool ReadPlaced(std::string_view text, Placed &placed) {
    for (size_t colon = text.find(':'); colon != std::string_view::npos; colon = text.find(':', colon + 1)) {
        const char *begin = text.data() + colon + 1, *end = text.data() + text.size();
        int line = 0;
        const auto [stop, error] = std::from_chars(begin, end, line);
        if (error != std::errc() || stop == end || *stop != ':' || colon == 0) continue;
        const std::string_view rest(stop + 1, static_cast<size_t>(end - stop - 1));
        if (KindLength(rest) == 0) continue;
        placed = {text.substr(0, colon), rest, line};
        return true;
    }
    return false;
}

// Whether "name(12): ..." is read back as this name.
bool FitsInFront(std::string_view name) {
    for (const char c : name)
        if (c == '(' || static_cast<signed char>(c) < ' ') return false;
    if (name.empty() || IsDigit(name.front())) return false;
    for (const std::string_view word : {"line", "error", "warning"})
        if (StartsWithNoCase(name, word)) return false;
    return true;
}

// The name in "Error[105] Cannot open file. Include file "x.inc" not found."; empty for another message.
std::string MissingInclude(std::string_view text) {
    constexpr std::string_view words = "Include file \"";
    const size_t begin = text.find(words);
    if (!text.starts_with("Error[105]") || begin == std::string_view::npos) return {};
    const size_t end = text.find('"', begin + words.size());
    if (end == std::string_view::npos) return {};
    return std::string(text.substr(begin + words.size(), end - begin - words.size()));
}

// The assembler is a line ahead when it misses an include.
int LineOfInclude(std::string_view file, int line, const std::string &include) {
    if (include.empty() || line < 2) return line;
    return ReadLine(std::string(file), line - 1).find(include) != std::string::npos ? line - 1 : line;
}

}  // namespace

std::vector<std::string> CMessageRewriter::Rewrite(std::string_view line) {
    std::vector<std::string> out;
    Placed placed;
    if (ReadPlaced(line, placed)) {
        if (placed.text.starts_with("Error")) sawError_ = true;
        if (placed.text.starts_with(kSuperseded) && NamesTheSameProcessor(placed.file, placed.line)) return out;
        const std::string text = Tidy(placed.text, KindLength(placed.text));
        const std::string include = MissingInclude(text);
        WriteMessage(out, placed.file, LineOfInclude(placed.file, placed.line, include), text + HintFor(include));
        return out;
    }
    if (const size_t length = KindLength(line); length > 0 && line[length - 1] == ']') {
        if (line.starts_with("Error")) sawError_ = true;
        WriteMessage(out, context_.source, CountLines(context_.source), Tidy(line, length));
        return out;
    }
    if (line.starts_with("error: ")) {
        sawError_ = true;
        RewriteLinkMessage(out, "Error: ", line.substr(7));
    } else if (line.starts_with("warning: ")) {
        RewriteLinkMessage(out, "Warning: ", line.substr(9));
    } else if (!line.starts_with("message: Using default linker script ")) {
        out.emplace_back(line);
    }
    return out;
}

void CMessageRewriter::WriteMessage(std::vector<std::string> &out, std::string_view file, int line,
                                    const std::string &text) {
    const std::string number = std::to_string(line);
    if (file.empty()) {
        out.push_back(text);
        return;
    }
    if (FitsInFront(file)) {
        out.push_back(std::string(file) + "(" + number + "): " + text);
    } else if (const std::string dotted = "./" + std::string(file); !file.starts_with('/') && FitsInFront(dotted)) {
        out.push_back(dotted + "(" + number + "): " + text);
    } else {
        out.emplace_back(file);
        out.push_back("line " + number + ": " + text);
    }
}

void CMessageRewriter::RewriteLinkMessage(std::vector<std::string> &out, const std::string &kind,
                                          std::string_view text) {
    const std::vector<SourcePlace> places = FindLinkPlaces(text, context_.objects);
    if (places.empty()) out.push_back(kind + std::string(text));
    for (size_t i = 0; i < places.size(); ++i)
        WriteMessage(out, places[i].file, places[i].line,
                     kind + (i == 0 ? std::string(text) : "The other place is here."));
}

// A source that names its processor for other tools says nothing new: the project's target is that one too.
bool CMessageRewriter::NamesTheSameProcessor(std::string_view file, int line) const {
    std::string_view device = context_.processor;
    if (device.starts_with('p')) device.remove_prefix(1);
    const std::string words = LowerCase(ReadLine(std::string(file), line));
    const size_t found = device.empty() ? std::string::npos : words.find(device);
    if (found == std::string::npos) return false;
    const size_t end = found + device.size();
    return end == words.size() || !std::isalnum(static_cast<unsigned char>(words[end]));
}

// Names of includes are told apart by case, and have slashes; a file that differs in nothing else is worth a word. So
// is one whose name has a directory: the assembler doesn't look for it in the include directories.
std::string CMessageRewriter::HintFor(const std::string &include) const {
    if (include.empty()) return {};
    std::vector<std::string> directories = {""};
    for (const std::string &directory : context_.includes) directories.push_back(directory + "/");
    for (const std::string &directory : directories) {
        const std::string found = ToNativePath(FromNativePath(directory) + include);
        std::error_code error;
        if (!found.starts_with(directory) || !std::filesystem::is_regular_file(found, error)) continue;
        if (!directory.empty() && include.find('/') != std::string::npos)
            return " A name with a directory is only looked for from the project's directory.";
        return " The file is spelled \"" + found.substr(directory.size()) + "\".";
    }
    return {};
}
