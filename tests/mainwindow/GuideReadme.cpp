// The README's steps, and those that the guide tells as well (GuideDeeds.h).
#include "tests/mainwindow/GuideDeeds.h"

#include "diagram/view/SurfaceView.h"

#include <QFileInfo>
#include <QScrollBar>

namespace mainwindow::testing {

namespace {

constexpr Qt::KeyboardModifier kCtrl = Qt::ControlModifier, kShift = Qt::ShiftModifier;

} // namespace

void DrawOne(Reader &r) {
    r.Stroke({{900, 3600}, {3300, 5100}});
    ASSERT_EQ(r.Nodes(), 4);
    EXPECT_NEAR(r.LastNode().Width(), 2400, 150);
    EXPECT_NEAR(r.LastNode().Height(), 1500, 150);
}

void LinkFromBeside(Reader &r) {
    r.Stroke({Reader::Start(*r.a), r.b->Bounds().center()});
    ASSERT_EQ(r.Links(), 1U);
    EXPECT_EQ(&r.Surface().Links()[0]->Source(), r.a);
    EXPECT_EQ(&r.Surface().Links()[0]->Destination(), r.b);
}

void TypeATextOfTwoLines(Reader &r) {
    r.Type(QStringLiteral("Hi"));
    r.Key(Qt::Key_Return);
    r.Type(QStringLiteral("you"));
    r.Key(Qt::Key_Return, kCtrl);
    EXPECT_FALSE(r.window->CurrentView().IsEditing());
}

void WriteIntoANode(Reader &r) {
    r.Click(Reader::Body(*r.a));
    TypeATextOfTwoLines(r);
    EXPECT_EQ(r.a->Text(), QStringLiteral("Hi\r\nyou"));
    r.Type(QStringLiteral("elsewhere"));
    r.Click(Reader::kEmpty);
    EXPECT_EQ(r.a->Text(), QStringLiteral("elsewhere"));
    r.Click(Reader::Body(*r.a));
    r.Press("F2");
    r.Type(QStringLiteral("given up"));
    r.Key(Qt::Key_Escape);
    EXPECT_EQ(r.a->Text(), QStringLiteral("elsewhere"));
}

void SelectByABand(Reader &r) {
    r.Stroke({{300, 300}, {8400, 2700}}, kShift, kShift);
    EXPECT_TRUE(r.a->Selected() && r.b->Selected());
    EXPECT_FALSE(r.c->Selected());
}

void ResizeByAHandle(Reader &r) {
    r.Click(Reader::Body(*r.a));
    const QRectF box = r.a->Bounds();
    r.Stroke({box.bottomRight(), box.bottomRight() + QPointF(750, 600)});
    EXPECT_GT(r.a->Width(), box.width() + 300);
    EXPECT_GT(r.a->Height(), box.height() + 300);
}

diagram::Link &BendByTheMiddle(Reader &r) {
    diagram::Link &link = r.Join(*r.a, *r.b);
    const QPointF middle = Reader::Half(link);
    r.Click(middle);
    EXPECT_TRUE(link.Selected());
    r.Stroke({middle, middle + QPointF(0, 1200)});
    EXPECT_EQ(link.Route().size(), 3U);
    return link;
}

namespace {

void RepeatAndTakeBack(Reader &r) {
    r.Stroke({Reader::Body(*r.a), Reader::Body(*r.a) + QPointF(0, 2400)});
    const float moved = r.a->Top();
    ASSERT_NE(moved, 900);
    r.Press("Ctrl+Z");
    EXPECT_EQ(r.a->Top(), 900);
    r.Press("Ctrl+Y");
    EXPECT_EQ(r.a->Top(), moved);
}

void ScrollAndZoomByTheWheel(Reader &r) {
    AddNode(*r.window, 30000, 30000);
    r.ProcessEvents();
    const QScrollBar &bar = *r.window->CurrentView().verticalScrollBar();
    const int before = bar.value();
    r.Wheel({3000, 3000}, -120);
    EXPECT_GT(bar.value(), before);
    r.Wheel({3000, 3000}, 120, kCtrl);
    EXPECT_GT(r.window->CurrentView().ShownZoom(), 101);
}

constexpr ToldStep kReadme[] = {
    {"Drag on the empty page: a node appears, as large as you drew it.", DrawOne},
    {"Draw a second one. Point at the first: circles appear beside it. Drag from one of them to the second: "
     "a link.",
     [](Reader &r) {
         r.Stroke({{900, 3600}, {3300, 5100}});
         LinkFromBeside(r);
     }},
    {"Select a node and type: its text. Enter makes a new line, Ctrl+Enter or a click elsewhere ends, Escape "
     "gives up.",
     WriteIntoANode},
    {"Shift and drag selects what lies in a rectangle. Drag a handle to resize, the middle of a selected "
     "link to bend it.",
     [](Reader &r) {
         SelectByABand(r);
         BendByTheMiddle(r);
         ResizeByAHandle(r);
     }},
    {"Ctrl+Z takes back, Ctrl+Y repeats, to any depth. The wheel scrolls, with Ctrl it zooms at the pointer.",
     [](Reader &r) {
         RepeatAndTakeBack(r);
         ScrollAndZoomByTheWheel(r);
     }},
    {"Ctrl+S saves. The map is written beside the old file and swapped in when it is complete: a failed save "
     "harms nothing.",
     [](Reader &r) {
         r.desktop.ExpectSaveFile(r.File("mine.map"));
         r.Press("Ctrl+S");
         EXPECT_TRUE(QFileInfo::exists(r.File("mine.map")));
     }},
    {"Ctrl+T gives the selected node a date. With *View, Dates, Keep nodes at their dates* it stands at that "
     "day of a strip of months: drag it along the months, and its date changes.",
     PlanByDates},
};

} // namespace

std::span<const ToldStep> ReadmeSteps() { return kReadme; }

} // namespace mainwindow::testing
