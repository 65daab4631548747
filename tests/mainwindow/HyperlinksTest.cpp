#include "diagram/view/SurfaceView.h"
#include "document/Tags.h"
#include "tests/mainwindow/WindowTest.h"

#include <QTest>

#include <QFile>

namespace mainwindow::testing {

using document::pointer::kNormal;

// A map of three slices with a node on the first that leads elsewhere.
class Hyperlinks : public WindowTest {
protected:
    frmMain &Open(int slices = 3) {
        frmMain &window = NewWindow();
        window.DoOpen(SavedMap(QStringLiteral("here.map"), 1, slices), false);
        ProcessEvents();
        diagram::Node &node = window.CurrentSurface().Nodes().Item(1);
        document::SetTag(node, document::tags::kHyper, QStringLiteral("Yes"));
        return window;
    }
    static document::cHyperlink &AddTo(frmMain &window, const QString &node, const QString &map, int slice,
                                       const QString &sliceKey = {}) {
        QString key;
        document::cHyperlink &hyperlink = window.clsSettings().Hyperlinks().add(key);
        hyperlink.Node = node;
        hyperlink.Map = map;
        hyperlink.Slice = std::int16_t(slice);
        hyperlink.SliceKey = sliceKey;
        return hyperlink;
    }
    static QString NodeKey(frmMain &window) { return window.CurrentSurface().Nodes().Item(1).Key(); }
    void DoubleClickNode(frmMain &window) {
        const QRectF box = window.CurrentSurface().Nodes().Item(1).Bounds();
        DoubleClick(window, box.topLeft() + QPointF(box.width() / 2, 150));
    }
};

TEST_F(Hyperlinks, InThisMapTheSliceCountsFromOne) {
    frmMain &window = Open();
    AddTo(window, NodeKey(window), {}, 3);
    DoubleClickNode(window);
    EXPECT_EQ(window.TabStrip().TheTab(), 2);
    EXPECT_TRUE(window.CurrentView().hasFocus());
    EXPECT_EQ(window.MousePointer(), kNormal);
    EXPECT_FALSE(window.clsSettings().Dirty);
}

TEST_F(Hyperlinks, ADoubleClickThatMeansSomethingElseFollowsNone) {
    frmMain &window = Open();
    AddTo(window, NodeKey(window), {}, 3);
    const QRectF box = window.CurrentSurface().Nodes().Item(1).Bounds();
    DoubleClick(window, box.topLeft() + QPointF(15, 15)); // where the first click makes a handle appear
    EXPECT_EQ(window.TabStrip().TheTab(), 0);
    for (const Qt::KeyboardModifier modifier : {Qt::ControlModifier, Qt::ShiftModifier}) {
        const QPoint at = PixelOf(window, box.center());
        window.CurrentSurface().Nodes().Item(1).SetSelected(true);
        QTest::mouseDClick(window.CurrentView().viewport(), Qt::LeftButton, modifier, at);
        ProcessEvents();
        EXPECT_EQ(window.TabStrip().TheTab(), 0) << modifier;
    }
    DoubleClickNode(window);
    EXPECT_EQ(window.TabStrip().TheTab(), 2);
}

TEST_F(Hyperlinks, AKeyOfASliceGoesBeforeItsPosition) {
    frmMain &window = Open();
    AddTo(window, NodeKey(window), {}, 3, window.TabStrip().TabKey(1));
    DoubleClickNode(window);
    EXPECT_EQ(window.TabStrip().TheTab(), 1);
}

TEST_F(Hyperlinks, AKeyThatNoSliceHasSelectsNothing) {
    frmMain &window = Open();
    AddTo(window, NodeKey(window), {}, 3, QStringLiteral("{gone}"));
    DoubleClickNode(window);
    EXPECT_EQ(window.TabStrip().TheTab(), 0);
}

TEST_F(Hyperlinks, InAnotherMapTheSliceIsThePositionItself) {
    frmMain &window = Open();
    const QString other = SavedMap(QStringLiteral("other.map"), 2, 3);
    AddTo(window, NodeKey(window), other, 1);
    DoubleClickNode(window);
    const std::vector<frmMain *> forms = frmMain::Forms();
    ASSERT_EQ(forms.size(), 2u);
    EXPECT_EQ(forms[1]->clsSettings().Database(), other);
    EXPECT_EQ(forms[1]->TabStrip().TheTab(), 1);
    EXPECT_TRUE(forms[1]->CurrentView().hasFocus());
    EXPECT_EQ(window.TabStrip().TheTab(), 0);
    EXPECT_EQ(window.MousePointer(), kNormal);
    EXPECT_EQ(forms[1]->MousePointer(), kNormal);
}

TEST_F(Hyperlinks, AMapThatMovedWithThisOneIsFoundBelowItsFolder) {
    frmMain &window = Open();
    const QString other = SavedMap(QStringLiteral("other.map"), 2, 3);
    AddTo(window, NodeKey(window), QStringLiteral("C:\\former\\plans\\other.map"), 1);
    DoubleClickNode(window);
    const std::vector<frmMain *> forms = frmMain::Forms();
    ASSERT_EQ(forms.size(), 2u);
    EXPECT_EQ(forms[1]->clsSettings().Database(), other);
    EXPECT_EQ(forms[1]->TabStrip().TheTab(), 1);
    EXPECT_EQ(window.clsSettings().Hyperlinks().Item(1).Map, QStringLiteral("C:\\former\\plans\\other.map"));
}

TEST_F(Hyperlinks, AMapThatIsOpenComesForward) {
    frmMain &window = Open();
    const QString other = SavedMap(QStringLiteral("other.map"), 2, 2);
    frmMain *shown = window.DoOpen(other, true);
    window.ShowWindow();
    ProcessEvents();
    AddTo(window, NodeKey(window), other, 1);
    DoubleClickNode(window);
    EXPECT_EQ(frmMain::Forms().size(), 2u);
    EXPECT_EQ(shown->TabStrip().TheTab(), 1);
    EXPECT_TRUE(shown->isActiveWindow());
}

TEST_F(Hyperlinks, AllHyperlinksOfTheNodeAreFollowedInOrder) {
    frmMain &window = Open();
    AddTo(window, NodeKey(window), SavedMap(QStringLiteral("other.map"), 2, 2), 0);
    AddTo(window, QStringLiteral("{another node}"), {}, 3);
    AddTo(window, NodeKey(window), {}, 2);
    DoubleClickNode(window);
    EXPECT_EQ(frmMain::Forms().size(), 2u);
    EXPECT_EQ(window.TabStrip().TheTab(), 1);
    EXPECT_TRUE(window.CurrentView().hasFocus());
}

TEST_F(Hyperlinks, WithoutTheTagOrTheRecordNothingHappens) {
    frmMain &window = Open();
    DoubleClickNode(window); // no record
    EXPECT_EQ(window.TabStrip().TheTab(), 0);
    AddTo(window, NodeKey(window), {}, 3);
    document::SetTag(window.CurrentSurface().Nodes().Item(1), document::tags::kHyper, QStringLiteral("No"));
    DoubleClickNode(window);
    EXPECT_EQ(window.TabStrip().TheTab(), 0);
}

TEST_F(Hyperlinks, ADoubleClickBesideTheNodesFollowsNone) {
    frmMain &window = Open();
    AddTo(window, NodeKey(window), {}, 3);
    DoubleClick(window, {6000, 6000});
    EXPECT_EQ(window.TabStrip().TheTab(), 0);
}

TEST_F(Hyperlinks, AMapThatIsGoneIsToldAndThePointerIsFreed) {
    frmMain &window = Open();
    AddTo(window, NodeKey(window), MapFile(QStringLiteral("gone.map")), 0);
    desktop.ExpectMessageContaining(QStringLiteral("gone.map"));
    DoubleClickNode(window);
    EXPECT_EQ(window.MousePointer(), kNormal);
}

TEST_F(Hyperlinks, AMapThatCantBeOpenedLeavesNoWindowBehind) {
    frmMain &window = Open();
    const QString text = MapFile(QStringLiteral("text.map"));
    QFile file(text);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("no map");
    file.close();
    AddTo(window, NodeKey(window), text, 0);
    AddTo(window, NodeKey(window), MapFile(QStringLiteral("gone.map")), 0);
    desktop.ExpectMessageContaining(QStringLiteral("text.map"));
    DoubleClickNode(window);
    EXPECT_EQ(frmMain::Forms(), std::vector<frmMain *>{&window});
    EXPECT_EQ(window.clsSettings().Hyperlinks().count(), 2);
}

TEST_F(Hyperlinks, ASliceThatAnotherMapHasNotIsTold) {
    frmMain &window = Open();
    AddTo(window, NodeKey(window), SavedMap(QStringLiteral("other.map"), 2, 2), 5);
    DoubleClickNode(window);
    const std::vector<frmMain *> forms = frmMain::Forms();
    ASSERT_EQ(forms.size(), 2u);
    EXPECT_TRUE(Status(*forms[1]).contains(QStringLiteral("not there")));
}

TEST_F(Hyperlinks, OneThatLeadsToThisVeryMapCanLoadItAnew) {
    frmMain &window = Open();
    window.TabStrip().SetTheTab(2);
    ProcessEvents();
    diagram::Node &node = AddNode(window, 300, 300);
    node.SetKey(QStringLiteral("{far}"));
    document::SetTag(node, document::tags::kHyper, QStringLiteral("Yes"));
    AddTo(window, node.Key(), window.clsSettings().Database(), 1);
    AddTo(window, node.Key(), {}, 3);
    window.clsSettings().Dirty = true;
    desktop.ExpectMessage(QStringLiteral("Revert to saved?"), support::Answer::Yes);
    DoubleClickNode(window);
    EXPECT_EQ(window.clsSettings().Hyperlinks().count(), 0);
    EXPECT_EQ(window.TabStrip().TheTab(), 2);
    EXPECT_EQ(window.CurrentSurface().Nodes().Count(), 0);
}

} // namespace mainwindow::testing
