#include "timeline/DateIndex.h"

#include "diagram/model/Surface.h"
#include "document/Tags.h"
#include "timeline/DateText.h"
#include "timeline/TimelineNodes.h"

namespace timeline {

namespace {

QString DateOf(const diagram::Node &node) { return document::GetTag(node, document::tags::kTheDate); }

template <typename Key>
diagram::Node *FirstOf(const QHash<Key, std::vector<diagram::Node *>> &nodes, const Key &key) {
    const auto found = nodes.constFind(key);
    return found == nodes.constEnd() || found->empty() ? nullptr : found->front();
}

} // namespace

std::size_t qHash(const DateMeant &meant, std::size_t seed) {
    return ::qHash(meant.date.toJulianDay() * 2 + meant.month, seed);
}

std::optional<DateMeant> MeaningOf(const QString &date) {
    const std::optional<QDate> read = ParseDate(date);
    if (!read) return std::nullopt;
    return DateMeant{*read, HasMonthForm(date)};
}

DateIndex::DateIndex(const diagram::Surface &flow) {
    for (diagram::Node &node : flow.Nodes())
        if (IsTimelineMaterial(node)) Add(node);
}

diagram::Node *DateIndex::Find(const QString &date) const {
    if (diagram::Node *exact = FirstOf(nodes_, date)) return exact;
    const std::optional<DateMeant> meant = MeaningOf(date);
    return meant ? FindMeant(*meant) : nullptr;
}

diagram::Node *DateIndex::FindMeant(const DateMeant &meant) const { return FirstOf(Meant(), meant); }

QHash<DateMeant, DateIndex::Nodes> &DateIndex::Meant() const {
    if (meant_) return *meant_;
    meant_.emplace();
    for (diagram::Node *node : inOrder_)
        if (const auto meant = MeaningOf(DateOf(*node))) (*meant_)[*meant].push_back(node);
    return *meant_;
}

std::set<QDate> DateIndex::MonthsOfDays() const {
    std::set<QDate> months;
    for (auto each = Meant().cbegin(); each != Meant().cend(); ++each) {
        const DateMeant &meant = each.key();
        if (!meant.month && !each->empty()) months.insert({meant.date.year(), meant.date.month(), 1});
    }
    return months;
}

void DateIndex::Add(diagram::Node &node) {
    const QString date = DateOf(node);
    nodes_[date].push_back(&node);
    inOrder_.push_back(&node);
    if (!meant_) return;
    if (const auto meant = MeaningOf(date)) (*meant_)[*meant].push_back(&node);
}

void DateIndex::Remove(const diagram::Node &node) {
    const QString date = DateOf(node);
    std::erase(nodes_[date], &node);
    std::erase(inOrder_, &node);
    if (!meant_) return;
    if (const auto meant = MeaningOf(date)) std::erase((*meant_)[*meant], &node);
}

} // namespace timeline
