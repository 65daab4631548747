// The values of a surface that only the screen needs: no undo records them, no file keeps them.
#pragma once

#include "diagram/model/Font.h"
#include "diagram/model/SurfaceObserver.h"
#include "support/Colour.h"

namespace diagram {

class ScreenValues {
public:
    // `observer` is told when grid or texts must be painted anew.
    explicit ScreenValues(SurfaceObserver &observer) : observer_(observer) {}

    bool SnapToGrid() const { return snapToGrid_; }
    void SetSnapToGrid(bool on) { snapToGrid_ = on; }
    float GridSize() const { return gridSize_; } // twips
    void SetGridSize(float twips);               // above 0, error 380
    support::Colour GridColor() const { return gridColor_; }
    void SetGridColor(support::Colour colour);
    int GridStyle() const { return gridStyle_; }  // 0 dots, 1 crosses, 2 lines
    void SetGridStyle(int style);                 // error 380
    bool ShiftMode() const { return shiftMode_; } // a drag on empty surface selects instead of drawing
    void SetShiftMode(bool on) { shiftMode_ = on; }

    float Width() const { return width_; } // of what is seen, in twips at zoom 100
    float Height() const { return height_; }
    void SetSize(float width, float height) { width_ = width, height_ = height; }
    float xScroll() const { return xScroll_; } // twips
    float yScroll() const { return yScroll_; }
    void SetScroll(float x, float y) { xScroll_ = x, yScroll_ = y; }

    // While on, nodes show both their texts; the texts themselves stay as they are.
    bool ShowsBothTexts() const { return showsBothTexts_; }
    void SetShowsBothTexts(bool on);
    // The surface's own font: shown when nothing is selected.
    const diagram::Font &Font() const { return font_; }
    void SetFont(const diagram::Font &font) { font_ = font; }

private:
    SurfaceObserver &observer_;
    diagram::Font font_;
    float width_ = 0, height_ = 0;
    float xScroll_ = 0, yScroll_ = 0;
    float gridSize_ = 150;
    support::Colour gridColor_ = support::Rgb(224, 224, 224);
    int gridStyle_ = 2;
    bool snapToGrid_ = false;
    bool shiftMode_ = false;
    bool showsBothTexts_ = false;
};

} // namespace diagram
