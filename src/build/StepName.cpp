#include "build/StepName.h"

#include "framework/Text.h"

namespace {

constexpr char16_t kFirstKatakana = 0x30A1, kLastKatakana = 0x30F6;
constexpr char16_t kKatakanaBehindHiragana = 0x60;

// One form for all spellings that a reader takes for the same.
QString PlainForm(const std::string &name) {
    QString plain = ToQString(name).normalized(QString::NormalizationForm_KC).toCaseFolded();
    for (QChar &c : plain)
        if (c.unicode() >= kFirstKatakana && c.unicode() <= kLastKatakana)
            c = QChar(static_cast<char16_t>(c.unicode() - kKatakanaBehindHiragana));
    return plain;
}

}  // namespace

bool SameStepName(const std::string &a, const std::string &b) { return PlainForm(a) == PlainForm(b); }
