// The rows of the profile: where the target's time goes, by function.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct ProfileRow {
    std::string name;    // as the engine gives it
    uint64_t total = 0;  // of all rows at the last update; the same in each
    uint64_t count = 0;  // instruction cycles
    size_t place = 0;    // in the engine's order; tells functions of one name apart

    uint64_t Percent() const { return total ? count * 100 / total : 0; }
    std::string Figures() const;   // " 12% (345k)"
    int BarWidth(int room) const;  // pixels, of `room` for all of the total
};

struct ProfileEntry {
    std::string name;
    uint32_t count = 0;
};

inline constexpr const char *kWidestFigures = " 100% (9999M)";

// How many rows there are is fixed by the first update after Clear, which keeps the engine's order; later ones put the
// heaviest on top. Entries that an answer has beyond the rows count into the total only; rows beyond its end have 0.
class CProfileRows {
public:
    void Update(const std::vector<ProfileEntry> &entries);
    void ShowError();  // in place of the names; the next update brings them back
    void Clear() { rows_.clear(); }

    const std::vector<ProfileRow> &List() const { return rows_; }

private:
    std::vector<ProfileRow> rows_;
};
