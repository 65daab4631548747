#include "document/RepairJoins.h"

#include "document/CellRules.h"
#include "document/RepairTables.h"
#include "document/SurfaceArray.h"
#include "support/clsGUID.h"

#include <algorithm>
#include <map>

namespace document {

using storage::Recordset;

namespace {

const QString kOtherNode = QStringLiteral("A node of another slice");
const QString kLooseRemedy = QStringLiteral("kept on the slice of loose items");

std::optional<int> Number(const Recordset &rows, int column) {
    if (rows.IsNull(column)) return std::nullopt;
    return rows.Long(column);
}

// All rows at once, so that the table can be written meanwhile.
template <typename Row, typename Read>
std::vector<Row> ReadAll(storage::Database &map, const char *sql, Read read) {
    std::vector<Row> all;
    for (Recordset rows = map.OpenRecordset(QString::fromLatin1(sql)); !rows.EndOfFile(); rows.MoveNext())
        all.push_back(read(rows));
    return all;
}

qlonglong RowId(const Recordset &rows) { return static_cast<qlonglong>(rows.Double(0)); }

} // namespace

void RepairJoins::Note(const QString &where, const QString &wrong, const QString &remedy) {
    repairs_.push_back({where, wrong, remedy});
}

void RepairJoins::Run() {
    GiveSlicesIndexes();
    PlaceNodes();
    DropUnknown("Nodes", "Font", "Fonts", "set to the usual font");
    DropUnknown("Links", "Font", "Fonts", "set to the usual font");
    DropUnknown("Nodes", "Picture", "Pictures", "set to none");
    DropUnknown("Slices", "Picture", "Pictures", "set to none");
    JoinLinks();
    KeepPointsOfNoLink();
    CountPoints();
    JoinHyperlinks();
    JoinAttachments();
}

// Of several slices with one index the first keeps it, and with it the nodes that name the index.
void RepairJoins::GiveSlicesIndexes() {
    struct Slice {
        qlonglong row;
        std::optional<int> index;
        QString text;
    };
    const auto rows = ReadAll<Slice>(map_, "SELECT rowid, [Index], [Text] FROM [Slices] ORDER BY rowid",
                                     [](const Recordset &r) {
                                         return Slice{RowId(r), Number(r, 1), r.Text(2)};
                                     });
    std::vector<const Slice *> without;
    for (const Slice &slice : rows) {
        if (slice.index && !slices_.contains(*slice.index))
            slices_.insert(*slice.index);
        else
            without.push_back(&slice);
    }
    int free = 0;
    for (const Slice *slice : without) {
        while (slices_.contains(free)) ++free;
        GiveIndex(slice->row, free, QStringLiteral("Slices '%1', Index").arg(ShortText(slice->text)),
                  slice->index ? QStringLiteral("%1 is another slice's").arg(*slice->index)
                               : QStringLiteral("there is none"));
    }
    if (slicesWereLost_ || slices_.isEmpty()) MakeLostSlices();
}

void RepairJoins::GiveIndex(qlonglong row, int index, const QString &where, const QString &wrong) {
    if (index > SurfaceArray::kLargestIndex) {
        map_.Execute(QStringLiteral("DELETE FROM [Slices] WHERE rowid=?"), storage::kFailOnError, {row});
        return Note(where, wrong, QStringLiteral("left out"));
    }
    map_.Execute(QStringLiteral("UPDATE [Slices] SET [Index]=? WHERE rowid=?"), storage::kFailOnError,
                 {index, row});
    slices_.insert(index);
    Note(where, wrong, QStringLiteral("set to %1").arg(index));
}

// For each index that nodes name and no slice has: their slice's own row could not be read.
void RepairJoins::MakeLostSlices() {
    constexpr int kMost = 200;
    const auto indexes =
        ReadAll<int>(map_, "SELECT DISTINCT [Slice] FROM [Nodes] WHERE [Slice] IS NOT NULL ORDER BY [Slice]",
                     [](const Recordset &r) { return r.Long(0); });
    int made = 0;
    for (const int index : indexes) {
        if (slices_.contains(index) || ++made > kMost) continue;
        map_.Execute(
            QStringLiteral("INSERT INTO [Slices] ([Index], [Text], [BackColor], [GridLines], [Timeline], "
                           "[IncMissing], [xZoom], [yZoom]) VALUES (?, ?, ?, 0, 0, 0, 0, 0)"),
            storage::kFailOnError,
            {index, QStringLiteral("Slice %1").arg(index + 1),
             MissingCell(schema::kSlices, schema::slice::kBackColor)});
        slices_.insert(index);
        Note(QStringLiteral("Slices %1").arg(index), QStringLiteral("the slice of some nodes cannot be read"),
             QStringLiteral("made anew"));
    }
}

bool RepairJoins::Stands(int slice, const QString &key) const {
    const auto found = nodes_.constFind(key);
    return found != nodes_.constEnd() && found->contains(slice);
}

// Every node has a slice, and a key that no other node of the slice has.
void RepairJoins::PlaceNodes() {
    struct NodeOfSlice {
        qlonglong row;
        QString key;
        std::optional<int> slice;
    };
    const auto rows = ReadAll<NodeOfSlice>(map_, "SELECT rowid, [Key], [Slice] FROM [Nodes] ORDER BY rowid",
                                           [](const Recordset &r) {
                                               return NodeOfSlice{RowId(r), r.Text(1), Number(r, 2)};
                                           });
    for (NodeOfSlice node : rows) {
        const QString where = RowName(QStringLiteral("Nodes"), ShortText(node.key), node.row);
        bool changed = false;
        if (!node.slice || !slices_.contains(*node.slice)) {
            Note(where + QStringLiteral(", Slice"),
                 node.slice ? QStringLiteral("there is no slice %1").arg(*node.slice)
                            : QStringLiteral("the node is on no slice"),
                 kLooseRemedy);
            node.slice = loose_.Index() < 0 ? 0 : loose_.Index();
            changed = true;
        }
        if (node.key.isEmpty() || Stands(*node.slice, node.key)) {
            const QString key = support::GetGUID();
            Note(where + QStringLiteral(", Key"),
                 node.key.isEmpty() ? QStringLiteral("there is none")
                                    : QStringLiteral("another node of the slice has it"),
                 QStringLiteral("set to %1").arg(key));
            node.key = key;
            changed = true;
        }
        nodes_[node.key].append(*node.slice);
        if (changed)
            map_.Execute(QStringLiteral("UPDATE [Nodes] SET [Key]=?, [Slice]=? WHERE rowid=?"),
                         storage::kFailOnError, {node.key, *node.slice, node.row});
    }
}

void RepairJoins::DropUnknown(const char *table, const char *column, const char *pool, const char *remedy) {
    const QString name = QString::fromLatin1(table), cell = QString::fromLatin1(column);
    const QString unknown = QStringLiteral("COALESCE([%1], '')<>'' AND [%1] NOT IN (SELECT [Key] FROM [%2] "
                                           "WHERE [Key] IS NOT NULL)")
                                .arg(cell, QString::fromLatin1(pool));
    const char *key = name == QLatin1String("Slices") ? "Index" : "Key";
    Recordset rows = map_.OpenRecordset(QStringLiteral("SELECT rowid, [%1], [%2] FROM [%3] WHERE %4")
                                            .arg(QLatin1String(key), cell, name, unknown));
    if (rows.EndOfFile()) return;
    for (; !rows.EndOfFile(); rows.MoveNext())
        Note(RowName(name, ShortText(rows.Text(1)), RowId(rows)) + QStringLiteral(", ") + cell,
             QStringLiteral("there is no '%1'").arg(ShortText(rows.Text(2))), QString::fromLatin1(remedy));
    rows.Close();
    map_.Execute(QStringLiteral("UPDATE [%1] SET [%2]=NULL WHERE %3").arg(name, cell, unknown));
}

// The node itself where it stands on the slice of loose items, else one that stands for it.
QString RepairJoins::EndOnLooseSlice(const QString &key) {
    if (Stands(loose_.Index(), key)) return key;
    if (!nodes_.contains(key)) return loose_.StandInFor(key);
    constexpr int kMostTexts = 500; // each takes a walk over all nodes
    if (++standInTexts_ > kMostTexts) return loose_.StandInFor(key, kOtherNode);
    Recordset rows =
        map_.OpenRecordset(QStringLiteral("SELECT [Description] FROM [Nodes] WHERE [Key]=?"), {key});
    const QString text = rows.EndOfFile() ? QString() : rows.Text(0);
    return loose_.StandInFor(key, text.isEmpty() ? kOtherNode : text);
}

void RepairJoins::JoinLink(qlonglong row, const QString &key, std::optional<int> slice, const QString &source,
                           const QString &destination) {
    const auto both = [&](int index) { return Stands(index, source) && Stands(index, destination); };
    if (slice && slices_.contains(*slice) && both(*slice)) return;
    const QString where = RowName(QStringLiteral("Links"), ShortText(key), row);
    const QList<int> homes = nodes_.value(source);
    const auto home = std::find_if(homes.begin(), homes.end(), both);
    if (home != homes.end()) {
        Note(where + QStringLiteral(", Slice"), QStringLiteral("its nodes stand on another slice"),
             QStringLiteral("set to %1").arg(*home));
        map_.Execute(QStringLiteral("UPDATE [Links] SET [Slice]=? WHERE rowid=?"), storage::kFailOnError,
                     {*home, row});
        return;
    }
    const QString unknown = !nodes_.contains(source) ? source : destination;
    const QString wrong = nodes_.contains(unknown)
                              ? QStringLiteral("its nodes stand on two slices")
                              : QStringLiteral("there is no node '%1'").arg(ShortText(unknown));
    if (loose_.Index() < 0) {
        map_.Execute(QStringLiteral("DELETE FROM [Links] WHERE rowid=?"), storage::kFailOnError, {row});
        return Note(where, wrong, QStringLiteral("left out"));
    }
    Note(where, wrong, kLooseRemedy);
    map_.Execute(QStringLiteral("UPDATE [Links] SET [Slice]=?, [KeySource]=?, [KeyDest]=? WHERE rowid=?"),
                 storage::kFailOnError,
                 {loose_.Index(), EndOnLooseSlice(source), EndOnLooseSlice(destination), row});
}

void RepairJoins::JoinLinks() {
    struct LinkOfSlice {
        qlonglong row;
        QString key;
        std::optional<int> slice;
        QString source, destination;
    };
    const auto rows = ReadAll<LinkOfSlice>(
        map_, "SELECT rowid, [Key], [Slice], [KeySource], [KeyDest] FROM [Links] ORDER BY rowid",
        [](const Recordset &r) {
            return LinkOfSlice{RowId(r), r.Text(1), Number(r, 2), r.Text(3), r.Text(4)};
        });
    for (const LinkOfSlice &link : rows)
        JoinLink(link.row, link.key, link.slice, link.source, link.destination);
}

// Points of one unknown link become a link of their own between two nodes at their ends.
void RepairJoins::KeepPointsOfNoLink() {
    struct Route {
        QString link;
        std::vector<diagram::Point> points;
    };
    const QString unknown =
        QStringLiteral("[Link] IS NULL OR [Link] NOT IN (SELECT [Key] FROM [Links] WHERE [Key] IS "
                       "NOT NULL)");
    std::vector<Route> routes;
    for (Recordset rows = map_.OpenRecordset(
             QStringLiteral(
                 "SELECT [Link], [X], [Y] FROM [LinkPoints] WHERE %1 ORDER BY [Link], [Index], rowid")
                 .arg(unknown));
         !rows.EndOfFile(); rows.MoveNext()) {
        if (routes.empty() || routes.back().link != rows.Text(0)) routes.push_back({rows.Text(0), {}});
        routes.back().points.push_back({rows.Single(1), rows.Single(2)});
    }
    if (routes.empty()) return;
    map_.Execute(QStringLiteral("DELETE FROM [LinkPoints] WHERE %1").arg(unknown));
    for (const Route &route : routes) {
        const bool isKept = loose_.Index() >= 0;
        Note(QStringLiteral("LinkPoints %1").arg(ShortText(route.link)),
             QStringLiteral("%1 points of a link that does not exist").arg(route.points.size()),
             isKept ? kLooseRemedy : QStringLiteral("left out"));
        if (isKept) KeepRoute(route.link, route.points);
    }
}

void RepairJoins::KeepRoute(const QString &link, const std::vector<diagram::Point> &points) {
    const QString text = QStringLiteral("An end of the link %1, which is missing").arg(ShortText(link));
    const QString source = loose_.AddNode(text, &points.front());
    const QString key = loose_.AddLink(source, loose_.AddNode(text, &points.back()));
    int index = 0;
    for (const diagram::Point &point : points)
        map_.Execute(InsertInto(schema::kLinkPoints), storage::kFailOnError,
                     {index++, key, double(point.x), double(point.y)});
}

// Positions that a load refuses, or that stand twice, are counted anew in their order. A load refuses gaps of
// more than 1024 positions (LoadSlice.cpp); from 1000 on every gap is closed here.
void RepairJoins::CountPoints() {
    struct Place {
        qlonglong row;
        std::optional<int> index;
    };
    const auto links = ReadAll<QString>(
        map_,
        "SELECT [Link] FROM [LinkPoints] GROUP BY [Link] HAVING COUNT([Index])<COUNT(*) OR MIN([Index])<0 OR "
        "(MAX([Index])>=COUNT(*) AND MAX([Index])>1000) OR COUNT(DISTINCT [Index])<COUNT(*)",
        [](const Recordset &r) { return r.Text(0); });
    if (links.empty()) return;
    const QSet<QString> bad(links.begin(), links.end());
    std::map<QString, std::vector<Place>> places;
    for (Recordset rows = map_.OpenRecordset(
             QStringLiteral("SELECT rowid, [Link], [Index] FROM [LinkPoints] ORDER BY rowid"));
         !rows.EndOfFile(); rows.MoveNext())
        if (bad.contains(rows.Text(1))) places[rows.Text(1)].push_back({RowId(rows), Number(rows, 2)});
    for (auto &[link, points] : places) {
        Note(QStringLiteral("LinkPoints %1, Index").arg(ShortText(link)),
             QStringLiteral("the positions cannot be"), QStringLiteral("counted anew"));
        const bool isWhole =
            std::all_of(points.begin(), points.end(), [](const Place &p) { return p.index.has_value(); });
        if (isWhole)
            std::stable_sort(points.begin(), points.end(),
                             [](const Place &a, const Place &b) { return *a.index < *b.index; });
        int index = 0;
        for (const Place &place : points)
            map_.Execute(QStringLiteral("UPDATE [LinkPoints] SET [Index]=? WHERE rowid=?"),
                         storage::kFailOnError, {index++, place.row});
    }
}

// A node has one hyperlink: each further one, and each whose node is missing, goes to a node of its own.
void RepairJoins::JoinHyperlinks() {
    struct Row {
        qlonglong row;
        QString node, map, destination;
    };
    const auto rows =
        ReadAll<Row>(map_, "SELECT rowid, [NodeKey], [Filename], [Node] FROM [Hyperlinks] ORDER BY rowid",
                     [](const Recordset &r) {
                         return Row{RowId(r), r.Text(1), r.Text(2), r.Text(3)};
                     });
    QSet<QString> linked;
    for (const Row &row : rows) {
        const QString where = RowName(QStringLiteral("Hyperlinks"), ShortText(row.node), row.row);
        if (row.map.isEmpty() && !row.destination.isEmpty() && !nodes_.contains(row.destination)) {
            Note(where + QStringLiteral(", Node"),
                 QStringLiteral("there is no node '%1'").arg(ShortText(row.destination)),
                 QStringLiteral("set to none"));
            map_.Execute(QStringLiteral("UPDATE [Hyperlinks] SET [Node]='' WHERE rowid=?"),
                         storage::kFailOnError, {row.row});
        }
        const bool isTwice = linked.contains(row.node);
        if (nodes_.contains(row.node) && !isTwice) {
            linked.insert(row.node);
            continue;
        }
        const QString wrong = isTwice ? QStringLiteral("the node has another hyperlink")
                                      : QStringLiteral("there is no node '%1'").arg(ShortText(row.node));
        KeepHyperlink(row.row, row.node, wrong,
                      isTwice ? QStringLiteral("A second hyperlink of the node %1").arg(ShortText(row.node))
                              : MissingNodeText(row.node));
    }
}

void RepairJoins::KeepHyperlink(qlonglong row, const QString &node, const QString &wrong,
                                const QString &text) {
    const QString where = RowName(QStringLiteral("Hyperlinks"), ShortText(node), row);
    if (loose_.Index() < 0) {
        map_.Execute(QStringLiteral("DELETE FROM [Hyperlinks] WHERE rowid=?"), storage::kFailOnError, {row});
        return Note(where, wrong, QStringLiteral("left out"));
    }
    Note(where, wrong, kLooseRemedy);
    map_.Execute(QStringLiteral("UPDATE [Hyperlinks] SET [NodeKey]=? WHERE rowid=?"), storage::kFailOnError,
                 {loose_.AddNode(text, nullptr, QStringLiteral("|HYPER=Yes")), row});
}

void RepairJoins::JoinAttachments() {
    struct Row {
        qlonglong row;
        QString node, file;
    };
    const auto rows =
        ReadAll<Row>(map_, "SELECT rowid, [NodeKey], [Filename] FROM [Attachments] ORDER BY rowid",
                     [](const Recordset &r) {
                         return Row{RowId(r), r.Text(1), r.Text(2)};
                     });
    for (const Row &row : rows) {
        if (nodes_.contains(row.node)) continue;
        const bool isKept = loose_.Index() >= 0;
        Note(QStringLiteral("Attachments '%1', NodeKey").arg(ShortText(row.file)),
             QStringLiteral("there is no node '%1'").arg(ShortText(row.node)),
             isKept ? kLooseRemedy : QStringLiteral("left out"));
        if (isKept)
            map_.Execute(QStringLiteral("UPDATE [Attachments] SET [NodeKey]=? WHERE rowid=?"),
                         storage::kFailOnError, {loose_.StandInFor(row.node), row.row});
        else
            map_.Execute(QStringLiteral("DELETE FROM [Attachments] WHERE rowid=?"), storage::kFailOnError,
                         {row.row});
    }
}

} // namespace document
