// What the paint engines of both kinds of metafile share: the painter's state in units of the file, the table
// of drawing objects, nested clips, text and pictures. The kinds say how each thing becomes a record.
#pragma once

#include "vector/engine/MetafileObjects.h"
#include "vector/engine/MetafileText.h"
#include "vector/engine/VectorEngine.h"

#include <array>
#include <QBrush>
#include <QHash>
#include <vector>

namespace vector {

struct MetafileDib;

class MetafileEngine : public VectorEngine {
public:
    // `page` in device units of the painter; `scale` is file units to one of the painter; `paper` is what
    // shows through colours that are not opaque, since metafiles know none.
    MetafileEngine(const QSizeF &page, double scale, QRgb paper);

    bool begin(QPaintDevice *device) override;
    bool end() override;
    void drawRects(const QRectF *rects, int count) override;
    void drawEllipse(const QRectF &box) override;
    void drawPath(const QPainterPath &path) override;
    void drawPolygon(const QPointF *points, int count, PolygonDrawMode mode) override;
    using QPaintEngine::drawEllipse;
    using QPaintEngine::drawPolygon;
    using QPaintEngine::drawRects;

    void DrawLine(const TextPiece &piece) override;
    void DrawPicture(const QRectF &place, const PictureSource &picture) override;

    // Whether records were left out since the file would have passed 2^31 bytes.
    bool IsTooLong() const { return tooLong_; }

protected:
    void SetPen(const QPen &pen) override;
    void SetBrush(const QBrush &brush) override;
    void BeginClip(const QPainterPath &path) override;
    void EndClip() override { PopState(); }
    void PutImage(const QRectF &place, const QImage &image) override;

    enum Kind { PenKind, BrushKind, FontKind, KindCount };
    struct TextRun {
        QPointF baseLine; // its end on the side of `align`
        int align;        // TA_LEFT 0, TA_RIGHT 2, TA_CENTER 6
        bool rightToLeft;
        QString text;
        std::vector<int> advances; // one for each UTF-16 unit
    };

    // What writes one record or a few of them; all lengths in units of the file. Shapes take the pen and
    // brush that are chosen.
    virtual void Open() = 0;
    virtual void Close() = 0;
    virtual void Create(int slot, const QByteArray &creation) = 0;
    virtual void Select(int slot) = 0;
    virtual void SelectNone(Kind) {} // see PenCreation
    virtual void Delete(int slot) = 0;
    virtual void Save() = 0;
    virtual void Restore() = 0;
    virtual void Clip(const QPainterPath &path) = 0; // intersects
    virtual void Rectangle(const QRectF &box) = 0;
    virtual void Ellipse(const QRectF &box) = 0;
    virtual void Polygon(const QPolygonF &points) = 0;
    virtual void Polyline(const QPolygonF &points) = 0;
    virtual void Path(const QPainterPath &path) = 0;
    virtual void Image(const QRectF &place, const MetafileDib &dib) = 0;
    virtual void Text(const TextRun &run) = 0;
    // Whether the file can hold all letters of the text as text; other lines become outlines.
    virtual bool CanEncode(const QString &) const { return true; }
    virtual void TextColour(QRgb colour) = 0;
    virtual void TextAlign(int align) = 0;
    virtual void FillMode(bool winding) = 0;
    // The records that create objects. For a pen of no style, and a brush that doesn't fill, they may be
    // empty: then SelectNone is called in place of Select.
    virtual QByteArray PenCreation(const QPen &pen) const = 0;
    virtual QByteArray BrushCreation(bool filled, QRgb colour) const = 0;
    virtual QByteArray FontCreation(const TextFont &font, int height) const = 0;
    // Whether strokes with the pen go through Path, which makes them of pieces.
    virtual bool NeedsPath(const QPen &) const { return false; }

    const MetafileObjects &Objects() const { return objects_; }
    const QPen &Pen() const { return pen_; } // its width in file units
    bool Filled() const { return filled_; }
    // Whether records of `bytes` in all may be; asked before each is added.
    bool HasRoom(qsizetype bytes);
    // Choose what is drawn with from here; ChooseShape takes the painter's pen and brush.
    void ChooseShape(bool lined, bool filled);
    void ChooseFillMode(bool winding);
    void ChooseFill(QRgb colour); // an area of this colour without a line

private:
    // What a player restores with the saved state.
    struct Chosen {
        std::array<int, KindCount> objects{-1, -1, -1};
        QRgb textColour = 1; // none that is opaque
        int align = -1;
        int winding = -1;
    };

    void PushState();
    void PopState();
    bool TakesBoxes() const;
    void Choose(Kind kind, const QByteArray &creation);
    void DeleteObjects();
    QRgb OnPaper(const QColor &colour) const;
    void NoteFill(const QRectF &bounds);
    QRgb Behind(const QRectF &place) const;
    void PutOutlines(const TextPiece &piece);
    void PutText(const TextPiece &piece);
    void PutRun(const MetafileRun &run, QPointF at);

    QRgb paper_;
    QPen pen_;
    bool filled_ = false;
    QRgb fill_ = 0;
    QByteArray penCreation_, brushCreation_, noPen_, noBrush_;
    QHash<TextFont, QByteArray> fonts_;
    MetafileObjects objects_;
    MetafileText text_;
    Chosen chosen_;
    std::vector<Chosen> saved_;
    QRectF lastFilled_;
    QRgb lastFill_ = 0;
    bool tooLong_ = false;
};

} // namespace vector
