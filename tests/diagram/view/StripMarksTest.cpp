// What the view paints for the strip of days over the picture.
#include "diagram/view/StripMarks.h"

#include "diagram/model/Calendar.h"
#include "diagram/model/DayStrip.h"
#include "tests/diagram/view/ViewFixture.h"

#include <QScrollBar>
#include <QTest>

namespace diagram::testing {

namespace {

class TodaysStrip : public DayStrip {
public:
    std::optional<QLineF> Today(const Surface &) const override { return QLineF(3000, 300, 3000, 600); }
};

// Writes down what is to be folded.
class FoldedStrip : public DayStrip {
public:
    bool ToggleFold(Surface &, StripPiece piece, const QPointF &at) override {
        toggled << QStringLiteral("%1 at %2").arg(Name(piece)).arg(qRound(at.x() / 15));
        return true;
    }
    QString PieceInWords(const Surface &, StripPiece piece, const QPointF &) const override {
        return Name(piece);
    }
    std::optional<QDate> DayAt(const Surface &, const QPointF &) const override { return QDate(2026, 5, 1); }
    static QString Name(StripPiece piece) {
        const char *names[] = {"month", "quarter", "year"};
        return QLatin1String(names[int(piece)]);
    }
    QStringList toggled;
};

// Three months of 100 pixels, from 10 pixels on, 20 pixels below the top; the page goes on far below.
class StripMarksTest : public ViewTest {
protected:
    StripMarksTest() {
        SetCalendarSource([](const Surface &) {
            Calendar calendar;
            calendar.strip = QRectF(150, 300, 4500, 300);
            calendar.fontName = QStringLiteral("Arial");
            calendar.after = true;
            for (int i = 0; i < 3; ++i) {
                const double from = 150 + 1500 * i;
                calendar.months.push_back({from, from + 1500, QStringLiteral("May %1").arg(i)});
            }
            calendar.quarters = {{150, 4650, QStringLiteral("Q2")}};
            calendar.years = {{150, 4650, QStringLiteral("2026")}};
            return calendar;
        });
        AddNode("low", 100, 2500);
        Node &month = AddNode("month", 10, 20, 100, 20); // a part of the strip has come
        month.SetSelectable(false);
        month.SetHidden(true);
        Settle();
    }
    ~StripMarksTest() override { SetCalendarSource(nullptr); }
    // A link that leads level to the left and then up.
    Link &AddDateLink(Node &from) {
        Node &day = AddNode("day", 120, 40, 4, 4);
        day.SetHidden(true);
        Link &link = AddLink(from, day);
        link.SetSelectable(false);
        link.SetMarked(true);
        link.SetMovePointsMode(true);
        link.SetStyle(3);
        link.SetArrowDest(0);
        link.SetLineColor(0);
        const float y = from.Top() + from.Height() / 2;
        link.Points().Assign({{from.Left(), y}, {122 * 15, y}, {122 * 15, 44 * 15}});
        return link;
    }
    void ScrollTo(int x, int y) {
        view->horizontalScrollBar()->setValue(x);
        view->verticalScrollBar()->setValue(y);
        Settle();
    }
    int InkIn(const QRect &area) {
        const QImage image = Part(Seen(), area);
        int ink = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) ink += qGray(image.pixel(x, y)) < 120;
        return ink;
    }
};

} // namespace

TEST_F(StripMarksTest, AStripThatIsScrolledOutOfSightLeavesASlimCopyAtTheEdge) {
    const QRect edge(12, 1, 90, 20); // of the first month
    ScrollTo(0, 0);
    const QColor paper = ColourAt(Seen(), {400, 150});
    EXPECT_EQ(ColourAt(Seen(), {50, 3}), paper) << "there is none while the strip is in sight";
    ScrollTo(0, 600);
    EXPECT_NE(ColourAt(Seen(), {50, 3}), paper);
    EXPECT_GT(InkIn(edge), 5) << "the month is written";
    EXPECT_EQ(ColourAt(Seen(), {50, 40}), paper) << "slim";
    ScrollTo(0, 0);
    EXPECT_EQ(ColourAt(Seen(), {50, 3}), paper);
}

TEST_F(StripMarksTest, ThePlaceOfTheSlimCopyIsTheEdgeBeyondWhichTheStripLies) {
    struct Row {
        bool rightwards;
        QRectF strip;
        QRect place;
    };
    const QRect canvas(0, 0, 500, 400);
    const QRectF seen(0, 9000, 7500, 6000);
    const Row rows[] = {
        {true, QRectF(0, 0, 9000, 300), QRect(0, 0, 500, 22)},
        {true, QRectF(0, 30000, 9000, 300), QRect(0, 378, 500, 22)},
        {true, QRectF(0, 10000, 9000, 300), QRect()},
        {true, QRectF(-9000, 0, 8000, 300), QRect()},
        {false, QRectF(90000, 8000, 300, 9000), QRect(388, 0, 112, 400)},
        {false, QRectF(90000, 0, 300, 800), QRect()},
    };
    for (const Row &row : rows) {
        Calendar calendar;
        calendar.rightwards = row.rightwards;
        calendar.strip = row.strip;
        EXPECT_EQ(SlimStripPlace(calendar, seen, canvas), row.place) << row.strip.left() << row.rightwards;
    }
}

TEST_F(StripMarksTest, ADoubleClickFoldsWhatLiesThere) {
    FoldedStrip days;
    view->SetDays(days);
    ScrollTo(0, 0);
    const auto twice = [&](const QPoint &at, Qt::KeyboardModifiers modifiers = {}) {
        Click(at, modifiers);
        QTest::mouseDClick(view->viewport(), Qt::LeftButton, modifiers, at);
        Settle();
    };
    twice({150, 30}); // a month
    twice({160, 45}); // a quarter, below the strip
    twice({170, 65}); // a year
    twice({170, 90}); // nothing of it
    twice({150, 30}, Qt::ShiftModifier);
    EXPECT_EQ(days.toggled, QStringList({"month at 150", "quarter at 160", "year at 170"}));
    AddNode("over", 150, 40, 60, 20);
    Settle();
    twice({160, 45});
    EXPECT_EQ(days.toggled.size(), 3) << "the node lies over the quarter";
    view->SetDays(DayStrip::None());
}

TEST_F(StripMarksTest, ADoubleClickOnTheSlimCopyFoldsToo) {
    FoldedStrip days;
    view->SetDays(days);
    Node &below = AddNode("below", 150, 600, 100, 60);
    ScrollTo(0, 600);
    Click({180, 10});
    EXPECT_FALSE(below.Selected()) << "the copy covers it";
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, {180, 10});
    EXPECT_EQ(days.toggled, QStringList({"month at 180"}));
    EXPECT_EQ(surface.Nodes().Count(), 3);
    events.details.clear();
    Press({180, 10}, {}, Qt::RightButton);
    EXPECT_EQ(events.details.last(), QStringLiteral("MouseDown 2 0 2700 -8550")) << "on the strip, far above";
    view->SetDays(DayStrip::None());
}

TEST_F(StripMarksTest, ThePointerTellsWhatCanBeFolded) {
    FoldedStrip days;
    view->SetDays(days);
    ScrollTo(0, 0);
    MoveTo({150, 30});
    EXPECT_EQ(view->viewport()->cursor().shape(), Qt::PointingHandCursor);
    MoveTo({150, 300});
    EXPECT_NE(view->viewport()->cursor().shape(), Qt::PointingHandCursor);
    view->SetDays(DayStrip::None());
    MoveTo({150, 30});
    EXPECT_NE(view->viewport()->cursor().shape(), Qt::PointingHandCursor);
}

TEST_F(StripMarksTest, TheSlimCopyShowsToday) {
    TodaysStrip days;
    ScrollTo(0, 600);
    const QColor plain = ColourAt(Seen(), {200, 3});
    view->SetDays(days);
    Settle();
    EXPECT_NE(ColourAt(Seen(), {200, 3}), plain);
    EXPECT_EQ(ColourAt(Seen(), {204, 3}), plain);
    view->SetDays(DayStrip::None());
}

TEST_F(StripMarksTest, TodayRunsOverTheWholePage) {
    TodaysStrip days;
    ScrollTo(0, 0);
    const QColor plain = ColourAt(Seen(), {200, 150});
    view->SetDays(days);
    Settle();
    EXPECT_NE(ColourAt(Seen(), {200, 150}), plain);
    EXPECT_NE(ColourAt(Seen(), {200, 25}), ColourAt(Seen(), {200, 150})) << "fainter than on the strip";
    EXPECT_EQ(ColourAt(Seen(), {204, 150}), plain);
    view->SetDays(DayStrip::None());
}

TEST_F(StripMarksTest, TheLinkToTheDayComesForwardForANodeThatIsPointedAtOrSelected) {
    Node &node = AddNode("dated", 250, 120, 80, 40);
    AddDateLink(node);
    Settle();
    ScrollTo(0, 0);
    const QPoint line(200, 140);
    EXPECT_GT(ColourAt(OnScreen(), line).lightness(), 90);
    MoveTo(Body(node));
    Settle();
    EXPECT_LT(ColourAt(OnScreen(), line).lightness(), 60) << "pointed at";
    MoveTo({20, 200});
    Settle();
    EXPECT_GT(ColourAt(OnScreen(), line).lightness(), 90);
    node.SetSelected(true);
    Settle();
    EXPECT_LT(ColourAt(OnScreen(), line).lightness(), 60) << "selected";
}

} // namespace diagram::testing
