#include "StatisticsFiles.h"

#include <algorithm>
#include <filesystem>

#include "platform/FileText.h"
#include "platform/NativePath.h"

namespace {

constexpr int kLastLevel = 13;  // from 0; the reader shows "..." there and nothing below

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool IsLetterOrDigit(char c) {
    return IsLetter(c) || (c >= '0' && c <= '9');
}

// The text with one "_" for each character that isn't taken.
template <typename Predicate>
std::string Tame(std::string_view text, Predicate isTaken) {
    std::string tame;
    for (const char c : text) {
        if (isTaken(c)) {
            tame += c;
        } else if ((static_cast<unsigned char>(c) & 0xC0) != 0x80) {  // no further byte of one character
            tame += '_';
        }
    }
    return tame;
}

std::string Head(const LinkedFunction &function) {
    return StatisticsName(function.name) + ":\"" + StatisticsFileName(function.file) +
           "\",line=" + std::to_string(std::max(0, function.line));
}

class CCallTree {
public:
    explicit CCallTree(const LinkStatistics &statistics) : functions_(statistics.functions) {}

    std::string Text(size_t mostItems) {
        for (const int root : Roots()) items_.push_back({root, -1, 0});
        const size_t roots = items_.size();
        for (size_t i = 0; i < items_.size(); ++i) Expand(i, mostItems);
        std::string text;
        for (size_t i = 0; i < roots; ++i) Write(i, text);
        return text;
    }

private:
    enum class Note { none, recursion, cut };
    struct Item {
        int function, parent, level;
        size_t firstChild = 0, childCount = 0;
        Note note = Note::none;
    };

    bool IsShown(int function) const { return !functions_[static_cast<size_t>(function)].file.empty(); }
    const std::vector<int> &Callees(int function) const { return functions_[static_cast<size_t>(function)].callees; }

    // Depth first from the lowest address on, the functions that are left last come from no function that is left
    // later: taken in the reverse order, a function that isn't reached yet is called by nobody or by its own cycle
    // only.
    std::vector<int> Roots() const {
        const int count = static_cast<int>(functions_.size());
        std::vector<bool> isCalled(functions_.size());
        for (int i = 0; i < count; ++i)
            for (const int callee : Callees(i))
                if (callee != i) isCalled[static_cast<size_t>(callee)] = true;

        std::vector<bool> seen(functions_.size());
        std::vector<int> left;
        std::vector<std::pair<int, size_t>> path;  // function, callees that were taken
        const auto walk = [&](int from, std::vector<int> *order) {
            if (seen[static_cast<size_t>(from)]) return false;
            seen[static_cast<size_t>(from)] = true;
            for (path = {{from, 0}}; !path.empty();) {
                auto &[function, taken] = path.back();
                if (taken == Callees(function).size()) {
                    if (order) order->push_back(function);
                    path.pop_back();
                } else if (const int callee = Callees(function)[taken++]; !seen[static_cast<size_t>(callee)]) {
                    seen[static_cast<size_t>(callee)] = true;
                    path.emplace_back(callee, 0);
                }
            }
            return true;
        };
        for (int i = 0; i < count; ++i) walk(i, &left);
        seen.assign(functions_.size(), false);
        std::vector<int> roots;
        for (auto function = left.rbegin(); function != left.rend(); ++function)
            if (walk(*function, nullptr)) roots.push_back(*function);

        std::erase_if(roots, [&](int root) {
            return !IsShown(root) ||
                   (functions_[static_cast<size_t>(root)].isData && !isCalled[static_cast<size_t>(root)]);
        });
        std::sort(roots.begin(), roots.end(), [&](int a, int b) {
            return std::pair(isCalled[static_cast<size_t>(a)], a) < std::pair(isCalled[static_cast<size_t>(b)], b);
        });
        return roots;
    }

    bool IsOnPath(int function, int item) const {
        for (; item >= 0; item = items_[static_cast<size_t>(item)].parent)
            if (items_[static_cast<size_t>(item)].function == function) return true;
        return false;
    }

    void Expand(size_t index, size_t mostItems) {
        const Item item = items_[index];
        if (item.note == Note::recursion || item.level == kLastLevel) return;
        std::vector<int> callees = Callees(item.function);
        std::erase_if(callees, [&](int callee) { return !IsShown(callee); });
        if (items_.size() + callees.size() > mostItems) {
            if (!callees.empty()) items_[index].note = Note::cut;
            return;
        }
        items_[index].firstChild = items_.size();
        items_[index].childCount = callees.size();
        for (const int callee : callees) {
            Item child{callee, static_cast<int>(index), item.level + 1};
            if (IsOnPath(callee, static_cast<int>(index))) child.note = Note::recursion;
            items_.push_back(child);
        }
    }

    void Write(size_t index, std::string &text) const {
        const Item &item = items_[index];
        const std::string indent(static_cast<size_t>(item.level), '\t');
        text += indent + Head(functions_[static_cast<size_t>(item.function)]) + "{";
        if (item.childCount > 0) {
            text += "\n";
            for (size_t i = 0; i < item.childCount; ++i) Write(item.firstChild + i, text);
            text += indent;
        }
        text += "}";
        if (item.note == Note::recursion) text += " // recursion";
        if (item.note == Note::cut) text += " // its calls are left out: the tree would get too large";
        text += "\n";
    }

    const std::vector<LinkedFunction> &functions_;
    std::vector<Item> items_;  // level by level
};

}  // namespace

std::string StatisticsName(std::string_view label) {
    std::string name = Tame(label, [](char c) { return IsLetterOrDigit(c) || c == '_'; });
    if (name.empty() || !(IsLetter(name.front()) || name.front() == '_')) name.insert(0, 1, '_');
    return name;
}

std::string StatisticsFileName(std::string_view native) {
    if (native.empty()) return {};
    std::string name;
    if (native.starts_with('/')) {
        name = "c:" + FromNativePath(native);  // no name begins with a separator
    } else {
        name = FromNativePath(std::filesystem::path(native).lexically_normal().string());
        if (!name.starts_with("..\\") && !name.starts_with(".\\")) name.insert(0, ".\\");
    }
    constexpr std::string_view kTaken = "_.~!)(-=@#$%^&+ \\/:";
    return Tame(name, [&](char c) { return IsLetterOrDigit(c) || kTaken.find(c) != std::string_view::npos; });
}

std::string CallTreeText(const LinkStatistics &statistics, size_t mostItems) {
    return CCallTree(statistics).Text(mostItems);
}

std::string FunctionInfoText(const LinkStatistics &statistics) {
    std::string text;
    for (const LinkedFunction &function : statistics.functions)
        text +=
            Head(function) + ",ram=" + std::to_string(function.ram) + ".0,rom=" + std::to_string(function.rom) + ";\n";
    return text + "#GLOBAL:\"\",line=0,ram=" + std::to_string(statistics.commonRam) + ".0,rom=0;\n";
}

bool WriteStatistics(const LinkStatistics &statistics, const std::string &tree, const std::string &stat) {
    if (ReplaceWholeFile(FromNativePath(tree), CallTreeText(statistics)) &&
        ReplaceWholeFile(FromNativePath(stat), FunctionInfoText(statistics)))
        return true;
    std::error_code ignored;
    std::filesystem::remove(tree, ignored);
    std::filesystem::remove(stat, ignored);
    return false;
}
