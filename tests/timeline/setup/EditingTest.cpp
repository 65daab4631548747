// What the user does in the setup form, and what OK and the other buttons make of it.
#include "diagram/format/SurfaceFile.h"
#include "diagram/model/ScreenValues.h"
#include "document/MapSchema.h"
#include "document/Tags.h"
#include "document/TemplateFile.h"
#include "settings/Settings.h"
#include "tests/EnvironmentVariable.h"
#include "tests/timeline/setup/SetupTest.h"
#include "timeline/Arrange.h"
#include "timeline/setup/SampleView.h"
#include "widgets/SwatchButton.h"

#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QTest>

namespace timeline::testing {

namespace {

using namespace document::tags;

const QString kDefaultQuestion = QStringLiteral("Make these settings the default for all new Maps ?");
const support::FontChoice kCourier{QStringLiteral("Courier"), 14, true, false, false, false};

} // namespace

struct Editing : SetupTest {
    diagram::Node &Look() { return *LocateTimeLineTemplateNode(flow, false); }
    QPoint Pixel(double x, double y) { return {int(std::lround(x / 15)), int(std::lround(y / 15))}; }
    void DragSample(const QPoint &from, const QPoint &to) {
        auto *view = form->findChild<SampleView *>();
        QTest::mousePress(view, Qt::LeftButton, {}, from);
        QTest::mouseMove(view, to);
        QTest::mouseRelease(view, Qt::LeftButton, {}, to);
    }
    void ExpectCentred() {
        const diagram::Surface &surface = form->TimelineSample();
        EXPECT_EQ(Sample().Left(), surface.Screen().Width() / 2 - Sample().Width() / 2);
        EXPECT_EQ(Sample().Top(), surface.Screen().Height() / 2 - Sample().Height() / 2);
    }
};

TEST_F(Editing, EachChoiceIsSeenInTheSampleAtOnce) {
    Form();
    Choose("cboDrawStyle", 2);
    Choose("cboDrawWidth", 3);
    Choose("cboShadow", 1);
    Choose("cboShape", 20);
    Choose("cboShapeOrient", 1);
    Choose("cboTextAlign", 8);
    Choose("cboXMargin", 9);
    Choose("cboYMargin", 10);
    EXPECT_EQ(Sample().DrawStyle(), 2);
    EXPECT_EQ(Sample().DrawWidth(), 3);
    EXPECT_EQ(Sample().Shadow(), 1);
    EXPECT_EQ(Sample().Shape(), 54);
    EXPECT_EQ(Sample().ShapeOrientation(), 1);
    EXPECT_EQ(Sample().Alignment(), 8);
    EXPECT_EQ(Sample().xTextMargin(), 9);
    EXPECT_EQ(Sample().yTextMargin(), 10);
    Choose("cboAutoSize", 3);
    EXPECT_EQ(Sample().AutoSize(), 3);
    EXPECT_NE(Look().Shape(), 54) << "nothing is stored before OK";
}

TEST_F(Editing, AnotherPatternChangesTheTextAlone) {
    Form();
    Control("cboShape").setCurrentIndex(20); // not chosen by the user
    Choose("cboDateFormat", 8);
    EXPECT_EQ(Sample().Text(), QStringLiteral("May-2024"));
    EXPECT_EQ(document::GetTag(Sample(), kTheDate), QStringLiteral("May 2024"));
    EXPECT_EQ(Sample().Shape(), Look().Shape());
}

TEST_F(Editing, ColoursComeFromTheDialog) {
    Form();
    desktop.ExpectColour(0x0000FF);
    Press("cmdChangeFill");
    desktop.ExpectColour(0x00FF00);
    Press("cmdChangeBorder");
    desktop.ExpectColour(0xFF0000);
    Press("cmdChangeFore");
    EXPECT_EQ(Sample().FillColor(), 0x0000FF);
    EXPECT_EQ(Sample().BorderColor(), 0x00FF00);
    EXPECT_EQ(Sample().ForeColor(), 0xFF0000);
    desktop.ExpectColour(support::kNoColour);
    Press("cmdChangeFill");
    EXPECT_EQ(Sample().FillColor(), 0x0000FF);
    EXPECT_EQ(Control<widgets::SwatchButton>("cmdChangeFill").Value(), 0x0000FF);
    EXPECT_EQ(desktop.dialogs.startColours.back(), 0x0000FF) << "begins with the colour that is shown";
}

TEST_F(Editing, TheFontIsTheSamplesAlone) {
    Form();
    const QString former = Look().Font().Name();
    desktop.ExpectFont(kCourier, 0x123456);
    Press("cmdFont");
    EXPECT_EQ(Sample().Font().Name(), kCourier.name);
    EXPECT_EQ(Sample().Font().Size(), 14);
    EXPECT_TRUE(Sample().Font().Bold());
    EXPECT_EQ(Sample().ForeColor(), 0x123456);
    form->OKButton_Click();
    EXPECT_EQ(Look().Font().Name(), former);
    EXPECT_EQ(Look().ForeColor(), 0x123456);
}

TEST_F(Editing, AFontThatWasCancelledStays) {
    Form();
    const diagram::Font former = Sample().Font();
    desktop.ExpectFontCancelled();
    Press("cmdFont");
    EXPECT_EQ(Sample().Font().Name(), former.Name());
    EXPECT_EQ(Sample().Font().Size(), former.Size());
}

TEST_F(Editing, AnEdgeDraggedByTheMouseResizesAroundTheMiddle) {
    Form().show();
    const QRectF box = Sample().Bounds();
    DragSample(Pixel(box.right(), box.center().y()), Pixel(box.right() + 300, box.center().y()));
    EXPECT_NEAR(Sample().Width(), 1800, 31);
    EXPECT_EQ(Sample().Height(), 1200);
    ExpectCentred();
    const QRectF wide = Sample().Bounds();
    DragSample(Pixel(wide.left(), wide.top()), Pixel(wide.left() + 150, wide.top() + 150));
    EXPECT_NEAR(Sample().Width(), 1500, 46);
    EXPECT_NEAR(Sample().Height(), 900, 46);
    ExpectCentred();
    DragSample(Pixel(Sample().Bounds().center().x(), Sample().Bounds().center().y()), QPoint(5, 5));
    EXPECT_NEAR(Sample().Height(), 900, 46) << "its middle resizes nothing";
}

TEST_F(Editing, TheArrowKeysResizeToo) {
    Form().show();
    auto *view = form->findChild<SampleView *>();
    QTest::keyClick(view, Qt::Key_Right);
    QTest::keyClick(view, Qt::Key_Up);
    EXPECT_EQ(Sample().Width(), 1275);
    EXPECT_EQ(Sample().Height(), 1125);
    ExpectCentred();
    for (int i = 0; i < 30; ++i) QTest::keyClick(view, Qt::Key_Left);
    EXPECT_EQ(Sample().Width(), 150) << "never so small that it is lost";
    QTest::keyClick(view, Qt::Key_Down);
    EXPECT_EQ(Sample().Height(), 1200);
}

TEST_F(Editing, ThePointerSaysWhichEdgesCanBeDragged) {
    Form().show();
    auto *view = form->findChild<SampleView *>();
    const QRectF box = Sample().Bounds();
    const auto over = [&](double x, double y) {
        QTest::mouseMove(view, Pixel(x, y));
        return view->cursor().shape();
    };
    EXPECT_EQ(over(box.right(), box.center().y()), Qt::SizeHorCursor);
    EXPECT_EQ(over(box.center().x(), box.top()), Qt::SizeVerCursor);
    EXPECT_EQ(over(box.left(), box.bottom()), Qt::SizeAllCursor);
    EXPECT_EQ(over(box.center().x(), box.center().y()), Qt::ArrowCursor);
}

TEST_F(Editing, TheFrameOfTheFocusStandsThreePixelsAroundTheSample) {
    Form().show();
    auto *view = form->findChild<SampleView *>();
    const auto picture = [view](bool focus) {
        focus ? view->setFocus() : view->clearFocus();
        return view->grab().toImage();
    };
    ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
    Sample().SetWidth(view->width() % 2 ? 1215 : 1200); // its edges lie between pixels
    Sample().SetHeight(view->height() % 2 ? 1215 : 1200);
    view->Refresh();
    const QImage with = picture(true), without = picture(false);
    QRect frame;
    for (int y = 0; y < with.height(); ++y)
        for (int x = 0; x < with.width(); ++x)
            if (with.pixel(x, y) != without.pixel(x, y)) frame |= QRect(x, y, 1, 1);
    const QRectF box = Sample().Bounds();
    const QRect sample(Pixel(box.left(), box.top()), Pixel(box.right(), box.bottom()) - QPoint(1, 1));
    EXPECT_EQ(frame, sample.adjusted(-3, -3, 3, 3));
}

TEST_F(Editing, OkStoresTheFirstArrangementToo) {
    document::SetTag(flow, kTimelineAlign, QStringLiteral("3"));
    Form();
    Choose("cboArrangement", 0);
    Press("OKButton");
    EXPECT_EQ(Get(kTimelineAlign), QStringLiteral("0"));
}

TEST_F(Editing, OkStoresLookSizeAndSettings) {
    diagram::Node &user = UserNode();
    Template(1000, 500);
    LocateTimelineNode(flow, QStringLiteral("14 March 2004"), true, &user);
    Form();
    Choose("cboShape", 1);
    Choose("cboDateFormat", 9);
    Choose("cboArrangement", 2);
    Control<QCheckBox>("chkMissingDates").click();
    QTest::keyClick(form->findChild<SampleView *>(), Qt::Key_Right);
    Press("OKButton");
    EXPECT_EQ(form->result(), QDialog::Accepted);
    EXPECT_EQ(Look().Shape(), 1);
    EXPECT_EQ(Look().Width(), 1075);
    EXPECT_EQ(Look().Height(), 500);
    EXPECT_EQ(document::GetTag(Look(), kDateFormat), QStringLiteral("MM-YY"));
    EXPECT_EQ(Get(kTimelineAlign), QStringLiteral("2"));
    EXPECT_EQ(Get(kMissing), QStringLiteral("True"));
    const diagram::Node &month = *LocateTimelineNodes(flow).front();
    EXPECT_EQ(month.Text(), QStringLiteral("03-04"));
    EXPECT_EQ(month.Shape(), 1);
    EXPECT_EQ(month.Width(), 1075);
    EXPECT_EQ(month.Top(), 0);
}

TEST_F(Editing, OkIsOneStep) {
    Form();
    Choose("cboShape", 1);
    form->OKButton_Click();
    EXPECT_EQ(Look().Width(), 1200);
    flow.Undo();
    EXPECT_EQ(Look().Width(), 0);
    EXPECT_FALSE(flow.CanUndo());
}

TEST_F(Editing, OkOfAnUnseenFormGivesANewTemplateItsDefaults) {
    Form().OKButton_Click();
    EXPECT_EQ(Look().Width(), 1200);
    EXPECT_EQ(Look().Height(), 1200);
    EXPECT_EQ(document::GetTag(Look(), kDateFormat), QStringLiteral("MMM YYYY"));
    EXPECT_EQ(Get(kTimelineAlign), QStringLiteral("4"));
    EXPECT_EQ(Get(kMissing), QStringLiteral("False"));
}

TEST_F(Editing, CancelLeavesANewTemplateWithoutSize) {
    Form();
    Choose("cboShape", 3);
    Press("cmdCancel");
    EXPECT_EQ(form->result(), QDialog::Rejected);
    EXPECT_EQ(Look().Width(), 0);
    EXPECT_NE(Look().Shape(), Sample().Shape());
    EXPECT_TRUE(Get(kTimelineAlign).isEmpty());
}

TEST_F(Editing, TheDefaultNodesFillColourIsThatOfTheFirstLevel) {
    bool fixed = false;
    TimelineSetupArgument argument{window, &flow, document::LocateTemplateNode(flow, true), true};
    argument.DoFixColors = [&] { fixed = true; };
    Form(argument);
    desktop.ExpectColour(0x00FF00);
    Press("cmdChangeFill");
    Press("OKButton");
    EXPECT_EQ(window.clsSettings().Levels().Item(1).Color, 0x00FF00);
    EXPECT_TRUE(fixed);
    EXPECT_EQ(document::LocateTemplateNode(flow, false)->FillColor(), 0x00FF00);
}

TEST_F(Editing, TheTimelinesFillColourIsItsOwn) {
    Form();
    desktop.ExpectColour(0x00FF00);
    Press("cmdChangeFill");
    Press("OKButton");
    EXPECT_EQ(window.clsSettings().Levels().Item(1).Color, 0x112233);
}

struct Storing : Editing {
    Storing() {
        const document::LevelRow levels[] = {{QStringLiteral("Old"), false, 1}};
        document::WriteTemplate(program.filePath(QStringLiteral("template.tpl")), levels, {});
    }
    // The one node of the file that was written.
    void ReadBack(const QString &name, diagram::Surface &surface) {
        diagram::LoadFile(surface, program.filePath(name));
        ASSERT_EQ(surface.Nodes().Count(), 1);
    }
};

TEST_F(Storing, DefaultWritesTheTemplateOfTheMonthsAndRestoresTheSample) {
    Form();
    Choose("cboShape", 5);
    Choose("cboDateFormat", 9);
    Choose("cboArrangement", 1);
    Control<QCheckBox>("chkMissingDates").click();
    desktop.ExpectFont(kCourier, 0x123456);
    Press("cmdFont");
    desktop.ExpectMessage(kDefaultQuestion, support::Answer::Yes);
    Press("cmdDefault");
    diagram::Surface stored;
    ReadBack(QStringLiteral("Template.tnd"), stored);
    const diagram::Node &node = *stored.Nodes().begin();
    EXPECT_EQ(node.Text(), QStringLiteral("TIMELINE TEMPLATE NODE"));
    EXPECT_TRUE(node.Hidden());
    EXPECT_FALSE(node.Selectable());
    EXPECT_EQ(node.Shape(), 5);
    EXPECT_EQ(node.Font().Name(), kCourier.name);
    EXPECT_EQ(document::GetTag(node, kDateFormat), QStringLiteral("MM-YY"));
    EXPECT_EQ(document::GetTag(node, kTimelineAlign), QStringLiteral("1"));
    EXPECT_EQ(document::GetTag(node, kMissing), QStringLiteral("True"));
    EXPECT_EQ(Sample().Text(), QStringLiteral("05-24"));
    EXPECT_FALSE(Sample().Hidden());
    EXPECT_TRUE(Sample().Selectable());
    EXPECT_FALSE(QFile::exists(program.filePath(QStringLiteral("Template.nd"))));
}

TEST_F(Storing, DefaultWritesTheDefaultNode) {
    Form(true);
    desktop.ExpectMessage(kDefaultQuestion, support::Answer::Yes);
    Press("cmdDefault");
    diagram::Surface stored;
    ReadBack(QStringLiteral("Template.nd"), stored);
    EXPECT_EQ((*stored.Nodes().begin()).Text(), QStringLiteral("TEMPLATE NODE"));
    EXPECT_FALSE(QFile::exists(program.filePath(QStringLiteral("Template.tnd"))));
}

TEST_F(Storing, DefaultGivesTheLevelsToNewMapsWithTheFillColourFirst) {
    Form();
    desktop.ExpectColour(0x00FF00);
    Press("cmdChangeFill");
    desktop.ExpectMessage(kDefaultQuestion, support::Answer::Yes);
    Press("cmdDefault");
    document::cLevels levels;
    levels.LoadDefaults();
    ASSERT_EQ(levels.count(), 2);
    EXPECT_EQ(levels.Item(1).LevelName, QStringLiteral("First"));
    EXPECT_EQ(levels.Item(1).Color, 0x00FF00);
    EXPECT_EQ(levels.Item(2).Color, 0x445566);
    EXPECT_EQ(window.clsSettings().Levels().Item(1).Color, 0x112233) << "the map's own stay";
}

TEST_F(Storing, WhatMayNotStandBesideTheProgramIsTheUsersOwnAndToldOnce) {
    const QTemporaryDir config;
    const tests::EnvironmentVariable configHome("XDG_CONFIG_HOME", QFile::encodeName(config.path()));
    QFile::setPermissions(program.path(), QFile::ReadOwner | QFile::ExeOwner);
    const QString folder = config.filePath(QStringLiteral("velmora/") + settings::Terms().TITLE);
    Form();
    desktop.ExpectMessage(kDefaultQuestion, support::Answer::Yes);
    desktop.ExpectMessageContaining(QDir(folder).filePath(QStringLiteral("Template.tnd")));
    Press("cmdDefault");
    EXPECT_TRUE(QFile::exists(QDir(folder).filePath(QStringLiteral("template.tpl"))));
    EXPECT_FALSE(QFile::exists(program.filePath(QStringLiteral("Template.tnd"))));
    diagram::Surface fresh;
    document::LoadDefaults(fresh);
    EXPECT_NE(LocateTimeLineTemplateNode(fresh, false), nullptr);
    QFile::setPermissions(program.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

TEST_F(Storing, NoWritesNothing) {
    Form();
    desktop.ExpectMessage(kDefaultQuestion, support::Answer::No);
    Press("cmdDefault");
    EXPECT_FALSE(QFile::exists(program.filePath(QStringLiteral("Template.tnd"))));
    EXPECT_TRUE(document::GetTag(Sample(), kTimelineAlign).isEmpty());
}

TEST_F(Storing, ANewSurfaceStartsWithWhatWasStored) {
    Form();
    Choose("cboArrangement", 1);
    desktop.ExpectMessage(kDefaultQuestion, support::Answer::Yes);
    Press("cmdDefault");
    diagram::Surface fresh;
    document::LoadDefaults(fresh);
    const diagram::Node *look = LocateTimeLineTemplateNode(fresh, false);
    ASSERT_NE(look, nullptr);
    EXPECT_EQ(look->Width(), 1200);
    ArrangeTimeLineNodes(window, fresh, kStoredArrangement);
    EXPECT_EQ(document::GetTag(fresh, kTimelineAlign), QStringLiteral("1"));
}

} // namespace timeline::testing
