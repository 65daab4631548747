// Undo and redo bring into sight what they change.
#include "tests/diagram/view/ViewFixture.h"

#include "diagram/edit/History.h"

#include <QScrollBar>

namespace diagram::testing {

class UndoSight : public ViewTest {
protected:
    UndoSight() : a(AddNode("a", 100, 100)), far(AddNode("far", 3000, 2500)) { Settle(); }

    void Step(const std::function<void()> &change) {
        {
            const ActionGroup group(surface);
            change();
        }
        Settle();
    }
    QPoint Scroll() const {
        return {view->horizontalScrollBar()->value(), view->verticalScrollBar()->value()};
    }
    bool IsSeen(const Node &node) const {
        return view->viewport()->rect().contains(
            QRect(At(node.Bounds().topLeft()), At(node.Bounds().bottomRight())));
    }
    void LookAt(const QPoint &corner) {
        view->horizontalScrollBar()->setValue(corner.x());
        view->verticalScrollBar()->setValue(corner.y());
        Settle();
    }

    Node &a, &far;
};

TEST_F(UndoSight, WhatChangedOutOfSight_ComesIntoSight) {
    Step([&] { far.SetText(QStringLiteral("changed")); });
    surface.Undo();
    EXPECT_TRUE(IsSeen(far));
    LookAt({0, 0});
    ASSERT_FALSE(IsSeen(far));
    surface.Redo();
    Settle();
    EXPECT_TRUE(IsSeen(far));
}

TEST_F(UndoSight, WhatIsInSight_LetsTheViewStay) {
    Step([&] { a.SetText(QStringLiteral("changed")); });
    LookAt({20, 30});
    surface.Undo();
    EXPECT_EQ(Scroll(), QPoint(20, 30));
    surface.Redo();
    EXPECT_EQ(Scroll(), QPoint(20, 30));
}

TEST_F(UndoSight, NodesThatGoAndCome_AreSeenWhereTheyStand) {
    Step([&] { surface.Remove(far); });
    surface.Undo();
    Settle();
    EXPECT_TRUE(IsSeen(*surface.Nodes().Find(QStringLiteral("far"))));
    LookAt({0, 0});
    surface.Redo();
    Settle();
    EXPECT_GT(Scroll().x(), 2000) << "where it stood";
}

TEST_F(UndoSight, OfManyFarApart_OneInSightIsEnough) {
    Step([&] {
        a.SetText(QStringLiteral("changed"));
        far.SetText(QStringLiteral("changed"));
    });
    LookAt({40, 0});
    surface.Undo();
    EXPECT_EQ(Scroll(), QPoint(40, 0));
    Node &farther = AddNode("farther", 6000, 2500);
    Settle();
    Step([&] {
        far.SetText(QStringLiteral("again"));
        farther.SetText(QStringLiteral("again"));
    });
    surface.Undo();
    EXPECT_TRUE(IsSeen(far)) << "the nearer one";
    EXPECT_FALSE(IsSeen(farther));
}

TEST_F(UndoSight, HiddenItemsAndTheSelection_CountForNothing) {
    far.SetHidden(true);
    Step([&] { far.SetTag(QStringLiteral("tag")); });
    Step([&] { a.SetSelected(true); });
    surface.Undo();
    EXPECT_EQ(Scroll(), QPoint(0, 0));
}

TEST_F(UndoSight, LinksAlone_AreSeenToo) {
    Node &beside = AddNode("beside", 3300, 2500);
    Link &link = AddLink(far, beside);
    Settle();
    Step([&] { link.SetLineColor(support::Rgb(255, 0, 0)); });
    surface.Undo();
    Settle();
    EXPECT_TRUE(view->viewport()->rect().contains(At(ToQPointF(link.Route().front()))));
}

} // namespace diagram::testing
