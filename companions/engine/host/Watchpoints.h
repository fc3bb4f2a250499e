// The bytes of data memory behind whose writes a run stops.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "Names.h"

class CWatchpoints {
public:
    // Both must outlive this.
    CWatchpoints(IChip &chip, const CNames &names) : chip_(chip), names_(names) {}

    // All bytes that `name` stands for. One on the same bytes that is there already gives its id. Nothing, with
    // words in `error`, for a name without bytes, or bytes that the chip can't watch.
    std::optional<int> Set(int id, const std::string &name, std::string &error);
    bool Delete(int id);
    void Clear();

    bool Any() const { return !entries_.empty(); }
    bool TakeWritten() { return chip_.TakeWritten(); }

    struct Entry {
        std::string name;
        std::vector<uint32_t> bytes;
    };
    const std::map<int, Entry> &All() const { return entries_; }

private:
    void Release(const std::vector<uint32_t> &bytes);

    IChip &chip_;
    const CNames &names_;
    std::map<int, Entry> entries_;
};
