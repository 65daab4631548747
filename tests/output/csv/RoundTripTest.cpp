// Out, emptied, in again: the same slice but for its keys and what such a file doesn't carry.
#include "diagram/model/Surface.h"
#include "document/Tags.h"
#include "document/UnsavedWork.h"
#include "tests/output/csv/CsvTest.h"
#include "tests/Paths.h"

#include <QDir>
#include <QFile>
#include <random>

namespace output::testing {

namespace {

using Chance = std::mt19937;

int Below(Chance &chance, int limit) { return int(chance() % unsigned(limit)); }

const char *const kTexts[] = {
    "",
    "Plan",
    "=SUM(A1:A9)",
    "+1",
    "-",
    "@home",
    "\ttab first",
    "\r\nline end first",
    "\nline feed first",
    "two\r\nlines",
    "old\nline end",
    "say \"hi\"",
    "\"",
    "\"\"",
    "a,b;c\td",
    "'quoted'",
    "'",
    "''=1",
    "007",
    "1,5",
    "March 2004",
    "true",
    " blanks ",
    "\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D",                              // right to left
    "\xE4\xBD\xA0\xE5\xA5\xBD",                                      // Chinese
    "\xF0\x9F\x98\x80 \xF0\x9F\x91\xA9\xE2\x80\x8D\xF0\x9F\x92\xBB", // emoji
    "e\xCC\x81",                                                     // a letter and its accent
    "\x01\x02\x1F",
    "\xEF\xBB\xBFmark of byte order",
    "{\\rtf1}<script>",
    "Type",
    "Node",
};

QString AnyText(Chance &chance) {
    if (Below(chance, 40) == 0) return QString(100000, QChar(u'a' + Below(chance, 26)));
    return QString::fromUtf8(kTexts[Below(chance, int(std::size(kTexts)))]);
}

float AnyCoordinate(Chance &chance) { return float(Below(chance, 2000000)) / 7 - 100000; }

void Vary(diagram::Node &node, document::clsfrmMain &settings, Chance &chance) {
    node.SetText(AnyText(chance));
    node.SetShape(Below(chance, 2) ? Below(chance, 15) : 51 + Below(chance, 27));
    node.SetFillColor(int(chance()));
    node.SetBorderColor(int(chance()));
    node.SetForeColor(int(chance()));
    node.SetPicturePos(Below(chance, 10));
    node.SetDrawStyle(Below(chance, 6));
    node.SetDrawWidth(float(Below(chance, 100)) / 3);
    node.SetShadow(Below(chance, 5));
    node.SetShapeOrientation(Below(chance, 4));
    node.SetxTextMargin(Below(chance, 50));
    node.SetyTextMargin(Below(chance, 50));
    node.SetHidden(Below(chance, 5) == 0);
    node.SetSelectable(Below(chance, 5) != 0);
    document::SetTag(node, "HYPER", Below(chance, 2) ? "Yes" : "No");
    document::SetTag(node, "GROUP",
                     settings.Groups().KeyForGroupName(Below(chance, 2) ? "Sales,O'Brien" : ""));
    document::SetTag(node, "LEVEL", settings.Levels().KeyForLevelName(Below(chance, 2) ? "12" : "2"));
}

void Vary(diagram::Link &link, Chance &chance) {
    link.SetText(AnyText(chance));
    link.SetStyle(Below(chance, 15));
    link.SetArrowDest(Below(chance, 33));
    link.SetArrowMiddle(Below(chance, 33));
    link.SetArrowSource(Below(chance, 33));
    link.SetArrowSizeDest(Below(chance, 3));
    link.SetArrowSizeMiddle(Below(chance, 3));
    link.SetArrowSizeSource(Below(chance, 3));
    link.SetForeColor(int(chance()));
    link.SetLineColor(int(chance()));
    link.SetDrawStyle(Below(chance, 6));
    link.SetDrawWidth(float(Below(chance, 100)) / 3);
    link.SetJumpStyle(Below(chance, 3));
    link.SetOriented(Below(chance, 2) == 0);
    link.SetMarked(Below(chance, 2) == 0);
    link.SetSelectable(Below(chance, 2) == 0);
    link.SetHidden(Below(chance, 2) == 0);
}

void Fill(diagram::Surface &surface, document::clsfrmMain &settings, unsigned number) {
    Chance chance(number);
    const int nodes = int(number % 4) * Below(chance, 8);
    for (int i = 0; i < nodes; ++i)
        Vary(surface.Nodes().Add(AnyCoordinate(chance), AnyCoordinate(chance),
                                 float(Below(chance, 90000)) / 9, float(Below(chance, 90000)) / 9),
             settings, chance);
    for (int i = 0; nodes > 0 && i < Below(chance, 2 * nodes + 1); ++i)
        Vary(surface.Nodes()
                 .Item(1 + Below(chance, nodes))
                 .Links()
                 .Add(surface.Nodes().Item(1 + Below(chance, nodes))),
             chance);
}

} // namespace

class RoundTrip : public CsvTest {
protected:
    // For each slice of the window's map: what an import of its export gives is what was there.
    void Expect(document::MemoryWindow &from) {
        for (const int index : from.AddFlow1().Indices()) {
            diagram::Surface &surface = from.AddFlow1()[index];
            ExportMap(from, surface, file);
            const QStringList before = Carried(from, surface);
            const int nodes = surface.Nodes().Count();
            surface.Nodes().Clear();
            ImportMap(from, surface, file);
            ExpectSameLines(Carried(from, surface), before);
            EXPECT_GE(surface.Nodes().Count(), nodes);
            document::MarkSaved(from);
            from.clsSettings().Dirty = false;
        }
    }
};

TEST_F(RoundTrip, OfAnEarlyMap) { Expect(*Loaded(tests::Data("jet/plan.mdb"))); }

TEST_F(RoundTrip, OfAMapOfOurOwnForm) { Expect(*Loaded(tests::Data("map/plan.map"))); }

TEST_F(RoundTrip, OfTheDeliveredMaps) {
    const QDir folder(tests::Program(QStringLiteral("Startup")));
    const QStringList maps = folder.entryList({QStringLiteral("*.map")}, QDir::Files);
    EXPECT_FALSE(maps.isEmpty());
    for (const QString &name : maps) {
        SCOPED_TRACE(name.toStdString());
        // A copy, whose slices may be emptied.
        QFile::remove(MapFile("delivered.map"));
        ASSERT_TRUE(QFile::copy(folder.filePath(name), MapFile("delivered.map")));
        QFile::setPermissions(MapFile("delivered.map"), QFile::ReadOwner | QFile::WriteOwner);
        Expect(*Loaded(MapFile("delivered.map")));
    }
}

TEST_F(RoundTrip, OfTwoHundredMadeUpMaps) {
    for (unsigned number = 0; number < 200 && !HasFailure(); ++number) {
        SCOPED_TRACE(number);
        auto made = NewWindow();
        Fill(made->AddFlow1()[0], made->clsSettings(), number);
        SaveAs(*made, MapFile("made.map"));
        Expect(*made);
    }
}

TEST_F(RoundTrip, OfEveryTextThereIs) {
    for (const char *text : kTexts) AddNode(QString::fromUtf8(text));
    AddNode(QString(QChar(0)) + QStringLiteral("x"));
    Save();
    Expect(*window);
}

} // namespace output::testing
