// First texts of new files. Each is whole: a source of that text assembles and links as a program that does nothing.
#pragma once

#include <string>

std::string NewSourceText(const std::string &title, const std::string &processor);
std::string NewHeaderText(const std::string &title);
