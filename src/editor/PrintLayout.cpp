#include "editor/PrintLayout.h"

#include <algorithm>
#include <limits>
#include <optional>

#include "platform/PathCalls.h"

namespace {

constexpr double kMmPerInch = 25.4;
constexpr double kMostPixels = 1e8;  // wider than any paper, and sums of it stay numbers

int ToPixels(double value) {
    return static_cast<int>(std::clamp(value, 0.0, kMostPixels));
}

// Nothing for an unknown unit.
std::optional<int> MarginInPixels(const std::string &unit, int pixelsPerInch, double margin) {
    if (EqualNoCase(unit, CPrintSettings::kMillimetres)) return ToPixels(pixelsPerInch * margin / kMmPerInch);
    if (EqualNoCase(unit, CPrintSettings::kInches)) return ToPixels(pixelsPerInch * margin);
    if (EqualNoCase(unit, CPrintSettings::kPixels)) return ToPixels(margin);
    return std::nullopt;
}

}  // namespace

void PrintMargins::Take(const CPrintSettings &settings, const PrintFigures &figures) {
    const auto take = [&settings](int &margin, int pixelsPerInch, double value) {
        margin = MarginInPixels(settings.unit, pixelsPerInch, value).value_or(margin);
    };
    take(left, figures.logPixelsX, settings.left);
    take(right, figures.logPixelsX, settings.right);
    take(top, figures.logPixelsY, settings.top);
    take(bottom, figures.logPixelsY, settings.bottom);
}

CPrintLayout::CPrintLayout(const CPrintSettings &settings, const PrintMargins &margins, const PrintFigures &figures,
                           int fontSize, int screenPixels)
    : margins_(margins),
      pageWidth_(ToPixels(figures.logPixelsX * figures.horzSize / kMmPerInch)),
      pageHeight_(ToPixels(figures.logPixelsY * figures.vertSize / kMmPerInch)),
      header_(!settings.header.empty()),
      footer_(!settings.footer.empty()),
      scale_(static_cast<float>(figures.logPixelsY) / static_cast<float>(std::max(1, screenPixels))),
      fontHeight_(std::max(1, static_cast<int>(static_cast<float>(fontSize) * scale_))),
      lineHeight_(fontHeight_ * 6 / 5) {
    DropMarginsWithoutRoom();
    const double marginsInMm = (margins_.top + margins_.bottom) * kMmPerInch / figures.logPixelsY;
    const int usableMm = static_cast<int>(figures.vertSize - marginsInMm);
    const int lines = static_cast<int>(usableMm / kMmPerInch * figures.logPixelsY / lineHeight_);
    linesPerPage_ = std::max(lines, 1 + header_ + footer_);
}

void CPrintLayout::DropMarginsWithoutRoom() {
    const int rows = 1 + header_ + footer_;
    if (pageHeight_ - margins_.top - margins_.bottom < rows * lineHeight_) margins_.top = margins_.bottom = 0;
    if (pageWidth_ - margins_.left - margins_.right < lineHeight_) margins_.left = margins_.right = 0;
}

int CPrintLayout::PageCount(intptr_t lineCount) const {
    const intptr_t pages = (lineCount + BodyLines() - 1) / BodyLines();
    return static_cast<int>(std::clamp<intptr_t>(pages, 1, std::numeric_limits<int>::max()));
}

QRect CPrintLayout::Row(int row) const {
    return {margins_.left, margins_.top + row * lineHeight_, pageWidth_ - margins_.left - margins_.right, lineHeight_};
}

QRect CPrintLayout::FooterRow() const {
    return {margins_.left, pageHeight_ - margins_.bottom - lineHeight_, Row(0).width(), lineHeight_};
}
