#include "navigation/TodoScan.h"

#include <gtest/gtest.h>

namespace {

// "type line [text]" of each record.
std::vector<std::string> Scan(std::string_view text) {
    std::vector<TodoRecord> records;
    ScanTodos(text, "x.c", records);
    std::vector<std::string> shown;
    for (const TodoRecord &record : records)
        shown.push_back((record.type == kTodo ? "todo " : "fixme ") + std::to_string(record.line) + " [" + record.text +
                        "]");
    return shown;
}

}  // namespace

TEST(TodoScan, FindsTheWordsAndWhatFollowsThem) {
    const struct {
        std::string_view text;
        std::vector<std::string> expected;
    } cases[] = {
        {"", {}},
        {"\n\r\n", {}},
        {"no word", {}},
        {"tod\no", {}},
        {"// TODO: one\n; todo two\nToDo three", {"todo 1 [one]", "todo 2 [two]", "todo 3 [three]"}},
        {"fixme a\nFixMe:b\nFIXME", {"fixme 1 [a]", "fixme 2 [b]", "fixme 3 []"}},
        {"a\r\nb\rc\n\n\rtodo x", {"todo 6 [x]"}},
        {"todo\r\n", {"todo 1 []"}},
        {"fixm fixme todo x", {"fixme 1 [todo x]"}},
        {"todo a fixme b", {"todo 1 [a fixme b]"}},
        {"mastodons", {"todo 1 [ns]"}},
        {"totodo: x", {"todo 1 [x]"}},
        {"todo : x", {"todo 1 [: x]"}},
        {"todo:: x", {"todo 1 [: x]"}},
        {"todo \t\x01 x \t\x1f", {"todo 1 [x]"}},
        {"todo \xc3\xa4 x\xc3\xa4y \xc3\xa4", {"todo 1 [x\xc3\xa4y]"}},
        {std::string_view("\0\xfftodo a\0b\0\nfixme", 17), {std::string("todo 1 [a\0b]", 12), "fixme 2 []"}},
    };
    for (const auto &c : cases) EXPECT_EQ(Scan(c.text), c.expected) << c.text;
}

TEST(TodoScan, TakesTextsOfAnySizeAndKind) {
    const size_t size = 10'000'000;
    EXPECT_EQ(Scan(std::string(size, 't') + "odo x"), std::vector<std::string>{"todo 1 [x]"});
    EXPECT_EQ(Scan("todo " + std::string(size, 'x'))[0].size(), size + 9);
    EXPECT_EQ(Scan(std::string(size, '\0')), std::vector<std::string>{});
    EXPECT_EQ(Scan(std::string(1'000'000, '\r') + "todo"), std::vector<std::string>{"todo 1000001 []"});

    std::string many;
    for (size_t i = 0; i < kMostTodos + 10; ++i) many += "todo\n";
    EXPECT_EQ(Scan(many).size(), kMostTodos);
}
