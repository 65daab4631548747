// A strip of days on the surface, to which nodes with a date belong: what the screen asks of it. The diagram
// itself knows of no dates.
#pragma once

#include <optional>
#include <QDate>
#include <QLineF>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <vector>

namespace diagram {

class Node;
class Surface;

// What of the strip can be folded to a sliver.
enum class StripPiece { Month, Quarter, Year };

// This class itself stands for a surface without a strip. Places are in twips.
class DayStrip {
public:
    virtual ~DayStrip() = default;

    // Across the strip at today's place; nothing while no strip is seen or it doesn't reach that day.
    virtual std::optional<QLineF> Today(const Surface &) const { return std::nullopt; }
    // The node's date, nothing for a node without one, and how the user writes it.
    virtual std::optional<QDate> DateOf(const Node &) const { return std::nullopt; }
    virtual QString Written(const QDate &) const { return {}; }
    // The node's last day, nothing for one without an end; both days of it, as the user writes them.
    virtual std::optional<QDate> EndOf(const Node &) const { return std::nullopt; }
    virtual QString DatesOf(const Node &) const { return {}; }
    // The day at that place along the strip, beyond its ends too; nothing while no strip is seen.
    virtual std::optional<QDate> DayAt(const Surface &, const QPointF &) const { return std::nullopt; }
    // Across the strip where that day stands; nothing for a day that the strip doesn't reach.
    virtual std::optional<QLineF> PlaceOf(const Surface &, const QDate &) const { return std::nullopt; }
    // Across the strip where months are missing between the one that ends there and the one that begins.
    virtual std::vector<QLineF> Breaks(const Surface &) const { return {}; }
    // Whether it runs from left to right.
    virtual bool RunsRightwards(const Surface &) const { return true; }

    // Whether the surface's nodes stay at their dates, so that one that goes along the strip gets another.
    virtual bool KeepsNodesAtDates(const Surface &) const { return false; }
    // Puts nodes that were moved to their dates again, inside the group of changes that the caller has
    // opened; across the strip they stay where there is room. Nothing on a surface whose nodes don't stay.
    virtual void Settle(Surface &, const std::vector<Node *> &) {}

    struct Dated {
        Node *node;
        QDate date;
        // Where it is left out, an end goes with the date by as many days.
        std::optional<QDate> end{};
    };
    // Gives the nodes these dates, inside the group of changes that the caller has opened. Where nodes stay
    // at their dates they go there; `moved` are those that were moved besides, as for Settle.
    virtual void SetDates(Surface &, const std::vector<Dated> &, const std::vector<Node *> & = {}) {}

    // What else would go on to a later date with them.
    struct Following {
        int count = 0;
        QString told;              // how many, for the user; empty for none
        std::vector<QRectF> boxes; // along the strip where they would stand, as far as that is seen
    };
    virtual Following WhatFollows(const Surface &, const std::vector<Dated> &) const { return {}; }

    // Folds the piece of the strip that lies there to a sliver, or unfolds it, inside the group of changes
    // that the caller has opened. False where there is none.
    virtual bool ToggleFold(Surface &, StripPiece, const QPointF &) { return false; }
    // What is to be known of that piece: its name, whether it is folded, how many nodes belong to it.
    virtual QString PieceInWords(const Surface &, StripPiece, const QPointF &) const { return {}; }

    // Lays the strip out where it belongs, inside the group of changes that the caller has opened: everything
    // on the surface was moved.
    virtual void Arrange(Surface &) {}

    // A strip that is none.
    static DayStrip &None();
};

} // namespace diagram
