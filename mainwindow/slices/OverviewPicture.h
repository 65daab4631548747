// A small picture of a whole slice, painted bit by bit when the event loop has nothing else to do.
#pragma once

#include "diagram/render/Renderer.h"

#include <functional>
#include <QImage>
#include <QObject>
#include <QTimer>

namespace mainwindow {

class OverviewPicture : public QObject {
    Q_OBJECT
public:
    explicit OverviewPicture(QObject *parent);
    // While that says true, nothing is painted.
    void WaitWhile(std::function<bool()> isBusy) { isBusy_ = std::move(isBusy); }
    ~OverviewPicture() override;

    // Begins to paint `area` (twips) of the scene, which must live until Whole or Forget, onto that many
    // device pixels. The former picture stays until the new one is whole.
    void Begin(diagram::Scene &scene, const QRectF &area, const QSize &pixels);
    bool IsPainting() const { return scene_; }
    // Neither picture nor work is left.
    void Forget();
    // The last whole picture and the area that it shows; null before the first.
    const QImage &Image() const { return image_; }
    const QRectF &Area() const { return area_; }

Q_SIGNALS:
    void Whole();

private:
    void Paint();
    void PaintBand();

    diagram::Renderer renderer_;
    QTimer idle_;
    std::function<bool()> isBusy_ = [] { return false; };
    diagram::Scene *scene_ = nullptr; // null: nothing is to be done
    QImage image_, next_;
    QRectF area_, nextArea_;
    int row_ = 0; // the first of `next_` that isn't painted
};

} // namespace mainwindow
