// A paint engine that writes SVG: shapes as shapes, text as text, pictures as the files that they were.
#pragma once

#include "vector/engine/SvgText.h"
#include "vector/engine/VectorEngine.h"

#include <QHash>

namespace vector {

// The picture is shown larger by `scale` than its units tell.
class SvgEngine : public VectorEngine {
public:
    explicit SvgEngine(const QSizeF &page, double scale = 1) : VectorEngine(page, 1), shown_(page * scale) {}

    bool begin(QPaintDevice *) override;
    bool end() override;
    void drawRects(const QRectF *rects, int count) override;
    void drawEllipse(const QRectF &box) override;
    void drawPath(const QPainterPath &path) override;
    void drawPolygon(const QPointF *points, int count, PolygonDrawMode mode) override;
    using QPaintEngine::drawEllipse;
    using QPaintEngine::drawPolygon;
    using QPaintEngine::drawRects;

    void DrawLine(const TextPiece &piece) override;
    void DrawPicture(const QRectF &place, const PictureSource &picture) override;

    QByteArray File() const override { return out_.Bytes(); }

protected:
    void TransformChanged() override;
    void SetPen(const QPen &pen) override;
    void SetBrush(const QBrush &brush) override;
    void BeginClip(const QPainterPath &path) override;
    void EndClip() override { out_ << "</g>\n"; }
    void PutImage(const QRectF &place, const QImage &image) override;

private:
    QSizeF shown_;
    void EndShape();
    void DrawImageFile(const QRectF &place, quintptr identity, const QByteArray &mime,
                       const QByteArray &bytes);
    const QByteArray &FontAttributes(const TextFont &font, const QString &family);

    SvgText out_;
    SvgText transformAttribute_;    // of what is drawn under another transform than none
    SvgText stroke_, fill_;         // attributes
    QHash<quintptr, int> pictures_; // numbers of those already written
    QHash<TextFont, QByteArray> fonts_;
    int clipNumber_ = 0;
};

} // namespace vector
