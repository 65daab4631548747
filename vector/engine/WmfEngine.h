// A paint engine that writes a placeable Windows metafile ([MS-WMF]).
#pragma once

#include "vector/engine/MetafileBytes.h"
#include "vector/engine/MetafileEngine.h"

namespace vector {

// Coordinates have sixteen bits: the scale must bring the page below kWmfLongestSide.
constexpr double kWmfLongestSide = 32000;

class WmfEngine : public MetafileEngine {
public:
    // `unitsPerInch` is kUnitsPerInch times the scale.
    WmfEngine(const QSizeF &page, int unitsPerInch, QRgb paper);
    QByteArray File() const override;

protected:
    void Open() override;
    void Close() override;
    void Create(int slot, const QByteArray &creation) override;
    void Select(int slot) override;
    void Delete(int slot) override;
    void Save() override;
    void Restore() override;
    void Clip(const QPainterPath &path) override;
    void Rectangle(const QRectF &box) override;
    void Ellipse(const QRectF &box) override;
    void Polygon(const QPolygonF &points) override;
    void Polyline(const QPolygonF &points) override;
    void Path(const QPainterPath &path) override;
    void Image(const QRectF &place, const MetafileDib &dib) override;
    void Text(const TextRun &run) override;
    bool CanEncode(const QString &text) const override;
    void TextColour(QRgb colour) override;
    void TextAlign(int align) override;
    void FillMode(bool winding) override;
    QByteArray PenCreation(const QPen &pen) const override;
    QByteArray BrushCreation(bool filled, QRgb colour) const override;
    QByteArray FontCreation(const TextFont &font, int height) const override;
    // Players draw a pen's dashes only where it is a pixel wide, and each in its own way: they are drawn one
    // by one. Within a form, strokes become areas.
    bool NeedsPath(const QPen &pen) const override;

private:
    void Put(const QByteArray &record);
    void PutWord(int function, int value);
    void PutBox(int function, const QRectF &box);
    void FillParts(const QList<QPolygonF> &parts);
    void FillPath(const QList<QPolygonF> &parts);
    void StrokePath(const QList<QPolygonF> &parts);
    void FillWithinForm(const QPainterPath &path);
    void StrokeWithinForm(const QPainterPath &path);
    void CutForm();
    bool InForm() const { return !clips_.empty() && !clips_.back().form.isEmpty(); }

    // A clip that isn't a box, of a saved state.
    struct FormClip {
        QPainterPath form; // empty for none
        bool cut = false;  // its records are written
    };

    std::vector<FormClip> clips_;
    MetafileBytes records_;
    int unitsPerInch_;
    std::uint32_t longest_ = 0; // record, in words
};

} // namespace vector
