#include "TagRequest.h"

#include <string_view>

namespace {

constexpr struct {
    std::string_view option;
    TagDialect dialect;
} kDialects[] = {
    {"--c-types=", TagDialect::c},
    {"--pascal-types=", TagDialect::pascal},
    {"--basic-types=", TagDialect::basic},
};

constexpr std::string_view kWithArgument =
    "DIh";  // further options of a letter whose argument may be a word of its own

bool ReadKinds(std::string_view word, TagRequest &request) {
    for (const auto &row : kDialects) {
        if (!word.starts_with(row.option)) continue;
        request.dialect = row.dialect;
        request.kinds = word.substr(row.option.size());
        return true;
    }
    return false;
}

// The rest of `word` behind the option's letter, or the next word.
std::string TakeArgument(const std::vector<std::string> &words, size_t &at) {
    if (words[at].size() > 2) return words[at].substr(2);
    return at + 1 < words.size() ? words[++at] : std::string();
}

}  // namespace

TagRequest ReadRequest(const std::vector<std::string> &words) {
    TagRequest request;
    for (size_t i = 0; i < words.size(); ++i) {
        const std::string &word = words[i];
        if (word.size() < 2 || word[0] != '-') {
            request.names.push_back(word);
        } else if (word.starts_with("-f") || word.starts_with("-o")) {
            request.output = TakeArgument(words, i);
        } else if (word.starts_with("-L")) {
            request.list = TakeArgument(words, i);
        } else if (word == "-a" || word == "--append" || word == "--append=yes") {
            request.append = true;
        } else if (word == "-R" || word == "--recurse" || word == "--recurse=yes") {
            request.recurse = true;
        } else if (!ReadKinds(word, request)) {
            request.options.push_back(word);
            const bool open = word.size() == 2 && kWithArgument.find(word[1]) != std::string_view::npos;
            if (open && i + 1 < words.size()) request.options.push_back(words[++i]);
        }
    }
    return request;
}
