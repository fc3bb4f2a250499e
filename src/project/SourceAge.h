// How recent the sources of the active project are.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

struct SourceAge {
    std::string file;   // full name of the file written last
    int64_t written;    // nanoseconds since 1970
};

// Looks at each file of the active project: some microseconds a file. Empty without a file that can be read.
std::optional<SourceAge> NewestSource();
