// Holds the tree to its one-way includes: every folder names what it may include, and any other arrow fails
// here.
#include "tests/structure/Tree.h"

#include <QDirIterator>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>
#include <QRegularExpression>
#include <QSet>

namespace {

using structure::testing::kRoot;
using structure::testing::TextOf;

// Folder -> folders that it may include besides itself. The longest folder that a path begins with counts.
QMap<QString, QStringList> Allowed() {
    QMap<QString, QStringList> allowed{
        {"support", {}},
        {"support/headless", {"support"}},
        {"support/real", {"support", "support/headless"}},
        {"support/testing", {"support"}},
        {"support/posix", {"support"}},
        {"support/posix/printing", {"support", "support/headless"}},
        {"support/windows", {"support"}},
        {"support/windows/printing", {"support", "support/headless"}},
        {"settings", {"support"}},
        {"vector/geometry", {}},
        {"vector/player", {"support", "vector/geometry"}},
        {"vector/engine", {"support", "vector/geometry", "vector/player"}},
        {"storage/text", {"support"}},
        {"storage", {"support", "storage/text"}},
        {"storage/jet", {"support", "storage", "storage/text"}},
        {"storage/jet/program", {"support", "storage", "storage/text", "storage/jet"}},
    };
    // Inside the diagram component each folder may include those in front of it.
    const QStringList diagram = {"geometry", "shapes", "model",  "edit",   "scene",       "hit",
                                 "format",   "layout", "render", "export", "interaction", "view"};
    QStringList below = {"support", "vector/geometry", "vector/player", "vector/engine"};
    for (const QString &part : diagram) {
        const QString folder = "diagram/" + part;
        allowed[folder] = below;
        below << folder;
    }
    QStringList base = below;
    base.removeAll("diagram/interaction");
    base.removeAll("diagram/view");
    allowed["widgets"] = base;
    allowed["document"] = base + QStringList{"storage", "storage/text", "settings"};
    QStringList above = allowed["document"] + QStringList{"document"};
    allowed["timeline"] = above;
    allowed["timeline/setup"] = above + QStringList{"timeline", "widgets"};
    allowed["recovery"] = above;
    above << "timeline";
    for (const char *folder : {"templates", "output/model", "dialogs"}) allowed[folder] = above;
    allowed["dialogs"] << "widgets";
    allowed["templates/forms"] = above + QStringList{"templates", "widgets", "dialogs"};
    QStringList outputs = above + QStringList{"output/model"};
    for (const char *table : {"output/csv", "output/mapimport"}) allowed[table] = outputs;
    allowed["output/report"] = outputs;
    outputs << "output/report";
    for (const char *writer : {"output/rtf", "output/html"}) allowed[writer] = outputs;
    outputs << "output/rtf"
            << "output/html";
    allowed["output/export"] = outputs;
    outputs << "output/csv"
            << "output/mapimport"
            << "output/export";
    allowed["output/export/form"] = allowed["output/export"] + QStringList{"output/export", "widgets"};
    for (const char *container : {"output/package", "output/compound"}) allowed[container] = {"support"};
    allowed["output/powerpoint"] = above + QStringList{"output/model", "output/package", "output/compound"};
    allowed["output/powerpoint/form"] = allowed["output/powerpoint"] + QStringList{"output/powerpoint"};
    outputs << "output/powerpoint";
    allowed["output/print"] = base + QStringList{"settings", "document"};
    allowed["output/print/form"] = allowed["output/print"] + QStringList{"output/print", "widgets"};
    outputs << "output/print";
    const QStringList plain = outputs + QStringList{"templates", "recovery"};
    allowed["cli"] = plain + QStringList{"support/headless"};
    allowed["product"] = allowed["cli"];
    allowed["product/desktop"] = {"support", "support/headless"};
    allowed["product/help"] = {"support", "support/headless", "settings"};
    const QStringList windows =
        plain +
        QStringList{"widgets",          "dialogs", "timeline/setup", "diagram/view", "diagram/interaction",
                    "output/print/form"};
    // So may each room of the window; the frame, which stands in mainwindow/ itself, comes last.
    QStringList rooms = windows;
    for (const char *room : {"icons", "controls", "edits", "look", "menus", "forms", "window", "start",
                             "slices", "find", "templates", "commands"}) {
        const QString folder = QStringLiteral("mainwindow/") + room;
        allowed[folder] = rooms;
        rooms << folder;
    }
    allowed["mainwindow"] = rooms;
    allowed["mainwindow/icons/program"] = {"mainwindow/icons"};
    allowed["app"] = rooms + QStringList{"mainwindow",      "support/headless",   "support/real",
                                         "templates/forms", "output/export/form", "output/powerpoint/form"};
    return allowed;
}

QString FolderOf(const QString &path, const QMap<QString, QStringList> &allowed) {
    if (path == "mainwindow/frmMain.h") return "mainwindow/window"; // features see it, and not its sources
    QString best;
    for (auto it = allowed.begin(); it != allowed.end(); ++it)
        if (path.startsWith(it.key() + '/') && it.key().size() > best.size()) best = it.key();
    return best;
}

QStringList Sources() {
    QStringList paths;
    const QMap<QString, QStringList> allowed = Allowed();
    QSet<QString> tops;
    for (auto it = allowed.begin(); it != allowed.end(); ++it) tops << it.key().section('/', 0, 0);
    for (const QString &top : tops) {
        QDirIterator walk(kRoot.filePath(top), {"*.h", "*.cpp"}, QDir::Files, QDirIterator::Subdirectories);
        while (walk.hasNext()) paths << kRoot.relativeFilePath(walk.next());
    }
    return paths;
}

QStringList IncludesOf(const QString &path) {
    static const QRegularExpression include(QStringLiteral("^\\s*#\\s*include\\s*\"([^\"]+)\""),
                                            QRegularExpression::MultilineOption);
    QStringList includes;
    auto matches = include.globalMatch(TextOf(path));
    while (matches.hasNext()) includes << matches.next().captured(1);
    return includes;
}

using Arrows = QMap<QString, QSet<QString>>;

// From each folder to all that can be reached from it over any number of arrows.
Arrows Followed(Arrows arrows) {
    for (bool grown = true; grown;) {
        grown = false;
        for (auto from = arrows.begin(); from != arrows.end(); ++from) {
            const QSet<QString> before = *from;
            for (const QString &to : before) *from |= arrows.value(to);
            grown |= from->size() > before.size();
        }
    }
    return arrows;
}

Arrows AllowedBetweenTops() {
    Arrows arrows;
    const auto allowed = Allowed();
    for (auto it = allowed.begin(); it != allowed.end(); ++it) {
        const QString from = it.key().section('/', 0, 0);
        arrows[from];
        for (const QString &to : it.value())
            if (to.section('/', 0, 0) != from) arrows[from] << to.section('/', 0, 0);
    }
    return arrows;
}

Arrows DrawnBetweenTops() {
    const QByteArray picture = TextOf("docs/folders.json").toUtf8();
    const QJsonObject slice = QJsonDocument::fromJson(picture)["slices"][0].toObject();
    Arrows arrows;
    for (const QJsonValue node : slice["nodes"].toArray()) arrows[node["id"].toString()];
    for (const QJsonValue link : slice["links"].toArray())
        arrows[link["from"].toString()] << link["to"].toString();
    return arrows;
}

bool Reaches(const QString &from, const QString &to, const QMap<QString, QStringList> &graph,
             QSet<QString> &seen) {
    for (const QString &next : graph.value(from)) {
        if (next == to) return true;
        if (seen.contains(next)) continue;
        seen << next;
        if (Reaches(next, to, graph, seen)) return true;
    }
    return false;
}

} // namespace

TEST(Folders, AreAllKnownAndNoOthers) {
    QSet<QString> there;
    QDirIterator walk(kRoot.path(), {"*.h", "*.cpp"}, QDir::Files, QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        const QString folder = kRoot.relativeFilePath(QFileInfo(walk.next()).path());
        const QString top = folder.section('/', 0, 0);
        if (!QStringList{"build", "tests", "benchmarks"}.contains(top)) there << folder;
    }
    const auto allowed = Allowed();
    for (const QString &folder : there) {
        EXPECT_TRUE(allowed.contains(folder)) << qPrintable(folder) << " has no rule";
    }
    for (const QString &folder : allowed.keys()) {
        EXPECT_TRUE(there.contains(folder)) << qPrintable(folder) << " isn't there";
    }
}

TEST(Folders, AreDrawnAsTheyMayIncludeOneAnother) {
    const Arrows drawn = Followed(DrawnBetweenTops()), allowed = Followed(AllowedBetweenTops());
    EXPECT_EQ(drawn.keys(), allowed.keys());
    for (const QString &from : allowed.keys()) EXPECT_EQ(drawn[from], allowed[from]) << qPrintable(from);
}

TEST(Includes, PointOnlyAtFoldersBelow) {
    const auto allowed = Allowed();
    const QStringList sources = Sources();
    ASSERT_GT(sources.size(), 50);
    for (const QString &path : sources) {
        const QString folder = FolderOf(path, allowed);
        EXPECT_FALSE(folder.isEmpty()) << qPrintable(path) << " stands in no folder that has a rule";
        for (const QString &include : IncludesOf(path)) {
            if (!QFile::exists(kRoot.filePath(include))) continue; // generated, or a system header
            const QString target = FolderOf(include, allowed);
            EXPECT_TRUE(target == folder || allowed[folder].contains(target))
                << qPrintable(path) << " must not include " << qPrintable(include);
        }
    }
}

TEST(Includes, MakeNoCircles) {
    QMap<QString, QStringList> graph;
    for (const QString &path : Sources()) graph[path] = IncludesOf(path);
    for (auto it = graph.begin(); it != graph.end(); ++it) {
        QSet<QString> seen;
        EXPECT_FALSE(Reaches(it.key(), it.key(), graph, seen)) << qPrintable(it.key()) << " includes itself";
    }
}

TEST(Files, DifferByMoreThanCase) {
    QMap<QString, QString> names;
    QDirIterator walk(kRoot.path(), QDir::Files, QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        const QString path = kRoot.relativeFilePath(walk.next());
        if (path.startsWith("build") || path.startsWith(".git/")) continue;
        const QString lower = path.toLower();
        EXPECT_FALSE(names.contains(lower)) << qPrintable(path) << " and " << qPrintable(names[lower]);
        names[lower] = path;
    }
}
