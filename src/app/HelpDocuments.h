// The help documents: files beside the program, each opened by a command of its own.
#pragma once

#include <span>
#include <string>

struct HelpDocument {
    int command;
    const char *file;  // in the program's directory
};

std::span<const HelpDocument> HelpDocuments();

// Opens the document with the desktop's program for it. On failure `error` tells which file can't be opened. Main
// thread.
bool OpenHelpDocument(const HelpDocument &document, std::string &error);
