#include "diagram/model/Ranges.h"
#include "diagram/model/Surface.h"
#include "document/CellRules.h"
#include "document/RepairMap.h"
#include "document/Tags.h"
#include "storage/Fields.h"
#include "support/AtomicFile.h"
#include "support/Files.h"
#include "tests/document/MapTest.h"
#include "tests/Paths.h"

#include <cmath>
#include <QFile>

using namespace document;
using namespace document::testing;

class RepairTest : public MapTest {
protected:
    // Repairs the map and loads the result; the report is left in report_.
    std::unique_ptr<MemoryWindow> Repaired(const QString &path) {
        const QString target = MapFile(QStringLiteral("repaired.map"));
        report_ = RepairMap(path, target);
        return Loaded(target);
    }
    QStringList Lines() const {
        QStringList lines = report_.lost;
        for (const Repair &repair : report_.repairs) lines.append(RepairText(repair));
        return lines;
    }
    static diagram::Surface &Last(MapWindow &window) {
        return window.AddFlow1()[window.AddFlow1().Indices().back()];
    }
    static QStringList Texts(diagram::Surface &surface) {
        QStringList texts;
        for (const diagram::Node &node : surface.Nodes()) texts.append(node.Text());
        texts.sort();
        return texts;
    }
    // A map of the size of several pages in each of the large tables: 400 nodes in a chain on two slices.
    QString LargeMap() {
        QStringList statements{InsertSlice(0, QStringLiteral("one")), InsertSlice(1, QStringLiteral("two"))};
        for (int i = 0; i < 400; ++i)
            statements.append(
                InsertNode(QStringLiteral("n%1").arg(i), i / 200, QStringLiteral("[Description], [Width]"),
                           QStringLiteral("'%1', %2").arg(QString(60, QLatin1Char('x'))).arg(i)));
        for (int i = 0; i < 399; ++i)
            if (i != 199)
                statements.append(InsertLink(QStringLiteral("l%1").arg(i), QStringLiteral("n%1").arg(i),
                                             QStringLiteral("n%1").arg(i + 1), i / 200));
        return Map(statements);
    }
    static void Spoil(const QString &path, qint64 at, const QByteArray &bytes) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.seek(at));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }
    static int CountNodes(MapWindow &window) {
        int nodes = 0;
        for (const int index : window.AddFlow1().Indices()) nodes += window.AddFlow1()[index].Nodes().Count();
        return nodes;
    }

    RepairReport report_;
};

TEST(CellRules, TheirBordersAreThoseOfALoadAndTheirFallbacksAreAllowed) {
    for (const CellRule &rule : CellRules()) {
        const QString name = NameOf(*rule.table, rule.column);
        SCOPED_TRACE(name.toStdString());
        EXPECT_EQ(RuleFor(*rule.table, rule.column), &rule);
        EXPECT_TRUE(rule.range(rule.range.lowest));
        EXPECT_TRUE(rule.range(rule.range.Highest()));
        EXPECT_TRUE(std::isnan(rule.fallback) || rule.range(rule.fallback));
        if (std::isinf(rule.range.Highest())) continue;
        EXPECT_FALSE(rule.range(rule.range.lowest - 1));
        EXPECT_FALSE(rule.range(rule.range.Highest() * 1.001 + 1));
    }
}

TEST_F(RepairTest, ASoundMapComesBackAsItWasWithNothingToSay) {
    const QString path = tests::Data(QStringLiteral("jet/plan.mdb"));
    const auto before = Loaded(path);
    const auto after = Repaired(path);
    EXPECT_EQ(Lines(), QStringList());
    ExpectSameLines(Describe(*after), Describe(*before));
}

TEST_F(RepairTest, NumbersTakeTheNearestValueAndTextsTheUsualOne) {
    const auto window = Repaired(
        Map({InsertSlice(0, QStringLiteral("s")),
             InsertNode(
                 QStringLiteral("n"), 0,
                 QStringLiteral(
                     "[Left], [Top], [Width], [Height], [DrawWidth], [xTextMargin], [Shape], [Shadow], "
                     "[Alignment], [Hidden], [FillColor], [Description]"),
                 QStringLiteral("-12, 1e30, 1e30, 'tall', -4, 99999, 20, 9, 'right', 'perhaps', 99999999999, "
                                "'its text'"))}));
    const diagram::Node &node = window->AddFlow1()[0].Nodes().Item(QStringLiteral("n"));
    EXPECT_EQ(node.Left(), 12);
    EXPECT_EQ(node.Top(), diagram::kLargestCoordinate);
    EXPECT_EQ(node.Width(), diagram::kLargestCoordinate);
    EXPECT_EQ(node.Height(), 900);
    EXPECT_EQ(node.DrawWidth(), 0);
    EXPECT_EQ(node.xTextMargin(), 32767);
    EXPECT_EQ(node.Shape(), 1);
    EXPECT_EQ(node.Shadow(), 4);
    EXPECT_EQ(node.Alignment(), 7);
    EXPECT_FALSE(node.Hidden());
    EXPECT_EQ(node.FillColor(), 2147483647);
    EXPECT_EQ(node.Text(), "its text");
    EXPECT_EQ(report_.repairs.size(), 10U);
    EXPECT_TRUE(Lines().contains(QStringLiteral("Nodes n, Width: 1e+30 is out of range; set to 100000000")));
    EXPECT_TRUE(Lines().contains(QStringLiteral("Nodes n, Height: 'tall' is no number; set to 900")));
}

TEST_F(RepairTest, WhatHangsLooseStandsOnASliceOfItsOwn) {
    const QString a = QStringLiteral("a"), b = QStringLiteral("b"), none = QStringLiteral("none");
    const auto window = Repaired(
        Map({InsertSlice(0, QStringLiteral("s")), InsertSlice(4, QStringLiteral("t")),
             InsertNode(a, 0, QStringLiteral("[Description]"), QStringLiteral("'from'")), InsertNode(b, 4),
             InsertNode(QStringLiteral("far"), 77, QStringLiteral("[Description]"), QStringLiteral("'far'")),
             InsertLink(QStringLiteral("l"), a, none, 0, QStringLiteral("[Text]"), QStringLiteral("'label'")),
             InsertLink(QStringLiteral("m"), a, b, 0), InsertLink(QStringLiteral("k"), b, b, 0),
             QStringLiteral("INSERT INTO [LinkPoints] VALUES (0, 'gone', 10, 20)"),
             QStringLiteral("INSERT INTO [LinkPoints] VALUES (1, 'gone', 30, 40)"),
             QStringLiteral("INSERT INTO [LinkPoints] VALUES (2, 'gone', 50, 60)"),
             QStringLiteral("INSERT INTO [Attachments] VALUES ('k', 'none', 'notes.txt', True, x'414243')"),
             QStringLiteral("INSERT INTO [Hyperlinks] VALUES ('none', 'other.map', 1, '')"),
             QStringLiteral("INSERT INTO [Hyperlinks] VALUES ('a', '', 1, '')"),
             QStringLiteral("INSERT INTO [Hyperlinks] VALUES ('a', 'third.map', 2, '')")}));
    EXPECT_EQ(window->AddFlow1().Indices(), (std::vector<int>{0, 4, 5}));
    EXPECT_EQ(window->TabStrip().TabCaption(2), "Loose items");
    diagram::Surface &loose = Last(*window);
    EXPECT_EQ(
        Texts(loose).join(QLatin1Char('|')).toStdString(),
        "A node of another slice|A second hyperlink of the node a|An end of the link gone, which is missing|"
        "An end of the link gone, which is missing|The node none, which is missing|"
        "The node none, which is missing|far|from");
    ASSERT_EQ(loose.Links().size(), 3U);
    EXPECT_EQ(loose.Links()[0]->Text(), "label");
    EXPECT_EQ(loose.Links()[0]->Source().Text(), "from");
    EXPECT_EQ(loose.Links()[0]->Destination().Text(), "The node none, which is missing");
    EXPECT_EQ(loose.Links()[2]->Route().size(), 3U);
    EXPECT_EQ(window->AddFlow1()[4].Links().size(), 1U)
        << "a link whose nodes stand on one other slice goes there";
    clsfrmMain &settings = window->clsSettings();
    EXPECT_EQ(support::ReadWholeFile(settings.Attachments().Item(1).Filename), "ABC");
    EXPECT_NE(loose.Nodes().Find(settings.Attachments().Item(1).Node), nullptr);
    ASSERT_EQ(settings.Hyperlinks().count(), 3);
    for (const cHyperlink &link : settings.Hyperlinks())
        EXPECT_TRUE(link.Map.isEmpty() || GetTag(loose.Nodes().Item(link.Node), tags::kHyper) == "Yes");
}

TEST_F(RepairTest, AnEmptyMapAndOneWithoutSlicesAreRepairedToo) {
    const auto empty = Repaired(Map({}));
    EXPECT_EQ(Lines(), QStringList());
    EXPECT_EQ(CountNodes(*empty), 0);
    QFile::remove(MapFile(QStringLiteral("a.map")));
    QFile::remove(MapFile(QStringLiteral("repaired.map")));
    const auto window =
        Repaired(Map({InsertNode(QStringLiteral("a"), 0), InsertNode(QStringLiteral("b"), 3)}));
    EXPECT_EQ(window->AddFlow1().Indices(), (std::vector<int>{0, 3}));
    EXPECT_EQ(CountNodes(*window), 2);
}

TEST_F(RepairTest, AnOldMapHasNothingWrongAndStaysAsItIs) {
    const QString path = Map({InsertSlice(0, QStringLiteral("s")), InsertNode(QStringLiteral("n"))});
    Run(path, QStringLiteral("ALTER TABLE [Nodes] DROP COLUMN [Alignment]"));
    Run(path, QStringLiteral("ALTER TABLE [Slices] DROP COLUMN [xZoom]"));
    Run(path, QStringLiteral("ALTER TABLE [Slices] DROP COLUMN [yZoom]"));
    const QByteArray before = support::ReadWholeFile(path);
    const auto window = Repaired(path);
    EXPECT_EQ(Lines(), QStringList());
    EXPECT_EQ(window->AddFlow1()[0].Nodes().Item(1).Alignment(), 7);
    EXPECT_EQ(support::ReadWholeFile(path), before);
}

TEST_F(RepairTest, ADamagedPageCostsItsOwnRowsAlone) {
    const QString path = LargeMap();
    const QByteArray bytes = support::ReadWholeFile(path);
    const qsizetype at = bytes.indexOf("n150"); // a page of nodes
    ASSERT_GT(at, 0);
    Spoil(path, at / 4096 * 4096, QByteArray(4096, '\x55'));
    EXPECT_EQ(ErrorOf([&] { Loaded(path); }).Number(), storage::kErrDamaged);
    const auto window = Repaired(path);
    EXPECT_GT(CountNodes(*window), 350);
    EXPECT_FALSE(report_.lost.isEmpty());
    EXPECT_TRUE(report_.lost.first().startsWith(QStringLiteral("Nodes, row")))
        << Lines().first().toStdString();
    EXPECT_NE(window->AddFlow1()[0].Nodes().Find(QStringLiteral("n10")), nullptr);
    EXPECT_NE(window->AddFlow1()[1].Nodes().Find(QStringLiteral("n390")), nullptr);
    EXPECT_EQ(window->AddFlow1()[0].Nodes().Find(QStringLiteral("n150")), nullptr);
}

TEST_F(RepairTest, AFileThatWasCutOffOrLostItsFirstPageIsReadAsFarAsItGoes) {
    const QString path = LargeMap();
    const QByteArray bytes = support::ReadWholeFile(path);
    for (const bool isCut : {true, false}) {
        QFile::remove(MapFile(QStringLiteral("repaired.map")));
        support::AtomicFile file(path);
        file.Write(isCut ? bytes.left(bytes.size() * 3 / 4 - 100) : QByteArray(4096, '\0') + bytes.mid(4096));
        file.Commit();
        EXPECT_NE(ErrorOf([&] { Loaded(path); }).Number(), 0);
        const auto window = Repaired(path);
        EXPECT_GT(CountNodes(*window), isCut ? 50 : 399);
        EXPECT_FALSE(report_.lost.isEmpty());
    }
}

TEST_F(RepairTest, OneThatIsNoMapAtAllIsTheErrorOfOpening) {
    const QString target = MapFile(QStringLiteral("b.map"));
    const QString text = MapFile(QStringLiteral("text.map"));
    support::AtomicFile file(text);
    file.Write("no map at all");
    file.Commit();
    EXPECT_EQ(ErrorOf([&] { RepairMap(text, target); }).Number(), storage::kErrUnrecognizedFormat);
    EXPECT_EQ(ErrorOf([&] { RepairMap(MapFile(QStringLiteral("none.map")), target); }).Number(),
              storage::kErrFileNotFound);
    EXPECT_FALSE(support::FileExists(target));
}

TEST_F(RepairTest, AJetFileThatCannotBeReadWholeGivesTheRestOfItsRows) {
    const QString source = tests::Data(QStringLiteral("jet/plan.mdb"));
    const int whole = CountNodes(*Loaded(source));
    const QByteArray bytes = support::ReadWholeFile(source);
    const QString path = MapFile(QStringLiteral("old.mdb"));
    int repaired = 0, partly = 0;
    for (qsizetype page = 3; page * 4096 < bytes.size(); page += 5) {
        QByteArray damaged = bytes;
        damaged.replace(page * 4096, 4096, QByteArray(4096, '\x55'));
        support::AtomicFile file(path);
        file.Write(damaged);
        file.Commit();
        if (ErrorOf([&] { Loaded(path); }).Number() == 0) continue;
        QFile::remove(MapFile(QStringLiteral("repaired.map")));
        const long error = ErrorOf([&] {
                               const auto window = Repaired(path);
                               ++repaired;
                               partly += CountNodes(*window) > 0 && CountNodes(*window) <= whole + 10;
                               EXPECT_FALSE(Lines().isEmpty()) << page;
                           }).Number();
        EXPECT_TRUE(error == 0 || error == storage::kErrDamaged) << page << ' ' << error;
    }
    EXPECT_GT(repaired, 0);
    EXPECT_GT(partly, repaired / 2);
}
