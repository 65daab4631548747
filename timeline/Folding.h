// Months of the strip that are folded to a sliver: a single month, or all months of a quarter or a year
// together. What is folded stands in the tags of the months, so that whatever lays the strip out finds it
// again. Nodes keep their dates in folded months.
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

// How long a sliver is along the strip, in twips, unless all of its months together are shorter than that
// when they are unfolded.
constexpr float kSliver = 450;

// A month, a quarter or a year of the calendar.
struct PieceOfStrip {
    diagram::StripPiece piece;
    QDate first; // day of it
    friend bool operator==(const PieceOfStrip &, const PieceOfStrip &) = default;
};
PieceOfStrip PieceAround(diagram::StripPiece piece, const QDate &day);

// The piece as which the month is folded: itself, its quarter or its year. Nothing for a month that isn't
// folded.
std::optional<PieceOfStrip> FoldOf(const diagram::Node &month);

// The months of the strip that lie in the piece, hidden ones too, in the order of adding.
std::vector<diagram::Node *> MonthsOf(const diagram::Surface &flow, const PieceOfStrip &piece);
// Whether every month of it that isn't hidden is folded; false without one.
bool IsFolded(const diagram::Surface &flow, const PieceOfStrip &piece);
// The user's nodes in sight whose dates lie in the piece, in the order of adding.
std::vector<diagram::Node *> NodesIn(const diagram::Surface &flow, const PieceOfStrip &piece);
// How many of the user's nodes in sight have their date in each month, by the first day of the month.
using NodesByMonth = std::map<QDate, int>;
NodesByMonth CountNodes(const diagram::Surface &flow);

// The name of the piece: "May 2026", "Q2 2026", "2026".
QString NameOf(const PieceOfStrip &piece);
// What is said of a folded piece beside its name: "folded, 3 nodes".
QString FoldInWords(const diagram::Surface &flow, const PieceOfStrip &fold);

// Folds the months of the piece to one sliver; or, where `folded` is false, unfolds every fold to which one
// of these months belongs. Then lays the strip out. Opens no group of changes. Changes nothing and returns
// false where the months are so already and where the strip has no month of the piece.
bool SetFolded(document::MapWindow &window, diagram::Surface &flow, const PieceOfStrip &piece, bool folded);
// Unfolds all folds of the surface in the same way.
bool UnfoldAll(document::MapWindow &window, diagram::Surface &flow);

// Does what PlanFolds says: gives the folded months in sight the size of their slivers, whatever size they
// have got meanwhile, and makes months that have come to a folded quarter or year part of it. Moves nothing:
// the arrangement, which calls it, places the months.
void SizeFolds(diagram::Surface &flow, int arrangement);

} // namespace timeline
