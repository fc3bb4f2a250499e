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
    CDrawingEngine(QString name, QByteArray drawing) : name_(std::move(name)), drawing_(std::move(drawing)) {}

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override {
        QByteArray drawing = drawing_;
        drawing.replace("currentColor", InkFor(mode).name().toLatin1());
        QSvgRenderer renderer(drawing);
        const qreal opacity = painter->opacity();
        if (mode == QIcon::Disabled) painter->setOpacity(opacity * 0.35);
        renderer.render(painter, rect);
        painter->setOpacity(opacity);
    }

    // A tool bar asks for its pictures at each painting: each is drawn once.
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override {
        const QString key = QString("drawing/%1/%2x%3/%4/%5")
                                .arg(name_).arg(size.width()).arg(size.height()).arg(mode).arg(InkFor(mode).name());
        QPixmap picture;
        if (QPixmapCache::find(key, &picture)) return picture;
        picture = QPixmap(size);
        picture.fill(Qt::transparent);
        {
            QPainter painter(&picture);
            paint(&painter, QRect(QPoint(), size), mode, state);
        }
        QPixmapCache::insert(key, picture);
        return picture;
    }

    QIconEngine *clone() const override { return new CDrawingEngine(name_, drawing_); }

private:
    static QColor InkFor(QIcon::Mode mode) {
        return QApplication::palette().color(
            QPalette::Active, mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::WindowText);
    }

    QString name_;
    QByteArray drawing_;
};

}  // namespace

QIcon LoadIcon(const std::string &name) {
    if (name.empty()) return {};
    const QString drawing = ToQString(name);
    QFile file(":/icons/" + drawing + ".svg");
    if (!file.open(QIODevice::ReadOnly)) return {};
    return QIcon(new CDrawingEngine(drawing, file.readAll()));
}
