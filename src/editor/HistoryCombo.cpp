#include "editor/HistoryCombo.h"

#include <QSignalBlocker>
#include <algorithm>
#include <istream>
#include <ostream>
#include <vector>

#include "app/Settings.h"
#include "framework/Text.h"

namespace {

constexpr int kMostKeys = 1000;  // of one list in the settings
constexpr const char *kSection = "Find";
constexpr const char *kBlanks = " \t\r\n\v\f";

template <class Number>
void WriteNumber(std::ostream &archive, Number value) {
    for (size_t byte = 0; byte < sizeof(Number); ++byte) archive.put(static_cast<char>(value >> (8 * byte)));
}

template <class Number>
Number ReadNumber(std::istream &archive) {
    Number value = 0;
    for (size_t byte = 0; byte < sizeof(Number); ++byte)
        value = static_cast<Number>(value | static_cast<Number>(archive.get() & 0xff) << (8 * byte));
    return value;
}

void WriteText(std::ostream &archive, const std::string &text) {
    WriteNumber(archive, static_cast<uint32_t>(text.size()));
    archive << text;
}

// In pieces: a length that is wrong must not ask for all memory.
std::string ReadText(std::istream &archive) {
    std::string text;
    char piece[4096];
    for (size_t left = ReadNumber<uint32_t>(archive); left > 0 && archive;) {
        archive.read(piece, static_cast<std::streamsize>(std::min(left, sizeof(piece))));
        text.append(piece, static_cast<size_t>(archive.gcount()));
        left -= static_cast<size_t>(archive.gcount());
    }
    return text;
}

}  // namespace

CHistoryCombo::CHistoryCombo(QWidget *parent, bool sorted) : CXTFlatComboBox(parent), sorted_(sorted) {
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    setCompleter(nullptr);  // it would change what is typed
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setFocusPolicy(Qt::StrongFocus);
}

void CHistoryCombo::SetMaxHistory(int count) {
    maxItems_ = std::max(count, 0);
    while (GetCount() > maxItems_) removeItem(maxItems_);
}

std::string CHistoryCombo::LastKey() const {
    if (!lastKey.empty()) return lastKey;
    return keyPrefix_.empty() ? "Last" : keyPrefix_;
}

// The very text, else one that differs in its case only.
int CHistoryCombo::FindItem(const std::string &text) const {
    const int exact = findText(ToQString(text), Qt::MatchExactly | Qt::MatchCaseSensitive);
    return exact >= 0 ? exact : FindStringExact(text);
}

void CHistoryCombo::ShowText(const std::string &text) {
    const int index = FindItem(text);
    if (index >= 0)
        SetCurSel(index);
    else if (isEditable())
        setEditText(ToQString(text));
}

std::string CHistoryCombo::Load(const std::string &prefix) {
    ResetContent();
    section_ = kSection;
    keyPrefix_ = prefix;
    lastKey.clear();
    saveLast = true;
    for (int i = 0; i < maxItems_; ++i) {
        const std::string text = GetProfileStringA(section_, ItemKey(i), "");
        if (text.empty()) break;
        CXTFlatComboBox::AddString(text);
    }
    if (sorted_) model()->sort(0);
    SetCurSel(-1);
    const std::string last = GetProfileStringA(section_, LastKey(), "");
    if (!last.empty()) ShowText(last);
    return last;
}

void CHistoryCombo::Save() {
    if (section_.empty()) return;
    const std::string text = FromQString(currentText());
    AddString(text);
    const int count = std::min(GetCount(), maxItems_ + 1);
    for (int i = 0; i < count; ++i) WriteUserString(section_, ItemKey(i), GetLBText(i));
    for (int i = count; i < kMostKeys && !GetProfileStringA(section_, ItemKey(i), "").empty(); ++i)
        UserSettings().User().DeleteKey(section_, ItemKey(i));
    if (saveLast) WriteUserString(section_, LastKey(), text);
}

int CHistoryCombo::AddString(const std::string &text) {
    if (text.find_first_not_of(kBlanks) == std::string::npos) return -1;
    const QSignalBlocker quiet(this);
    const QString item = ToQString(text);
    insertItem(0, item);
    for (int i = count() - 1; i > 0; --i)
        if (itemText(i) == item) removeItem(i);
    while (GetCount() > maxItems_) removeItem(maxItems_);
    setCurrentIndex(0);
    return 0;
}

void CHistoryCombo::Serialize(std::ostream &archive) {
    const int items = std::min(GetCount(), 0xffff);
    WriteNumber(archive, static_cast<uint16_t>(items));
    for (int i = 0; i < items; ++i) WriteText(archive, GetLBText(i));
    WriteText(archive, FromQString(currentText()));
}

bool CHistoryCombo::Serialize(std::istream &archive) {
    std::vector<std::string> items;
    for (int left = ReadNumber<uint16_t>(archive); left > 0 && archive; --left) items.push_back(ReadText(archive));
    const std::string text = ReadText(archive);
    if (!archive) return false;
    ResetContent();
    for (const std::string &item : items) CXTFlatComboBox::AddString(item);
    SetCurSel(-1);
    ShowText(text);
    return true;
}
