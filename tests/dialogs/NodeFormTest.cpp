// What the node dialog shows, and what it applies.
#include "app/settings/Settings.h"
#include "dialogs/NodeSample.h"
#include "dialogs/PropertyLists.h"
#include "dialogs/SwatchButton.h"
#include "tests/dialogs/NodeDialogTest.h"
#include "timeline/AddTimelineLink.h"
#include "timeline/TimelineNodes.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabBar>
#include <QTest>

namespace dialogs::testing {

namespace {

constexpr int kDate = 2, kLevel = 3;

struct LabelRow {
    const char *text, *control;
};
constexpr LabelRow kLabels[] = {
    {"Shap&e", "cboShape"},           {"Shape Orie&ntation", "cboShapeOrient"},
    {"D&raw Style", "cboDrawStyle"},  {"&Draw Width", "cboDrawWidth"},
    {"S&hadow", "cboShadow"},         {"Auto &Size", "cboAutoSize"},
    {"A&lignment", "cboTextAlign"},   {"&x Margin", "cboXMargin"},
    {"&y Margin", "cboYMargin"},      {"&Picture Position", "cboPicturePosition"},
    {"&Fill Color", "cmdChangeFill"}, {"Border Color", "cmdChangeBorder"},
    {"Fore Color", "cmdChangeFore"},
};

QStringList Marked(const QListWidget &list) {
    QStringList texts;
    for (int row = 0; row < list.count(); ++row)
        if (list.item(row)->checkState() == Qt::Checked) texts << list.item(row)->text();
    return texts;
}

} // namespace

class NodeForm : public NodeDialogTest {
protected:
    QListWidget &Levels() { return Control<QListWidget>("lstLevels"); }
    QListWidget &Groups() { return Control<QListWidget>("lstGroups"); }
    SwatchButton &Fill() { return Control<SwatchButton>("cmdChangeFill"); }
    QLineEdit &DateText() { return *Control<QWidget>("SSDateCombo1").findChild<QLineEdit *>(); }
    void Type(const QString &date) {
        DateText().selectAll();
        QTest::keyClicks(&DateText(), date);
    }
};

TEST_F(NodeForm, HasTheSevenPagesUnderTheTermOfTheProduct) {
    Open(*node);
    QStringList pages;
    for (int page = 0; page < form->SSIndexTab1()->count(); ++page)
        pages << form->SSIndexTab1()->tabText(page);
    EXPECT_EQ(pages.join(u'|'), QStringLiteral("Settings|Text|Date|Level|Picture|Hyperlink|Attachments"));
    EXPECT_EQ(form->windowTitle(), QStringLiteral("Idea Properties"));
    EXPECT_EQ(form->SSIndexTab1()->currentIndex(), 0);
    EXPECT_EQ(Control<QPushButton>("CancelButton").text(), QStringLiteral("&Cancel"));
    EXPECT_EQ(Control<QPushButton>("cmdApply").text(), QStringLiteral("&Apply"));
}

TEST_F(NodeForm, EachLabelLeadsToItsControl) {
    Open(*node);
    for (const LabelRow &row : kLabels) {
        bool found = false;
        for (const QLabel *label : form->findChildren<QLabel *>())
            found = found || (label->text() == QLatin1String(row.text) && label->buddy() &&
                              label->buddy()->objectName() == QLatin1String(row.control));
        EXPECT_TRUE(found) << row.text;
    }
}

TEST_F(NodeForm, EveryControlHasAName) {
    Open(*node);
    for (const QWidget *widget : form->findChildren<QWidget *>()) {
        const bool reached = widget->window() == form.get() && widget->focusPolicy() & Qt::TabFocus;
        if (!reached || widget->objectName().startsWith(QLatin1String("qt_"))) continue;
        if (qobject_cast<const QTabBar *>(widget) || qobject_cast<const QTabWidget *>(widget)) continue;
        const auto *button = qobject_cast<const QAbstractButton *>(widget);
        EXPECT_TRUE(!widget->accessibleName().isEmpty() || (button && !button->text().isEmpty()))
            << qPrintable(widget->objectName()) << widget->metaObject()->className();
    }
}

TEST_F(NodeForm, ShowsTheValuesOfItsNode) {
    node->SetShape(77);
    node->SetShapeOrientation(2);
    node->SetDrawStyle(3);
    node->SetShadow(4);
    node->SetDrawWidth(5);
    node->SetAlignment(6);
    node->SetxTextMargin(7);
    node->SetyTextMargin(8);
    node->SetPicturePos(9);
    node->SetAutoSize(1);
    node->SetFillColor(0x102030);
    node->SetBorderColor(0x405060);
    node->SetForeColor(0x708090);
    Open(*node);
    const std::pair<const char *, int> rows[] = {
        {"cboShape", 77},          {"cboShapeOrient", 2}, {"cboDrawStyle", 3}, {"cboShadow", 4},
        {"cboDrawWidth", 5},       {"cboTextAlign", 6},   {"cboXMargin", 7},   {"cboYMargin", 8},
        {"cboPicturePosition", 9}, {"cboAutoSize", 1}};
    for (const auto &[name, value] : rows) EXPECT_EQ(ValueOf(Control<QComboBox>(name)), value) << name;
    EXPECT_EQ(Fill().Value(), 0x102030);
    EXPECT_EQ(Control<SwatchButton>("cmdChangeBorder").Value(), 0x405060);
    EXPECT_EQ(Control<SwatchButton>("cmdChangeFore").Value(), 0x708090);
    EXPECT_EQ(Control<QComboBox>("cboAutoSize").itemText(2), QStringLiteral("Adjust Node Size to Picture "));
}

TEST_F(NodeForm, OkAppliesWhatWasChosenAndCloses) {
    Open(*node);
    Choose("cboShape", 50);
    Choose("cboShadow", 2);
    desktop.ExpectColour(0x0000FF);
    Click("cmdChangeBorder");
    Click("OKButton");
    EXPECT_EQ(form->result(), QDialog::Accepted);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(node->Shape(), 50);
    EXPECT_EQ(node->Shadow(), 2);
    EXPECT_EQ(node->BorderColor(), 0x0000FF);
}

TEST_F(NodeForm, OkWithoutAnEditChangesNothing) {
    node->SetKey(QStringLiteral("key"));
    node->SetDrawWidth(9);
    node->SetxTextMargin(-3);
    node->SetText(QStringLiteral("hard\u00a0blank\r\nline\n"));
    node->SetPicture(document::testing::OneColour(qRgb(9, 9, 9)));
    Date(*node, QStringLiteral("14 March 2004"));
    const diagram::NodeData before = node->Data();
    Open(*node);
    GoTo(1);
    GoTo(kDate);
    Click("OKButton");
    EXPECT_EQ(diagram::Difference(before, node->Data()), diagram::Change::None);
    EXPECT_EQ(timeline::DateOfNode(*node), QStringLiteral("14 March 2004"));
}

TEST_F(NodeForm, AValueOutsideItsListIsAnEntryOfItsOwn) {
    node->SetDrawWidth(9);
    Open(*node);
    EXPECT_EQ(Control<QComboBox>("cboDrawWidth").currentText(), QStringLiteral("9"));
    EXPECT_EQ(Control<QComboBox>("cboDrawWidth").count(), 10);
    Choose("cboDrawWidth", 2);
    Click("OKButton");
    EXPECT_EQ(node->DrawWidth(), 2);
}

TEST_F(NodeForm, EachApplyIsAStepAndCancelLeavesWhatWasApplied) {
    node->SetKey(QStringLiteral("key"));
    Open(*node);
    Choose("cboShape", 50);
    Click("cmdApply");
    EXPECT_TRUE(form->isVisible());
    Choose("cboShape", 51);
    Click("cmdApply");
    Choose("cboShape", 52);
    Click("CancelButton");
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(node->Shape(), 51);
    flow.Undo();
    EXPECT_EQ(node->Shape(), 50);
    flow.Undo();
    EXPECT_EQ(node->Shape(), 1);
}

TEST_F(NodeForm, EscapeCancels) {
    Open(*node);
    Choose("cboShape", 50);
    QTest::keyClick(form.get(), Qt::Key_Escape);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(node->Shape(), 1);
}

TEST_F(NodeForm, EnterPressesOkBesideTheText) {
    Open(*node);
    Control<QComboBox>("cboShape").setFocus();
    QTest::keyClick(&Control<QComboBox>("cboShape"), Qt::Key_Return);
    EXPECT_EQ(form->result(), QDialog::Accepted);
}

TEST_F(NodeForm, AnErrorIsToldAndTheDialogStays) {
    timeline::LocateTimeLineTemplateNode(flow, false)->SetText(QStringLiteral("no timeline"));
    Open(*node);
    GoTo(kDate);
    Control<QCheckBox>("chkDate").setChecked(true);
    desktop.ExpectMessageContaining(QStringLiteral("You have not configured"), support::Answer::No);
    desktop.ExpectForm<timeline::TimelineSetupArgument>([](timeline::TimelineSetupArgument &) -> bool {
        throw support::Error(5, QStringLiteral("Form"), QStringLiteral("Invalid procedure call or argument"));
    });
    desktop.ExpectMessage(QStringLiteral("Invalid procedure call or argument\r\r(Error #5)"));
    Click("OKButton");
    EXPECT_EQ(desktop.Messages().back().title, QStringLiteral("Error in frmNodeDialog: Sub cmdApply_Click"));
    EXPECT_TRUE(form->isVisible());
    EXPECT_TRUE(window.clsSettings().Dirty);
}

// Level and groups

TEST_F(NodeForm, TheListsOfLevelsAndGroupsAreEmptyUntilTheirPageIsOpened) {
    Open(*node);
    EXPECT_EQ(Levels().count() + Groups().count(), 0);
    GoTo(kLevel);
    EXPECT_EQ(Levels().count(), 3);
    EXPECT_EQ(Groups().count(), 3);
    EXPECT_EQ(Levels().item(1)->data(Qt::UserRole).toInt(), 0x405060);
    GoTo(0);
    GoTo(kLevel);
    EXPECT_EQ(Levels().count(), 3);
}

TEST_F(NodeForm, WithoutOpeningItsPageLevelAndGroupsStay) {
    document::SetTag(*node, document::tags::kLevel, QStringLiteral("x"));
    document::SetTag(*node, document::tags::kGroup, QStringLiteral("y"));
    node->SetFillColor(0xABCDEF);
    Open(*node);
    Click("OKButton");
    EXPECT_EQ(LevelOf(*node), QStringLiteral("x"));
    EXPECT_EQ(GroupsOf(*node), QStringLiteral("y"));
    EXPECT_EQ(node->FillColor(), 0xABCDEF);
}

TEST_F(NodeForm, OpeningThePageGivesTheNodeTheColourOfItsLevel) {
    document::SetTag(*node, document::tags::kLevel, LevelKey(2));
    document::SetTag(*node, document::tags::kGroup, GroupKey(3) + u',' + GroupKey(2));
    node->SetFillColor(0xABCDEF);
    Open(*node);
    GoTo(kLevel);
    EXPECT_EQ(Marked(Levels()), QStringList(QStringLiteral("Second")));
    EXPECT_EQ(Marked(Groups()), QStringList({QStringLiteral("Green"), QStringLiteral("Blue")}));
    EXPECT_EQ(Fill().Value(), 0x405060);
    Click("OKButton");
    EXPECT_EQ(node->FillColor(), 0x405060);
    EXPECT_EQ(LevelOf(*node), LevelKey(2));
    EXPECT_EQ(GroupsOf(*node), GroupKey(2) + u',' + GroupKey(3));
}

TEST_F(NodeForm, ALevelThatIsGoneIsShownAsTheFirstAndWritten) {
    document::SetTag(*node, document::tags::kLevel, QStringLiteral("gone"));
    Open(*node);
    GoTo(kLevel);
    EXPECT_EQ(Marked(Levels()), QStringList(QStringLiteral("First")));
    EXPECT_EQ(Marked(Groups()), QStringList(QStringLiteral("Red")));
    Click("OKButton");
    EXPECT_EQ(LevelOf(*node), LevelKey(1));
    EXPECT_EQ(GroupsOf(*node), GroupKey(1));
}

TEST_F(NodeForm, AKeyWithoutAGroupMarksTheFirstBesideTheOthers) {
    document::SetTag(*node, document::tags::kGroup, GroupKey(3) + QStringLiteral(",gone"));
    Open(*node);
    GoTo(kLevel);
    EXPECT_EQ(Marked(Groups()), QStringList({QStringLiteral("Red"), QStringLiteral("Blue")}));
}

TEST_F(NodeForm, MarkingALevelClearsTheOtherAndSuggestsItsColour) {
    Open(*node);
    GoTo(kLevel);
    Levels().item(2)->setCheckState(Qt::Checked);
    EXPECT_EQ(Marked(Levels()), QStringList(QStringLiteral("Third")));
    EXPECT_EQ(Fill().Value(), 0x708090);
    Levels().item(2)->setCheckState(Qt::Unchecked);
    EXPECT_EQ(Marked(Levels()), QStringList(QStringLiteral("Third")));
    desktop.ExpectColour(0x123456);
    Fill().click();
    Click("OKButton");
    EXPECT_EQ(LevelOf(*node), LevelKey(3));
    EXPECT_EQ(node->FillColor(), 0x123456);
}

TEST_F(NodeForm, AnyNumberOfGroupsCanBeMarkedNoneToo) {
    Open(*node);
    GoTo(kLevel);
    Groups().item(0)->setCheckState(Qt::Unchecked);
    Click("cmdApply");
    EXPECT_TRUE(GroupsOf(*node).isEmpty());
    for (int row = 0; row < 3; ++row) Groups().item(row)->setCheckState(Qt::Checked);
    Click("cmdApply");
    EXPECT_EQ(GroupsOf(*node), (QStringList{GroupKey(1), GroupKey(2), GroupKey(3)}).join(u','));
}

TEST_F(NodeForm, AMarkIsSetWithTheSpaceKey) {
    Open(*node);
    GoTo(kLevel);
    Levels().setFocus();
    Levels().setCurrentRow(1);
    QTest::keyClick(&Levels(), Qt::Key_Space);
    EXPECT_EQ(Marked(Levels()), QStringList(QStringLiteral("Second")));
}

TEST_F(NodeForm, AMapWithoutLevelsAndGroupsLeavesTheTags) {
    window.clsSettings().Levels().Clear();
    window.clsSettings().Groups().Clear();
    document::SetTag(*node, document::tags::kLevel, QStringLiteral("x"));
    Open(*node);
    GoTo(kLevel);
    Click("OKButton");
    EXPECT_EQ(LevelOf(*node), QStringLiteral("x"));
}

TEST_F(NodeForm, TwoThousandGroupsAreListed) {
    for (int i = 0; i < 2000; ++i) window.clsSettings().Groups().Create(QStringLiteral("g%1").arg(i), true);
    document::SetTag(*node, document::tags::kGroup, GroupKey(2003));
    Open(*node);
    GoTo(kLevel);
    EXPECT_EQ(Marked(Groups()), QStringList(QStringLiteral("g1999")));
}

// Date

TEST_F(NodeForm, ShowsTheDateOfTheNode) {
    Date(*node, QStringLiteral("14 March 2004"));
    Open(*node);
    EXPECT_TRUE(Control<QCheckBox>("chkDate").isChecked());
    EXPECT_EQ(DateText().text(), QStringLiteral("14 Mar 2004 00:00:00"));
    EXPECT_TRUE(Control<QWidget>("SSDateCombo1").isEnabled());
}

TEST_F(NodeForm, WithoutADateTodayIsOffered) {
    Open(*node);
    GoTo(kDate);
    EXPECT_FALSE(Control<QCheckBox>("chkDate").isChecked());
    EXPECT_FALSE(Control<QWidget>("SSDateCombo1").isEnabled());
    EXPECT_EQ(DateText().text(), QStringLiteral("17 May 2024 00:00:00"));
    Control<QCheckBox>("chkDate").click();
    EXPECT_TRUE(Control<QWidget>("SSDateCombo1").isEnabled());
    Click("OKButton");
    EXPECT_EQ(timeline::DateOfNode(*node), QStringLiteral("17 May 2024"));
}

TEST_F(NodeForm, ADateIsTypedInAnyForm) {
    for (const char *typed : {"2 January 2005", "2/1/2005", "2005-01-02", "2 Jan 2005 13:45:00"}) {
        timeline::RemoveTimelineLinks(*node);
        Open(*node);
        GoTo(kDate);
        Control<QCheckBox>("chkDate").setChecked(true);
        Type(QLatin1String(typed));
        Click("OKButton");
        EXPECT_EQ(timeline::DateOfNode(*node), QStringLiteral("02 January 2005")) << typed;
    }
}

TEST_F(NodeForm, WhatIsNoDateIsRefused) {
    for (const char *typed : {"soon", "31 February 2004", "1/1/99999", "1 January 3100"}) {
        Open(*node);
        GoTo(kDate);
        Control<QCheckBox>("chkDate").setChecked(true);
        Type(QLatin1String(typed));
        GoTo(0);
        desktop.ExpectMessage(QStringLiteral("\"%1\" is no date.").arg(QLatin1String(typed)));
        Click("OKButton");
        EXPECT_TRUE(form->isVisible());
        EXPECT_EQ(form->SSIndexTab1()->currentIndex(), kDate);
        EXPECT_FALSE(window.clsSettings().Dirty);
    }
}

TEST_F(NodeForm, ADateThatCannotBeReadIsShownAndStays) {
    Date(*node, QStringLiteral("14 March 2004"));
    node->Links().Item(1).Destination().SetText(QStringLiteral("some day"));
    Open(*node);
    EXPECT_EQ(DateText().text(), QStringLiteral("some day"));
    Click("OKButton");
    EXPECT_EQ(DayTextOf(*node), QStringLiteral("some day"));
}

TEST_F(NodeForm, ClearingTheDateTakesItAway) {
    Date(*node, QStringLiteral("14 March 2004"));
    Open(*node);
    GoTo(kDate);
    Control<QCheckBox>("chkDate").click();
    Click("OKButton");
    EXPECT_TRUE(timeline::DateOfNode(*node).isEmpty());
}

TEST_F(NodeForm, OfSeveralNodesTheDatePageIsOffAndTheDateGoes) {
    Date(*node, QStringLiteral("14 March 2004"));
    diagram::Node &other = AddNode();
    Date(other, QStringLiteral("15 March 2004"));
    other.SetSelected(true);
    Open(*node);
    EXPECT_FALSE(form->SSIndexTab1()->isTabEnabled(kDate));
    EXPECT_FALSE(Control<QCheckBox>("chkDate").isChecked());
    Click("OKButton");
    EXPECT_TRUE(timeline::DateOfNode(*node).isEmpty());
    EXPECT_EQ(timeline::DateOfNode(other), QStringLiteral("15 March 2004"));
}

// Several nodes

TEST_F(NodeForm, OfSeveralNodesTheLookGoesToAllAndTheTextToOne) {
    diagram::Node &other = AddNode(QStringLiteral("other"));
    other.SetSelected(true);
    Open(*node);
    Choose("cboShape", 50);
    Click("OKButton");
    EXPECT_EQ(other.Shape(), 50);
    EXPECT_EQ(other.Text(), QStringLiteral("other"));
}

TEST_F(NodeForm, SaysWhatGoesToAllOfSeveralNodes) {
    Open(*node);
    EXPECT_FALSE(Control<QLabel>("lblSelection").isVisible());
    AddNode().SetSelected(true);
    Open(*node);
    const QLabel &line = Control<QLabel>("lblSelection");
    EXPECT_TRUE(line.isVisible());
    EXPECT_TRUE(line.text().contains(QStringLiteral("all 2 selected Ideas")));
    EXPECT_TRUE(line.text().contains(QStringLiteral("OK takes this Idea's date away")));
    EXPECT_TRUE(line.text().contains(QStringLiteral("Once the page Level was opened")));
    GoTo(kLevel);
    EXPECT_TRUE(line.text().contains(QStringLiteral("All get the level and the groups that are marked")));
}

TEST_F(NodeForm, ANodeBesideALargerSelectionIsShownAlone) {
    AddNode().SetSelected(true);
    diagram::Node &beside = AddNode();
    Date(beside, QStringLiteral("14 March 2004"));
    Open(beside, false);
    EXPECT_TRUE(form->SSIndexTab1()->isTabEnabled(kDate));
    EXPECT_FALSE(Control<QLabel>("lblSelection").isVisible());
    Choose("cboShape", 50);
    Click("OKButton");
    EXPECT_EQ(beside.Shape(), 50);
    EXPECT_EQ(node->Shape(), 1);
    EXPECT_EQ(timeline::DateOfNode(beside), QStringLiteral("14 March 2004"));
}

// Sample

TEST_F(NodeForm, TheSampleFollowsTheSettingsAndTheNodeDoesNot) {
    Open(*node);
    Choose("cboShape", 50);
    Choose("cboAutoSize", 3);
    EXPECT_EQ(form->Sample()->Node().Shape(), 50);
    EXPECT_EQ(form->Sample()->Node().AutoSize(), 3);
    EXPECT_EQ(form->Sample()->Node().Text(), QStringLiteral("node"));
    EXPECT_EQ(node->Shape(), 1);
    Choose("cboAutoSize", 0);
    EXPECT_EQ(form->Sample()->Node().Width(), node->Width());
}

TEST_F(NodeForm, TheSampleIsPaintedInTheColoursOfTheNode) {
    node->SetFillColor(support::Rgb(10, 200, 30));
    node->SetText(QString());
    Open(*node);
    auto *sample = const_cast<NodeSample *>(form->Sample());
    EXPECT_EQ(sample->grab().toImage().pixelColor(sample->rect().center()), QColor(10, 200, 30));
}

} // namespace dialogs::testing
