// The registers of a chip whose writes are noticed. Known to the chip's own sources only.
#pragma once

#include <gpsim_classes.h>

#include <registers.h>

#include <vector>

class CChipWatch {
public:
    bool Any() const { return !entries_.empty(); }
    bool Has(const Register *where) const;
    void Add(Register &where, bool changesByItself);
    bool Remove(Register &where);  // false: it isn't there

    // Those that the chip changes without an instruction that writes them.
    struct Changing {
        Register *where;
        unsigned int value;  // before the instruction
    };
    std::vector<Changing> changing;
    bool written = false;  // one was, since this was set to false

private:
    struct Entry {
        Register *where;
        unsigned int wishes;  // how often it has been added
    };
    std::vector<Entry> entries_;  // sorted
};
