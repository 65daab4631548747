// Where a vector target that keeps text as text and pictures as files takes them over from the painter.
#pragma once

#include <QColor>
#include <QPointF>
#include <QRectF>
#include <QString>

namespace diagram {

class Font;
class Picture;

struct TextPiece {
    QPointF baseLine; // its left end, in the painter's coordinates
    double width;
    int side; // of the line that stays in place when another font is wider: 0 left, 1 right, 2 middle
    bool rightToLeft;
    QString text;
    const Font &font;
    QString family; // of the font that was found for `font`
    QColor colour;
};

class ContentTarget {
public:
    virtual ~ContentTarget() = default;
    virtual void DrawLine(const TextPiece &piece) = 0; // one line of text
    // The whole picture stretched to the place.
    virtual void DrawPicture(const QRectF &place, const Picture &picture) = 0;
};

} // namespace diagram
