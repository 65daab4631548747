#include "diagram/model/Routing.h"
#include "diagram/view/Glide.h"
#include "diagram/view/SurfaceView.h"
#include "document/Tags.h"
#include "mainwindow/controls/cStatusBar.h"
#include "mainwindow/forms/frmLayout.h"
#include "mainwindow/window/frmPics.h"
#include "mainwindow/window/LongTask.h"
#include "support/Error.h"
#include "tests/mainwindow/WindowTest.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QMenu>
#include <QProgressBar>
#include <QProxyStyle>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace mainwindow::testing {

// Three nodes on one place, the first linked to the others.
struct Layout : WindowTest {
    frmMain &window = NewWindow();
    diagram::Surface &surface = window.CurrentSurface();
    diagram::Node &top = AddNode(window, 1500, 1500), &left = AddNode(window, 1500, 1500),
                  &right = AddNode(window, 1600, 1500);

    Layout() {
        top.Links().Add(left);
        top.Links().Add(right);
    }
    ~Layout() override {
        frmPics::Shared().HFlow() = {};
        frmPics::Shared().TFlow() = {};
    }
    void Run(const char *key) { window.SmartMenuXP1_Click(QLatin1String(key)); }
    // A month far from where an arrangement puts it.
    diagram::Node &AddFarMonth(const char *text) {
        diagram::Node &month = AddMonth(window, kFar, QLatin1String(text));
        month.SetTop(kFar);
        return month;
    }
    static constexpr float kFar = 30000;
    bool IsLaidOut() const {
        return top.Top() + top.Height() < left.Top() && left.Top() == right.Top() &&
               left.Left() + left.Width() < right.Left();
    }
};

TEST_F(Layout, HierarchicalLaysOutInLayersAsOneStep) {
    Run("mnuLayoutHExecute");
    EXPECT_TRUE(IsLaidOut());
    Run("mnuEditUndo");
    EXPECT_EQ(top.Top(), left.Top());
    Run("mnuEditRedo");
    EXPECT_TRUE(IsLaidOut());
}

TEST_F(Layout, TreeLaysOutAsOneStep) {
    Run("mnuLayoutTreeExecute");
    EXPECT_TRUE(IsLaidOut());
    EXPECT_EQ(top.Left() + top.Width() / 2, (left.Left() + right.Left() + right.Width()) / 2);
    Run("mnuEditUndo");
    EXPECT_EQ(top.Top(), left.Top());
}

TEST_F(Layout, TreeLaysOutWhatIsNoneByASpanningTreeAndSaysSoInPassing) {
    left.Links().Add(top);
    Run("mnuLayoutTreeExecute");
    EXPECT_TRUE(IsLaidOut());
    EXPECT_TRUE(desktop.Messages().empty());
    const auto *bar = window.findChild<cStatusBar *>(QStringLiteral("staMain"));
    EXPECT_EQ(
        bar->Doing(),
        QStringLiteral("This is no tree: it was laid out along some of its links, the others lead round."));
    Run("mnuEditUndo");
    EXPECT_EQ(top.Top(), left.Top());
}

TEST_F(Layout, OfATreeTheStatusBarSaysNothing) {
    Run("mnuLayoutTreeExecute");
    EXPECT_EQ(window.findChild<cStatusBar *>(QStringLiteral("staMain"))->Doing(), QString());
}

TEST_F(Layout, TreeIgnoresThatMonthsCannotBeArranged) {
    const diagram::Node &month = AddFarMonth("March 2026");
    left.Links().Add(top);
    Run("mnuLayoutTreeExecute");
    EXPECT_NE(month.Left(), kFar);
    AddFarMonth("no month"); // which can't be arranged
    Run("mnuLayoutTreeExecute");
    EXPECT_TRUE(desktop.Messages().empty());
    EXPECT_EQ(window.MousePointer(), document::pointer::kNormal);
}

constexpr const char *kKinds[] = {"mnuLayoutRadial", "mnuLayoutOrganic", "mnuLayoutCircular",
                                  "mnuLayoutLevels"};

TEST_F(Layout, EveryOtherKindLaysOutAsOneStepAndArrangesTheMonths) {
    const diagram::Node &month = AddFarMonth("March 2026");
    for (const char *key : kKinds) {
        Run(key);
        EXPECT_FALSE(top.Bounds().intersects(left.Bounds())) << key;
        EXPECT_FALSE(left.Bounds().intersects(right.Bounds())) << key;
        EXPECT_NE(month.Left(), kFar) << key;
        Run("mnuEditUndo");
        EXPECT_EQ(top.Top(), left.Top()) << key;
        EXPECT_EQ(month.Left(), kFar) << key;
    }
}

TEST_F(Layout, EveryOtherKindTakesTheHierarchicalOptions) {
    frmPics::Shared().HFlow().scope = diagram::LayoutScope::Selection;
    top.SetSelected(true);
    left.SetSelected(true);
    for (const char *key : kKinds) {
        Run(key);
        EXPECT_EQ(right.Bounds().topLeft(), QPointF(1600, 1500)) << key;
        EXPECT_FALSE(top.Bounds().intersects(left.Bounds())) << key;
    }
}

// Opens the menu Layout and runs its entry by Enter.
void PushInMenu(frmMain &window, const char *key) {
    auto *entry = window.findChild<QAction *>(QLatin1String(key));
    auto *title = window.findChild<QAction *>(QStringLiteral("mnuLayout"));
    ASSERT_TRUE(entry && title && title->menu());
    QMenu *menu = title->menu();
    menu->popup(window.mapToGlobal(QPoint(0, 0)));
    menu->setActiveAction(entry);
    QTest::keyClick(menu, Qt::Key_Return);
}

TEST_F(Layout, OfASelectionTheRestIsHeldAndItIsOneStep) {
    Click(window, {2000, 1800});
    QTest::keyClick(&window.CurrentView(), Qt::Key_A, Qt::ControlModifier);
    diagram::Node &held = AddNode(window, 1500, 3000);
    const QRectF stood = held.Bounds();
    held.SetSelected(false);
    window.clsSettings().Dirty = false;
    PushInMenu(window, "mnuLayoutSelection");
    EXPECT_TRUE(IsLaidOut());
    EXPECT_EQ(held.Bounds(), stood);
    for (const diagram::Node *node : {&top, &left, &right}) EXPECT_FALSE(node->Bounds().intersects(stood));
    EXPECT_TRUE(window.clsSettings().Dirty);
    EXPECT_EQ(frmPics::Shared().HFlow().scope, diagram::LayoutScope::All);
    Run("mnuEditUndo");
    EXPECT_EQ(top.Bounds().topLeft(), QPointF(1500, 1500));
    EXPECT_EQ(left.Bounds().topLeft(), QPointF(1500, 1500));
}

TEST_F(Layout, ASelectionOfOneIsNotLaidOutAndTheStatusBarSaysWhy) {
    Click(window, {2000, 1800});
    ASSERT_EQ(surface.SelectedNodes().size(), 1U);
    window.clsSettings().Dirty = false;
    PushInMenu(window, "mnuLayoutSelection");
    EXPECT_EQ(top.Bounds().topLeft(), QPointF(1500, 1500));
    EXPECT_EQ(Status(window), QStringLiteral("Select two or more Nodes to lay them out."));
    EXPECT_FALSE(window.clsSettings().Dirty);
}

TEST_F(Layout, ByLevelPutsEachLevelOfTheListIntoALane) {
    auto &levels = window.clsSettings().Levels();
    const QString first = levels.Item(1).Key, second = levels.Item(2).Key;
    document::SetTag(top, document::tags::kLevel, second);
    document::SetTag(left, document::tags::kLevel, first);
    document::SetTag(right, document::tags::kLevel, second);
    Run("mnuLayoutLevels");
    EXPECT_LT(left.Left() + left.Width(), top.Left());
    EXPECT_EQ(top.Left(), right.Left());
    EXPECT_LT(top.Top(), right.Top());
}

// A desktop that animates things, for longer than the test takes.
class Animated : public QProxyStyle {
public:
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *data) const override {
        constexpr int kLong = 100000;
        return hint == SH_Widget_Animation_Duration ? kLong
                                                    : QProxyStyle::styleHint(hint, option, widget, data);
    }
};

TEST_F(Layout, NodesAreSeenOnTheirWayOnceTheStepIsOver) {
    Animated style;
    window.CurrentView().setStyle(&style);
    for (const char *key : {"mnuLayoutHExecute", "mnuLayoutTreeExecute", "mnuLayoutRadial"}) {
        top.SetTop(9000);
        Run(key);
        EXPECT_TRUE(diagram::Glide::GoesOnIn(window.CurrentView())) << key;
        Run("mnuEditUndo");
        EXPECT_FALSE(diagram::Glide::GoesOnIn(window.CurrentView())) << key;
    }
    window.CurrentView().setStyle(nullptr);
}

TEST_F(Layout, ThePageFollowsWhereNothingOfItIsSeenAnyMore) {
    for (const char *key : {"mnuLayoutHExecute", "mnuLayoutTreeExecute", "mnuLayoutCircular"}) {
        diagram::SurfaceView &view = window.CurrentView();
        const auto isSeen = [&](const diagram::Node &node) {
            return view.viewport()->rect().contains(view.FromSurface(node.Bounds().center()).toPoint());
        };
        view.EnsureVisible(QRectF(60000, 30000, 300, 300));
        ASSERT_FALSE(isSeen(top));
        Run(key);
        EXPECT_TRUE(isSeen(top) || isSeen(left)) << key;
    }
}

TEST_F(Layout, LayoutsLeaveTheMapUnmarked) {
    window.clsSettings().Dirty = false;
    Run("mnuLayoutHExecute");
    Run("mnuLayoutTreeExecute");
    for (const char *key : kKinds) Run(key);
    EXPECT_FALSE(window.clsSettings().Dirty);
}

TEST_F(Layout, OptionsAreTakenOnOkAndUsed) {
    desktop.ExpectForm<LayoutFormArgument>([](LayoutFormArgument &argument) {
        frmLayout form(argument, nullptr);
        form.findChild<QComboBox *>(QStringLiteral("cboOrientation"))->setCurrentIndex(2);
        form.findChild<QDoubleSpinBox *>(QStringLiteral("txtLevels"))->setValue(100);
        form.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->click();
        return true;
    });
    Run("mnuLayoutTreeOptions");
    Run("mnuLayoutTreeExecute");
    EXPECT_EQ(left.Left(), top.Left() + top.Width() + 1500);
    EXPECT_EQ(frmPics::Shared().HFlow().options, diagram::LayoutOptions());
}

// The nodes are of two levels, which a layout that keeps levels together puts side by side.
TEST_F(Layout, WhatIsToBeKeptTogetherIsChosenInTheOptionsAndRemembered) {
    desktop.ExpectForm<LayoutFormArgument>([](LayoutFormArgument &argument) {
        frmLayout form(argument, nullptr);
        auto *together = form.findChild<QComboBox *>(QStringLiteral("cboTogether"));
        EXPECT_FALSE(together->isHidden());
        EXPECT_EQ(together->currentIndex(), 0);
        together->setFocus();
        QTest::keyClick(together, Qt::Key_Down);
        form.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->click();
        return true;
    });
    Run("mnuLayoutHOptions");
    frmPics::Shared().HFlow() = {}; // as when the program starts again
    diagram::Node &third = AddNode(window, 1500, 1500), &fourth = AddNode(window, 1500, 1500);
    left.Links().Add(third);
    right.Links().Add(fourth);
    auto &levels = window.clsSettings().Levels();
    for (diagram::Node *node : {&top, &right, &third})
        document::SetTag(*node, document::tags::kLevel, levels.Item(1).Key);
    for (diagram::Node *node : {&left, &fourth})
        document::SetTag(*node, document::tags::kLevel, levels.Item(2).Key);
    Run("mnuLayoutHExecute");
    const QRectF first = top.Bounds() | right.Bounds() | third.Bounds();
    EXPECT_FALSE(first.intersects(left.Bounds() | fourth.Bounds()));
}

TEST_F(Layout, OnlyTheHierarchicalLayoutAsksWhatToKeepTogether) {
    desktop.ExpectForm<LayoutFormArgument>([](LayoutFormArgument &argument) {
        frmLayout form(argument, nullptr);
        EXPECT_TRUE(form.findChild<QComboBox *>(QStringLiteral("cboTogether"))->isHidden());
        return false;
    });
    Run("mnuLayoutTreeOptions");
}

TEST_F(Layout, CancelledOptionsAreLeftAsTheyWere) {
    desktop.ExpectForm<LayoutFormArgument>([](LayoutFormArgument &argument) {
        frmLayout form(argument, nullptr);
        form.findChild<QCheckBox *>(QStringLiteral("chkSelection"))->setChecked(true);
        form.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Cancel)->click();
        return false;
    });
    Run("mnuLayoutHOptions");
    EXPECT_EQ(frmPics::Shared().HFlow().scope, diagram::LayoutScope::All);
}

// A task that goes on until it tells of itself.
TEST_F(Layout, EscapeGivesALongTaskUpAndNoOtherInputArrives) {
    auto *bar = window.findChild<cStatusBar *>(QStringLiteral("staMain"));
    {
        LongTask task(window, QStringLiteral("Laying out"));
        EXPECT_TRUE(task.GoOn());
        EXPECT_EQ(bar->Doing(), QString());
        while (bar->Doing().isEmpty()) ASSERT_TRUE(task.GoOn());
        EXPECT_EQ(bar->Doing(), QStringLiteral("Laying out... Escape gives up."));
        QTest::keyClick(&window.CurrentView(), Qt::Key_X);
        QTest::mouseClick(window.CurrentView().viewport(), Qt::LeftButton);
        window.close();
        EXPECT_TRUE(window.isVisible());
        EXPECT_TRUE(task.GoOn());
        QTest::keyClick(&window.CurrentView(), Qt::Key_Escape);
        EXPECT_FALSE(task.GoOn());
    }
    EXPECT_FALSE(window.CurrentView().IsEditing());
    EXPECT_EQ(bar->Doing(), QStringLiteral("Laying out was given up."));
}

TEST_F(Layout, TheBarOfWorkThatCountsItselfNeverRunsBackwards) {
    const auto *bar = window.findChild<QProgressBar *>();
    ASSERT_NE(bar, nullptr);
    LongTask task(window, QStringLiteral("Laying out"), LongTask::Bar::ByWork);
    auto *status = window.findChild<cStatusBar *>(QStringLiteral("staMain"));
    while (status->Doing().isEmpty()) ASSERT_TRUE(task.GoOn(0.25));
    while (bar->value() < 49) ASSERT_TRUE(task.GoOn(0.5)); // the bar is painted now and then only
    for (bool back = true; bar->value() < 69; back = !back) {
        ASSERT_TRUE(task.GoOn(back ? 0.1 : 0.7));
        ASSERT_GE(bar->value(), 49);
    }
    EXPECT_EQ(bar->value(), 69);
}

// So many nodes that the layout cannot end before Escape arrives.
TEST_F(Layout, TenThousandNodesAreGivenUpByEscapeWithNothingChanged) {
    std::vector<diagram::Node *> nodes;
    for (int i = 0; i < 10000; ++i) {
        const int column = i % 100, row = i / 100;
        nodes.push_back(&AddNode(window, float(column) * 2000, float(row) * 2000));
    }
    for (int i = 0; i < 13000; ++i)
        nodes[std::size_t(i * 7919 % 10000)]->Links().Add(*nodes[std::size_t(i * 7 % 9973)]);
    const QPointF before = nodes[500]->Bounds().topLeft();
    const diagram::Node &month = AddFarMonth("March 2026");
    auto *bar = window.findChild<cStatusBar *>(QStringLiteral("staMain"));
    const EscapeWhenOffered escape(window);
    Run("mnuLayoutHExecute");
    EXPECT_EQ(bar->Doing(), QStringLiteral("Laying out was given up."));
    EXPECT_EQ(nodes[500]->Bounds().topLeft(), before);
    EXPECT_EQ(month.Left(), kFar);
    EXPECT_FALSE(surface.CanUndo());
    EXPECT_EQ(window.MousePointer(), document::pointer::kNormal);
}

// The nodes are moved first; then events run while the routes of the links are found, which takes far longer.
// Escape in that time must put the nodes back too.
TEST_F(Layout, RoutesOfManyLinksAreGivenUpByEscapeWithNothingChanged) {
    std::vector<diagram::Node *> nodes;
    for (int i = 0; i < 3000; ++i)
        nodes.push_back(&AddNode(window, float(i % 50) * 2000, float(i / 50) * 2000));
    for (int i = 0; i < 4000; ++i)
        nodes[std::size_t(i * 7919 % 3000)]->Links().Add(*nodes[std::size_t(i * 7 % 2971)]).SetStyle(5);
    window.CurrentSurface().Routes().Recalculate();
    const diagram::ItemPlaces before = diagram::PlacesOf(window.CurrentSurface());
    const QPointF corner = nodes[500]->Bounds().topLeft();
    bool moved = false;
    QTimer escape;
    QObject::connect(&escape, &QTimer::timeout, [&] {
        if (nodes[500]->Bounds().topLeft() == corner) return;
        moved = true;
        QTest::keyClick(&window.CurrentView(), Qt::Key_Escape);
    });
    escape.start(1);
    Run("mnuLayoutLevels");
    EXPECT_TRUE(moved);
    EXPECT_EQ(window.findChild<cStatusBar *>(QStringLiteral("staMain"))->Doing(),
              QStringLiteral("Laying out was given up."));
    const diagram::ItemPlaces after = diagram::PlacesOf(window.CurrentSurface());
    EXPECT_TRUE(after.nodes == before.nodes);
    EXPECT_TRUE(after.routes == before.routes);
    EXPECT_FALSE(surface.CanUndo());
    EXPECT_TRUE(window.CurrentView().viewport()->updatesEnabled());
}

} // namespace mainwindow::testing
