#include "Breakpoints.h"

#include <algorithm>

#include "debugger/EngineApi.h"

CBreakpoints::CBreakpoints(uint32_t programSize, const CNames &names) : names_(names), stops_(programSize) {}

void CBreakpoints::SetPassage(std::optional<uint32_t> address) {
    if (passage_) stops_[*passage_] = HasBreakpoint(*passage_);
    passage_ = address && *address < stops_.size() ? address : std::nullopt;
    if (passage_) stops_[*passage_] = true;
}

std::optional<int> CBreakpoints::Set(int id, const std::string &file, int line,
                                     const std::vector<uint32_t> &addresses) {
    Entry entry;
    entry.file = file;
    entry.line = line;
    std::copy_if(addresses.begin(), addresses.end(), std::back_inserter(entry.addresses),
                 [&](uint32_t address) { return address < stops_.size(); });
    if (entry.addresses.empty()) return std::nullopt;
    auto [first, last] = at_.equal_range(entry.addresses.front());
    for (auto i = first; i != last; ++i) {
        const Entry &other = entries_.at(i->second);
        if (other.line == line && other.addresses == entry.addresses) return i->second;
    }
    for (uint32_t address : entry.addresses) {
        at_.emplace(address, id);
        stops_[address] = true;
    }
    entries_.emplace(id, std::move(entry));
    return id;
}

bool CBreakpoints::Delete(int id) {
    auto found = entries_.find(id);
    if (found == entries_.end()) return false;
    for (uint32_t address : found->second.addresses) {
        auto [first, last] = at_.equal_range(address);
        for (auto i = first; i != last;) i = i->second == id ? at_.erase(i) : std::next(i);
        stops_[address] = HasBreakpoint(address) || passage_ == address;
    }
    entries_.erase(found);
    return true;
}

void CBreakpoints::Clear() {
    while (!entries_.empty()) Delete(entries_.begin()->first);
}

bool CBreakpoints::SetRule(int id, const BreakpointRule &rule, std::string &error) {
    auto found = entries_.find(id);
    if (found == entries_.end()) {
        error = "There is no such breakpoint.";
        return false;
    }
    Entry &entry = found->second;
    std::shared_ptr<const CExpression> condition;
    std::optional<int64_t> now;
    if (rule.conditionType != kDbgNoCondition) {
        condition = CExpression::Parse(rule.condition, error);
        if (!condition) return false;
        if (!names_.UnknownName(*condition).empty()) {
            error = "There is no \"" + names_.UnknownName(*condition) + "\" in this program or chip.";
            return false;
        }
        std::string noValueYet;  // a division by what is still zero
        now = names_.Evaluate(*condition, noValueYet);
    }
    // What is only set again goes on comparing with what it has seen.
    bool same = rule.conditionType == entry.rule.conditionType && rule.condition == entry.rule.condition;
    if (!same) entry.last = now;
    entry.condition = std::move(condition);
    entry.rule = rule;
    return true;
}

std::optional<int> CBreakpoints::HitCount(int id) const {
    auto found = entries_.find(id);
    if (found == entries_.end()) return std::nullopt;
    return found->second.hits;
}

bool CBreakpoints::ResetHitCount(int id) {
    auto found = entries_.find(id);
    if (found == entries_.end()) return false;
    found->second.hits = 0;
    return true;
}

bool CBreakpoints::ConditionHolds(Entry &entry, std::string &words) const {
    if (!entry.condition) return true;
    std::string error;
    std::optional<int64_t> value = names_.Evaluate(*entry.condition, error);
    if (!value) {
        words = "The condition \"" + entry.rule.condition + "\" has no value: " + error;
        return true;
    }
    bool changed = entry.last != value;
    entry.last = value;
    return entry.rule.conditionType == kDbgWhenChanged ? changed : *value != 0;
}

bool CBreakpoints::Arrive(uint32_t address, std::string &words) {
    bool stop = false;
    auto [first, last] = at_.equal_range(address);
    for (auto i = first; i != last; ++i) {
        Entry &entry = entries_.at(i->second);
        if (!ConditionHolds(entry, words)) continue;
        entry.hits++;
        int value = entry.rule.hitValue;
        switch (entry.rule.hitType) {
            case kDbgHitEqual: stop |= entry.hits == value; break;
            case kDbgHitMultiple: stop |= value <= 0 || entry.hits % value == 0; break;
            case kDbgHitAtLeast: stop |= entry.hits >= value; break;
            default: stop = true;
        }
    }
    return stop;
}
