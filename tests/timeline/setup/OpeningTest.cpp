// What the setup form shows when it opens.
#include "diagram/model/ScreenValues.h"
#include "diagram/shapes/Shapes.h"
#include "document/Tags.h"
#include "tests/timeline/setup/SetupTest.h"
#include "timeline/setup/SampleView.h"
#include "widgets/SwatchButton.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>

namespace timeline::testing {

namespace {

using namespace document::tags;

QStringList Entries(const QComboBox &list) {
    QStringList entries;
    for (int i = 0; i < list.count(); ++i) entries << list.itemText(i);
    return entries;
}

struct LabelRow {
    const char *text, *control;
};
constexpr LabelRow kLabels[] = {
    {"Timeline Arrangement", "cboArrangement"},
    {"A&lignment", "cboTextAlign"},
    {"&x Margin", "cboXMargin"},
    {"&y Margin", "cboYMargin"},
    {"Shap&e", "cboShape"},
    {"Shape Orie&ntation", "cboShapeOrient"},
    {"D&raw Style", "cboDrawStyle"},
    {"S&hadow", "cboShadow"},
    {"&Draw Width", "cboDrawWidth"},
    {"Auto &Size", "cboAutoSize"},
    {"&Fill Color", "cmdChangeFill"},
    {"Border Color", "cmdChangeBorder"},
    {"Fore Color", "cmdChangeFore"},
};

// The platform orders the buttons below.
constexpr const char *kTabOrder[] = {
    "cboAutoSize",  "cboDrawStyle",  "cboDrawWidth",   "cboShadow",       "cboShape",       "cboShapeOrient",
    "cboTextAlign", "cboXMargin",    "cboYMargin",     "cmdChangeFore",   "cmdChangeFill",  "cmdChangeBorder",
    "cmdFont",      "cboDateFormat", "cboArrangement", "chkMissingDates", "TimelineSample", "OKButton"};

} // namespace

struct Opening : SetupTest {};

TEST_F(Opening, TheTimelinesSettingsShowEverything) {
    Form();
    EXPECT_EQ(form->windowTitle(), QStringLiteral("Timeline Setup"));
    EXPECT_EQ(form->findChild<QGroupBox *>()->title(), QStringLiteral("Timeline Node Settings:"));
    for (const char *name : {"cboDateFormat", "cboArrangement", "chkMissingDates", "lbl_cboArrangement"})
        EXPECT_FALSE(Control<QWidget>(name).isHidden()) << name;
}

TEST_F(Opening, TheDefaultNodesSettingsHaveNoDates) {
    Form(true);
    EXPECT_EQ(form->windowTitle(), QStringLiteral("Default Node Setup"));
    EXPECT_EQ(form->findChild<QGroupBox *>()->title(), QStringLiteral("Default Node Settings"));
    for (const char *name :
         {"cboDateFormat", "cboArrangement", "chkMissingDates", "lbl_cboArrangement", "lbl_cboDateFormat"})
        EXPECT_TRUE(Control<QWidget>(name).isHidden()) << name;
}

TEST_F(Opening, EachLabelLeadsToItsControl) {
    Form();
    for (const LabelRow &row : kLabels) {
        bool found = false;
        for (const QLabel *label : form->findChildren<QLabel *>())
            found = found || (label->text() == QLatin1String(row.text) &&
                              label->buddy()->objectName() == QLatin1String(row.control));
        EXPECT_TRUE(found) << row.text;
    }
    EXPECT_EQ(Control<QPushButton>("cmdDefault").text(), QStringLiteral("&Default"));
    EXPECT_EQ(Control<QPushButton>("cmdCancel").text(), QStringLiteral("&Cancel"));
    EXPECT_EQ(Control<QPushButton>("cmdFont").text(), QStringLiteral("Font"));
    EXPECT_EQ(Control<QCheckBox>("chkMissingDates").text(), QStringLiteral("Add Missing Dates"));
}

TEST_F(Opening, TabGoesThroughTheControlsFromTopToBottom) {
    Form();
    form->show();
    QStringList order, expected;
    for (const char *name : kTabOrder) expected << QLatin1String(name);
    QWidget *first = &Control<QWidget>("cboAutoSize"), *at = first;
    do {
        if (at->focusPolicy() & Qt::TabFocus && expected.contains(at->objectName()))
            order << at->objectName();
        at = at->nextInFocusChain();
    } while (at != first);
    EXPECT_EQ(order.join(u' ').toStdString(), expected.join(u' ').toStdString());
}

TEST_F(Opening, TheListsOfferWhatIsStored) {
    Form();
    EXPECT_EQ(Control("cboAutoSize").itemText(2), QStringLiteral("Adjust Node Size to Picture "));
    EXPECT_EQ(Control("cboAutoSize").count(), 4);
    EXPECT_EQ(Control("cboDrawStyle").itemText(5), QStringLiteral("Transparent"));
    EXPECT_EQ(Control("cboDrawStyle").count(), 7);
    EXPECT_EQ(Control("cboShadow").itemText(2), QStringLiteral("Right Top Shadow"));
    EXPECT_EQ(Control("cboShadow").count(), 5);
    EXPECT_EQ(Control("cboTextAlign").itemText(7), QStringLiteral("Center Justify - Middle"));
    EXPECT_EQ(Control("cboTextAlign").count(), 9);
    EXPECT_EQ(Entries(Control("cboShapeOrient")).join(u'|'),
              QStringLiteral("Angle 0|Angle 90|Angle 180|Angle 270"));
    EXPECT_EQ(Entries(Control("cboArrangement")).join(u'|'), QStringLiteral("Left|Right|Top|Bottom|Center"));
    EXPECT_EQ(
        Entries(Control("cboDateFormat")).join(u'|'),
        QStringLiteral("MM YYYY|MMM YYYY|MMMM YYYY|MM YY|MMM YY|MMMM YY|MM-YYYY|MMM-YYYY|MMMM-YYYY|MM-YY|"
                       "MMM-YY|MMMM-YY"));
    EXPECT_EQ(Control("cboXMargin").itemText(50), QStringLiteral("50"));
    EXPECT_EQ(Control("cboYMargin").count(), 51);
    EXPECT_EQ(Control("cboDrawWidth").count(), 9);
}

TEST_F(Opening, TheShapesAreThoseThatNodesCanHave) {
    Form();
    const QComboBox &shapes = Control("cboShape");
    ASSERT_EQ(shapes.count(), 44);
    for (int i = 0; i < 44; ++i) EXPECT_EQ(shapes.itemData(i).toInt(), i < 16 ? i : i + 34);
}

TEST_F(Opening, TheSampleIsTodaysMonthInTheMiddle) {
    Form();
    EXPECT_EQ(Sample().Text(), QStringLiteral("May 2024"));
    EXPECT_EQ(document::GetTag(Sample(), kTheDate), QStringLiteral("May 2024"));
    EXPECT_EQ(Sample().Bounds().size(), QSizeF(1200, 1200));
    const diagram::Surface &surface = form->TimelineSample();
    EXPECT_EQ(Sample().Left(), surface.Screen().Width() / 2 - 600);
    EXPECT_EQ(Sample().Top(), surface.Screen().Height() / 2 - 600);
}

TEST_F(Opening, WithoutAPatternShortNamesAreShown) {
    Form();
    EXPECT_EQ(Control("cboDateFormat").currentText(), QStringLiteral("MMM YYYY"));
    EXPECT_TRUE(document::GetTag(*LocateTimeLineTemplateNode(flow, false), kDateFormat).isEmpty());
}

TEST_F(Opening, AStoredPatternIsShownInTheSampleToo) {
    document::SetTag(Template(0, 0), kDateFormat, QStringLiteral("MM-YY"));
    Form();
    EXPECT_EQ(Control("cboDateFormat").currentText(), QStringLiteral("MM-YY"));
    EXPECT_EQ(Sample().Text(), QStringLiteral("05-24"));
}

TEST_F(Opening, APatternThatTheListDoesNotHaveSelectsNothing) {
    document::SetTag(Template(0, 0), kDateFormat, QStringLiteral("YYYY/MM"));
    Form();
    EXPECT_EQ(Control("cboDateFormat").currentIndex(), -1);
    EXPECT_EQ(Control("cboDateFormat").count(), 12);
}

TEST_F(Opening, ThePatternInForceIsSeenInTheSampleWhetherListedOrNot) {
    document::SetTag(Template(0, 0), kDateFormat, QStringLiteral("YYYY MM"));
    Form();
    EXPECT_EQ(Sample().Text(), QStringLiteral("2024 05"));
    Choose("cboDateFormat", 9);
    EXPECT_EQ(Sample().Text(), QStringLiteral("05-24"));
}

TEST_F(Opening, TheTemplateNodesLookIsSelected) {
    diagram::Node &look = Template(2400, 600);
    look.SetAutoSize(1);
    look.SetDrawStyle(2);
    look.SetDrawWidth(3);
    look.SetShadow(4);
    look.SetShape(77);
    look.SetShapeOrientation(2);
    look.SetAlignment(5);
    look.SetxTextMargin(6);
    look.SetyTextMargin(7);
    look.SetFillColor(0x102030);
    look.SetBorderColor(0x405060);
    look.SetForeColor(0x708090);
    Form();
    const std::pair<const char *, int> rows[] = {
        {"cboAutoSize", 1},    {"cboDrawStyle", 2}, {"cboDrawWidth", 3}, {"cboShadow", 4}, {"cboShape", 43},
        {"cboShapeOrient", 2}, {"cboTextAlign", 5}, {"cboXMargin", 6},   {"cboYMargin", 7}};
    for (const auto &[name, entry] : rows) EXPECT_EQ(Control(name).currentIndex(), entry) << name;
    EXPECT_EQ(Control<widgets::SwatchButton>("cmdChangeFill").Value(), 0x102030);
    EXPECT_EQ(Control<widgets::SwatchButton>("cmdChangeBorder").Value(), 0x405060);
    EXPECT_EQ(Control<widgets::SwatchButton>("cmdChangeFore").Value(), 0x708090);
    EXPECT_EQ(Sample().Bounds().size(), QSizeF(2400, 600));
    EXPECT_EQ(Sample().Left(), form->TimelineSample().Screen().Width() / 2 - 1200);
    EXPECT_EQ(Sample().Shape(), 77);
}

TEST_F(Opening, AValueBeyondAListStaysAsItIs) {
    diagram::Node &look = Template(2400, 600);
    look.SetDrawWidth(12);
    look.SetxTextMargin(99);
    Form().OKButton_Click();
    EXPECT_EQ(look.DrawWidth(), 12);
    EXPECT_EQ(look.xTextMargin(), 99);
}

TEST_F(Opening, TheSurfacesSettingsAreShown) {
    EXPECT_EQ((Form(), Control("cboArrangement").currentIndex()), 4);
    EXPECT_FALSE(Control<QCheckBox>("chkMissingDates").isChecked());
    Set(kTimelineAlign, QStringLiteral("1"));
    Set(kMissing, QStringLiteral("True"));
    EXPECT_EQ((Form(), Control("cboArrangement").currentIndex()), 1);
    EXPECT_TRUE(Control<QCheckBox>("chkMissingDates").isChecked());
}

TEST_F(Opening, MissingDatesComeFromTheTemplateNodeWhereTheSurfaceHasNone) {
    document::SetTag(Template(0, 0), kMissing, QStringLiteral("True"));
    Form();
    EXPECT_EQ(Get(kMissing), QStringLiteral("True"));
    EXPECT_TRUE(Control<QCheckBox>("chkMissingDates").isChecked());
    Set(kMissing, QStringLiteral("False"));
    Form();
    EXPECT_EQ(Get(kMissing), QStringLiteral("False"));
}

TEST_F(Opening, AnUnknownArrangementSelectsNothingAndStays) {
    Set(kTimelineAlign, QStringLiteral("7"));
    Form();
    EXPECT_EQ(Control("cboArrangement").currentIndex(), -1);
    form->OKButton_Click();
    EXPECT_EQ(Get(kTimelineAlign), QStringLiteral("7"));
}

TEST_F(Opening, WithoutANodeOrASurfaceTheFirstEntriesAreShown) {
    Form(TimelineSetupArgument{window});
    for (const char *name : {"cboAutoSize", "cboDrawStyle", "cboDrawWidth", "cboShadow", "cboShape",
                             "cboShapeOrient", "cboTextAlign", "cboXMargin", "cboYMargin"})
        EXPECT_EQ(Control(name).currentIndex(), 0) << name;
    EXPECT_EQ(Control("cboArrangement").currentIndex(), 4);
    form->OKButton_Click();
    EXPECT_EQ(form->result(), QDialog::Accepted);
}

TEST_F(Opening, TheDefaultNodeHasTheColourOfTheFirstLevel) {
    Form(true);
    EXPECT_EQ(Control<widgets::SwatchButton>("cmdChangeFill").Value(), 0x112233);
    EXPECT_EQ(Sample().FillColor(), 0x112233);
}

} // namespace timeline::testing
