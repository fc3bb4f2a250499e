// The breakpoints of a run: places of source with a condition and a count of hits.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Names.h"
#include "expression/Expression.h"

// When a breakpoint stops; see DbgCondition and DbgHit. A multiple of 0 is every hit.
struct BreakpointRule {
    std::string condition;
    int conditionType = 0, hitValue = 0, hitType = 0;
};

class CBreakpoints {
public:
    // `names` must outlive this.
    CBreakpoints(uint32_t programSize, const CNames &names);

    // Program addresses to look closer at: a set bit for each, by the chip's address. It stays where it is in memory.
    const std::vector<bool> &Stops() const { return stops_; }

    // One more address to look closer at, or none; a step's own.
    void SetPassage(std::optional<uint32_t> address);

    // The breakpoint at this line's code that is there already, else a new one with this `id`. Nothing when no address
    // is within the chip's memory.
    std::optional<int> Set(int id, const std::string &file, int line, const std::vector<uint32_t> &addresses);
    bool Delete(int id);
    void Clear();

    // False with words in `error`, and nothing changed: no such breakpoint, or a condition that doesn't read.
    bool SetRule(int id, const BreakpointRule &rule, std::string &error);
    std::optional<int> HitCount(int id) const;
    bool ResetHitCount(int id);

    // The program counter has come to `address`: counts, and says whether to stop. Where a condition had no value it
    // does stop, and `words` tell the user.
    bool Arrive(uint32_t address, std::string &words);

    struct Entry {
        std::string file;
        int line = 0;
        std::vector<uint32_t> addresses;
        BreakpointRule rule;
        int hits = 0;
        std::shared_ptr<const CExpression> condition;  // null: none applies
        std::optional<int64_t> last;                   // the condition's value when it was looked at last
    };
    const std::map<int, Entry> &All() const { return entries_; }

private:
    bool HasBreakpoint(uint32_t address) const { return at_.contains(address); }
    bool ConditionHolds(Entry &entry, std::string &words) const;

    const CNames &names_;
    std::map<int, Entry> entries_;
    std::multimap<uint32_t, int> at_;  // program address to ids
    std::vector<bool> stops_;
    std::optional<uint32_t> passage_;
};
