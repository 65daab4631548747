// A strip of days without months: one every 20 pixels from the left edge on, dates in the tags of the nodes,
// which stay at them.
#pragma once

#include "diagram/model/DayStrip.h"
#include "diagram/model/Node.h"

#include <cmath>
#include <QStringList>

namespace diagram::testing {

class TaggedDays : public DayStrip {
public:
    static constexpr double kDay = 300; // twips

    static void Date(Node &node, const QDate &first, const QDate &last) {
        node.SetTag(first.toString(Qt::ISODate) + u'/' + last.toString(Qt::ISODate));
    }

    std::optional<QDate> DateOf(const Node &node) const override { return Part(node, 0); }
    std::optional<QDate> EndOf(const Node &node) const override { return Part(node, 1); }
    QString Written(const QDate &date) const override { return date.toString(Qt::ISODate); }
    std::optional<QDate> DayAt(const Surface &, const QPointF &at) const override {
        return kFirst.addDays(qint64(std::floor(at.x() / kDay)));
    }
    std::optional<QLineF> PlaceOf(const Surface &, const QDate &date) const override {
        const double x = (double(kFirst.daysTo(date)) + 0.5) * kDay;
        return QLineF(x, 0, x, kDay);
    }
    bool KeepsNodesAtDates(const Surface &) const override { return true; }
    void SetDates(Surface &, const std::vector<Dated> &dates, const std::vector<Node *> &) override {
        for (const Dated &dated : dates) {
            const QDate former = *DateOf(*dated.node), end = *EndOf(*dated.node);
            Date(*dated.node, dated.date, dated.end.value_or(end.addDays(former.daysTo(dated.date))));
        }
    }

    static inline const QDate kFirst{2027, 1, 1};

private:
    static std::optional<QDate> Part(const Node &node, int which) {
        const QDate date = QDate::fromString(node.Tag().section(u'/', which, which), Qt::ISODate);
        return date.isValid() ? std::optional(date) : std::nullopt;
    }
};

} // namespace diagram::testing
