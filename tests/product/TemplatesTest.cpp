// The delivered templates: each of them is opened as the program opens it.
#include "diagram/format/SurfaceFile.h"
#include "diagram/model/ScreenValues.h"
#include "diagram/render/Renderer.h"
#include "document/DoLoad.h"
#include "document/DoSave.h"
#include "document/Tags.h"
#include "product/TemplateText.h"
#include "settings/Settings.h"
#include "templates/LoadTemplate.h"
#include "templates/TemplateDb.h"
#include "templates/TemplateFiles.h"
#include "tests/document/Slices.h"
#include "tests/Paths.h"
#include "tests/product/BuiltEdition.h"
#include "tests/product/Faults.h"
#include "timeline/AddTimelineLink.h"
#include "timeline/Arrange.h"
#include "timeline/AtDates.h"
#include "timeline/LineUp.h"
#include "timeline/TimelineNodes.h"

#include <gtest/gtest.h>
#include <QBuffer>
#include <QImageReader>
#include <QRegularExpression>
#include <QTemporaryDir>

namespace {

using Templates = tests::BuiltEdition;

constexpr const char *kEditions[] = {"velmora", "storyline"};

QString NamesOfGroups(document::clsfrmMain &settings, const QString &keys) {
    QStringList names;
    for (const QString &key : keys.split(',', Qt::SkipEmptyParts))
        names << settings.Groups().GroupNameForKey(key);
    return names.join(',');
}

QString Described(document::clsfrmMain &settings, const diagram::Node &node) {
    QString text;
    QTextStream stream(&text);
    stream << node.Text() << '|' << node.Left() << '|' << node.Top() << '|' << node.Width() << '|'
           << node.Height() << '|' << node.Shape() << '|' << node.FillColor() << '|' << node.ForeColor()
           << '|' << node.BorderColor() << '|' << node.DrawStyle() << '|' << node.DrawWidth() << '|'
           << node.Alignment() << '|' << node.Font().Name() << '|' << node.Font().Size() << '|'
           << node.Font().Bold() << '|' << node.Hidden() << node.Marked() << node.Selectable()
           << node.Transparent() << '|'
           << settings.Levels().LevelNameForKey(document::GetTag(node, document::tags::kLevel)) << '|'
           << NamesOfGroups(settings, document::GetTag(node, document::tags::kGroup)) << '|'
           << document::GetTag(node, document::tags::kTheDate) << '|' << timeline::DateOfNode(node);
    return text;
}

QString Described(diagram::Link &link) {
    QString text;
    QTextStream stream(&text);
    stream << link.Source().Text() << " > " << link.Destination().Text() << '|' << link.Text() << '|'
           << link.Style() << '|' << link.ArrowDest() << '|' << link.LineColor() << '|' << link.DrawStyle()
           << '|' << link.DrawWidth();
    for (const diagram::Point &point : link.Points().All())
        stream << '|' << qRound(point.x) << ',' << qRound(point.y);
    return text;
}

QStringList DescribedNodes(document::MapWindow &window, const diagram::Surface &surface) {
    QStringList lines;
    for (const diagram::Node &node : surface.Nodes()) lines << Described(window.clsSettings(), node);
    return lines;
}

// All that a user sees of a slice, a line for each node and link.
QStringList Described(document::MapWindow &window, const diagram::Surface &surface) {
    QStringList lines{QString::number(surface.BackColor())};
    if (!timeline::LocateTimelineNodes(surface).empty())
        lines << document::GetTag(surface, document::tags::kTimelineAlign)
              << document::GetTag(surface, document::tags::kMissing);
    lines << DescribedNodes(window, surface);
    QStringList links; // a map keeps them in an order of its own
    for (const auto &link : surface.Links()) links << Described(*link);
    links.sort();
    return lines + links;
}

// Each line that isn't the same, so that a failure can be read.
std::string Differences(const QStringList &a, const QStringList &b) {
    QStringList lines;
    if (a.size() != b.size()) lines << QStringLiteral("%1 and %2 lines").arg(a.size()).arg(b.size());
    for (qsizetype i = 0; i < std::min(a.size(), b.size()); ++i)
        if (a[i] != b[i]) lines << a[i] + "\n  " + b[i];
    return lines.join("\n").toStdString();
}

// A tag without keys, whose order is chance, too.
QString WithoutKeys(QString tag) {
    static const QRegularExpression key(QStringLiteral("\\{[0-9A-F-]{36}\\}"));
    QStringList parts = tag.remove(key).split(QRegularExpression("[|,=]"));
    parts.sort();
    return parts.join('|');
}

// The surface file of a template with keys that count up.
QByteArray SurfaceOf(const QString &file) {
    diagram::Surface surface;
    diagram::LoadBytes(surface, templates::ReadMap(file).value());
    int count = 0;
    for (diagram::Node &node : surface.Nodes()) {
        node.SetKey(QString::number(++count));
        node.SetTag(WithoutKeys(node.Tag()));
    }
    for (const auto &link : surface.Links()) link->SetKey(QString::number(++count));
    return diagram::SaveBytes(surface);
}

} // namespace

TEST_F(Templates, Velmora_HasSixPurposesWithAtLeastThirtyTemplates) {
    Build("velmora");
    const QStringList purposes =
        QDir(Folder().filePath("Templates")).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    EXPECT_EQ(purposes.join(' '), "Notes People Plans Processes Projects Strategy");
    EXPECT_GE(TemplateNames().size(), 30);
    for (const QString &purpose : purposes)
        EXPECT_GE(QDir(Folder().filePath("Templates/" + purpose)).entryList({"*.TEM"}, QDir::Files).size(),
                  4);
}

TEST_F(Templates, Storyline_HasTemplatesOfItsOwn) {
    Build("storyline");
    EXPECT_EQ(TemplateNames().join(", "),
              "Blank Page, People/Character Web, Plot/Chapter Plan, Plot/Three Acts");
}

TEST_F(Templates, EachIsADatabaseThatAClickLoads) {
    for (const char *edition : kEditions) {
        Build(edition);
        EXPECT_EQ(settings::Terms().TEMPLATE, "TEM");
        for (const QString &name : TemplateNames()) {
            SCOPED_TRACE(qPrintable(name));
            bool flat = true;
            templates::TestTemplateFile(TemplatePath(name), flat);
            EXPECT_FALSE(flat);
            EXPECT_TRUE(templates::ReadMap(TemplatePath(name)));
        }
    }
}

TEST_F(Templates, EachHasAnIconInTheUsualSizes) {
    for (const char *edition : kEditions) {
        Build(edition);
        for (const QString &name : TemplateNames()) {
            SCOPED_TRACE(qPrintable(name));
            QByteArray bytes = templates::ReadImage(TemplatePath(name)).value_or(QByteArray());
            ASSERT_TRUE(templates::IsIcon(bytes));
            QBuffer buffer(&bytes);
            QImageReader reader(&buffer, "ico");
            QList<int> sizes;
            for (int i = 0; i < reader.imageCount(); ++i) {
                reader.jumpToImage(i);
                const QImage image = reader.read();
                sizes << image.width();
                QSet<QRgb> colours;
                for (int y = 0; y < image.height(); ++y)
                    for (int x = 0; x < image.width(); ++x) colours << image.pixel(x, y);
                EXPECT_GE(colours.size(), 10) << "of the picture " << i;
            }
            EXPECT_EQ(sizes, QList<int>({16, 24, 32, 48, 64, 256}));
        }
    }
}

TEST_F(Templates, NothingInThemIsToBeMended) {
    for (const char *edition : kEditions) {
        Build(edition);
        for (const QString &name : TemplateNames()) {
            diagram::Surface surface;
            templates::ReadTemplate(surface, TemplatePath(name));
            EXPECT_EQ(tests::FaultsOf(surface).join("\n").toStdString(), "") << qPrintable(name);
        }
    }
}

TEST_F(Templates, EachComesIntoANewSliceAsItWasDrawnAndStaysSoInAMap) {
    const QTemporaryDir folder;
    for (const char *edition : kEditions) {
        Build(edition);
        for (const QString &name : TemplateNames()) {
            SCOPED_TRACE(qPrintable(name));
            document::MemoryWindow drawn(desktop_.Get()), window(desktop_.Get());
            product::BuildDrawing(drawn, drawn.AddFlow1()[0], Texts().filePath("Templates/" + name + ".json"),
                                  Texts());
            const QStringList expected = Described(drawn, drawn.AddFlow1()[0]);

            document::testing::AddSlice(window);
            templates::LoadTemplate(window, window.AddFlow1()[1], TemplatePath(name));
            EXPECT_EQ(Differences(expected, Described(window, window.AddFlow1()[1])), "");
            EXPECT_EQ(window.AddFlow1()[0].Nodes().Count(), 0);
            EXPECT_TRUE(window.clsSettings().Dirty);

            const QString map = folder.filePath("new." + settings::Terms().EXT);
            window.clsSettings().SetDatabase(map);
            ASSERT_TRUE(document::DoSave(window));
            const auto opened = Open(map);
            EXPECT_EQ(Differences(expected, Described(*opened, opened->AddFlow1()[1])), "");
        }
    }
}

TEST_F(Templates, EachReplacesASliceAndTheSliceComesBackByUndo) {
    for (const char *edition : kEditions) {
        Build(edition);
        for (const QString &name : TemplateNames()) {
            SCOPED_TRACE(qPrintable(name));
            document::MemoryWindow window(desktop_.Get());
            diagram::Surface &surface = window.AddFlow1()[0];
            surface.Nodes().Add(150, 150, 1500, 750).SetText("What stood there");
            const QStringList before = Described(window, surface);
            templates::LoadTemplate(window, surface, TemplatePath(name));
            diagram::Surface template_;
            templates::ReadTemplate(template_, TemplatePath(name));
            EXPECT_EQ(surface.Nodes().Count(), template_.Nodes().Count());
            surface.Undo();
            EXPECT_EQ(Differences(before, Described(window, surface)), "");
            EXPECT_FALSE(surface.CanUndo());
        }
    }
}

TEST_F(Templates, LevelsAndGroupsAreUsedAndDatedNodesKeepTheirStrip) {
    Build("velmora");
    int dated = 0, strips = 0;
    for (const QString &name : TemplateNames()) {
        SCOPED_TRACE(qPrintable(name));
        document::MemoryWindow window(desktop_.Get());
        diagram::Surface &surface = window.AddFlow1()[0];
        templates::LoadTemplate(window, surface, TemplatePath(name));
        int levels = 0, groups = 0;
        for (const diagram::Node &node : surface.Nodes()) {
            levels += !document::GetTag(node, document::tags::kLevel).isEmpty();
            groups += !document::GetTag(node, document::tags::kGroup).isEmpty();
            dated += !timeline::DateOfNode(node).isEmpty();
        }
        EXPECT_GT(levels, 0);
        EXPECT_GT(groups, 0);
        const QStringList before = DescribedNodes(window, surface);
        if (timeline::LocateTimelineNodes(surface).empty()) continue;
        ++strips;
        surface.Screen().SetSize(20000, 12000);
        timeline::ArrangeTimeLineNodes(window, surface, timeline::kStoredArrangement);
        EXPECT_EQ(Differences(before, DescribedNodes(window, surface)), "");
        EXPECT_EQ(tests::FaultsOf(surface).join("\n").toStdString(), "");
    }
    EXPECT_GE(strips, 5);
    EXPECT_GE(dated, 60);
}

TEST_F(Templates, NodesOfPlansThatKeepToTheirDatesStandThere) {
    Build("velmora");
    QStringList kept;
    for (const QString &name : TemplateNames()) {
        document::MemoryWindow window(desktop_.Get());
        diagram::Surface &surface = window.AddFlow1()[0];
        templates::LoadTemplate(window, surface, TemplatePath(name));
        if (!timeline::KeepsNodesAtDates(surface)) continue;
        kept << name;
        EXPECT_NE(timeline::LanesOf(surface), timeline::Lanes::None) << qPrintable(name);
        const timeline::LinedUp again = timeline::LineUp(window, surface, timeline::RowOrder::Keep);
        EXPECT_GE(again.dated, 20) << qPrintable(name);
        EXPECT_EQ(again.moved, 0) << qPrintable(name);
    }
    EXPECT_EQ(kept.join(", "), "Plans/Launch Timeline, Plans/Marketing Calendar");
}

TEST_F(Templates, TwoBuildsDifferInKeysAlone) {
    Build("velmora");
    const QTemporaryDir other;
    BuildInto(other.path(), "velmora");
    for (const QString &name : TemplateNames()) {
        SCOPED_TRACE(qPrintable(name));
        const QString second = other.filePath("Templates/" + name + ".TEM");
        EXPECT_NE(templates::ReadMap(TemplatePath(name)), templates::ReadMap(second));
        EXPECT_TRUE(SurfaceOf(TemplatePath(name)) == SurfaceOf(second));
        EXPECT_EQ(templates::ReadImage(TemplatePath(name)), templates::ReadImage(second));
    }
}

TEST_F(Templates, BuildingAgainKeepsNoCopies) {
    Build("storyline");
    const QTemporaryDir other;
    BuildInto(other.path(), "storyline");
    BuildInto(other.path(), "storyline");
    EXPECT_EQ(QDir(other.filePath("Templates/Plot")).entryList(QDir::Files).join(", "),
              "Chapter Plan.TEM, Three Acts.TEM");
}

TEST_F(Templates, TheGuideNamesEach) {
    Build("velmora");
    QFile file(tests::Source("docs/guide.md"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString guide = QString::fromUtf8(file.readAll()).simplified().toLower();
    for (const QString &name : TemplateNames())
        EXPECT_TRUE(guide.contains(name.section('/', -1).toLower())) << qPrintable(name);
}
