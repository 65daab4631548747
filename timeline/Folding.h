// Months of the strip folded to a sliver: single ones, or all of a quarter or a year as one. Kept in the tags
// of the months, so that whatever lays the strip out finds them again. Dates in all of them keep their nodes.
#pragma once

#include "diagram/model/DayStrip.h"

#include <map>
#include <optional>
#include <QDate>
#include <QString>
#include <vector>

namespace diagram {
class Node;
class Surface;
} // namespace diagram
namespace document {
class MapWindow;
}

namespace timeline {

// How long a sliver is along the strip, in twips, unless its months were shorter unfolded.
constexpr float kSliver = 450;

// A month, a quarter or a year of the calendar.
struct PieceOfStrip {
    diagram::StripPiece piece;
    QDate first; // day of it
    friend bool operator==(const PieceOfStrip &, const PieceOfStrip &) = default;
};
PieceOfStrip PieceAround(diagram::StripPiece piece, const QDate &day);

// What the month is folded with: at least itself. Nothing for one that isn't folded.
std::optional<PieceOfStrip> FoldOf(const diagram::Node &month);

// The months of the strip that lie in the piece, hidden ones too, in the order of adding.
std::vector<diagram::Node *> MonthsOf(const diagram::Surface &flow, const PieceOfStrip &piece);
// Whether every month of it that isn't hidden is folded; false without one.
bool IsFolded(const diagram::Surface &flow, const PieceOfStrip &piece);
// The user's nodes in sight whose dates lie in the piece, in the order of adding.
std::vector<diagram::Node *> NodesIn(const diagram::Surface &flow, const PieceOfStrip &piece);
// How many there are in each month, by its first day.
using NodesByMonth = std::map<QDate, int>;
NodesByMonth CountNodes(const diagram::Surface &flow);

// "May 2026", "Q2 2026", "2026"; and of one that is folded "folded, 3 nodes".
QString NameOf(const PieceOfStrip &piece);
QString FoldInWords(const diagram::Surface &flow, const PieceOfStrip &fold);

// Folds the piece to one sliver; or unfolds every fold into which it reaches. Lays the strip out. Opens no
// group of changes. False, and nothing changed, where it is so already or the strip has no month of it.
bool SetFolded(document::MapWindow &window, diagram::Surface &flow, const PieceOfStrip &piece, bool folded);
// The same for all folds of the surface.
bool UnfoldAll(document::MapWindow &window, diagram::Surface &flow);

// Does what PlanFolds says: gives the folded months in sight the size of their slivers, whatever size they
// have got meanwhile, and makes months that have come to a folded quarter or year part of it. For the
// arrangement, which places them.
void SizeFolds(diagram::Surface &flow, int arrangement);

} // namespace timeline
