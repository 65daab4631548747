// A document of markdown as pieces that can be painted, one below the other.
#pragma once

#include "product/help/Pages.h"

#include <functional>
#include <QPainter>
#include <QTextDocument>

namespace product {

struct Part {
    Piece piece;
    std::function<void(QPainter &painter, QPointF leftTop)> paint;
    QString heading; // its text, where a heading begins; else empty
    int level = 0;   // of that heading, from 2
};
using Flow = std::vector<Part>;

// The first heading, if the document begins with one of level 1; FlowOf leaves it out.
QString TitleOf(const QTextDocument &document);
// The parts of the document in a width. Error 53 when a picture can't be read; its address counts from
// `pictures`.
Flow FlowOf(const QTextDocument &document, const QString &pictures, double width);

} // namespace product
