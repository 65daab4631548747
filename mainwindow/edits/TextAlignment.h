// The nine alignments of a node's text in three families: at the left, at the right, centred. The three of a
// family are top, middle and bottom.
#pragma once

namespace mainwindow {

// A family is named by the first of its alignments.
constexpr int kLeftAlignments = 0, kRightAlignments = 3, kCentreAlignments = 6;

// The family that an alignment (0 to 8) belongs to.
int FamilyOfAlignment(int alignment);
// The alignment in the other family that keeps top, middle or bottom. A value that is no alignment stays.
int AlignmentInFamily(int alignment, int family);

} // namespace mainwindow
