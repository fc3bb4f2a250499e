// The options of one configuration, kept in its file.
#pragma once

#include <optional>
#include <string>
#include <vector>

struct Options {
    enum class Radix { hexadecimal, decimal, octal };
    enum class Messages { all, warningsAndErrors, errors };  // the values are gpasm's

    std::vector<std::string> defines;       // "NAME" or "NAME=value"
    std::vector<std::string> includePaths;  // Windows form, relative to the project's directory where they can be
    Radix radix = Radix::hexadecimal;
    bool ignoreCase = false;
    Messages messages = Messages::all;
    std::string assemblerExtra;  // further words of gpasm's command line
    std::string linkerScript;    // Windows form; empty: the chip's own
    std::string linkerExtra;     // further words of gplink's command line, shared with the host
};

// "Debug" of "D\T.Debug.__f".
std::string ConfigurationName(const std::string &project, const std::string &config);

// A key that the file doesn't have takes its default; a debug configuration defines __DEBUG by default.
Options LoadOptions(const std::string &project, const std::string &config);
bool SaveOptions(const Options &options, const std::string &config);

const char *RadixName(Options::Radix radix);  // "hex", "dec", "oct"

// What is wrong with an entry, as a sentence for the user; empty when nothing is.
std::string CheckDefine(const std::string &define);
std::string CheckIncludePath(const std::string &path);
std::string CheckExtra(const std::string &extra);

// The words of `linkerExtra` that gplink is given: options of other linkers that the host puts there are left out.
std::vector<std::string> LinkerWords(const std::string &linkerExtra);
