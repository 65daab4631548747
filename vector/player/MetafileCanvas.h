// Plays what records of metafiles do onto an image. Coordinates are logical units unless a name says pixels.
// However hostile the records, the work stays within a budget: what comes after it is spent is left out.
#pragma once

#include "vector/player/MetafileState.h"

#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <unordered_map>
#include <vector>

namespace vector {

struct DibParts;

struct TextRecord {
    QPointF at;
    QString text;
    double width = 0; // that the writer measured; 0 for none
    std::uint32_t options = 0;
    QRectF box; // of the options
};

// A bitmap, and which part of it goes where.
struct MetafileBlit {
    QRectF target; // may be inside out: mirrored
    QRectF source; // pixels of the bitmap from its upper left corner; null for all of it
    std::uint32_t operation;
    double opacity = 1;
};

class MetafileCanvas {
public:
    // `device` brings the units of the file's device to pixels of the image, which must outlive this.
    MetafileCanvas(QImage &image, const QTransform &device);

    ~MetafileCanvas() { Restore(1); }
    MetafileCanvas(const MetafileCanvas &) = delete;
    MetafileCanvas &operator=(const MetafileCanvas &) = delete;

    MetafileState &Now() { return state_; }
    const MetafileState &Now() const { return state_; }
    // After changes of the mapping.
    void MappingChanged() { toPixels_ = state_.mapping.ToDevice() * device_; }
    bool IsSpent() const { return budget_ <= 0; }
    // Takes work, about a pixel or a nanosecond each, from the budget; false once it is spent.
    bool Spend(double work) { return (budget_ -= work) > 0; }
    // The work of adding one more box to a region.
    bool SpendOnBoxOf(const QRegion &region) { return Spend(30.0 * region.rectCount() + 300); }

    void Save();
    // Above 0 the level counted from the first, below 0 so many steps back.
    void Restore(int level);

    // Objects live in slots of any number.
    void Put(std::uint32_t slot, MetafileObject object) { objects_[slot] = std::move(object); }
    void Delete(std::uint32_t slot) { objects_.erase(slot); }
    const MetafileObject *Object(std::uint32_t slot) const;
    void Select(const MetafileObject &object);

    // A form, or a part of the path between BeginPath and EndPath.
    void Draw(const QPainterPath &form, bool filled, bool lined = true);
    // From the position on, which ends up at the end of `line`: the first element is where it starts.
    void DrawFromPosition(const QPainterPath &line);
    void MoveTo(const QPointF &at);
    void FillWith(const QPainterPath &form, const QBrush &brush);
    void FillPixels(const QRegion &deviceUnits, const QBrush &brush);
    void SetPixel(const QPointF &at, const QColor &colour);
    void Gradient(const QRectF &box, const QColor &from, const QColor &to, bool downwards);

    void BeginPath();
    void EndPath() { recording_ = false; }
    void CloseFigure() { path_.closeSubpath(); }
    void AbortPath();
    void DrawRecorded(bool filled, bool lined);

    // `mode` is one of kClip... (MetafileValues.h); any other leaves the clip as it is.
    void ClipToRecorded(int mode);
    void ClipTo(const QRectF &box);
    void ClipOut(const QRectF &box);
    // With kClipCopy the region replaces the clip, and a null one takes it away.
    void ClipToRegion(const QRegion &deviceUnits, int mode);

    void Text(const TextRecord &text);
    void Blit(const MetafileBlit &blit, const QImage &image);
    // Reads the bitmap first, within the budget.
    void Blit(const MetafileBlit &blit, const DibParts &dib, bool alpha = false);
    QImage Read(const DibParts &dib, bool alpha = false);

private:
    struct Saved {
        MetafileState state;
        int clips;
    };

    bool Paints() const { return state_.rop2 != metafile::kLeaveAlone && !IsSpent(); }
    QTransform ToPixels() const { return toPixels_; }
    QPainterPath Mapped(const QPainterPath &path) const;
    QRegion Mapped(const QRegion &deviceUnits) const;
    QPen PixelPen(const QPainterPath &pixels) const;
    double WorkOf(const QPainterPath &pixels, bool filled, double penWidth) const;
    QRectF Near(double penWidth) const;
    bool SpendOnCutting(const QPainterPath &pixels, const QRectF &near);
    void Fill(const QPainterPath &pixels, const QBrush &brush);
    void Stroke(const QPainterPath &pixels);
    void PaintPixels(const QPainterPath &pixels, bool filled, bool lined);
    bool SpendOnClip();
    void FillOperation(const MetafileBlit &blit);

    QImage &image_;
    QPainter painter_;
    QTransform device_, toPixels_;
    MetafileState state_;
    std::vector<Saved> saved_;
    std::unordered_map<std::uint32_t, MetafileObject> objects_;
    QPainterPath path_; // pixels
    bool recording_ = false;
    int clips_ = 0; // made since the clip was last replaced
    double budget_;
};

} // namespace vector
