// The text of printed lines.
#pragma once

#include <ctime>
#include <string>
#include <string_view>

// `text` with its codes replaced: &D the date and &T the time of `now` as the user's language writes them, &F `file`,
// &P `page`. Any other "&" stays as it is.
std::string ExpandHeaderText(std::string_view text, int page, std::string_view file, const std::tm &now);

// `line` up to its line end with `tabSize` blanks, at least one, for each tab, wherever it stands. What can't be seen
// in `limit` bytes is left out.
std::string ExpandTabs(std::string_view line, int tabSize, size_t limit = std::string::npos);
