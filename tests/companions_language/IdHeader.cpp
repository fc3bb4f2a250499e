#include "IdHeader.h"

#include <algorithm>
#include <fstream>
#include <regex>

std::vector<NamedId> ReadIds(const std::string &header, const std::string &enumeration) {
    static const std::regex row(R"(^\s*(ID\w+) = (\d+),\s*(?://\s*(.*))?$)");
    std::ifstream file(std::string(THORNWELL_SOURCE_DIR) + "/src/" + header);
    std::vector<NamedId> ids;
    bool inside = false;
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with("enum ")) inside = line.starts_with("enum " + enumeration + " ");
        std::smatch match;
        if (inside && std::regex_match(line, match, row)) ids.push_back({match[1], std::stoi(match[2]), match[3]});
    }
    return ids;
}

std::vector<NamedId> StringIds() {
    return ReadIds("app/StringIds.h", "StringId");
}
std::vector<NamedId> CommandIds() {
    return ReadIds("app/CommandIds.h", "CommandId");
}
std::vector<NamedId> ResourceIds() {
    return ReadIds("app/StringIds.h", "ResourceId");
}

bool IsKnownCommand(int command) {
    static const std::vector<NamedId> known = CommandIds();
    return std::ranges::find(known, command, &NamedId::id) != known.end();
}
