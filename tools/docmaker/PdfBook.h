// A manuscript as a book of A4 pages: title and contents, then the text, with page numbers, outline and links.
#pragma once

#include <QByteArray>

#include "Manuscript.h"

// Needs a QGuiApplication. Empty when the pages can't be written.
QByteArray MakePdfBook(const CManuscript &manuscript, const std::string &version);
