// A table of rows with an `id` each, written in the order in which it reads best and sorted by the compiler.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>

namespace language {

template <typename Row, size_t N>
consteval std::array<Row, N> SortedById(const Row (&rows)[N]) {
    auto sorted = std::to_array(rows);
    std::ranges::sort(sorted, {}, &Row::id);
    return sorted;
}

template <typename Table>
consteval bool HasUniqueIds(const Table &sorted) {
    return std::ranges::adjacent_find(sorted, {}, &Table::value_type::id) == sorted.end();
}

template <typename Table>
constexpr std::optional<typename Table::value_type> FindRow(const Table &sorted, int id) {
    const auto row = std::ranges::lower_bound(sorted, id, {}, &Table::value_type::id);
    if (row == sorted.end() || row->id != id) return std::nullopt;
    return *row;
}

}  // namespace language
