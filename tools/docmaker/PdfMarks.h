// What a reader of a PDF finds his way by: the outline beside the pages, and links in them.
#pragma once

#include <QByteArray>
#include <QRectF>
#include <string>
#include <vector>

struct PdfPlace {
    int page = 0;  // from 0
    double y = 0;  // points from the page's upper edge
};

struct PdfMark {
    int level;  // of the heading; the outline nests by it
    std::string text;
    PdfPlace place;
};

struct PdfLink {
    int page;      // from 0
    QRectF place;  // points from the page's upper left corner
    PdfPlace target;
};

// `pdf` with outline and links, and without what differs between two equal documents: times and random marks. Throws
// std::exception when `pdf` is no sound PDF.
QByteArray AddPdfMarks(const QByteArray &pdf, const std::vector<PdfMark> &marks, const std::vector<PdfLink> &links);
