#include "diagram/view/SurfaceView.h"
#include "mainwindow/cStatusBar.h"
#include "mainwindow/frmLayout.h"
#include "mainwindow/frmPics.h"
#include "mainwindow/LongTask.h"
#include "support/Error.h"
#include "tests/mainwindow/WindowTest.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
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
    // A month far from where it is laid out.
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

TEST_F(Layout, TreeSaysNothingOfADiagramThatIsNone) {
    left.Links().Add(top);
    Run("mnuLayoutTreeExecute");
    EXPECT_EQ(top.Top(), left.Top());
    EXPECT_TRUE(desktop.Messages().empty());
}

TEST_F(Layout, TreeArrangesTheTimelineOfADiagramThatIsNoneToo) {
    const diagram::Node &month = AddFarMonth("March 2026");
    left.Links().Add(top);
    Run("mnuLayoutTreeExecute");
    EXPECT_NE(month.Left(), kFar);
    AddFarMonth("no month"); // which can't be arranged
    Run("mnuLayoutTreeExecute");
    EXPECT_TRUE(desktop.Messages().empty());
    EXPECT_EQ(window.MousePointer(), document::pointer::kNormal);
}

TEST_F(Layout, LayoutsLeaveTheMapUnmarked) {
    window.clsSettings().Dirty = false;
    Run("mnuLayoutHExecute");
    Run("mnuLayoutTreeExecute");
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

// A task that runs for longer than it may without a word.
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

// So many nodes take the engine far longer than anybody waits.
TEST_F(Layout, TenThousandNodesAreGivenUpByEscapeWithNothingChanged) {
    std::vector<diagram::Node *> nodes;
    for (int i = 0; i < 10000; ++i)
        nodes.push_back(&AddNode(window, float(i % 100) * 2000, float(i / 100) * 2000));
    for (int i = 0; i < 13000; ++i)
        nodes[std::size_t(i * 7919 % 10000)]->Links().Add(*nodes[std::size_t(i * 7 % 9973)]);
    const QPointF before = nodes[500]->Bounds().topLeft();
    const diagram::Node &month = AddFarMonth("March 2026");
    auto *bar = window.findChild<cStatusBar *>(QStringLiteral("staMain"));
    QTimer escape;
    QObject::connect(&escape, &QTimer::timeout, [&] {
        if (bar->Doing().contains(QStringLiteral("Escape")))
            QTest::keyClick(&window.CurrentView(), Qt::Key_Escape);
    });
    escape.start(1);
    Run("mnuLayoutHExecute");
    EXPECT_EQ(bar->Doing(), QStringLiteral("Laying out was given up."));
    EXPECT_EQ(nodes[500]->Bounds().topLeft(), before);
    EXPECT_EQ(month.Left(), kFar);
    EXPECT_FALSE(surface.CanUndo());
    EXPECT_EQ(window.MousePointer(), document::pointer::kNormal);
}

} // namespace mainwindow::testing
