#include "framework/RecentList.h"

#include "framework/Text.h"
#include "platform/NativePath.h"
#include "platform/UserStore.h"

CRecentList::CRecentList(std::string section, std::string keyFormat)
    : section_(std::move(section)), keyFormat_(std::move(keyFormat)) {}

void CRecentList::Load(CUserStore &store) {
    store_ = &store;
    entries_.clear();
    for (size_t i = 1; i <= kEntries; ++i) {
        const auto name = store.ReadString(section_, FormatText(keyFormat_, {std::to_string(i)}));
        if (name && !name->empty()) entries_.push_back(*name);
    }
}

void CRecentList::Add(const std::string &name) {
    std::erase_if(entries_, [&](const std::string &entry) { return NamesOneFile(entry, name); });
    entries_.insert(entries_.begin(), name);
    if (entries_.size() > kEntries) entries_.resize(kEntries);
    Store();
}

void CRecentList::Remove(size_t index) {
    if (index >= entries_.size()) return;
    entries_.erase(entries_.begin() + static_cast<ptrdiff_t>(index));
    Store();
}

std::string CRecentList::MenuText(size_t index) const {
    QString name = ToQString(DisplayPath(entries_[index]));
    constexpr auto kShown = static_cast<qsizetype>(kShownCharacters);
    if (name.size() > kShown) {
        // The file's own name says most: the head gives way.
        const qsizetype tail =
            std::min(kShown - 4, std::max<qsizetype>(name.size() - name.lastIndexOf('/'), kShown / 2));
        name = name.left(kShown - 1 - tail) + QChar(0x2026) + name.right(tail);
    }
    return "&" + std::to_string(index + 1) + " " + FromQString(name.replace("&", "&&"));
}

void CRecentList::Store() const {
    if (!store_) return;
    if (!store_) return;
    for (size_t i = 1; i <= kEntries; ++i) {
        const std::string key = FormatText(keyFormat_, {std::to_string(i)});
        if (i <= entries_.size())
            store_->WriteString(section_, key, entries_[i - 1]);
        else
            store_->DeleteKey(section_, key);
    }
}
