// Sources of any kind, whose remarks are listed. The search for the words in front of the grammars must not change what
// these find.
#include <utility>
#include <vector>

#include "fuzz/FuzzTarget.h"
#include "navigation/TodoGrammar.h"
#include "navigation/TodoScan.h"

namespace {

// What the grammars find by themselves: type and line.
std::vector<std::pair<int, int>> ScanByGrammars(std::string_view text) {
    std::vector<std::pair<int, int>> found;
    int line = 1, type = -1, ends = 0;
    const todo_grammar todo([&] { type = kTodo; }, [&] { type = kFixme; }, [&](std::string_view) { ++ends; });
    const line_grammar lines(
        [&](std::string_view body) {
            Expect(!body.empty() && body.find_first_of("\r\n") == std::string_view::npos, "a line ends at its end");
            ends = 0;
            Expect(todo.ParseWhole(body), "each line matches");
            Expect(ends <= 1, "a line has one description");
            if (ends == 1) found.emplace_back(type, line);
        },
        [&] { ++line; });
    lines.Parse(text);
    return found;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const std::string_view text = AsText(data, size);
    std::vector<TodoRecord> records;
    ScanTodos(text, "x.c", records);
    const auto expected = ScanByGrammars(text);
    Expect(records.size() == expected.size(), "no remark is lost or made up");
    for (size_t i = 0; i < records.size(); ++i) {
        Expect(records[i].type == expected[i].first && records[i].line == expected[i].second, "type and line agree");
        Expect(text.find(records[i].text) != std::string_view::npos, "a description stands in the text");
        Expect(records[i].text.find_first_of("\r\n") == std::string::npos, "a description is one line");
    }
    return 0;
}
