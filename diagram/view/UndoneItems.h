// Where on the surface a step was taken back or repeated.
#pragma once

#include "diagram/model/Item.h"

#include <QRectF>
#include <set>
#include <vector>

namespace diagram {

class Scene;

// Collects from Begin to TakeArea what the step touches.
class UndoneItems {
public:
    void Begin(const Scene &scene);
    void Note(const Item &item, Change what);
    void NoteGone(const Item &item);
    // What should be in sight (twips): all that was touched, where that has room in what is seen; else, and
    // where everything has moved because the page has grown, the touched item that lies nearest, or nothing
    // where one is in sight already. Nodes count before links, which follow them; hidden ones don't.
    QRectF TakeArea(Scene &scene, const QRectF &seen);

private:
    std::vector<QRectF> Areas(Scene &scene) const;

    bool collecting_ = false;
    QPointF grown_; // how far the page had grown before the step, twips
    std::set<ItemId> touched_;
    std::vector<QRectF> gone_; // where removed nodes stood
    std::vector<QRectF> goneLinks_;
};

} // namespace diagram
