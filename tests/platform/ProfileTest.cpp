#include "platform/Profile.h"

#include <gtest/gtest.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <map>
#include <random>

#include "support/ScratchDirectory.h"
#include "platform/ProfileText.h"

namespace {

class Profile : public testing::Test {
protected:
    std::string Get(const char *section, const char *key, uint32_t size = 260) {
        return ReadProfileString(section, key, "?", file_, size);
    }
    bool Set(const char *section, const char *key, const char *value) {
        return WritePrivateProfileStringA(section, key, value, file_.c_str());
    }

    CScratchDirectory scratch_;
    std::string file_ = scratch_.Windows("p.ini");
};

TEST_F(Profile, ReadsWhatHandsAndToolsWrite) {
    const std::string longValue(100'000, 'v');
    scratch_.Write("p.ini",
                   "\xEF\xBB\xBFstray=1\n; comment=1\n[ Files ] trailing\r\n  Key One \t=  a b \r\nquoted=\" x \"\r\n"
                   "single='y'\nhalf=\"z\nempty=\n;off=1\nTWICE=first\ntwice=second\nno equals sign\n=nameless\n"
                   "eq=a=b;c\nlong=" + longValue + "\n[Next]\nx=1\n[files]\nlate=1\n[Last]\nend=no line end");
    struct { const char *section, *key, *expected; } cases[] = {
        {"", "stray", "?"},          {"Files", "key one", "a b"},  {"FILES", "quoted", " x "}, {"files", "single", "y"},
        {"Files", "half", "\"z"},    {"Files", "empty", ""},       {"Files", "off", "?"},      {"Files", ";off", "?"},
        {"Files", "twice", "first"}, {"Files", "no equals sign", "?"}, {"Files", "", "?"},     {"Files", "eq", "a=b;c"},
        {"Next", "x", "1"},          {"Files", "late", "?"},       {"Last", "end", "no line end"},
        {" files ", " TWICE ", "first"},
    };
    for (const auto &c : cases) EXPECT_EQ(Get(c.section, c.key), c.expected) << c.section << "/" << c.key;
    EXPECT_EQ(Get("Files", "long", 200'000), longValue);
    EXPECT_EQ(Get("Files", "long"), longValue.substr(0, 259));

    scratch_.Write("p.ini", "[A]\n\xC3\x84=umlaut\n");
    EXPECT_EQ(Get("a", "\xC3\xA4"), "umlaut");
}

TEST_F(Profile, CutsIntoTheBuffer) {
    scratch_.Write("p.ini", "[A]\nk=12345\nu=ab\xC3\xA4\n");
    char buffer[8] = "#######";
    EXPECT_EQ(GetPrivateProfileStringA("A", "k", "", buffer, 4, file_.c_str()), 3u);
    EXPECT_STREQ(buffer, "123");
    EXPECT_EQ(buffer[4], '#');
    EXPECT_EQ(GetPrivateProfileStringA("A", "u", "", buffer, 4, file_.c_str()), 2u) << "half a character";
    EXPECT_EQ(GetPrivateProfileStringA("A", "none", "fallback", buffer, 5, file_.c_str()), 4u);
    EXPECT_STREQ(buffer, "fall");
    EXPECT_EQ(GetPrivateProfileStringA("A", "none", nullptr, buffer, 5, file_.c_str()), 0u);
    EXPECT_EQ(GetPrivateProfileStringA("A", "k", "", buffer, 0, file_.c_str()), 0u);
    EXPECT_EQ(GetPrivateProfileStringA("A", "k", "none", buffer, 8, scratch_.Windows("missing").c_str()), 4u);
}

TEST_F(Profile, ReadsNumbers) {
    struct { const char *text; int expected; } cases[] = {
        {"12", 12}, {"-7", -7}, {"+3", 3}, {"12abc", 12}, {"abc", 0}, {"", 0}, {"\"5\"", 5}, {"- 5", 0}, {"007", 7},
        {"0x10", 0}, {"4294967295", -1}, {"-2147483648", INT32_MIN},
    };
    for (const auto &c : cases) {
        Set("A", "n", c.text);
        EXPECT_EQ(GetPrivateProfileIntA("A", "n", 99, file_.c_str()), c.expected) << c.text;
    }
    EXPECT_EQ(GetPrivateProfileIntA("A", "none", 99, file_.c_str()), 99);
}

TEST_F(Profile, EditsInPlace) {
    struct { const char *before, *section, *key, *value, *after; } cases[] = {
        {"", "A", "k", "v", "[A]\r\nk=v\r\n"},
        {"[A]\nk=1\n", "B", "k", "v", "[A]\nk=1\n[B]\nk=v\n"},
        {"[A]\nk=1", "A", "l", "2", "[A]\nk=1\nl=2\n"},
        {"[A]\nk=1", "A", "k", "2", "[A]\nk=2"},
        {"; top\r\n\r\n[A]\n K = 1 \r\nx\n\n[B]\n", "a", "k", "2", "; top\r\n\r\n[A]\n K = 2\r\nx\n\n[B]\n"},
        {"[A]\nk=1\n; about\n\n\n[B]\n", "A", "l", "2", "[A]\nk=1\n; about\nl=2\n\n\n[B]\n"},
        {"[A]\n\n[B]\n", "A", "l", "2", "[A]\nl=2\n\n[B]\n"},
        {"[A]\nk=\n", "A", "k", "2", "[A]\nk=2\n"},
        {"[A]\nk=1\nK=2\n[A]\nk=3\n", "A", "k", "9", "[A]\nk=9\nK=2\n[A]\nk=3\n"},
        {"\xEF\xBB\xBF[A]\nk=1\n", "A", "k", "2", "\xEF\xBB\xBF[A]\nk=2\n"},
        {"[A]\nk=1\n", "A", "k", "two\nlines", "[A]\nk=two\n"},
        {"[A]\nk=1\nx\nK=2\n[B]\n", "A", "k", nullptr, "[A]\nx\n[B]\n"},
        {"[A]\nk=1\n[B]\nx=1\n[a]\nk=2\n", "A", nullptr, nullptr, "[B]\nx=1\n"},
        {"junk", "A", "none", nullptr, "junk"},
    };
    for (const auto &c : cases) {
        scratch_.Write("p.ini", c.before);
        EXPECT_TRUE(WritePrivateProfileStringA(c.section, c.key, c.value, file_.c_str())) << c.before;
        EXPECT_EQ(scratch_.Read("p.ini"), c.after) << c.before;
    }
}

TEST_F(Profile, RefusesNamesThatWouldNotReadBack) {
    const std::string before = "[A]\nk=1\n";
    scratch_.Write("p.ini", before);
    for (const char *key : {"", " ", "a=b", ";k", "[B]", "a\nb"}) EXPECT_FALSE(Set("A", key, "1")) << key;
    for (const char *section : {"a]b", "a\n[b"}) EXPECT_FALSE(Set(section, "k", "1")) << section;
    EXPECT_EQ(scratch_.Read("p.ini"), before);
}

TEST_F(Profile, KeepsBinaryBodies) {
    std::string body("\0\1[x\xFF]\r\r\n=\n\0", 12);
    scratch_.Write("p.ini", body);
    EXPECT_TRUE(Set("A", "k", "v"));
    EXPECT_EQ(scratch_.Read("p.ini").substr(0, body.size()), body);
    EXPECT_EQ(Get("A", "k"), "v");
}

TEST_F(Profile, SeesEveryWriteOfOthers) {
    // Same size, same tick of the clock, same inode: only the bytes tell.
    for (int i = 0; i < 200; ++i) {
        const std::string value = std::to_string(100 + i);
        scratch_.Write("p.ini", "[A]\nk=" + value + "\n");
        ASSERT_EQ(Get("A", "k"), value);
    }
    std::filesystem::remove(scratch_.Native("p.ini"));
    EXPECT_EQ(Get("A", "k"), "?");
}

TEST_F(Profile, ReplacesFilesWithTheirLinksAndModes) {
    scratch_.Write("real/p.ini", "[A]\nk=1\n");
    chmod(scratch_.Native("real/p.ini").c_str(), 0640);
    std::filesystem::create_symlink("real/p.ini", scratch_.Native("p.ini"));
    EXPECT_TRUE(Set("A", "k", "2"));
    EXPECT_TRUE(std::filesystem::is_symlink(scratch_.Native("p.ini")));
    EXPECT_EQ(scratch_.Read("real/p.ini"), "[A]\nk=2\n");
    struct stat status;
    ASSERT_EQ(stat(scratch_.Native("real/p.ini").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0640u);

    std::filesystem::create_hard_link(scratch_.Native("real/p.ini"), scratch_.Native("twin"));
    EXPECT_TRUE(Set("A", "k", "3"));
    EXPECT_EQ(scratch_.Read("twin"), "[A]\nk=3\n");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(scratch_.Native("real")), {}), 1) << "left over";
}

TEST_F(Profile, FailsWhereItCannotWrite) {
    std::filesystem::create_directory(scratch_.Native("p.ini"));
    EXPECT_FALSE(Set("A", "k", "1"));
    EXPECT_FALSE(WritePrivateProfileStringA("A", "k", "1", scratch_.Windows("none\\p.ini").c_str()));
    ASSERT_EQ(mkfifo(scratch_.Native("fifo").c_str(), 0600), 0);
    EXPECT_FALSE(WritePrivateProfileStringA("A", "k", "1", scratch_.Windows("fifo").c_str()));
    EXPECT_EQ(ReadProfileString("A", "k", "?", scratch_.Windows("fifo")), "?");
}

// The same edits on the file and on a plain map; keys one by one and as a batch.
TEST_F(Profile, AgreesWithAModelOverRandomEdits) {
    std::mt19937 random(20'24);
    const auto pick = [&](int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); };
    const char *sections[] = {"Settings", "Files", "Watch list"}, *spelled[] = {"SETTINGS", "files", " watch LIST"};
    const char *comment = "; a comment that stays\r\n";
    scratch_.Write("p.ini", std::string(comment) + "[Other]\nunknown line\n");
    const std::string twin = scratch_.Windows("twin.ini");
    scratch_.Write("twin.ini", scratch_.Read("p.ini"));
    std::map<std::pair<int, int>, std::string> model;
    const auto key = [&](int number) { return (pick(2) ? "Key " : "kEY ") + std::to_string(number); };

    for (int step = 0; step < 600; ++step) {
        const int section = pick(3), number = pick(12), action = pick(20);
        const char *name = pick(2) ? sections[section] : spelled[section];
        if (action == 0) {
            for (const auto &file : {file_, twin}) WritePrivateProfileStringA(name, nullptr, nullptr, file.c_str());
            std::erase_if(model, [&](const auto &entry) { return entry.first.first == section; });
        } else if (action < 5) {
            const std::string removed = key(number);
            for (const auto &file : {file_, twin})
                WritePrivateProfileStringA(name, removed.c_str(), nullptr, file.c_str());
            model.erase({section, number});
        } else {
            std::vector<std::pair<std::string, std::string>> values;
            for (int i = pick(4); i >= 0; --i) {
                const int which = pick(12);
                values.emplace_back(key(which), std::string(static_cast<size_t>(pick(30)), 'a') + std::to_string(step));
                model[{section, which}] = values.back().second;
            }
            ASSERT_TRUE(WritePrivateProfileKeys(name, values, file_.c_str()));
            for (const auto &[each, value] : values)
                ASSERT_TRUE(WritePrivateProfileStringA(name, each.c_str(), value.c_str(), twin.c_str()));
        }
        ASSERT_EQ(scratch_.Read("p.ini"), scratch_.Read("twin.ini")) << step;
        for (int s = 0; s < 3; ++s)
            for (int k = 0; k < 12; ++k) {
                const auto entry = model.find({s, k});
                ASSERT_EQ(Get(sections[s], ("key " + std::to_string(k)).c_str()),
                          entry == model.end() ? "?" : entry->second)
                    << step;
            }
    }
    EXPECT_EQ(scratch_.Read("p.ini").rfind(std::string(comment) + "[Other]\nunknown line\n", 0), 0u);
}

// Whatever a file holds: it is kept byte for byte, and one edit reads back and changes at most one line.
TEST(ProfileText, KeepsAnyBytes) {
    std::mt19937 random(7);
    const std::string alphabet("[[]]==;;\r\r\n\n\n \t\"'aAbk\0\xC3\xEF\xBB\xBF", 27);
    for (int round = 0; round < 20'000; ++round) {
        std::string bytes(random() % 40, ' ');
        for (char &c : bytes) c = alphabet[random() % alphabet.size()];
        CProfileText text(bytes);
        ASSERT_EQ(text.Bytes(), bytes);
        const bool known = text.Find("a", "K").has_value();
        ASSERT_TRUE(text.Set("A", "k", "value"));
        const std::string edited = text.Bytes();
        ASSERT_EQ(text.Find("a", "K"), "value");
        ASSERT_EQ(CProfileText(edited).Find("a", "K"), "value") << testing::PrintToString(bytes);
        ASSERT_EQ(CProfileText(edited).Bytes(), edited);
        if (!known) {
            // Only added to: every byte is there still, in its order.
            size_t at = 0;
            for (const char c : edited)
                if (at < bytes.size() && bytes[at] == c) ++at;
            ASSERT_EQ(at, bytes.size()) << testing::PrintToString(edited);
            ASSERT_LE(edited.size(), bytes.size() + std::string("\r\n[A]\r\nk=value\r\n").size());
        }
        ASSERT_TRUE(text.RemoveKey("a", "K"));
        ASSERT_FALSE(CProfileText(text.Bytes()).Find("A", "k"));
    }
}

// A writer that is killed at any moment leaves the old file or the new one.
TEST_F(Profile, SurvivesAKilledWriter) {
    Set("A", "first", std::string(50'000, 'x').c_str());
    const pid_t writer = fork();
    ASSERT_GE(writer, 0);
    if (writer == 0) {
        for (;;) {
            Set("A", "second", std::string(50'000, 'y').c_str());
            Set("A", "second", nullptr);
        }
    }
    for (int i = 0; i < 200; ++i) {
        const std::string text = scratch_.Read("p.ini");
        ASSERT_TRUE(text.size() == 50'013 || text.size() == 100'022) << text.size();
    }
    kill(writer, SIGKILL);
    waitpid(writer, nullptr, 0);
    EXPECT_EQ(Get("A", "first", 60'000).size(), 50'000u);
}

// A thousand keys are read without parsing the file a thousand times.
TEST_F(Profile, ReadsALargeFileKeyByKey) {
    std::vector<std::pair<std::string, std::string>> values;
    for (int i = 0; i < 20'000; ++i)
        values.emplace_back("File" + std::to_string(i), "src\\file" + std::to_string(i) + ".asm");
    ASSERT_TRUE(WritePrivateProfileKeys("Files", values, file_.c_str()));
    struct timespec old[2] = {{1'000'000'000, 0}, {1'000'000'000, 0}};
    utimensat(AT_FDCWD, scratch_.Native("p.ini").c_str(), old, 0);
    usleep(60'000);  // until the file's times tell it from any later state
    const auto start = std::chrono::steady_clock::now();
    for (const auto &[key, value] : values) ASSERT_EQ(Get("Files", key.c_str()), value);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

}  // namespace
