// Libraries that bring a source into the form that a toolsuite wants.
#pragma once

#include <string>

// Offers `file` to each converter library of the program directory in turn; the user is asked before one changes it.
void OfferConverters(const std::string &file);
