#include "widgets/ReadableColour.h"

#include <QPalette>
#include <algorithm>
#include <cmath>

namespace {

constexpr double kEnoughContrast = 4.5;
constexpr double kMiddleLuminance = 0.179;  // of a ground on which black and white are read equally well
constexpr int kSteps = 20;                  // from a colour to black or white

double LinearPart(double part) {
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double LuminanceOf(const QColor &colour) {
    return 0.2126 * LinearPart(colour.redF()) + 0.7152 * LinearPart(colour.greenF()) +
           0.0722 * LinearPart(colour.blueF());
}

QColor Mix(const QColor &from, const QColor &to, int step) {
    const auto mix = [step](int a, int b) { return a + (b - a) * step / kSteps; };
    return QColor(mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue()));
}

}  // namespace

double ContrastOf(const QColor &a, const QColor &b) {
    const auto [darker, lighter] = std::minmax({LuminanceOf(a), LuminanceOf(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor ReadableColour(const QColor &colour, const QColor &ground) {
    const QColor end = LuminanceOf(ground) < kMiddleLuminance ? Qt::white : Qt::black;
    for (int step = 0; step < kSteps; ++step) {
        const QColor mixed = Mix(colour, end, step);
        if (ContrastOf(mixed, ground) >= kEnoughContrast) return mixed;
    }
    return end;
}

bool HasDarkGround(const QPalette &palette) {
    return palette.color(QPalette::Base).lightness() < palette.color(QPalette::Text).lightness();
}
