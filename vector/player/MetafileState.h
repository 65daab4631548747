// What a player of metafiles keeps, saves and restores: mapping, chosen objects, modes.
#pragma once

#include "vector/player/MetafileValues.h"

#include <QBrush>
#include <QPen>
#include <QRegion>
#include <QString>
#include <QTransform>
#include <variant>

namespace vector {

struct MetafileFont {
    double height = -12; // logical units; below 0 without the space above and below letters
    double angle = 0;    // degrees against the clock
    bool bold = false, italic = false, underline = false, strikeOut = false;
    QString face;
};

// Widths of pens are logical; a cosmetic one has pixels.
using MetafileObject = std::variant<std::monostate, QPen, QBrush, MetafileFont, QRegion>;

// From logical units over those of the page to those of the device.
struct MetafileMapping {
    int mode = metafile::kTextMode;
    QPointF windowOrigin, viewportOrigin;
    QSizeF window{1, 1}, viewport{1, 1};
    QTransform world;
    QSizeF unitsPerMillimetre{4, 4}; // of the device

    QTransform ToDevice() const;
};

struct MetafileState {
    MetafileMapping mapping;
    QPen pen{Qt::black, 0};
    QBrush brush{Qt::white};
    MetafileFont font;
    QColor textColour = Qt::black, backColour = Qt::white;
    bool opaque = true;      // behind texts
    std::uint32_t align = 0; // of texts: kAlign... added up
    Qt::FillRule fillRule = Qt::OddEvenFill;
    int rop2 = metafile::kCopyPen; // how shapes join what is there
    bool clockwise = false;        // arcs
    QPointF position;
};

} // namespace vector
