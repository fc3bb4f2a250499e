// The enumerators of the headers that number texts and commands, read from their source.
#pragma once

#include <string>
#include <vector>

struct NamedId {
    std::string name;
    int id = 0;
    std::string comment;  // behind the enumerator, empty when there is none
};

// `enumeration` of `header`, a file below src/.
std::vector<NamedId> ReadIds(const std::string &header, const std::string &enumeration);

std::vector<NamedId> StringIds();
std::vector<NamedId> CommandIds();
std::vector<NamedId> ResourceIds();

// Whether `command` is an enumerator of the command header.
bool IsKnownCommand(int command);
