#include <gtest/gtest.h>

#include "Launched.h"
#include "platform/NativePath.h"

TEST(PspawnBatch, RunsBatchFilesThroughTheShell) {
    CScratch scratch;
    const struct {
        const char *name, *text, *output;
        int exitCode;
    } cases[] = {
        {"crlf.bat", "echo one\r\nif true\r\nthen\r\n  echo two\r\nfi\r\nexit 3\r\n", "one\ntwo\n", 3},
        {"last line.bat", "echo one\r\necho two\r", "one\ntwo\n", 0},
        {"Upper.BAT", "echo up\n", "up\n", 0},
        {"other.cmd", "echo cmd\n", "cmd\n", 0},
        {"old.bat",
         "\xEF\xBB\xBF@ECHO OFF\r\nREM don't (read) this\r\n  rem\r\n:: nor this\r\n@rem nor this\r\n"
         "echo seen\r\n\x1A",
         "seen\n", 0},
        {"first.bat", "\r\nrem x\r\n@echo off\r\necho x\r\n", "x\n", 0},
        {"remote.bat", "remote() { echo called; }\nremote x\n", "called\n", 0},
        {"dash.bat", "-foo || echo shell\n", "shell\n", 0},
        {"code.bat", "false\n", "", 1},
        {"empty.bat", "", "", 0},
    };
    for (const auto &c : cases) {
        const std::string path = scratch.Write(c.name, c.text);
        CLaunched launched(Pspawn({"\"" + FromNativePath(path) + "\""}));
        EXPECT_EQ(launched.Wait(), c.exitCode) << c.name << launched.error;
        EXPECT_EQ(launched.output, c.output) << c.name;
    }
}

TEST(PspawnBatch, GivesInputArgumentsAndItsOwnName) {
    CScratch scratch;
    const std::string path = scratch.Write("args.bat", "@echo off\r\nread line\r\necho \"$line|$1|$2|$#|$0\"\r\n");
    CLaunched launched(Pspawn({"\"" + path + "\" \"a b\" c\\d"}));
    launched.WriteInput("from outside\nrest");
    EXPECT_EQ(launched.Wait(), 0);
    EXPECT_EQ(launched.output, "from outside|a b|c\\d|2|" + path + "\n");
}

TEST(PspawnBatch, FindsABareNameInTheCurrentDirectory) {
    CScratch scratch;
    scratch.Write("Prebuild.bat", "pwd\n");
    CLaunched launched(Pspawn({"prebuild.bat"}), {.directory = scratch.Path()});
    EXPECT_EQ(launched.Wait(), 0);
    EXPECT_NE(launched.output.find("/two words\n"), std::string::npos);
}

TEST(PspawnBatch, TellsWhatIsWrongWithOne) {
    CScratch scratch;
    const std::string wrong = scratch.Write("wrong.bat", "rem first\r\n@echo on\r\nno-such-command\r\n");
    CLaunched message(Pspawn({wrong, "x"}));
    EXPECT_EQ(message.Wait(), 127);
    EXPECT_NE(message.error.find("wrong.bat: 3: "), std::string::npos) << message.error;  // the file's own line

    const struct {
        std::string file;
        int exitCode;
    } cases[] = {
        {scratch.Path("missing.bat"), 127},
        {"missing-everywhere.bat", 127},
        {scratch.Write("binary.bat", std::string("echo a\0b", 8)), 126},
        {scratch.Write("huge.bat", "rem\n" + std::string(4 << 20, '#')), 126},
    };
    for (const auto &c : cases) {
        CLaunched launched(Pspawn({c.file, "x"}));
        EXPECT_EQ(launched.Wait(), c.exitCode) << c.file;
        EXPECT_EQ(launched.output, "");
        EXPECT_EQ(launched.error.find("pspawn: "), 0u) << launched.error;
    }
}
