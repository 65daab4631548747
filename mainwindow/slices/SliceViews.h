// The views of a window's slices, stacked in one place: the selected one on top.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <QString>
#include <vector>

class QRect;
class QWidget;

namespace diagram {
enum class Hint : unsigned char;
class Surface;
class SurfaceView;
} // namespace diagram
namespace timeline {
class DaysOfStrip;
}

namespace mainwindow {

class frmMain;
class SurfaceSink;

class SliceViews {
public:
    // The views are children of `place`. What happens on their surfaces reaches the handlers of the window.
    SliceViews(frmMain &window, QWidget *place);
    ~SliceViews();
    SliceViews(const SliceViews &) = delete;
    SliceViews &operator=(const SliceViews &) = delete;

    // Makes the view of a surface, which is found by the surface's slot, and has the window's journal watch
    // the surface. Remove must come before the surface goes.
    void Add(diagram::Surface &surface);
    void Remove(diagram::Surface &surface);
    bool Has(int index) const { return views_.contains(index); }
    diagram::SurfaceView &At(int index) const { return *views_.at(index); }
    std::vector<diagram::SurfaceView *> All() const;

    // Brings the view to the top, under that name; only it takes the focus from now on, and has it where
    // another view had it.
    void Select(int index, const QString &name);
    void Place(const QRect &rectangle);
    // Ends the editing of a text in place, on whatever slice, and keeps what was typed.
    void EndEdits();
    // The shape of the nodes that are drawn next, on all slices; none: that of the default node.
    void SetShapeToDraw(std::optional<int> shape);
    std::optional<int> ShapeToDraw() const { return shape_; }
    // Stores what was typed so far, without ending the editing.
    void StoreTexts();

private:
    void Connect(diagram::SurfaceView &view);
    QString WordsOf(diagram::Hint hint) const;

    frmMain &window_;
    QWidget *place_;
    std::unique_ptr<timeline::DaysOfStrip> days_; // outlives the views, which ask it
    std::unique_ptr<SurfaceSink> sink_;
    std::map<int, std::unique_ptr<diagram::SurfaceView>> views_;
    std::optional<int> shape_;
};

} // namespace mainwindow
