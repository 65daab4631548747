#include "diagram/model/ScreenValues.h"

#include "diagram/model/Ranges.h"

namespace diagram {

void ScreenValues::SetGridSize(float twips) {
    if (!(twips > 0 && twips <= kLargestCoordinate)) RaiseInvalidValue("Surface");
    gridSize_ = twips;
    observer_.SurfaceChanged(Change::Look);
}

void ScreenValues::SetGridColor(support::Colour colour) {
    gridColor_ = colour;
    observer_.SurfaceChanged(Change::Look);
}

void ScreenValues::SetGridStyle(int style) {
    gridStyle_ = Checked(IsGridStyle, style, "Surface");
    observer_.SurfaceChanged(Change::Look);
}

void ScreenValues::SetShowsBothTexts(bool on) {
    if (on == showsBothTexts_) return;
    showsBothTexts_ = on;
    observer_.SurfaceChanged(Change::Text | Change::Look);
}

} // namespace diagram
