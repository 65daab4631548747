// The delivered files of both editions, built from their texts and read back by the program.
#include "document/DefaultNodes.h"
#include "document/Tags.h"
#include "settings/Settings.h"
#include "support/AtomicFile.h"
#include "support/Files.h"
#include "tests/Paths.h"
#include "tests/product/BuiltEdition.h"
#include "timeline/AddTimelineLink.h"
#include "timeline/AtDates.h"
#include "timeline/LineUp.h"
#include "timeline/TimelineNodes.h"

#include <gtest/gtest.h>
#include <QDirIterator>
#include <QFileInfo>
#include <QSet>

namespace {

using Edition = tests::BuiltEdition;

// A text as the surface files hold it.
QByteArray InTwoBytes(const QString &text) {
    return QByteArray(reinterpret_cast<const char *>(text.utf16()), text.size() * 2);
}

struct Counts {
    int nodes = 0, pictures = 0, levels = 0, groups = 0, followable = 0;
    QSet<int> shapes, styles, arrows;
};

Counts Count(document::MapWindow &window) {
    Counts counts;
    for (const int index : window.AddFlow1().Indices()) {
        const diagram::Surface &surface = window.AddFlow1()[index];
        for (const diagram::Node &node : surface.Nodes()) {
            ++counts.nodes;
            counts.shapes << node.Shape();
            counts.pictures += !node.Picture().IsNull();
            counts.levels += !document::GetTag(node, document::tags::kLevel).isEmpty();
            counts.groups += !document::GetTag(node, document::tags::kGroup).isEmpty();
            counts.followable += document::GetTag(node, document::tags::kHyper) == "Yes";
        }
        for (const auto &link : surface.Links()) {
            counts.styles << link->Style();
            counts.arrows << link->ArrowDest();
        }
    }
    return counts;
}

} // namespace

TEST_F(Edition, Velmora_OffersASampleThatShowsWhatTheEditorDoes) {
    Build("velmora");
    EXPECT_EQ(settings::Terms().TITLE, "Velmora");
    auto window = Open(Startup());
    EXPECT_EQ(window->AddFlow1().Count(), 4);
    const Counts counts = Count(*window);
    EXPECT_GE(counts.nodes, 60);
    EXPECT_GE(counts.shapes.size(), 25);
    EXPECT_GE(counts.styles.size(), 4);
    EXPECT_GE(counts.arrows.size(), 8);
    EXPECT_GE(counts.pictures, 4);
    EXPECT_GE(counts.levels, 40);
    EXPECT_GE(counts.groups, 40);
    EXPECT_EQ(counts.followable, 1);
    EXPECT_EQ(window->clsSettings().Hyperlinks().count(), 1);
    ASSERT_EQ(window->clsSettings().Attachments().count(), 1);
    EXPECT_TRUE(support::FileExists(window->clsSettings().Attachments().Item(1).Filename));
}

TEST_F(Edition, Velmora_TheSampleHasAPlanWhoseNodesStandAtTheirDates) {
    Build("velmora");
    auto window = Open(Startup());
    diagram::Surface &plan = window->AddFlow1()[3];
    EXPECT_TRUE(timeline::KeepsNodesAtDates(plan));
    EXPECT_EQ(timeline::LanesOf(plan), timeline::Lanes::Group);
    EXPECT_EQ(timeline::LocateTimelineNodes(plan).size(), 9U);
    int dated = 0;
    for (const diagram::Node &node : plan.Nodes())
        dated += node.Selectable() && !timeline::DateOfNode(node).isEmpty();
    EXPECT_GE(dated, 20);
    const timeline::LinedUp again = timeline::LineUp(*window, plan, timeline::RowOrder::Keep);
    EXPECT_EQ(again.dated, dated);
    EXPECT_EQ(again.moved, 0);
}

TEST_F(Edition, EveryEditionHasAFramesetForItsReports) {
    for (const char *name : {"velmora", "storyline"}) {
        Build(name);
        const QString page =
            QString::fromUtf8(support::ReadWholeFile(support::ProgramPath() + "/Default.htm"));
        EXPECT_TRUE(page.startsWith("<!DOCTYPE html PUBLIC \"-//W3C//DTD HTML 4.01 Frameset//EN\""));
        EXPECT_EQ(page.count("<frame "), 2);
        EXPECT_TRUE(page.contains("<frame src=\"%LHS%\""));
        EXPECT_TRUE(page.contains("<frame src=\"%RHS%\" name=\"RHS\""));
    }
}

TEST_F(Edition, Velmora_StartsMapsWithFiveLevelsAndGroups) {
    Build("velmora");
    document::MemoryWindow window(desktop_.Get());
    QStringList levels;
    for (const document::cLevel &level : window.clsSettings().Levels()) levels << level.LevelName;
    EXPECT_EQ(levels.join(' '), "1 2 3 4 5");
    EXPECT_GE(window.clsSettings().Groups().count(), 5);
}

TEST_F(Edition, Velmora_GivesNewNodesTheirLook) {
    Build("velmora");
    diagram::Surface surface;
    document::LoadDefaults(surface);
    EXPECT_EQ(surface.Defaults().shape, 2);
    ASSERT_TRUE(document::LocateTemplateNode(surface, false));
    EXPECT_TRUE(document::LocateTemplateNode(surface, false)->Hidden());
}

TEST_F(Edition, DeliveredFilesNameNoFolderOfTheMachineTheyWereMadeOn) {
    for (const char *name : {"velmora", "storyline"}) {
        Build(name);
        QDirIterator files(Folder().path(), QDir::Files, QDirIterator::Subdirectories);
        int count = 0;
        for (; files.hasNext(); ++count) {
            QFile file(files.next());
            ASSERT_TRUE(file.open(QIODevice::ReadOnly));
            const QByteArray bytes = file.readAll();
            for (const QString &folder : {tests::Source(QString()), Folder().path()}) {
                EXPECT_FALSE(bytes.contains(QFile::encodeName(folder))) << qPrintable(files.filePath());
                EXPECT_FALSE(bytes.contains(InTwoBytes(folder))) << qPrintable(files.filePath());
            }
        }
        EXPECT_GE(count, 5);
    }
}

TEST_F(Edition, Velmora_AttachmentKeepsItsTitleAndBytes) {
    Build("velmora");
    auto window = Open(Startup());
    QFile attached(window->clsSettings().Attachments().Item(1).Filename);
    QFile source(tests::Source("product/velmora/attachments/Market notes.txt"));
    ASSERT_TRUE(attached.open(QIODevice::ReadOnly) && source.open(QIODevice::ReadOnly));
    EXPECT_EQ(QFileInfo(attached).fileName(), "Market notes.txt");
    EXPECT_EQ(attached.readAll(), source.readAll());
}

TEST_F(Edition, Storyline_HasItsOwnWordsExtensionAndLevels) {
    Build("storyline");
    EXPECT_EQ(settings::Terms().TITLE, "Storyline");
    EXPECT_EQ(settings::ReplaceTerms("Open @MAP, Include @NODEs"), "Open Book, Include Scenes");
    EXPECT_TRUE(Startup().endsWith("The Lighthouse.story"));
    auto window = Open(Startup());
    EXPECT_EQ(window->caption, "Storyline - The Lighthouse.story");
    EXPECT_EQ(window->clsSettings().Levels().count(), 3);
}
