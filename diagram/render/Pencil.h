// A painter whose pen, brush and hints are set only when they change.
#pragma once

#include <QPainter>
#include <QRgb>

namespace diagram {

// The line styles that aren't a pattern of the pen.
constexpr int kTransparentLine = 5; // no line
constexpr int kInsideLine = 6;      // solid, inside the outline

class Pencil {
public:
    explicit Pencil(QPainter &painter) : painter_(painter) {}

    QPainter &Painter() { return painter_; }

    // `style` is a line style of the table; kTransparentLine means no pen.
    void Line(QRgb colour, double width, int style = 0, Qt::PenJoinStyle join = Qt::MiterJoin);
    void NoLine();
    void Ink(QRgb colour);  // for text: any pen of that colour
    void Fill(QRgb colour); // with alpha
    void NoFill();
    void Smooth(bool on); // antialiasing

    // The painter was used without the pencil: nothing of its state is known any more.
    void Forget();

private:
    QPainter &painter_;
    QRgb line_ = 0, fill_ = 0;
    double width_ = -1;
    int style_ = -1;
    Qt::PenJoinStyle join_ = Qt::MiterJoin;
    bool filled_ = false, fillKnown_ = false;
    int smooth_ = -1;
};

} // namespace diagram
