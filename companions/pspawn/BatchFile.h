// Batch files. They are run by the shell, so their commands are the shell's; only what differs in form is seen to:
//  - lines may end in CR LF, a byte order mark and the old end-of-file mark (0x1A) are dropped
//  - "@echo off" before the first command is ignored, as are lines that begin with "rem", "@rem" or "::"
//  - nothing else is translated: "%VAR%", "if exist", "call", "goto" and the like mean to the shell what it reads
// Arguments are $1 and up, $0 is the file's native path. Standard input is left to the commands of the batch file.
#pragma once

#include <string>
#include <string_view>
#include <vector>

bool IsBatchFile(std::string_view name);  // ".bat" or ".cmd", in any case

// The shell's text for a batch file's bytes, line for line, so that the line numbers of its messages are right.
std::string ShellTextOfBatch(std::string_view bytes);

// The shell's command line that runs `text` as the file `nativePath` with `arguments`; the first word is the shell's
// own path.
std::vector<std::string> ShellCommandOfBatch(const std::string &text, const std::string &nativePath,
                                             const std::vector<std::string> &arguments);
