#include "diagram/model/ScreenValues.h"
#include "document/MemoryWindow.h"
#include "mainwindow/edits/EditSlices.h"
#include "mainwindow/forms/frmLayers.h"
#include "tests/mainwindow/WindowTest.h"

#include <gmock/gmock.h>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

namespace mainwindow {
namespace {

using document::cSlice;
using ::testing::ElementsAre;

// A window of three slices "One", "Two" and "Three", each with a node of that text and a colour of its own.
struct SlicesTest : testing::WindowTest {
    document::MemoryWindow window{desktop.Get(), document::EmptyPools()};

    SlicesTest() {
        const QStringList names{QStringLiteral("One"), QStringLiteral("Two"), QStringLiteral("Three")};
        window.TabStrip().SetTabCount(3);
        for (int i = 0; i < 3; ++i) {
            diagram::Surface &surface = i == 0 ? window.AddFlow1()[0] : window.AddFlow1().Load(i);
            surface.BeginAction(1);
            surface.Nodes().Add(0, 0, 100, 100).SetText(names[i]);
            surface.EndAction();
            surface.SetBackColor(support::Colour(i + 1));
            window.TabStrip().SetTheTab(i);
            window.TabStrip().SetCaption(names[i]);
        }
        window.TabStrip().SetTheTab(0);
        window.clsSettings().Dirty = false;
    }

    std::vector<cSlice> Slices() { return SlicesOf(window); }
    QStringList Captions() { return testing::Captions(window); }
    // The text of each slice's first node, or "-" for an empty one.
    QStringList Contents() {
        QStringList texts;
        for (const int slot : window.AddFlow1().Indices()) {
            const diagram::Surface &surface = window.AddFlow1()[slot];
            texts << (surface.Nodes().Count() ? surface.Nodes().Item(1).Text() : QStringLiteral("-"));
        }
        return texts;
    }
    document::cHyperlink &AddHyperlink(const QString &sliceKey) {
        QString key;
        document::cHyperlink &hyperlink = window.clsSettings().Hyperlinks().add(key);
        hyperlink.SliceKey = sliceKey;
        return hyperlink;
    }
    void ExpectName(const char *answer) {
        desktop.ExpectInput(QStringLiteral("Name for Slice."), QString::fromUtf8(answer));
    }
};

TEST_F(SlicesTest, AMovedSliceKeepsItsNodesAndColour) {
    std::vector<cSlice> slices = Slices();
    slices[0].iIndex = 2, slices[1].iIndex = 0, slices[2].iIndex = 1;
    RebuildSlices(window, slices);
    EXPECT_EQ(Captions(), QStringList({"Two", "Three", "One"}));
    EXPECT_EQ(Contents(), QStringList({"Two", "Three", "One"}));
    EXPECT_EQ(window.AddFlow1()[2].BackColor(), 1);
    EXPECT_TRUE(window.clsSettings().Dirty);
}

TEST_F(SlicesTest, AMovedSliceKeepsItsPictureAndTheOneInItsPlaceDoesNotTakeIt) {
    QImage red(4, 4, QImage::Format_RGB32);
    red.fill(Qt::red);
    red.save(MapFile(QStringLiteral("red.png")));
    const auto picture = diagram::Picture::FromFile(MapFile(QStringLiteral("red.png")));
    window.AddFlow1()[0].SetPicture(picture);
    std::vector<cSlice> slices = Slices();
    slices[0].iIndex = 2, slices[1].iIndex = 0, slices[2].iIndex = 1;
    RebuildSlices(window, slices);
    EXPECT_EQ(window.AddFlow1()[2].Picture(), picture);
    EXPECT_EQ(window.AddFlow1()[0].Picture(), diagram::Picture());
}

TEST_F(SlicesTest, ViewSettingsStayWithTheirSlice) {
    window.AddFlow1()[1].SetGridLines(true);
    window.AddFlow1()[1].Screen().SetSnapToGrid(true);
    window.AddFlow1()[1].SetxZoom(150);
    RebuildSlices(window, Slices());
    EXPECT_TRUE(window.AddFlow1()[1].GridLines());
    EXPECT_TRUE(window.AddFlow1()[1].Screen().SnapToGrid());
    EXPECT_EQ(window.AddFlow1()[1].xZoom(), 150);
    EXPECT_FALSE(window.AddFlow1()[2].GridLines());
}

TEST_F(SlicesTest, ADeletedSliceGoesAndANewOneIsEmpty) {
    std::vector<cSlice> slices = Slices();
    slices[1].bDeleted = true;
    slices[2].iIndex = 1;
    slices.push_back({QString(), 2, false, true, QStringLiteral("New")});
    RebuildSlices(window, slices);
    EXPECT_EQ(Captions(), QStringList({"One", "Three", "New"}));
    EXPECT_EQ(Contents(), QStringList({"One", "Three", "-"}));
    EXPECT_EQ(window.AddFlow1()[2].BackColor(), support::kWhite);
}

TEST_F(SlicesTest, ANewFirstSliceTakesNothingOverFromTheOneThatStoodThere) {
    window.AddFlow1()[0].SetTag(QStringLiteral("|TM_ALIGN=2"));
    std::vector<cSlice> slices = Slices();
    for (cSlice &slice : slices) ++slice.iIndex;
    slices.push_back({QString(), 0, false, true, QStringLiteral("New")});
    RebuildSlices(window, slices);
    EXPECT_EQ(Contents(), QStringList({"-", "One", "Two", "Three"}));
    EXPECT_EQ(window.AddFlow1()[0].Tag(), QStringLiteral("|TM_ALIGN=4"));
    EXPECT_EQ(window.AddFlow1()[1].Tag(), QStringLiteral("|TM_ALIGN=2"));
}

TEST_F(SlicesTest, UndoHistoryIsLostAndTheMapDirtyEvenWhenNothingDiffers) {
    ASSERT_TRUE(window.AddFlow1()[1].CanUndo());
    RebuildSlices(window, Slices());
    EXPECT_EQ(Contents(), QStringList({"One", "Two", "Three"}));
    EXPECT_FALSE(window.AddFlow1()[0].CanUndo());
    EXPECT_FALSE(window.AddFlow1()[1].CanUndo());
    EXPECT_TRUE(window.clsSettings().Dirty);
}

TEST_F(SlicesTest, HyperlinksFollowTheirSliceToItsNewTab) {
    document::Tabs &tabs = window.TabStrip();
    document::cHyperlink &first = AddHyperlink(tabs.TabKey(0)), &third = AddHyperlink(tabs.TabKey(2));
    document::cHyperlink &byNumber = AddHyperlink(QString());
    std::vector<cSlice> slices = Slices();
    slices[0].iIndex = 2, slices[1].iIndex = 1, slices[2].iIndex = 0;
    slices.push_back({QString(), 3, false, true, QStringLiteral("New")});
    RebuildSlices(window, slices);
    EXPECT_EQ(first.SliceKey, tabs.TabKey(2));
    EXPECT_EQ(third.SliceKey, tabs.TabKey(0));
    EXPECT_EQ(byNumber.SliceKey, QString());
}

TEST_F(SlicesTest, TheFormListsTheSlicesAndSelectsTheCurrentOne) {
    frmLayers form(desktop.Get(), Slices(), 1, nullptr);
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Layers"));
    ASSERT_EQ(form.lvwLayers()->count(), 3);
    EXPECT_EQ(form.lvwLayers()->currentItem()->text(), QStringLiteral("Two"));
}

TEST_F(SlicesTest, TheFormAddsRenamesMovesAndDeletes) {
    frmLayers form(desktop.Get(), Slices(), 0, nullptr);
    const auto click = [&](const char *name) {
        QTest::mouseClick(form.findChild<QPushButton *>(QLatin1String(name)), Qt::LeftButton);
    };
    ExpectName("Four");
    click("cmdNew");
    click("cmdUp");
    form.lvwLayers()->setCurrentRow(0);
    ExpectName("Uno");
    click("cmdEdit");
    form.lvwLayers()->setCurrentRow(1);
    desktop.ExpectMessage(QStringLiteral("Are you sure you want to delete 'Two'?"), support::Answer::Yes);
    click("cmdDelete");
    click("cmdOK");
    std::vector<std::pair<QString, bool>> names;
    for (const cSlice &slice : form.cLayers()) names.emplace_back(slice.SliceName, slice.bDeleted);
    using Named = std::pair<QString, bool>;
    EXPECT_THAT(names, ElementsAre(Named("Two", true), Named("Uno", false), Named("Four", false),
                                   Named("Three", false)));
    EXPECT_TRUE(form.cLayers()[2].bNew);
    EXPECT_EQ(form.cLayers()[2].iIndex, 1);
    EXPECT_FALSE(form.cLayers()[1].bNew);
}

TEST_F(SlicesTest, TheOnlySliceIsNotDeleted) {
    std::vector<cSlice> slices = Slices();
    slices.resize(1);
    frmLayers form(desktop.Get(), slices, 0, nullptr);
    desktop.ExpectMessage(
        QStringLiteral("Cannot remove Slice\r\n\r\nThere must be at least one Slice per Map"));
    form.cmdDelete_Click();
    EXPECT_EQ(desktop.messageBoxes.shown.back().icon, support::Icon::Stop);
    EXPECT_EQ(form.lvwLayers()->count(), 1);
}

TEST_F(SlicesTest, AnEmptyNameAddsNothingAndRenamesNothing) {
    frmLayers form(desktop.Get(), Slices(), 0, nullptr);
    ExpectName("");
    form.cmdNew_Click();
    ExpectName("");
    form.cmdEdit_Click();
    form.cmdOK_Click();
    ASSERT_EQ(form.cLayers().size(), 3U);
    EXPECT_EQ(form.cLayers()[0].SliceName, QStringLiteral("One"));
}

TEST_F(SlicesTest, ANameOfTenThousandCharactersIsTaken) {
    const QString name(10000, QLatin1Char('x'));
    frmLayers form(desktop.Get(), Slices(), 0, nullptr);
    ExpectName(name.toUtf8().constData());
    form.cmdEdit_Click();
    form.cmdOK_Click();
    RebuildSlices(window, form.cLayers());
    EXPECT_EQ(window.TabStrip().TabCaption(0), name);
}

TEST_F(SlicesTest, CancelGivesTheSlicesBackUnchanged) {
    frmLayers form(desktop.Get(), Slices(), 0, nullptr);
    form.lvwLayers()->setCurrentRow(2);
    form.cmdUp_Click();
    QTest::mouseClick(form.findChild<QPushButton *>(QStringLiteral("cmdCancel")), Qt::LeftButton);
    EXPECT_EQ(form.cLayers()[1].SliceName, QStringLiteral("Two"));
}

} // namespace
} // namespace mainwindow
