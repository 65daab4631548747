#include "diagram/view/Screen.h"

#include <QPainter>
#include <QRegion>

namespace diagram {

// A picture that was never whole is dropped, and the one before it kept.
void Screen::KeepFormer() {
    if (IsExact()) former_.emplace(Former{std::move(store_), place_});
    store_ = BackingStore();
}

bool Screen::Show(const ScreenPlace &place) {
    const bool same = place.xScale == place_.xScale && place.yScale == place_.yScale &&
                      place.seen.size() == place_.seen.size();
    if (!same && started_) KeepFormer();
    place_ = place;
    store_.Show(place.seen);
    return !IsExact() && store_.Missing().front() == place.seen;
}

void Screen::Update(const BackingStore::PaintArea &paint, const BackingStore::Slicing &slicing) {
    if (started_)
        store_.Update(paint, slicing);
    else
        store_.Update(paint);
    started_ = true;
    if (IsExact()) former_.reset();
}

void Screen::CopyTo(QPainter &painter, const QRect &area, const QColor &paper) const {
    store_.CopyTo(painter, area);
    QRegion missing;
    for (const QRect &rect : store_.Missing()) missing += rect & area;
    if (missing.isEmpty()) return;
    missing.translate(-place_.seen.topLeft());
    painter.save();
    painter.setClipRegion(missing, Qt::IntersectClip);
    painter.fillRect(missing.boundingRect(), paper);
    if (former_) CopyFormer(painter);
    painter.restore();
}

void Screen::CopyFormer(QPainter &painter) const {
    const ScreenPlace &from = former_->place;
    const double x = place_.xScale / from.xScale, y = place_.yScale / from.yScale;
    painter.translate(from.seen.x() * x - place_.seen.x(), from.seen.y() * y - place_.seen.y());
    painter.scale(x, y);
    former_->store.CopyTo(painter, from.seen);
}

} // namespace diagram
