#include "TagOutput.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string_view>

#include "platform/NativeFile.h"

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kOwnExtensions[] = {".brws", ".gbrws", ".proto"};
constexpr std::string_view kMark = "!_TAG_";  // every tag file's first line begins so
constexpr std::string_view kHeader =
    "!_TAG_FILE_FORMAT\t2\t/extended format; --format=1 will not append ;\" to lines/\n"
    "!_TAG_FILE_SORTED\t1\t/0=unsorted, 1=sorted, 2=foldcase/\n";

enum class Content { none, tags, other };

Content ContentOf(const std::string &path) {
    std::error_code failure;
    const fs::file_status status = fs::status(path, failure);
    if (!fs::exists(status)) return Content::none;
    if (!fs::is_regular_file(status)) return Content::other;
    std::string start(kMark.size(), '\0');
    std::ifstream file(path, std::ios::binary);
    file.read(start.data(), static_cast<std::streamsize>(start.size()));
    if (file.gcount() == 0) return file.is_open() ? Content::none : Content::other;
    return start == kMark ? Content::tags : Content::other;
}

}  // namespace

std::string TagFileLine(std::string_view name, const std::string &file, int line, char kind) {
    if (file.find_first_of("\t\r\n") != std::string::npos) return {};
    std::string text;
    text.reserve(name.size() + file.size() + 16);
    text.append(name).append("\t").append(file).append("\t").append(std::to_string(line)).append(";\"\t");
    text += kind;
    text += '\n';
    return text;
}

void DropDamagedOutput(const std::string &path) {
    const std::string extension = fs::path(path).extension().string();
    if (std::ranges::find(kOwnExtensions, extension) == std::end(kOwnExtensions)) return;
    std::error_code failure;
    if (fs::is_regular_file(path, failure) && ContentOf(path) == Content::other) fs::remove(path, failure);
}

bool WriteTagLines(const std::string &path, bool append, std::vector<std::string> lines) {
    const Content content = ContentOf(path);
    if (content == Content::other) return false;
    std::ranges::sort(lines);
    size_t size = kHeader.size();
    for (const std::string &line : lines) size += line.size();
    std::string text;
    text.reserve(size);
    append = append && content == Content::tags;
    if (!append) text = kHeader;
    for (const std::string &line : lines) text += line;
    if (!append) return ReplaceNativeFile(path, text);
    std::ofstream file(path, std::ios::binary | std::ios::app);
    file << text;
    file.close();
    return !file.fail();
}
