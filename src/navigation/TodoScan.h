// The remarks in a text: what stands behind the words TODO and FIXME.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

enum TodoType : int32_t { kTodo = 0, kFixme = 1 };

struct TodoRecord {
    int32_t type = kTodo;  // TodoType
    std::string file;      // as the project's file spells it
    int32_t line = 1;      // from 1
    std::string text;      // the description, trimmed
    int32_t rowId = 0;     // the record's place when the rows were last filled
};

// A list of more is of no use to anybody, and comes from data that is no source.
inline constexpr size_t kMostTodos = 100'000;

// Appends the remarks of `text`, at most one a line, with `file` in each, until there are kMostTodos records in all.
// Takes time in proportion to the text, whatever stands in it. Any thread.
void ScanTodos(std::string_view text, const std::string &file, std::vector<TodoRecord> &records);
