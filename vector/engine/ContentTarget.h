// Where a vector target that keeps text as text and pictures as files takes them over from the painter.
#pragma once

#include <QByteArray>
#include <QColor>
#include <QImage>
#include <QPointF>
#include <QRectF>
#include <QString>

namespace vector {

struct TextFont {
    QString name;
    double points = 0;
    bool bold = false, italic = false;
    friend bool operator==(const TextFont &, const TextFont &) = default;
};
std::size_t qHash(const TextFont &font, std::size_t seed = 0);

// The side of a line of text that stays in place when another font is wider, and where along the line it is,
// as a share of its width.
constexpr int kTextLeft = 0, kTextRight = 1, kTextMiddle = 2;
constexpr double kTextHeldAt[] = {0, 1, 0.5};

// Lengths in units of the painter.
struct TextPiece {
    QPointF baseLine; // its left end
    double width;
    int side; // one of the three above
    bool rightToLeft;
    QString text;
    TextFont font;
    QString family; // of the font that was found for `font`
    QColor colour;
};

// A picture that may be wanted in more than one form.
class PictureSource {
public:
    virtual ~PictureSource() = default;
    virtual const QByteArray &Bytes() const = 0; // of its file
    // The whole of it, as fine as a place of so many pixels wants it.
    virtual QImage ImageFor(const QSizeF &pixels) const = 0;
    // The same for the same picture as long as the drawing lasts.
    virtual quintptr Identity() const = 0;
};

class ContentTarget {
public:
    virtual ~ContentTarget() = default;
    virtual void DrawLine(const TextPiece &piece) = 0; // one line of text
    // The whole picture stretched to the place.
    virtual void DrawPicture(const QRectF &place, const PictureSource &picture) = 0;
};

} // namespace vector
