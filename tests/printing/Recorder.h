// A device that keeps the texts drawn on it, with their places.
#pragma once

#include <QPaintDevice>
#include <QPaintEngine>
#include <QString>
#include <vector>

struct DrawnText {
    QString text;
    QPointF at;  // where its base line begins
};

class CRecorder : public QPaintDevice {
public:
    std::vector<DrawnText> texts;

    QPaintEngine *paintEngine() const override { return &engine_; }

protected:
    int metric(PaintDeviceMetric metric) const override {
        switch (metric) {
            case PdmWidth:
            case PdmHeight:
                return 20000;
            case PdmDevicePixelRatio:
                return 1;
            case PdmDevicePixelRatioScaled:
                return static_cast<int>(devicePixelRatioFScale());
            default:
                return 96;
        }
    }

private:
    class CEngine : public QPaintEngine {
    public:
        explicit CEngine(std::vector<DrawnText> &texts) : QPaintEngine(AllFeatures), texts_(texts) {}
        bool begin(QPaintDevice *) override { return true; }
        bool end() override { return true; }
        void updateState(const QPaintEngineState &) override {}
        void drawPixmap(const QRectF &, const QPixmap &, const QRectF &) override {}
        void drawTextItem(const QPointF &at, const QTextItem &item) override { texts_.push_back({item.text(), at}); }
        Type type() const override { return User; }

    private:
        std::vector<DrawnText> &texts_;
    };
    mutable CEngine engine_{texts};
};
