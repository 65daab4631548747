// What the node dialog shows, and what it applies.
#include "dialogs/NodeSample.h"
#include "document/Tags.h"
#include "settings/Settings.h"
#include "tests/dialogs/NodeDialogTest.h"
#include "timeline/AddTimelineLink.h"
#include "timeline/TimelineNodes.h"
#include "widgets/PropertyLists.h"
#include "widgets/SwatchButton.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTabBar>
#include <QTest>

namespace dialogs::testing {

namespace {

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

} // namespace

class NodeForm : public NodeDialogTest {
protected:
    widgets::SwatchButton &Fill() { return Control<widgets::SwatchButton>("cmdChangeFill"); }
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

TEST_F(NodeForm, NoTwoControlsOfAPageShareAKey) {
    Open(*node);
    for (int page = 0; page < form->SSIndexTab1()->count(); ++page) {
        GoTo(page);
        Settle();
        QStringList texts, keys;
        for (const QLabel *label : form->findChildren<QLabel *>())
            if (label->isVisible() && label->buddy()) texts << label->text();
        for (const QAbstractButton *button : form->findChildren<QAbstractButton *>())
            if (button->isVisible()) texts << button->text();
        for (const QString &text : texts)
            if (text.contains(u'&')) keys << text.at(text.indexOf(u'&') + 1).toLower();
        EXPECT_GE(keys.size(), 2) << page; // of the buttons below
        EXPECT_EQ(keys.removeDuplicates(), 0) << page;
    }
}

TEST_F(NodeForm, TabGoesThroughThePagesFromTopToBottomAndOnToTheButtons) {
    constexpr const char *kOrder[] = {"cboShape",
                                      "cboShapeOrient",
                                      "cboDrawStyle",
                                      "cboShadow",
                                      "cboDrawWidth",
                                      "cboAutoSize",
                                      "cmdChangeFill",
                                      "cmdChangeBorder",
                                      "cmdChangeFore",
                                      "tabText",
                                      "txtText",
                                      "txtOther",
                                      "cmdFont",
                                      "cboTextAlign",
                                      "cboXMargin",
                                      "cboYMargin",
                                      "chkDate",
                                      "lstLevels",
                                      "lstGroups",
                                      "cmdBrowse",
                                      "cmdPaste",
                                      "cmdClear",
                                      "cboPicturePosition",
                                      "OKButton"};
    Open(*node);
    QStringList expected, order;
    for (const char *name : kOrder) expected << QLatin1String(name);
    QWidget *first = &Control<QWidget>("cboShape"), *at = first;
    do {
        if (expected.contains(at->objectName())) order << at->objectName();
        at = at->nextInFocusChain();
    } while (at != first);
    EXPECT_EQ(order.join(u' ').toStdString(), expected.join(u' ').toStdString());
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
    for (const auto &[name, value] : rows)
        EXPECT_EQ(widgets::ValueOf(Control<QComboBox>(name)), value) << name;
    EXPECT_EQ(Fill().Value(), 0x102030);
    EXPECT_EQ(Control<widgets::SwatchButton>("cmdChangeBorder").Value(), 0x405060);
    EXPECT_EQ(Control<widgets::SwatchButton>("cmdChangeFore").Value(), 0x708090);
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
    document::SetTag(*node, document::tags::kHyper, QStringLiteral("No")); // which every OK writes
    const diagram::NodeData before = node->Data();
    Open(*node);
    GoTo(kTextPage);
    GoTo(kDatePage);
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
    GoTo(kDatePage);
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
    EXPECT_FALSE(line.text().contains(QStringLiteral("date away"))) << "it has none";
    EXPECT_TRUE(line.text().contains(QStringLiteral("Once the page Level was opened")));
    GoTo(kLevelPage);
    EXPECT_TRUE(line.text().contains(QStringLiteral("All get the level and the groups that are marked")));
}

TEST_F(NodeForm, SaysThatOfSeveralNodesTheDateGoes) {
    AddNode().SetSelected(true);
    Date(*node, QStringLiteral("14 March 2004"));
    Open(*node);
    EXPECT_TRUE(
        Control<QLabel>("lblSelection").text().contains(QStringLiteral("OK takes this Idea's date away")));
}

TEST_F(NodeForm, ANodeBesideALargerSelectionIsShownAlone) {
    AddNode().SetSelected(true);
    diagram::Node &beside = AddNode();
    Date(beside, QStringLiteral("14 March 2004"));
    Open(beside, false);
    EXPECT_TRUE(form->SSIndexTab1()->isTabEnabled(kDatePage));
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
