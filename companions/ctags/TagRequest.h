// The command line that the tag generator is started with.
#pragma once

#include <optional>
#include <string>
#include <vector>

enum class TagDialect { none, c, pascal, basic };  // the language whose kinds are named

struct TagRequest {
    TagDialect dialect = TagDialect::none;  // none: no line of the program, nothing of it is to be changed
    std::string kinds;                      // letters
    std::string output;                     // file
    bool append = false;                    // to what the output holds
    bool recurse = false;                   // into the directories among the names
    std::optional<std::string> list;        // file with the name of a source a line
    std::vector<std::string> names;         // sources and directories
    std::vector<std::string> options;       // all else, as it stands

    bool IsForPrototypes() const { return kinds == "p"; }
    bool IsForOneDocument() const { return !list && names.size() == 1 && (kinds == "fp" || kinds == "fs"); }
};

TagRequest ReadRequest(const std::vector<std::string> &words);
