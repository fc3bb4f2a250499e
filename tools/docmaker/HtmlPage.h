// A manuscript as one web page that needs no other file: style and pictures are inside.
#pragma once

#include <QByteArray>

#include "Manuscript.h"

QByteArray MakeHtmlPage(const CManuscript &manuscript, const std::string &version);
