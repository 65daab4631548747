#include "timeline/Arrange.h"

#include "diagram/model/ScreenValues.h"
#include "diagram/model/Surface.h"
#include "document/clsfrmMain.h"
#include "document/MapWindow.h"
#include "document/Tags.h"
#include "support/clsGUID.h"
#include "support/Error.h"
#include "timeline/DateIndex.h"
#include "timeline/DateLanguage.h"
#include "timeline/DateText.h"
#include "timeline/Folding.h"
#include "timeline/LineUp.h"
#include "timeline/Span.h"
#include "timeline/Strip.h"
#include "timeline/TimelineNodes.h"

#include <algorithm>
#include <QCoreApplication>
#include <QHash>
#include <set>

namespace timeline {

namespace {

using document::tags::kDateFormat;
using document::tags::kMissing;
using document::tags::kTheDate;
using document::tags::kTimelineAlign;

const QString kTrue = QStringLiteral("True");
const QString kDefaultArrangement = QStringLiteral("4");

void GiveKey(diagram::Node &node) {
    if (node.Key().isEmpty()) node.SetKey(support::GetGUID());
}

// By which settings the strip is laid out.
struct StripSettings {
    int arrangement;
    QString pattern; // of the months' texts
    bool addMissing; // months between the first and the last; else those without a dated node go
};

// What the surface doesn't store yet is taken from the template node `look` and stored from then on.
StripSettings StoreAndReadSettings(diagram::Surface &flow, diagram::Node &look, int align) {
    if (align == kStoredArrangement) CarryArrangement(flow);
    const int arrangement = align == kStoredArrangement ? ArrangementOf(flow) : align;
    if (document::GetTag(look, kDateFormat).isEmpty()) document::SetTag(look, kDateFormat, kMonthPattern);
    if (document::GetTag(flow, kMissing).isEmpty())
        document::SetTag(flow, kMissing, document::GetTag(look, kMissing));
    return {arrangement, document::GetTag(look, kDateFormat),
            document::GetTag(flow, kMissing).compare(kTrue, Qt::CaseInsensitive) == 0};
}

// Lays the strip of a surface out once. ArrangeTimeLineNodes calls the steps one after the other: they read
// what StripPlan decides from, and write to the surface what it has decided.
class StripLayout {
public:
    StripLayout(document::MapWindow &window, diagram::Surface &flow, const StripSettings &settings)
        : window_(window), flow_(flow), settings_(settings), hidden_(IsTimelineHidden(flow)), index_(flow) {}

    // Counts the months, gives each a key, and collects the days; false where there is no month.
    bool FindNodes() {
        for (diagram::Node &node : flow_.Nodes()) {
            if (!IsTimelineMaterial(node) || !ParseDate(node.Text())) continue;
            if (HasMonthForm(node.Text())) {
                ++months_;
                GiveKey(node);
            } else {
                days_.push_back(&node);
            }
        }
        return months_ > 0;
    }

    // Writes a row for each month of the surface. There are more of them than FindNodes has counted where the
    // text of one is no date: error 9.
    void FillTable() {
        for (diagram::Node *node : LocateTimelineNodes(flow_)) {
            if (int(table_.size()) == months_)
                support::Raise(support::kErrSubscriptOutOfRange, QStringLiteral("ArrangeTimeLineNodes"));
            const QString date = document::GetTag(*node, kTheDate);
            const QString month = Reformatted(date, kMonthPattern);
            table_.push_back({node->Key(), month.isEmpty() ? date : month});
        }
    }

    // Removes the months in which no node has its date or its end; true where there was one.
    bool DropUnusedMonths() {
        std::set<QDate> used = MonthsOfEnds(flow_);
        used.merge(index_.MonthsOfDays());
        bool removed = false;
        for (const QString &each : UnusedMonths(table_, used)) {
            diagram::Node *month = index_.Find(each);
            if (!month) continue;
            index_.Remove(*month);
            flow_.Remove(*month);
            removed = true;
        }
        return removed;
    }

    // Gives each month that is missing between the first and the last a row and a node, until kMostCreated
    // were made.
    void AddMissingMonths() {
        const auto [first, last] = EndsOf(table_);
        FillMissingDates(table_, first, last, window_);
        for (AxisRow &row : table_) {
            if (!row[kAxisKey].isEmpty() || row[kAxisMonth].isEmpty()) continue;
            diagram::Node &month = FindOrCreate(row[kAxisMonth], QStringLiteral("Creating for "));
            GiveKey(month);
            row[kAxisKey] = month.Key();
            if (created_ == kMostCreated) break;
        }
        window_.DoStatus(QStringLiteral("Updating nodes..."));
        CopyTemplateLook(flow_);
        window_.DoStatus(QString());
    }

    void Sort() { Sort2DArray(table_, kAxisMonth); }

    // Gives folded months the size of their slivers, and hidden ones no length: these keep their place in the
    // order and take no room. Makes the months that have a row but no node.
    void SizeMonths() {
        SizeFolds(flow_, settings_.arrangement);
        for (const AxisRow &row : table_) {
            if (row[kAxisKey].isEmpty()) continue;
            window_.DoStatus(QStringLiteral("Searching for ") + row[kAxisMonth]);
            diagram::Node *month = index_.Find(row[kAxisMonth]);
            if (!month && created_ < kMostCreated)
                month = &Create(row[kAxisMonth], QStringLiteral("Creating "));
            if (month && month->Hidden()) TakeExtentAway(*month, settings_.arrangement);
        }
    }

    void WriteTexts() {
        for (diagram::Node *month : Months()) {
            const QString text = Reformatted(document::GetTag(*month, kTheDate), settings_.pattern);
            if (!text.isEmpty()) month->SetText(text);
        }
    }

    // Month by month, each with its days and the ends of their links. So these ends are found while the
    // months behind still stand where they were.
    void Place() {
        const std::vector<diagram::Node *> months = Months();
        const std::vector<PlacedMonth> places = PlanPlaces(PlacesTaskOf(months));
        for (std::size_t i = 0; i < places.size(); ++i) {
            months[i]->SetLeft(places[i].box.left);
            months[i]->SetTop(places[i].box.top);
            PositionDateNodes(days_, places[i], RunsRightwards(settings_.arrangement));
        }
    }

    // What the user has to know where kMostCreated months were added and some are still missing; else
    // nothing.
    QString StoppedText() const {
        if (created_ < kMostCreated) return {};
        const auto gap = GapIn(table_);
        return gap ? Stopped(gap->first, gap->second) : QString();
    }

private:
    static QString Stopped(const QString &before, const QString &behind) {
        return QCoreApplication::translate("timeline",
                                           "The timeline stopped after %1 new months: those between %2 and "
                                           "%3 are still missing. Fill in missing months goes on.")
            .arg(kMostCreated)
            .arg(before, behind);
    }

    PlacesTask PlacesTaskOf(const std::vector<diagram::Node *> &months) const {
        PlacesTask task{settings_.arrangement, flow_.Screen().Width(), flow_.Screen().Height(), {}, {}};
        for (const diagram::Node *month : months)
            task.months.push_back({CDate(document::GetTag(*month, kTheDate)), month->Width(), month->Height(),
                                   month->Hidden(), FoldOf(*month)});
        for (const diagram::Node *day : days_) task.days.push_back(CDate(day->Text()));
        return task;
    }

    // `creating` is what the status bar says in front of a month that is made.
    diagram::Node &FindOrCreate(const QString &month, const QString &creating) {
        window_.DoStatus(QStringLiteral("Searching for ") + month);
        if (diagram::Node *found = index_.Find(month)) return *found;
        return Create(month, creating);
    }

    diagram::Node &Create(const QString &month, const QString &creating) {
        window_.DoStatus(creating + month);
        diagram::Node &node = *LocateTimelineNode(flow_, month, true, nullptr, &index_);
        document::SetTag(node, kTheDate, month);
        node.SetHidden(hidden_);
        ++created_;
        return node;
    }

    // The nodes of the months in the order of the rows, found by their keys; rows without a node are left
    // out.
    std::vector<diagram::Node *> Months() {
        QHash<QString, diagram::Node *> byKey;
        for (diagram::Node &node : flow_.Nodes())
            if (IsTimelineMaterial(node) && !byKey.contains(node.Key())) byKey.insert(node.Key(), &node);
        std::vector<diagram::Node *> months;
        for (const AxisRow &row : table_)
            if (diagram::Node *month = byKey.value(row[kAxisKey]); month && !row[kAxisKey].isEmpty())
                months.push_back(month);
        return months;
    }

    document::MapWindow &window_;
    diagram::Surface &flow_;
    const StripSettings &settings_;
    const bool hidden_; // the strip as a whole
    DateIndex index_;
    int months_ = 0;  // that the surface had at first
    int created_ = 0; // nodes of months that were made
    std::vector<diagram::Node *> days_;
    AxisTable table_;
};

std::size_t MonthsInSight(const diagram::Surface &flow) {
    return std::size_t(std::ranges::count(LocateTimelineNodes(flow), false, &diagram::Node::Hidden));
}

// Whether the strip was laid out while months that are in sight now were hidden: two of them lie over one
// another without being folded together, or one has no extent.
bool IsDisarranged(const diagram::Surface &flow) {
    std::vector<QRectF> boxes;
    for (const diagram::Node *month : LocateTimelineNodes(flow)) {
        if (month->Hidden()) continue;
        if (!FoldOf(*month) || std::ranges::find(boxes, month->Bounds()) == boxes.end())
            boxes.push_back(month->Bounds());
    }
    const auto before = [](const QRectF &a, const QRectF &b) {
        return std::pair(a.left(), a.top()) < std::pair(b.left(), b.top());
    };
    std::ranges::sort(boxes, before);
    const auto meet = [](const QRectF &a, const QRectF &b) { return a.adjusted(1, 1, -1, -1).intersects(b); };
    return std::ranges::any_of(boxes, &QRectF::isEmpty) ||
           std::ranges::adjacent_find(boxes, meet) != boxes.end();
}

} // namespace

void ArrangeTimeLineNodes(document::MapWindow &window, diagram::Surface &Flow, int Align,
                          const std::vector<diagram::Node *> &moved) {
    support::PassOn("ArrangeTimeLineNodes", [&] {
        TranslateDates(Flow);
        const StripSettings settings =
            StoreAndReadSettings(Flow, *LocateTimeLineTemplateNode(Flow, true), Align);
        StripLayout layout(window, Flow, settings);
        if (!layout.FindNodes()) return window.DoStatus(QString());
        layout.FillTable();
        if (settings.addMissing)
            layout.AddMissingMonths();
        else if (layout.DropUnusedMonths())
            return ArrangeTimeLineNodes(window, Flow, kStoredArrangement, moved);
        layout.Sort();
        layout.SizeMonths();
        layout.WriteTexts();
        layout.Place();
        FollowDates(window, Flow, moved);
        window.clsSettings().Dirty = true;
        window.DoStatus(layout.StoppedText());
    });
}

void ArrangeAgain(document::MapWindow &window, diagram::Surface &Flow) {
    if (!LocateTimelineNodes(Flow).empty()) ArrangeTimeLineNodes(window, Flow, ArrangementOf(Flow));
}

void CarryArrangement(diagram::Surface &Flow) {
    if (!document::GetTag(Flow, kTimelineAlign).isEmpty()) return;
    const diagram::Node *look = LocateTimeLineTemplateNode(Flow, false);
    const QString stored = look ? document::GetTag(*look, kTimelineAlign) : QString();
    document::SetTag(Flow, kTimelineAlign, stored.isEmpty() ? kDefaultArrangement : stored);
}

void FillMissingDates(AxisTable &Dates, const QString &StartDate, const QString &EndDate,
                      document::MapWindow &Main) {
    support::PassOn("FillMissingDates", [&] {
        FilledAxis filled = FillAxis(Dates, StartDate, EndDate);
        Dates = std::move(filled.rows);
        for (const QString &month : filled.walked)
            Main.DoStatus(QStringLiteral("Searching / Creating Date ") + month);
    });
}

void UpdateTimeLineNodes(document::MapWindow &window, diagram::Surface &Flow, bool Arrange,
                         const std::vector<diagram::Node *> &moved) {
    support::PassOn("UpdateTimeLineNodes", [&] {
        CopyTemplateLook(Flow);
        if (Arrange) ArrangeTimeLineNodes(window, Flow, kStoredArrangement, moved);
    });
}

void StretchAxis(document::MapWindow &window, diagram::Surface &Flow, float Factor) {
    diagram::Node *look = LocateTimeLineTemplateNode(Flow, false);
    if (!look) return;
    if (document::GetTag(Flow, kTimelineAlign).isEmpty())
        document::SetTag(Flow, kTimelineAlign, kDefaultArrangement);
    if (RunsRightwards(Flow))
        look->SetWidth(look->Width() * Factor);
    else
        look->SetHeight(look->Height() * Factor);
    UpdateTimeLineNodes(window, Flow, true);
}

void ShowTimeline(document::MapWindow &window, diagram::Surface &Flow, bool Shown) {
    const std::size_t before = MonthsInSight(Flow);
    ShowHideTimelineNodes(Flow, Shown);
    if (MonthsInSight(Flow) <= before) return;
    if (IsDisarranged(Flow)) return UpdateTimeLineNodes(window, Flow, true);
    FollowDates(window, Flow);
}

void DoUnHideTimelineNodes(document::MapWindow &window, diagram::Surface &Flow) {
    support::PassOn("DoUnHideTimelineNodes", [&] {
        ShowHiddenMonths(Flow);
        UpdateTimeLineNodes(window, Flow, true);
    });
}

} // namespace timeline
