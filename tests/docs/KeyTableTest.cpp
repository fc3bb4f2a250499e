#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <regex>

#include "app/StringIds.h"
#include "framework/LanguageApi.h"
#include "platform/NativePath.h"
#include "platform/SharedLibrary.h"

namespace {

using KeyTable = std::map<std::string, std::string>;  // key to command, as a reader sees both

KeyTable KeysOfManual() {
    std::ifstream manual(THORNWELL_SOURCE_DIR "/docs/manual.md");
    KeyTable table;
    bool inChapter = false;
    const std::regex row(R"(\| (`.+`) \| (.+) \|)"), key("`([^`]+)`");
    for (std::string line; std::getline(manual, line);) {
        if (line.starts_with("## ")) inChapter = line == "## Keys";
        std::smatch cells;
        if (!inChapter || !std::regex_match(line, cells, row)) continue;
        const std::string keys = cells[1];
        for (std::sregex_iterator it(keys.begin(), keys.end(), key), end; it != end; ++it) {
            EXPECT_FALSE(table.contains((*it)[1])) << line;
            table[(*it)[1]] = cells[2];
        }
    }
    return table;
}

KeyTable KeysOfProgram() {
    const CSharedLibrary library(FromNativePath(LANGUAGE_MODULE));
    const auto accelerators = library.Get<LangGetAcceleratorsFn>(kLangGetAccelerators);
    const auto text = library.Get<LangGetStringFn>(kLangGetString);
    KeyTable table;
    int32_t count = 0;
    const LangAccelerator *first = accelerators(IDR_MAINFRAME, &count);
    for (const LangAccelerator *each = first; each != first + count; ++each) {
        const std::string words = text(each->command);
        table[each->keys] = words.substr(words.find('\n') + 1);
    }
    return table;
}

}  // namespace

TEST(UserManual, ListsTheKeysOfTheProgram) {
    const KeyTable manual = KeysOfManual(), program = KeysOfProgram();
    ASSERT_FALSE(program.empty());
    for (const auto &[key, command] : program) {
        const auto row = manual.find(key);
        ASSERT_NE(row, manual.end()) << key << " is not in docs/manual.md: " << command;
        EXPECT_EQ(row->second, command) << key;
    }
    for (const auto &[key, command] : manual) EXPECT_TRUE(program.contains(key)) << key << " is no key of the program";
}
