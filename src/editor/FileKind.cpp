#include "editor/FileKind.h"

#include <span>

#include "app/Path.h"
#include "platform/PathCalls.h"

namespace {

constexpr struct {
    std::string_view extension;
    FileKind kind;
} kKinds[] = {
    {"c", FileKind::c},           {"cpp", FileKind::c},       {"cxx", FileKind::c},
    {"h", FileKind::c},           {"hpp", FileKind::c},       {"asm", FileKind::assembler},
    {"lst", FileKind::assembler}, {"s", FileKind::assembler}, {"casm", FileKind::assembler},
    {"inc", FileKind::assembler}, {"pas", FileKind::pascal},  {"bas", FileKind::basic},
};

constexpr std::string_view kHeaders[] = {"h", "hpp"};
constexpr std::string_view kSources[] = {"c", "cpp", "cxx"};

bool IsOneOf(std::string_view extension, std::span<const std::string_view> list) {
    for (const std::string_view each : list)
        if (EqualNoCase(extension, each)) return true;
    return false;
}

}  // namespace

FileKind FileKindOf(std::string_view path) {
    const std::string extension = CPath(path).GetExtension();
    for (const auto &row : kKinds)
        if (EqualNoCase(extension, row.extension)) return row.kind;
    return FileKind::other;
}

std::string CounterpartOf(const std::string &path) {
    const CPath parts(path);
    std::span<const std::string_view> candidates;
    if (IsOneOf(parts.GetExtension(), kSources)) candidates = kHeaders;
    if (IsOneOf(parts.GetExtension(), kHeaders)) candidates = kSources;
    for (const std::string_view extension : candidates) {
        const std::string candidate = parts.GetDirectory() + parts.GetTitle() + "." + std::string(extension);
        if (FileExists(candidate)) return candidate;
    }
    return {};
}
