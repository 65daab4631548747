// Which places on the strip of months stand for which days, as the screen asks for it.
#pragma once

#include "diagram/model/DayStrip.h"

namespace document {
class MapWindow;
}

namespace timeline {

// Counts months in sight alone, as they are laid out.
class DaysOfStrip : public diagram::DayStrip {
public:
    // The window must live longer.
    explicit DaysOfStrip(document::MapWindow &window) : window_(window) {}

    std::optional<QLineF> Today(const diagram::Surface &flow) const override;
    std::optional<QDate> DateOf(const diagram::Node &node) const override;
    QString Written(const QDate &date) const override;
    // In front of the strip and behind it a month is as long as that at the end.
    std::optional<QDate> DayAt(const diagram::Surface &flow, const QPointF &at) const override;
    std::optional<QLineF> PlaceOf(const diagram::Surface &flow, const QDate &date) const override;
    std::optional<QDate> EndOf(const diagram::Node &node) const override;
    QString DatesOf(const diagram::Node &node) const override;
    std::vector<QLineF> Breaks(const diagram::Surface &flow) const override;
    bool RunsRightwards(const diagram::Surface &flow) const override;
    bool KeepsNodesAtDates(const diagram::Surface &flow) const override;
    void Settle(diagram::Surface &flow, const std::vector<diagram::Node *> &moved) override;
    void SetDates(diagram::Surface &flow, const std::vector<Dated> &dates,
                  const std::vector<diagram::Node *> &moved) override;
    // Nothing where the slice pushes nothing on.
    Following WhatFollows(const diagram::Surface &flow, const std::vector<Dated> &dates) const override;
    bool ToggleFold(diagram::Surface &flow, diagram::StripPiece piece, const QPointF &at) override;
    QString PieceInWords(const diagram::Surface &flow, diagram::StripPiece piece,
                         const QPointF &at) const override;
    void Arrange(diagram::Surface &flow) override; // nothing on a surface without months

private:
    document::MapWindow &window_;
};

} // namespace timeline
