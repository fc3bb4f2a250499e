// Text colours that can be read on the ground that they stand on.
#pragma once

#include <QColor>

class QPalette;

// `colour`, made lighter or darker as far as it needs to be read on `ground`: a contrast of at least 4.5 to 1.
QColor ReadableColour(const QColor &colour, const QColor &ground);

// Whether rows and cells are darker than their text.
bool HasDarkGround(const QPalette &palette);

// From 1, for equal colours, to 21, for black on white.
double ContrastOf(const QColor &a, const QColor &b);
