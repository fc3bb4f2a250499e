#include "PdfBook.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QImageReader>
#include <QPainter>
#include <QPdfWriter>
#include <QTextBlock>
#include <QTextDocument>
#include <algorithm>
#include <cmath>
#include <map>

#include "PdfMarks.h"

namespace {

constexpr int kResolution = 1200;  // of the layout, dots an inch
constexpr double kCssDpi = 96;     // what a "px" of the style means
constexpr double kPicturesDpi = 150, kTextWidthPx = 604, kPictureMarginPx = 8;
constexpr double kSideMm = 25, kTopMm = 20, kBottomMm = 16, kFooterMm = 12;
constexpr const char *kTextFont = "DejaVu Sans";
constexpr const char *kGrey = "#59636e";

constexpr const char *kStyle = R"(
p { margin-top: 0px; margin-bottom: 7px; line-height: 135%; }
li { line-height: 130%; margin-bottom: 3px; }
h2 { font-size: 16pt; margin-top: 26px; margin-bottom: 9px; color: #17324d; }
h3 { font-size: 11.5pt; margin-top: 15px; margin-bottom: 6px; color: #17324d; }
code { font-family: "DejaVu Sans Mono"; font-size: 8.5pt; }
pre { font-family: "DejaVu Sans Mono"; font-size: 8.5pt; background-color: #f1f3f5; }
table { border-collapse: collapse; margin-top: 4px; margin-bottom: 12px; }
th { background-color: #e9edf1; }
th, td { border: 1px solid #b4bcc4; padding: 3px 6px; }
a { color: #0a58b0; text-decoration: none; }
)";

double Dots(double mm) { return mm / 25.4 * kResolution; }
double Points(double dots) { return dots / kResolution * 72; }

std::string Image(const QString &file, const std::string &) {
    const int natural = QImageReader(file).size().width();
    const int width = static_cast<int>(std::min(kTextWidthPx, natural * kCssDpi / kPicturesDpi));
    return "<img src=\"" + EscapeHtml(file.toStdString()) + "\" width=\"" + std::to_string(width) + "\">";
}

QFont Font(double points, bool bold = false) {
    QFont font(kTextFont);
    font.setPointSizeF(points);
    font.setBold(bold);
    return font;
}

class CPdfBook {
public:
    CPdfBook(const CManuscript &manuscript, const std::string &version)
        : manuscript_(manuscript), version_(QString::fromStdString(version)), buffer_(&bytes_), writer_(&buffer_) {
        writer_.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait,
                                          QMarginsF(kSideMm, kTopMm, kSideMm, kBottomMm), QPageLayout::Millimeter));
        writer_.setResolution(kResolution);
        writer_.setTitle(QString::fromStdString(manuscript.Title()));
        writer_.setCreator("Thornwell IDE");
        width_ = writer_.width();
        height_ = writer_.height() - Dots(kFooterMm);
    }

    QByteArray Write() {
        LayOut();
        contentsPages_ = PaintContents(nullptr);
        FindPlaces();
        buffer_.open(QIODevice::WriteOnly);
        QPainter painter;
        if (!painter.begin(&writer_)) return {};
        painter.setRenderHint(QPainter::LosslessImageRendering);
        PaintContents(&painter);
        for (int page = 0; page < text_.pageCount(); ++page) {
            writer_.newPage();
            PaintTextPage(painter, page);
            PaintFooter(painter, contentsPages_ + page);
        }
        if (!painter.end()) return {};
        CollectTextLinks();
        return AddPdfMarks(bytes_, marks_, links_);
    }

private:
    void LayOut() {
        text_.documentLayout()->setPaintDevice(&writer_);
        text_.setDefaultFont(Font(9.5));
        text_.setDefaultStyleSheet(kStyle);
        text_.setDocumentMargin(0);
        text_.setHtml(QString::fromStdString(manuscript_.Html(Image)));
        for (QTextBlock block = text_.begin(); block.isValid(); block = block.next()) {
            if (!IsPicture(block)) continue;
            QTextBlockFormat format = block.blockFormat();
            format.setLineHeight(0, QTextBlockFormat::SingleHeight);  // the text's would leave a gap below
            format.setTopMargin(kPictureMarginPx);
            format.setBottomMargin(kPictureMarginPx);
            QTextCursor(block).setBlockFormat(format);
        }
        do text_.setPageSize(QSizeF(width_, height_));  // which lays out the whole text afresh
        while (MoveOneLonelyHeading());
    }

    static bool IsPicture(const QTextBlock &block) {
        return !block.begin().atEnd() && block.begin().fragment().charFormat().isImageFormat();
    }

    static bool IsHeading(const QTextBlock &block) { return block.blockFormat().headingLevel() > 0; }

    double TopOf(const QTextBlock &block) const {
        const double y = text_.documentLayout()->blockBoundingRect(block).top();
        return block.layout()->lineCount() > 0 ? y + block.layout()->lineAt(0).y() : y;
    }
    int PageOf(double y) const { return static_cast<int>(y / height_); }

    // A heading whose text begins on the next page, or that only one line of text would follow, goes there with it.
    bool MoveOneLonelyHeading() {
        for (QTextBlock block = text_.begin(); block.isValid(); block = block.next()) {
            if (!IsHeading(block) || IsHeading(block.previous())) continue;
            if (block.blockFormat().pageBreakPolicy() != QTextFormat::PageBreak_Auto) continue;
            QTextBlock follower = block.next();
            while (follower.isValid() && IsHeading(follower)) follower = follower.next();
            if (!follower.isValid()) continue;
            const double first = TopOf(follower), line = follower.layout()->lineAt(0).height();
            const double needed = IsPicture(follower) ? line / 2 : line * 2;  // a picture is never split
            if (PageOf(first + needed) == PageOf(TopOf(block))) continue;
            QTextBlockFormat format = block.blockFormat();
            format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
            QTextCursor(block).setBlockFormat(format);
            return true;
        }
        return false;
    }

    void FindPlaces() {
        size_t next = 0;
        const auto &headings = manuscript_.Headings();
        for (QTextBlock block = text_.begin(); block.isValid() && next < headings.size(); block = block.next()) {
            if (!IsHeading(block)) continue;
            const Heading &heading = headings[next++];
            const double top = TopOf(block);
            const PdfPlace place{contentsPages_ + PageOf(top),
                                 Points(Dots(kTopMm) + std::fmod(top, height_) - Dots(3))};
            places_[heading.slug] = place;
            marks_.push_back({heading.level, heading.text, place});
        }
    }

    // Title and table of contents. Without a painter it only counts its pages.
    int PaintContents(QPainter *painter) {
        const auto line = [this](const QFont &font) { return QFontMetricsF(font, &writer_).height(); };
        const auto text = [&](const QFont &font, const QRectF &place, int flags, const QString &words) {
            if (!painter) return;
            painter->setFont(font);
            painter->drawText(place, flags, words);
        };
        const QString title = QString::fromStdString(manuscript_.Title());
        const QString summary = QString::fromStdString(manuscript_.Summary());
        double y = Dots(12);
        text(Font(26, true), {0, y, width_, line(Font(26, true))}, Qt::AlignLeft, title);
        y += line(Font(26, true)) + Dots(3);
        const QRectF room(0, y, width_, height_);
        const QFont plain = Font(11);
        text(plain, room, Qt::AlignLeft | Qt::TextWordWrap, summary);
        y += QFontMetricsF(plain, &writer_).boundingRect(room, Qt::AlignLeft | Qt::TextWordWrap, summary).height();
        y += Dots(3);
        if (painter) painter->setPen(QColor(kGrey));
        text(plain, {0, y, width_, line(plain)}, Qt::AlignLeft, "Version " + version_);
        if (painter) painter->setPen(Qt::black);
        y += line(plain) + Dots(14);
        text(Font(16, true), {0, y, width_, line(Font(16, true))}, Qt::AlignLeft, "Contents");
        y += line(Font(16, true)) + Dots(3);

        int page = 0;
        if (painter) PaintFooter(*painter, page);
        for (const Heading &heading : manuscript_.Headings()) {
            if (heading.level > 3) continue;
            const bool chapter = heading.level == 2;
            const QFont font = Font(chapter ? 10 : 9, chapter);
            if (chapter) y += Dots(1.2);
            if (y + line(font) > height_) {
                ++page;
                y = 0;
                if (painter) {
                    writer_.newPage();
                    PaintFooter(*painter, page);
                }
            }
            if (painter) PaintEntry(*painter, heading, font, page, y);
            y += line(font) + Dots(0.4);
        }
        return page + 1;
    }

    void PaintEntry(QPainter &painter, const Heading &heading, const QFont &font, int page, double y) {
        const QFontMetricsF metrics(font, &writer_);
        const PdfPlace target = places_.at(heading.slug);
        const QString words = QString::fromStdString(heading.text), number = QString::number(target.page + 1);
        const double left = heading.level == 2 ? 0 : Dots(6), gap = Dots(2);
        const QRectF row(left, y, width_ - left, metrics.height());
        painter.setFont(font);
        painter.drawText(row, Qt::AlignLeft, words);
        painter.drawText(row, Qt::AlignRight, number);

        const double from = left + metrics.horizontalAdvance(words) + gap;
        const double to = width_ - metrics.horizontalAdvance(number) - gap;
        painter.setPen(QPen(QColor(kGrey), Dots(0.2), Qt::DotLine));
        painter.drawLine(QPointF(from, y + metrics.ascent()), QPointF(to, y + metrics.ascent()));
        painter.setPen(Qt::black);
        AddLink(page, row, target);
    }

    void PaintTextPage(QPainter &painter, int page) {
        painter.save();
        painter.translate(0, -page * height_);
        QAbstractTextDocumentLayout::PaintContext context;
        context.clip = QRectF(0, page * height_, width_, height_);
        context.palette.setColor(QPalette::Text, Qt::black);
        painter.setClipRect(context.clip);
        text_.documentLayout()->draw(&painter, context);
        painter.restore();
    }

    void PaintFooter(QPainter &painter, int page) {
        const QFont font = Font(8.5);
        const QRectF room(0, height_, width_, Dots(kFooterMm));
        painter.save();
        painter.setFont(font);
        painter.setPen(QColor(kGrey));
        painter.drawText(room, Qt::AlignLeft | Qt::AlignBottom, writer_.title());
        painter.drawText(room, Qt::AlignRight | Qt::AlignBottom, QString::number(page + 1));
        painter.restore();
    }

    void CollectTextLinks() {
        for (QTextBlock block = text_.begin(); block.isValid(); block = block.next()) {
            for (auto it = block.begin(); !it.atEnd(); ++it) {
                const QString href = it.fragment().charFormat().anchorHref();
                if (href.startsWith('#')) AddFragmentLinks(block, it.fragment(), places_.at(href.mid(1).toStdString()));
            }
        }
    }

    void AddFragmentLinks(const QTextBlock &block, const QTextFragment &fragment, const PdfPlace &target) {
        const int from = fragment.position() - block.position(), to = from + fragment.length();
        const QPointF origin = text_.documentLayout()->blockBoundingRect(block).topLeft();
        for (int i = 0; i < block.layout()->lineCount(); ++i) {
            const QTextLine line = block.layout()->lineAt(i);
            const int first = std::max(from, line.textStart());
            const int last = std::min(to, line.textStart() + line.textLength());
            if (first >= last) continue;
            const double x = line.cursorToX(first), y = origin.y() + line.y();
            const QRectF place(origin.x() + x, std::fmod(y, height_), line.cursorToX(last) - x, line.height());
            AddLink(contentsPages_ + PageOf(y), place, target);
        }
    }

    void AddLink(int page, const QRectF &place, const PdfPlace &target) {
        const QRectF shifted = place.translated(Dots(kSideMm), Dots(kTopMm));
        links_.push_back({page, QRectF(Points(shifted.x()), Points(shifted.y()), Points(shifted.width()),
                                       Points(shifted.height())), target});
    }

    const CManuscript &manuscript_;
    QString version_;
    QByteArray bytes_;
    QBuffer buffer_;
    QPdfWriter writer_;
    QTextDocument text_;
    double width_ = 0, height_ = 0;  // of the text on a page, dots
    int contentsPages_ = 0;
    std::map<std::string, PdfPlace> places_;  // by slug
    std::vector<PdfMark> marks_;
    std::vector<PdfLink> links_;
};

}  // namespace

QByteArray MakePdfBook(const CManuscript &manuscript, const std::string &version) {
    return CPdfBook(manuscript, version).Write();
}
