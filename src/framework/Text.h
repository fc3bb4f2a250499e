// The border between the model's UTF-8 text and Qt's.
#pragma once

#include <QString>
#include <string>
#include <string_view>
#include <vector>

QString ToQString(std::string_view text);
std::string FromQString(const QString &text);

// `format` with each "%s", "%d" and "%ld" replaced by the next of `values` and "%%" by "%". Missing values are empty,
// further ones are left out, so that a translator's slip never reads foreign memory.
std::string FormatText(std::string_view format, const std::vector<std::string> &values);
