// How a line of the build list is tinted.
#pragma once

#include <string_view>

enum class MessageTone { plain, warning, error };

// A guess from the text alone, cheap enough for every line that is painted: only lines that read as messages, or begin
// with the words of the program's own, have a tone.
MessageTone ToneOf(std::string_view line);
