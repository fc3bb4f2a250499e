#include "framework/Icons.h"

#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>

#include "framework/Text.h"

namespace {

// Draws an SVG in which "currentColor" stands for the desktop's text colour.
class CDrawingEngine : public QIconEngine {
public:
    explicit CDrawingEngine(QByteArray drawing) : drawing_(std::move(drawing)) {}

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override {
        const QPalette palette = QApplication::palette();
        const QColor ink = palette.color(
            QPalette::Active, mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::WindowText);
        QByteArray drawing = drawing_;
        drawing.replace("currentColor", ink.name().toLatin1());
        QSvgRenderer renderer(drawing);
        const qreal opacity = painter->opacity();
        if (mode == QIcon::Disabled) painter->setOpacity(opacity * 0.35);
        renderer.render(painter, rect);
        painter->setOpacity(opacity);
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return picture;
    }

    QIconEngine *clone() const override { return new CDrawingEngine(drawing_); }

private:
    QByteArray drawing_;
};

}  // namespace

QIcon LoadIcon(const std::string &name) {
    if (name.empty()) return {};
    QFile file(":/icons/" + ToQString(name) + ".svg");
    if (!file.open(QIODevice::ReadOnly)) return {};
    return QIcon(new CDrawingEngine(file.readAll()));
}
