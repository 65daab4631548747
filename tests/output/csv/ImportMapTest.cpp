#include "output/csv/ImportMap.h"

#include "diagram/format/SurfaceFile.h"
#include "diagram/model/Surface.h"
#include "document/Tags.h"
#include "storage/Database.h"
#include "support/Error.h"
#include "support/Files.h"
#include "tests/output/csv/CsvTest.h"
#include "timeline/Arrange.h"
#include "timeline/TimelineNodes.h"

#include <QFile>
#include <QImage>

namespace output::testing {

using document::GetTag;

namespace {

class ImportTest : public CsvTest {
protected:
    // A file with two nodes and a link between them; what it was made of stays.
    ImportTest() {
        diagram::Node &a = AddNode(QStringLiteral("A")), &b = AddNode(QStringLiteral("B"), 3000);
        a.Links().Add(b).SetText(QStringLiteral("leads to"));
        Save();
        Export();
        table = Read();
    }
    void Date(int node, const char *date) {
        timeline::LocateTimelineNode(*flow, QLatin1String(date), true, &flow->Nodes().Item(node));
        document::SetTag(*flow, "TM_Align", QStringLiteral("3"));
        timeline::ArrangeTimeLineNodes(*window, *flow, timeline::kStoredArrangement);
    }
    // Imports the table into a surface that has a node of its own, which must be as it was afterwards.
    support::Error Refused() {
        Write(table);
        return RefusedFile();
    }
    support::Error RefusedFile() {
        const QByteArray before = diagram::SaveBytes(*flow);
        const bool couldUndo = flow->CanUndo();
        window->clsSettings().Dirty = false;
        const support::Error error = ErrorOf([&] { Import(); });
        EXPECT_TRUE(diagram::SaveBytes(*flow) == before);
        EXPECT_EQ(flow->CanUndo(), couldUndo);
        EXPECT_FALSE(window->clsSettings().Dirty);
        EXPECT_EQ(window->statuses.last(), QString());
        EXPECT_EQ(window->pointers.back(), document::pointer::kNormal);
        return error;
    }
    Table table;
};

QString Place(int row, const char *column) {
    return QStringLiteral("\r\n\r\nRow %1, column %2").arg(row).arg(QLatin1String(column));
}

} // namespace

TEST_F(ImportTest, CopiesHaveNewKeysAndTheOriginalsAreUnchanged) {
    const QStringList before = Carried(*window, *flow);
    const QStringList keys{flow->Nodes().Item(1).Key(), flow->Nodes().Item(2).Key()};
    Import();
    ASSERT_EQ(flow->Nodes().Count(), 5) << "and the one that months take their look from";
    ASSERT_EQ(flow->Links().size(), 2u);
    EXPECT_EQ(flow->Nodes().Item(1).Key(), keys[0]);
    EXPECT_EQ(flow->Nodes().Item(2).Key(), keys[1]);
    for (const int copy : {3, 4}) {
        EXPECT_EQ(flow->Nodes().Item(copy).Key().size(), 38);
        EXPECT_FALSE(keys.contains(flow->Nodes().Item(copy).Key()));
    }
    const diagram::Link &link = *flow->Links()[1];
    EXPECT_EQ(&link.Source(), &flow->Nodes().Item(3)) << "the link stays with its nodes";
    EXPECT_EQ(&link.Destination(), &flow->Nodes().Item(4));
    EXPECT_EQ(link.Key(), QString());
    QStringList twice = before + before;
    twice.sort();
    ExpectSameLines(Carried(*window, *flow), twice);
    EXPECT_TRUE(window->clsSettings().Dirty);
}

TEST_F(ImportTest, IsOneStepOfUndo) {
    const QByteArray before = diagram::SaveBytes(*flow);
    Import();
    const QStringList after = Carried(*window, *flow);
    flow->Undo();
    EXPECT_TRUE(diagram::SaveBytes(*flow) == before);
    flow->Redo();
    ExpectSameLines(Carried(*window, *flow), after);
}

TEST_F(ImportTest, TellsItsSteps) {
    window->statuses.clear();
    Import();
    EXPECT_EQ(window->statuses.first(), QStringLiteral("Opening input file..."));
    EXPECT_TRUE(window->statuses.contains(QStringLiteral("Reading input file...")));
    EXPECT_EQ(window->statuses.mid(window->statuses.size() - 2), (QStringList{"Finishing...", ""}));
    EXPECT_EQ(window->progress.back(), 0);
}

TEST_F(ImportTest, FindsLevelAndGroupsByName) {
    table.Set(0, "Group", QStringLiteral("Sales,O'Brien"));
    table.Set(0, "Level", QStringLiteral("12"));
    table.Set(0, "Tag", QStringLiteral("|GROUP=gone|LEVEL=gone|HYPER=No"));
    table.Set(1, "Group", QStringLiteral("Nobody"));
    table.Set(1, "Level", QStringLiteral("99"));
    Write(table);
    Import();
    document::clsfrmMain &settings = window->clsSettings();
    const diagram::Node &a = flow->Nodes().Item(3), &b = flow->Nodes().Item(4);
    EXPECT_EQ(settings.Groups().GroupNameForKey(GetTag(a, "GROUP")), QStringLiteral("Sales,O'Brien"));
    EXPECT_EQ(settings.Levels().LevelNameForKey(GetTag(a, "LEVEL")), QStringLiteral("12"));
    EXPECT_EQ(GetTag(a, "HYPER"), QStringLiteral("No"));
    EXPECT_EQ(GetTag(b, "GROUP"), QString());
    EXPECT_EQ(GetTag(b, "LEVEL"), QString());
}

TEST_F(ImportTest, TakesALevelThatASpreadsheetHasWrittenInAnotherWay) {
    for (const char *level : {"12.0", "1.2E1", "12"}) {
        table.Set(0, "Level", QLatin1String(level));
        Write(table);
        flow->Nodes().Clear();
        Import();
        EXPECT_EQ(window->clsSettings().Levels().LevelNameForKey(GetTag(flow->Nodes().Item(1), "LEVEL")),
                  QStringLiteral("12"))
            << level;
    }
}

TEST_F(ImportTest, TakesWhatTheFileDoesNotCarryFromTheSurface) {
    diagram::NodeLook look = flow->Defaults();
    look.alignment = 3;
    look.font = diagram::Font(QStringLiteral("Serif"), 17);
    flow->SetDefaults(look);
    table.Set(0, "Alignment", QStringLiteral("1"));
    table.Set(0, "Event", QStringLiteral("second text"));
    table.Set(0, "Transparent", QStringLiteral("1"));
    Write(table);
    Import();
    const diagram::Node &node = flow->Nodes().Item(3);
    EXPECT_EQ(node.Alignment(), 3);
    EXPECT_EQ(node.Font().Size(), 17);
    EXPECT_EQ(node.Event(), QString());
    EXPECT_FALSE(node.Transparent());
}

TEST_F(ImportTest, KeepsTheSizesOfTheFileWhereNewNodesTakeThatOfTheirText) {
    struct : diagram::TextMeasure {
        QSizeF Measure(const QString &, const diagram::Font &, double) override { return {4321, 1234}; }
    } measure;
    flow->SetMeasure(&measure);
    diagram::NodeLook look = flow->Defaults();
    look.autoSize = 3;
    flow->SetDefaults(look);
    Import();
    EXPECT_EQ(flow->Nodes().Item(3).Width(), 900);
    flow->Nodes().Item(3).SetText(QStringLiteral("other"));
    EXPECT_NE(flow->Nodes().Item(3).Width(), 900) << "the text counts from now on";
    flow->SetMeasure(nullptr);
}

TEST_F(ImportTest, TakesEveryOtherTypeForALink) {
    table.Set(2, "Type", QStringLiteral("whatever"));
    Write(table);
    Import();
    EXPECT_EQ(flow->Links().size(), 2u);
    table.Set(0, "Type", QStringLiteral("node"));
    EXPECT_EQ(Refused().Number(), support::kErrInvalidProcedureCall);
}

TEST_F(ImportTest, PassesOverEmptyRows) {
    table.rows.insert(1, QStringList(table.names.size(), QString()));
    Write(table);
    Import();
    EXPECT_EQ(flow->Nodes().Count(), 5);
}

TEST_F(ImportTest, TakesColumnsInAnyOrderAndCaseAndMoreThanItNeeds) {
    for (QString &name : table.names) name = name.toUpper();
    std::reverse(table.names.begin(), table.names.end());
    for (QStringList &row : table.rows) std::reverse(row.begin(), row.end());
    table.names.append(QStringLiteral("Remarks"));
    Write(table);
    Import();
    EXPECT_EQ(flow->Nodes().Count(), 5);
    EXPECT_EQ(flow->Nodes().Item(4).Text(), QStringLiteral("B"));
}

TEST_F(ImportTest, TakesTheMarkOffAgain) {
    table.Set(0, "Description", QStringLiteral("'=1+1"));
    table.Set(1, "Description", QStringLiteral("'quoted'"));
    Write(table);
    Import();
    EXPECT_EQ(flow->Nodes().Item(3).Text(), QStringLiteral("=1+1"));
    EXPECT_EQ(flow->Nodes().Item(4).Text(), QStringLiteral("'quoted'"));
}

TEST_F(ImportTest, MayLackTheColumnsThatItDoesNotRead) {
    for (const char *name : {"Font", "Picture", "Slice", "Alignment", "AutoSize", "TextPos", "Event",
                             "Transparent", "zOrder", "Rigid"})
        table.RemoveColumn(QLatin1String(name));
    Write(table);
    Import();
    EXPECT_EQ(flow->Nodes().Count(), 5);
}

TEST_F(ImportTest, AMissingColumnIsTheEnginesError) {
    const Table whole = table;
    for (const char *name :
         {"Type", "Left", "Top", "Width", "Height", "Description", "Key", "Shape", "Shadow", "Marked", "Tag",
          "Group", "Level", "KeySource", "KeyDest", "ArrowDest", "JumpStyle", "Text", "Oriented"}) {
        table = whole;
        table.RemoveColumn(QLatin1String(name));
        const support::Error error = Refused();
        EXPECT_EQ(error.Number(), storage::kErrFieldNotFound) << name;
        EXPECT_EQ(error.Description(),
                  QStringLiteral("Item not found in this collection.\r\n\r\nColumn ") + QLatin1String(name));
        EXPECT_TRUE(error.Source().contains(QStringLiteral("ImportMap")));
    }
}

TEST_F(ImportTest, AnUnknownEndOfALinkIsTheCollectionsErrorWithItsPlace) {
    table.Set(2, "KeySource", QStringLiteral("{unknown}"));
    const support::Error error = Refused();
    EXPECT_EQ(error.Number(), support::kErrInvalidProcedureCall);
    EXPECT_EQ(error.Description(),
              QStringLiteral("Invalid procedure call or argument") + Place(4, "keysource"));
    table.Set(2, "KeySource", QString());
    EXPECT_EQ(Refused().Number(), support::kErrInvalidProcedureCall);
}

TEST_F(ImportTest, ALinkAboveItsNodesIsRefused) {
    table.rows.move(2, 0);
    table.Set(0, "KeySource", QStringLiteral("{a}"));
    EXPECT_EQ(Refused().Number(), support::kErrInvalidProcedureCall);
}

TEST_F(ImportTest, AWrongNumberIsRefusedWithItsPlace) {
    struct Case {
        const char *column, *text;
        long number;
    };
    const Table whole = table;
    for (const Case &each :
         {Case{"Left", "far", support::kErrTypeMismatch}, Case{"Left", "", 94}, Case{"Width", "-1", 380},
          Case{"Shape", "45", 380}, Case{"Shape", "99999999999", support::kErrOverflow},
          Case{"Top", "1e99", support::kErrOverflow}, Case{"Top", "nan", support::kErrTypeMismatch},
          Case{"Hidden", "perhaps", support::kErrTypeMismatch},
          Case{"FillColor", "true", support::kErrTypeMismatch}, Case{"Marked", "", 94}}) {
        table = whole;
        table.Set(1, QLatin1String(each.column), QLatin1String(each.text));
        const support::Error error = Refused();
        EXPECT_EQ(error.Number(), each.number) << each.column << " " << each.text;
        EXPECT_TRUE(error.Description().endsWith(Place(3, QByteArray(each.column).toLower())))
            << error.Description().toStdString();
    }
}

TEST_F(ImportTest, ANodeKeyThatIsThereTwiceIsRefused) {
    table.Set(1, "Key", table.Cell(0, "Key"));
    const support::Error error = Refused();
    EXPECT_EQ(error.Number(), support::kErrKeyInUse);
    EXPECT_TRUE(error.Description().endsWith(Place(3, "key")));
}

TEST_F(ImportTest, AColumnThatIsThereTwiceIsRefused) {
    table.names[5] = QStringLiteral("KEY");
    EXPECT_EQ(Refused().Number(), storage::kErrFieldTwice);
}

TEST_F(ImportTest, WhatIsNoTextFileIsRefused) {
    QImage image(200, 100, QImage::Format_RGB32);
    for (int y = 0; y < 100; ++y)
        for (int x = 0; x < 200; ++x) image.setPixel(x, y, QRgb(x * 7919 * y));
    ASSERT_TRUE(image.save(file, "png"));
    const long number = RefusedFile().Number();
    EXPECT_TRUE(number == storage::kErrFieldNotFound || number == storage::kErrFieldTwice ||
                number == storage::kErrExternalFormat)
        << number;
    WriteBytes(QByteArray());
    EXPECT_EQ(RefusedFile().Number(), storage::kErrFieldNotFound) << "zero bytes";
    WriteBytes(QByteArray(1000, 0));
    EXPECT_EQ(RefusedFile().Number(), storage::kErrFieldNotFound) << "nothing but NUL";
    file = MapFile(QStringLiteral("none.csv"));
    EXPECT_EQ(RefusedFile().Number(), support::kErrFileNotFound);
    file = MapFile(QString());
    EXPECT_EQ(RefusedFile().Number(), support::kErrPathFileAccess) << "a folder";
    if (QFile::exists("/dev/zero")) {
        file = QStringLiteral("/dev/zero");
        EXPECT_EQ(RefusedFile().Number(), support::kErrPathFileAccess) << "no end";
    }
}

TEST_F(ImportTest, TheLastOfAMillionRowsCanRefuseThemAll) {
    QByteArray bytes = Bytes();
    const qsizetype first = bytes.indexOf('\n') + 1;
    const QByteArray header = bytes.left(first);
    const QByteArray link = bytes.mid(bytes.lastIndexOf("\"Link\""));
    const QByteArray nodes = bytes.mid(first, bytes.lastIndexOf("\"Link\"") - first);
    QByteArray many = header + nodes;
    many.reserve(header.size() + nodes.size() + link.size() * 100000 + 100);
    for (int i = 0; i < 100000; ++i) many += link;
    for (int i = 0; i < 900000; ++i) many += ",\r\n";
    WriteBytes(many + "\"Link\"\r\n");
    const support::Error error = RefusedFile();
    EXPECT_EQ(error.Number(), support::kErrInvalidProcedureCall);
    EXPECT_TRUE(error.Description().endsWith(Place(1000004, "KeyDest"))) << error.Description().toStdString();
}

TEST_F(ImportTest, AnImportedDatedNodeKeepsItsTimeline) {
    Date(1, "05 January 2004");
    Date(2, "07 March 2004");
    Save();
    Export();
    const QStringList before = Carried(*window, *flow);
    flow->Nodes().Clear();
    Import();
    ExpectSameLines(Carried(*window, *flow), before);
}

// The strip is laid out anew: what a hand has moved in the table comes back to its place.
TEST_F(ImportTest, LaysTheTimelineOut) {
    Date(1, "05 January 2004");
    Save();
    Export();
    table = Read();
    for (int row = 0; row < table.rows.size(); ++row)
        if (table.Cell(row, "Tag").contains(QStringLiteral("TheDate"), Qt::CaseInsensitive))
            table.Set(row, "Left", QStringLiteral("77777"));
    Write(table);
    ASSERT_TRUE(Bytes().contains("77777"));
    flow->Nodes().Clear();
    Import();
    for (const diagram::Node &node : flow->Nodes()) EXPECT_NE(node.Left(), 77777);
}

TEST_F(ImportTest, AnErrorOfTheTimelineTakesEverythingBack) {
    document::SetTag(*flow, "Missing", QStringLiteral("True"));
    Date(1, "05 January 2004");
    Date(2, "07 March 2004");
    Save();
    Export();
    EXPECT_EQ(RefusedFile().Number(), support::kErrSubscriptOutOfRange) << "each month would be there twice";
}

TEST_F(ImportTest, FindsEndsAmongTheNodesOfTheSurfaceToo) {
    table.Set(2, "KeySource", flow->Nodes().Item(1).Key());
    table.rows.removeAt(0);
    Write(table);
    Import();
    ASSERT_EQ(flow->Links().size(), 2u);
    EXPECT_EQ(&flow->Links()[1]->Source(), &flow->Nodes().Item(1));
}

TEST_F(ImportTest, GivingUpAtAnyMomentLeavesTheSliceAsItWas) {
    const QStringList link = table.rows.last();
    for (int i = 0; i < 600; ++i) table.rows.append(link);
    Write(table);
    const QByteArray before = diagram::SaveBytes(*flow);
    const bool couldUndo = flow->CanUndo();
    window->clsSettings().Dirty = false;
    int moments = 0;
    for (bool given = false; !given; ++moments) {
        int questions = moments;
        given = ImportMap(*window, *flow, file, [&] { return questions-- > 0; });
        if (given) break;
        EXPECT_TRUE(diagram::SaveBytes(*flow) == before) << moments;
        EXPECT_EQ(flow->CanUndo(), couldUndo);
        EXPECT_FALSE(window->clsSettings().Dirty);
        EXPECT_EQ(window->statuses.last(), QString());
        EXPECT_EQ(window->progress.back(), 0);
        EXPECT_EQ(window->pointers.back(), document::pointer::kNormal);
    }
    EXPECT_GE(moments, 4) << "while it reads and while it places";
    EXPECT_EQ(flow->Links().size(), 602u);
}

TEST_F(ImportTest, RowsWithoutAnythingAreAskedAboutToo) {
    WriteBytes(Bytes() + QByteArray(",\r\n").repeated(1000));
    int questions = 0;
    EXPECT_FALSE(ImportMap(*window, *flow, file, [&] { return ++questions < 3; }));
    EXPECT_EQ(questions, 3);
}

} // namespace output::testing
