// The picture that the view shows: exact where it is painted already, and elsewhere what was painted last,
// scaled. Zooming and scrolling so never wait for a picture that takes long.
#pragma once

#include "diagram/view/BackingStore.h"

#include <optional>
#include <QColor>

namespace diagram {

// Where the viewport lies on the surface.
struct ScreenPlace {
    QRect seen;                    // device pixels from the surface's origin
    double xScale = 1, yScale = 1; // device pixels a twip
};

class Screen {
public:
    void Invalidate(const QRect &area) { store_.Invalidate(area); }
    void InvalidateAll() { store_.InvalidateAll(); }

    // What is seen now. At another scale or size nothing is painted yet, and what was there stays behind.
    // True when all that is seen must be painted.
    bool Show(const ScreenPlace &place);
    // Without anything to show meanwhile, all is painted at once.
    void Update(const BackingStore::PaintArea &paint, const BackingStore::Slicing &slicing);
    bool IsExact() const { return store_.Missing().empty(); }
    // As BackingStore::CopyTo; `paper` where nothing was painted ever.
    void CopyTo(QPainter &painter, const QRect &area, const QColor &paper) const;

private:
    struct Former {
        BackingStore store;
        ScreenPlace place;
    };
    void KeepFormer();
    void CopyFormer(QPainter &painter) const;

    BackingStore store_;
    ScreenPlace place_;
    std::optional<Former> former_;
    bool started_ = false;
};

} // namespace diagram
