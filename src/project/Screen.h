// What the project commands need of the program's window.
#pragma once

#include <string>

class CMainFrame;

CMainFrame &Frame();  // the main frame, which stands while commands run

// Makes an empty file in the place of what is there. False, with a box that names it, when that can't be done.
bool CreateFileOrTell(const std::string &path, const std::string &content = {});

// True when `path` is free, or the user agrees to overwrite the file there.
bool MayOverwrite(const std::string &path);
