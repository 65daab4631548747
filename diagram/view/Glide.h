// Items on their way from where they were to where they are. Drawn only: the model has the new places from
// the start.
#pragma once

#include "diagram/geometry/Point.h"
#include "diagram/model/Routing.h"
#include "diagram/model/SurfaceObserver.h"

#include <memory>
#include <QHash>
#include <QRectF>
#include <QVariantAnimation>
#include <QWidget>
#include <vector>

namespace diagram {

class Scene;
class Surface;
class SurfaceView;

// Where the items of a surface are, by their identity. Twips.
struct ItemPlaces {
    QHash<ItemId, QRectF> nodes;
    QHash<ItemId, std::vector<Point>> routes;
};
ItemPlaces PlacesOf(const Surface &surface);

// The route between two others at `share` of the way from the first to the second: that of 0 is the first,
// that of 1 the second.
std::vector<Point> Between(const std::vector<Point> &from, const std::vector<Point> &to, double share);

// A copy of a surface whose items stand somewhere between the places before and those they have now. What
// wasn't there before stands still.
class GlidingCopy {
public:
    GlidingCopy(Surface &surface, const ItemPlaces &before);
    ~GlidingCopy();

    const Surface &At(double share);
    Scene &TheScene() { return *scene_; }

private:
    struct Move;

    std::unique_ptr<Surface> copy_;
    std::unique_ptr<RoutesAsTold> told_;
    std::unique_ptr<Scene> scene_;
    std::vector<Move> moves_;
};

// Covers the viewport while it lasts; input goes to the view, and ends it, as does every change of the model.
class Glide : public QWidget, private SurfaceObserver {
public:
    // More items than so many aren't worth the time that their frames take.
    static constexpr int kMostItems = 600;

    // Begins one from the places before, unless the desktop wants no motion, nothing has moved or there are
    // very many items.
    static void Begin(SurfaceView &view, const ItemPlaces &before);
    static bool GoesOnIn(const SurfaceView &view);
    ~Glide() override;

protected:
    void paintEvent(QPaintEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    Glide(SurfaceView &view, const ItemPlaces &before, int milliseconds);
    void ItemAdded(Item &) override { Finish(); }
    void ItemChanged(Item &, Change) override { Finish(); }
    void ItemRemoved(Item &) override { Finish(); }
    void SurfaceChanged(Change) override { Finish(); }
    void Cleared() override { Finish(); }
    void Finish();

    SurfaceView &view_;
    Surface &surface_; // outlives what the view is made of
    GlidingCopy copy_;
    QVariantAnimation animation_;
};

} // namespace diagram
