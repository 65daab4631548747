// Folding of months, quarters and years of the timeline by keyboard and by the popup of a month.
#pragma once

namespace diagram {
class Node;
enum class StripPiece;
} // namespace diagram

namespace mainwindow {

class frmMain;

// What holds the dates of the selected nodes: folded, or unfolded where all of it is folded already.
void keyFoldMonth(frmMain &window);
void keyFoldQuarter(frmMain &window);
void keyFoldYear(frmMain &window);
// Each month to which no node in sight belongs.
void keyFoldEmpty(frmMain &window);
void keyUnfoldAll(frmMain &window);

// The piece in which the month lies, or the fold that it is part of: folded, or unfolded. One step of undo.
void ToggleFold(frmMain &window, const diagram::Node &month, diagram::StripPiece piece);

} // namespace mainwindow
