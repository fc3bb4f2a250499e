// Reading words out of a code view.
#pragma once

#include <cstdint>
#include <string>

class CSciWindow;

bool IsWordChar(char c);  // "_", digits, ASCII letters
bool IsPathChar(char c);  // a word's characters and those between the elements of a path

enum class WordPart : int { whole = 0, before = 1, after = 2 };

// The word round, before or behind a byte offset, on its line, as far as `charTest` holds. False, and `word` empty,
// when there is none; reading the whole or what is behind, a refused character at `position` itself is none.
bool WordAt(const CSciWindow &window, intptr_t position, std::string &word, bool (*charTest)(char),
            WordPart part = WordPart::whole);
