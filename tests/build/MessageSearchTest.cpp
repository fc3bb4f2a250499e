#include "build/MessageSearch.h"

#include <gtest/gtest.h>
#include <time.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <vector>

namespace {

using namespace std::chrono_literals;
using State = MessageSearch::State;

struct List {
    std::vector<std::string> lines;
    int tests = 0;  // of files

    MessageSearch Search(int selected) {
        return MessageSearch(
            lines.size(), selected, [this](size_t index) { return std::string_view(lines[index]); },
            [this](const std::string &name) {
                ++tests;
                return name == "main.c" || name == "x.c";
            });
    }

    std::string Next(int selected) {
        MessageSearch search = Search(selected);
        State state;
        while ((state = search.Run(1h)) == State::searching) {
        }
        if (state == State::nothing) return "nothing";
        return std::to_string(search.FoundIndex()) + " " + search.FoundPlace().file + " " +
               std::to_string(search.FoundPlace().line);
    }
};

TEST(MessageSearch, GoesRoundTheList) {
    List list{{"main.c(1): a", "plain", "other.c(9): a", "x.c", "line 4: b", "warning y.c(7)"}};
    const struct {
        int selected;
        const char *expected;
    } cases[] = {
        {-1, "0 main.c 1"}, {0, "4 x.c 4"}, {3, "4 x.c 4"}, {4, "5 y.c 7"}, {5, "0 main.c 1"}, {1, "4 x.c 4"},
    };
    for (const auto &c : cases) EXPECT_EQ(list.Next(c.selected), c.expected) << c.selected;
}

TEST(MessageSearch, LeavesOutTheSelectedLineAndTheSecondPartWithoutASelection) {
    List only{{"plain", "main.c(1): a", "plain"}};
    EXPECT_EQ(only.Next(1), "nothing");
    EXPECT_EQ(only.Next(2), "1 main.c 1");
    EXPECT_EQ(only.Next(0), "1 main.c 1");
    List first{{"main.c(1): a"}};
    EXPECT_EQ(first.Next(0), "nothing");
    EXPECT_EQ(first.Next(-1), "0 main.c 1");
    EXPECT_EQ((List{}.Next(-1)), "nothing");
}

TEST(MessageSearch, FindsTheSameAsOneLineAfterTheOther) {
    const std::string parts[] = {"main.c", "line 3: x", "plain", "main.c(2)", "no.c(2)", "error q.c(3)", "line"};
    unsigned seed = 7;
    for (int round = 0; round < 500; ++round) {
        List list;
        for (int i = 0; i < 12; ++i) list.lines.push_back(parts[(seed = seed * 1103515245 + 12345) / 65536 % 7]);
        const int selected = static_cast<int>(seed / 65536 % 13) - 1;
        const auto access = [&](size_t index) { return std::string_view(list.lines[index]); };
        const auto exists = [](const std::string &name) { return name == "main.c"; };
        std::vector<int> order;
        for (int i = selected + 1; i < 12; ++i) order.push_back(i);
        for (int i = 0; i < selected; ++i) order.push_back(i);
        const auto hit = std::find_if(order.begin(), order.end(), [&](int index) {
            return ClassifyMessage(access, static_cast<size_t>(index), exists).has_value();
        });
        MessageSearch search(12, selected, access, exists);
        const State state = search.Run(1h);
        ASSERT_EQ(state == State::found, hit != order.end()) << testing::PrintToString(list.lines) << selected;
        if (state != State::found) continue;
        ASSERT_EQ(static_cast<int>(search.FoundIndex()), *hit) << testing::PrintToString(list.lines) << selected;
        const auto place = ClassifyMessage(access, search.FoundIndex(), exists);
        ASSERT_EQ(search.FoundPlace().file, place->file);
        ASSERT_EQ(search.FoundPlace().line, place->line);
    }
}

TEST(MessageSearch, AsksForEachNameOnce) {
    List list;
    for (int i = 0; i < 1000; ++i) list.lines.push_back(i % 2 ? "gone.c(5): a" : "line 3: without a file above");
    EXPECT_EQ(list.Next(-1), "nothing");
    EXPECT_LE(list.tests, 3);
}

// Of this thread, so that other work of the machine doesn't count.
std::chrono::microseconds ProcessorTime() {
    timespec now;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return std::chrono::seconds(now.tv_sec) + std::chrono::microseconds(now.tv_nsec / 1000);
}

TEST(MessageSearch, KeepsToItsTimeWithAMillionLines) {
    List list;
    for (int i = 0; i < 1'000'000; ++i) list.lines.push_back("line " + std::to_string(i) + ": text (of no file) here");
    MessageSearch search = list.Search(-1);
    State state;
    auto longest = 0us;
    do {
        const auto start = ProcessorTime();
        state = search.Run(10ms);
        longest = std::max(longest, ProcessorTime() - start);
    } while (state == State::searching);
    EXPECT_EQ(state, State::nothing);
    EXPECT_LT(longest, 50ms);
    EXPECT_LE(list.tests, 1'000'000);  // each line above is tested at most once, though each message asks for all
}

}  // namespace
