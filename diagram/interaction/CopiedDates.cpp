#include "diagram/interaction/CopiedDates.h"

#include "diagram/interaction/GrowPage.h"
#include "diagram/model/DayStrip.h"
#include "diagram/model/Surface.h"

#include <algorithm>

namespace diagram {

namespace {

std::vector<Node *> SelectedInOrder(const Surface &surface) {
    std::vector<Node *> nodes;
    for (Node &node : surface.Nodes())
        if (node.Selected()) nodes.push_back(&node);
    return nodes;
}

bool HasDates(const std::vector<QDate> &dates) {
    return std::ranges::any_of(dates, [](const QDate &date) { return date.isValid(); });
}

} // namespace

std::vector<QDate> DatesOfSelected(const Surface &surface, const DayStrip &days) {
    std::vector<QDate> dates;
    for (const Node *node : SelectedInOrder(surface)) dates.push_back(days.DateOf(*node).value_or(QDate()));
    return dates;
}

// Giving dates lays the strip out as well, as GrowPage does otherwise.
void SettleCopies(Surface &surface, DayStrip &days, const std::vector<QDate> &dates, const QRectF &dropped,
                  const QRectF &former) {
    const std::vector<Node *> nodes = SelectedInOrder(surface);
    if (!HasDates(dates) || nodes.size() != dates.size()) return GrowPage(surface, days, dropped, former);
    ShiftOntoPage(surface, dropped, former);
    std::vector<DayStrip::Dated> dated;
    for (std::size_t i = 0; i < nodes.size(); ++i)
        if (dates[i].isValid()) dated.push_back({nodes[i], dates[i]});
    days.SetDates(surface, dated);
}

QByteArray DatesToBytes(const std::vector<QDate> &dates) {
    if (!HasDates(dates)) return {};
    QByteArrayList lines;
    for (const QDate &date : dates) lines << date.toString(Qt::ISODate).toLatin1();
    return lines.join('\n');
}

std::vector<QDate> DatesFromBytes(const QByteArray &bytes) {
    if (bytes.isEmpty()) return {};
    std::vector<QDate> dates;
    for (const QByteArray &line : bytes.split('\n'))
        dates.push_back(QDate::fromString(QString::fromLatin1(line), Qt::ISODate));
    return dates;
}

} // namespace diagram
