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

    // All bytes that `name` stands for; "$W" the working register, where it has no address, too. One on the same bytes
    // that is there already gives its id. Nothing, with words in `error`, for a name without bytes, or bytes that the
    // chip can't watch.
    std::optional<int> Set(int id, const std::string &name, std::string &error);
    bool Delete(int id);
    void Clear();

    bool TakeWritten() { return chip_.TakeWritten(); }
    void ForgetWritten() { chip_.ForgetWritten(); }

    struct Entry {
        std::string name;
        std::vector<uint32_t> bytes;
    };
    const std::map<int, Entry> &All() const { return entries_; }

private:
    IChip &chip_;
    const CNames &names_;
    std::map<int, Entry> entries_;
};
