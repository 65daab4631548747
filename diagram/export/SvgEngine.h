// A paint engine that writes SVG: shapes as shapes, text as text, pictures as the files that they were.
#pragma once

#include "diagram/export/SvgText.h"
#include "diagram/render/ContentTarget.h"

#include <QHash>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QRectF>

namespace diagram {

class SvgEngine : public QPaintEngine, public ContentTarget {
public:
    SvgEngine();

    bool begin(QPaintDevice *device) override;
    bool end() override;
    void updateState(const QPaintEngineState &changed) override;
    Type type() const override { return User; }
    void drawRects(const QRectF *rects, int count) override;
    void drawEllipse(const QRectF &box) override;
    void drawPath(const QPainterPath &path) override;
    void drawPolygon(const QPointF *points, int count, PolygonDrawMode mode) override;
    void drawLines(const QLineF *lines, int count) override;
    void drawImage(const QRectF &place, const QImage &image, const QRectF &part,
                   Qt::ImageConversionFlags flags) override;
    void drawPixmap(const QRectF &place, const QPixmap &pixmap, const QRectF &part) override;
    void drawTextItem(const QPointF &at, const QTextItem &text) override;
    using QPaintEngine::drawEllipse;
    using QPaintEngine::drawLines;
    using QPaintEngine::drawPolygon;
    using QPaintEngine::drawRects;

    void DrawLine(const TextPiece &piece) override;
    void DrawPicture(const QRectF &place, const diagram::Picture &picture) override;

    // What has been drawn, without the element around it.
    const std::string &Body() const { return out_.Text(); }

private:
    void SetPen(const QPen &pen);
    void SetBrush(const QBrush &brush);
    void SetClip(const QPainterPath &path, Qt::ClipOperation operation);
    void CloseGroups();
    void CatchUp();
    void EndShape();
    void DrawImageFile(const QRectF &place, quintptr identity, const QByteArray &mime,
                       const QByteArray &bytes);
    QByteArray FontAttributes(const Font &font, const QString &family);

    SvgText out_;
    QTransform transform_;
    QByteArray transformAttribute_; // of what is drawn under another transform than none
    QByteArray stroke_, fill_;      // attributes
    QHash<quintptr, int> pictures_; // numbers of those already written
    QHash<std::size_t, QByteArray> fonts_;
    int clips_ = 0;
    int groups_ = 0;
};

// The device for a painter on that engine; a unit is a twip.
class SvgDevice : public QPaintDevice {
public:
    explicit SvgDevice(const QSizeF &size) : size_(size) {}
    QPaintEngine *paintEngine() const override { return &engine_; }
    SvgEngine &Engine() { return engine_; }
    // The whole file.
    QByteArray File() const;

protected:
    int metric(PaintDeviceMetric metric) const override;

private:
    QSizeF size_;
    mutable SvgEngine engine_;
};

} // namespace diagram
