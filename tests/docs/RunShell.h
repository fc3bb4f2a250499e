// Runs a command of the shell.
#pragma once

#include <sys/wait.h>

#include <cstdio>
#include <string>

struct Ran {
    int code = -1;
    std::string output;  // of both streams
};

inline Ran RunShell(const std::string &command) {
    Ran ran;
    FILE *pipe = popen(("{ " + command + "; } 2>&1").c_str(), "r");
    if (!pipe) return ran;
    for (int c; (c = std::fgetc(pipe)) != EOF;) ran.output += static_cast<char>(c);
    const int status = pclose(pipe);
    if (WIFEXITED(status)) ran.code = WEXITSTATUS(status);
    return ran;
}
