// What a source file is, by its extension.
#pragma once

#include <string>
#include <string_view>

enum class FileKind : int { other, c, assembler, pascal, basic };

inline constexpr int kFileKinds = 5;

FileKind FileKindOf(std::string_view path);  // without regard to case

// The header of a C source file or the source file of a header: the first that exists beside it. Empty when there is
// none.
std::string CounterpartOf(const std::string &path);
