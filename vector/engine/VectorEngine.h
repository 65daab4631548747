// What the paint engines that write vector files share: the painter's transform, clips that nest, pictures
// and texts that Qt draws itself, and the device that they stand on.
#pragma once

#include "vector/engine/ContentTarget.h"

#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainterPath>
#include <QPen>
#include <QTransform>

namespace vector {

class VectorEngine : public QPaintEngine, public ContentTarget {
public:
    // `page` in units of the painter; the drawing is finer by `scale` than in its units (Units.h).
    VectorEngine(const QSizeF &page, double scale) : QPaintEngine(AllFeatures), page_(page), scale_(scale) {}

    Type type() const override { return User; }
    void updateState(const QPaintEngineState &changed) override;
    void drawLines(const QLineF *lines, int count) override;
    void drawImage(const QRectF &place, const QImage &image, const QRectF &part,
                   Qt::ImageConversionFlags flags) override;
    void drawPixmap(const QRectF &place, const QPixmap &pixmap, const QRectF &part) override;
    void drawTextItem(const QPointF &at, const QTextItem &text) override;
    using QPaintEngine::drawLines;

    const QSizeF &Page() const { return page_; }
    double Scale() const { return scale_; }
    // The whole file, once the painter has ended.
    virtual QByteArray File() const = 0;

protected:
    const QTransform &Transform() const { return transform_; }
    virtual void TransformChanged() {}
    virtual void SetPen(const QPen &pen) = 0; // after changes of the transform too
    virtual void SetBrush(const QBrush &brush) = 0;
    virtual void BeginClip(const QPainterPath &path) = 0; // in units of the page; within the clips before it
    virtual void EndClip() = 0;                           // the last one
    virtual void PutImage(const QRectF &place, const QImage &image) = 0;

    void EndClips();
    int Clips() const { return clips_; }
    // Takes over the transform and the clip of the painter, as it does itself before it draws. To be called
    // before anything is drawn without it; pens and brushes aren't taken over.
    void CatchUp();
    // How many pixels a picture in such a place can use: kFinerThanScreen for each of the screen.
    QSizeF PixelsFor(const QRectF &place) const;

private:
    void SetClip(const QPainterPath &path, Qt::ClipOperation operation);

    QSizeF page_;
    double scale_;
    QTransform transform_;
    int clips_ = 0;
};

// The device for a painter on such an engine.
class VectorDevice : public QPaintDevice {
public:
    explicit VectorDevice(VectorEngine &engine) : engine_(engine) {}
    QPaintEngine *paintEngine() const override { return &engine_; }

protected:
    int metric(PaintDeviceMetric metric) const override;

private:
    VectorEngine &engine_;
};

} // namespace vector
