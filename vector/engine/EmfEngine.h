// A paint engine that writes an enhanced metafile ([MS-EMF]): curves stay curves, text is UTF-16.
#pragma once

#include "vector/engine/MetafileBytes.h"
#include "vector/engine/MetafileEngine.h"

namespace vector {

// Pages beyond that are scaled down.
constexpr double kEmfLongestSide = 1e8;

class EmfEngine : public MetafileEngine {
public:
    EmfEngine(const QSizeF &page, double scale, QRgb paper) : MetafileEngine(page, scale, paper) {}
    QByteArray File() const override;

protected:
    void Open() override;
    void Close() override;
    void Create(int slot, const QByteArray &creation) override;
    void Select(int slot) override;
    void SelectNone(Kind kind) override;
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
    void TextColour(QRgb colour) override;
    void TextAlign(int align) override;
    void FillMode(bool winding) override;
    QByteArray PenCreation(const QPen &pen) const override;
    QByteArray BrushCreation(bool filled, QRgb colour) const override;
    QByteArray FontCreation(const TextFont &font, int height) const override;
    // Each reader has dashes of its own lengths: they are drawn one by one.
    bool NeedsPath(const QPen &pen) const override;

private:
    void Put(const QByteArray &record);
    void PutWord(int type, std::uint32_t value);
    void PutPair(int type, int first, int second);
    void PutPoints(int type, const QPolygonF &points);
    void PutOutline(const QPainterPath &path);
    void PutDashes(const QList<QPolygonF> &lines);
    void PutPath(int type, const QPainterPath &path);

    MetafileBytes records_; // all but the header
    std::uint32_t count_ = 0;
};

// Whether a file that begins so was written by that engine.
bool IsOwnEmf(const QByteArray &start);

} // namespace vector
