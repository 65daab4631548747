#include "timeline/Folding.h"

#include "diagram/model/Surface.h"
#include "document/Tags.h"
#include "settings/Settings.h"
#include "timeline/Arrange.h"
#include "timeline/DateText.h"
#include "timeline/Strip.h"
#include "timeline/TimelineNodes.h"

#include <algorithm>
#include <iterator>
#include <QCoreApplication>

namespace timeline {

namespace {

using diagram::Node;
using diagram::StripPiece;
using diagram::Surface;
using document::tags::kMonthFolded;

constexpr const char *kNamesOfPieces[] = {"Month", "Quarter", "Year"}; // as the tag holds them
constexpr float kUsualMonth = 1200;                                    // twips, where nothing tells a size

std::optional<QDate> DateOf(const Node &node) {
    return ParseDate(document::GetTag(node, document::tags::kTheDate));
}

bool IsFoldedMonth(const Node *month) { return FoldOf(*month).has_value(); }

void Mark(Node &month, const QString &fold) {
    if (document::GetTag(month, kMonthFolded) != fold) document::SetTag(month, kMonthFolded, fold);
}

// The size of an unfolded month: that of the template node, else that of the first month in sight that isn't
// folded. A template node without a width tells none, but another one behind it may.
QSizeF FullSize(const Surface &flow, const std::vector<Node *> &months) {
    for (const Node &node : flow.Nodes())
        if (node.Hidden() && node.Text() == kTemplateNodeText && node.Width() != 0)
            return node.Bounds().size();
    for (const Node *month : months)
        if (!month->Hidden() && !IsFoldedMonth(month)) return month->Bounds().size();
    return {kUsualMonth, kUsualMonth};
}

// Calls `visit` with the date and the node for each node in sight that is linked to a day of the strip.
template <typename Visit>
void ForNodesAtDays(const Surface &flow, Visit visit) {
    for (const Node &day : flow.Nodes()) {
        if (!NodeIsTimeline(day) || HasMonthForm(day.Text())) continue;
        const std::optional<QDate> date = DateOf(day);
        if (!date) continue;
        for (const diagram::Link *link : day.Links())
            if (link->Marked() && !link->Selectable() && &link->Destination() == &day &&
                !link->Source().Hidden())
                visit(*date, link->Source());
    }
}

void SizeSliver(Node &month, float length, const QSizeF &full, bool rightwards) {
    month.SetAutoSize(0);
    month.SetWidth(rightwards ? length : float(full.width()));
    month.SetHeight(rightwards ? float(full.height()) : length);
}

// Unfolds the months and gives those in sight their full size: CopyTemplateLook, which follows, does so only
// where the template node has a size.
void Unfold(const Surface &flow, const std::vector<Node *> &months) {
    const QSizeF full = FullSize(flow, LocateTimelineNodes(flow));
    for (Node *month : months) {
        Mark(*month, QString());
        if (month->Hidden()) continue;
        month->SetWidth(float(full.width()));
        month->SetHeight(float(full.height()));
    }
}

} // namespace

PieceOfStrip PieceAround(StripPiece piece, const QDate &day) {
    const int month = piece == StripPiece::Month     ? day.month()
                      : piece == StripPiece::Quarter ? (day.month() - 1) / 3 * 3 + 1
                                                     : 1;
    return {piece, QDate(day.year(), month, 1)};
}

std::optional<PieceOfStrip> FoldOf(const Node &month) {
    const QString name = document::GetTag(month, kMonthFolded);
    if (name.isEmpty()) return std::nullopt;
    const auto *found =
        std::ranges::find_if(kNamesOfPieces, [&](const char *each) { return name == QLatin1String(each); });
    const std::optional<QDate> date = found == std::end(kNamesOfPieces) ? std::nullopt : DateOf(month);
    if (!date) return std::nullopt;
    return PieceAround(StripPiece(found - std::begin(kNamesOfPieces)), *date);
}

std::vector<Node *> MonthsOf(const Surface &flow, const PieceOfStrip &piece) {
    std::vector<Node *> months = LocateTimelineNodes(flow);
    std::erase_if(months, [&](const Node *month) {
        const std::optional<QDate> date = DateOf(*month);
        return !date || PieceAround(piece.piece, *date) != piece;
    });
    return months;
}

bool IsFolded(const Surface &flow, const PieceOfStrip &piece) {
    std::vector<Node *> months = MonthsOf(flow, piece);
    std::erase_if(months, [](const Node *month) { return month->Hidden(); });
    return !months.empty() && std::ranges::all_of(months, IsFoldedMonth);
}

std::vector<Node *> NodesIn(const Surface &flow, const PieceOfStrip &piece) {
    std::vector<Node *> nodes;
    ForNodesAtDays(flow, [&](const QDate &date, Node &node) {
        if (PieceAround(piece.piece, date) == piece) nodes.push_back(&node);
    });
    std::ranges::sort(nodes, {}, &Node::Id);
    nodes.erase(std::unique(nodes.begin(), nodes.end()), nodes.end());
    return nodes;
}

NodesByMonth CountNodes(const Surface &flow) {
    NodesByMonth counts;
    ForNodesAtDays(flow, [&](const QDate &date, Node &) { ++counts[QDate(date.year(), date.month(), 1)]; });
    return counts;
}

QString NameOf(const PieceOfStrip &piece) {
    if (piece.piece == StripPiece::Month) return FormatDate(piece.first, kMonthPattern);
    QString year = QString::number(piece.first.year());
    if (piece.piece == StripPiece::Year) return year;
    return QCoreApplication::translate("timeline", "Q%1 %2", "quarter of a year")
        .arg(QString::number(piece.first.month() / 3 + 1), year);
}

QString FoldInWords(const Surface &flow, const PieceOfStrip &fold) {
    const std::size_t count = NodesIn(flow, fold).size();
    const QString text = count == 1 ? QCoreApplication::translate("timeline", "folded, one %1")
                                    : QCoreApplication::translate("timeline", "folded, %2 %1s");
    const QString words = text.arg(settings::Terms().NODE.toLower());
    return count == 1 ? words : words.arg(count);
}

bool SetFolded(document::MapWindow &window, Surface &flow, const PieceOfStrip &piece, bool folded) {
    const std::vector<Node *> months = MonthsOf(flow, piece);
    const auto isSo = [&](const Node *month) {
        return folded ? FoldOf(*month) == piece : !IsFoldedMonth(month);
    };
    if (std::ranges::all_of(months, isSo)) return false;
    for (Node *month : months) {
        const std::optional<PieceOfStrip> former = FoldOf(*month);
        if (former) Unfold(flow, MonthsOf(flow, *former));
    }
    if (folded)
        for (Node *month : months) Mark(*month, QLatin1String(kNamesOfPieces[int(piece.piece)]));
    UpdateTimeLineNodes(window, flow, true);
    return true;
}

bool UnfoldAll(document::MapWindow &window, Surface &flow) {
    std::vector<Node *> months = LocateTimelineNodes(flow);
    std::erase_if(months, [](const Node *month) { return !IsFoldedMonth(month); });
    if (months.empty()) return false;
    Unfold(flow, months);
    UpdateTimeLineNodes(window, flow, true);
    return true;
}

void SizeFolds(Surface &flow, int arrangement) {
    const std::vector<Node *> months = LocateTimelineNodes(flow);
    if (std::ranges::none_of(months, IsFoldedMonth)) return;
    const QSizeF full = FullSize(flow, months);
    const bool rightwards = RunsRightwards(arrangement);
    std::vector<MonthToFold> task;
    for (const Node *month : months) task.push_back({DateOf(*month), month->Hidden(), FoldOf(*month)});
    const auto planned = PlanFolds(task, rightwards ? full.width() : full.height());
    for (std::size_t i = 0; i < months.size(); ++i) {
        if (!planned[i]) continue;
        Mark(*months[i], QLatin1String(kNamesOfPieces[int(planned[i]->fold.piece)]));
        if (planned[i]->length) SizeSliver(*months[i], *planned[i]->length, full, rightwards);
    }
}

} // namespace timeline
