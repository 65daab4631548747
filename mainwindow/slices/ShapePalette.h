// The palette of shapes of a window: as a pop-up and as a strip beside the page. What is chosen there is what
// the next drag draws and the next click places, on all slices, until another shape is chosen or Escape is
// pressed.
#pragma once

#include <memory>
#include <optional>
#include <vector>

class QAction;
class QToolBar;

namespace widgets {
class ShapeGrid;
class ShapePopup;
} // namespace widgets

namespace mainwindow {

class frmMain;
class ShapeDrops;
class ShapeStrip;

class ShapePalette {
public:
    // The strip stands at once if the user wants it; the pop-up is made when it is asked for.
    explicit ShapePalette(frmMain &window);
    ~ShapePalette();
    ShapePalette(const ShapePalette &) = delete;
    ShapePalette &operator=(const ShapePalette &) = delete;

    // The button that opens the pop-up, and shows the shape that is chosen.
    void SetButton(QToolBar &bar, QAction &button);
    void PopUp();
    void SetStripShown(bool shown);
    bool IsStripShown() const;

    void Choose(int shape);
    // No shape is chosen any more.
    void Drop();
    std::optional<int> Chosen() const;

    // Null before they were shown.
    widgets::ShapePopup *Popup() const { return popup_; }
    ShapeStrip *Strip() const { return strip_; }

private:
    void MakeStrip();
    void HideStrip();
    void ShowChosen();
    std::vector<widgets::ShapeGrid *> Grids() const;

    frmMain &window_;
    QToolBar *bar_ = nullptr;
    QAction *button_ = nullptr;
    widgets::ShapePopup *popup_ = nullptr; // belongs to the window
    ShapeStrip *strip_ = nullptr;
    std::unique_ptr<ShapeDrops> drops_;
};

} // namespace mainwindow
