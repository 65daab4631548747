#include "diagram/render/CalendarPainter.h"
#include "diagram/render/CalendarRows.h"

#include "tests/diagram/render/Painting.h"

#include <gtest/gtest.h>

namespace diagram {

namespace {

constexpr double kMonth = 90 * 15; // twips

Calendar &Told() {
    static Calendar calendar;
    return calendar;
}

// A strip of two years of months from 10 to 2170 pixels, 60 pixels below the top, 20 high.
class CalendarPainting : public ::testing::Test, public Painting {
protected:
    CalendarPainting() {
        Calendar calendar;
        calendar.strip = QRectF(150, 900, 24 * kMonth, 300);
        calendar.fontName = QStringLiteral("Arial");
        calendar.ink = 0x6A5444;
        for (int i = 0; i < 2; ++i) calendar.years.push_back(Piece(12 * i, 12, QString::number(2026 + i)));
        for (int i = 0; i < 8; ++i)
            calendar.quarters.push_back(Piece(3 * i, 3, QStringLiteral("Q%1").arg(i % 4 + 1)));
        for (int i = 0; i < 48; ++i) calendar.weeks.push_back(150 + 300 + i * 315.0);
        Told() = calendar;
        SetCalendarSource([](const Surface &) { return Told(); });
        Add(160, 140, 30, 8); // something on the page
    }
    ~CalendarPainting() override { SetCalendarSource(nullptr); }
    static Calendar::Span Piece(int month, int months, const QString &caption) {
        return {150 + month * kMonth, 150 + (month + months) * kMonth, caption};
    }
    static bool HasInk(const QImage &image, const QRect &area) {
        for (int y = area.top(); y <= area.bottom(); ++y)
            for (int x = area.left(); x <= area.right(); ++x)
                if (qGray(image.pixel(x, y)) < 150) return true;
        return false;
    }
    // The first and the last row of pixels in that column that isn't paper, above the strip.
    static std::pair<int, int> Rows(const QImage &image, int x, int until) {
        int first = -1, last = -1;
        for (int y = 0; y < until; ++y)
            if ((image.pixel(x, y) & 0xFFFFFF) != 0xFFFFFF) first = first < 0 ? y : first, last = y;
        return {first, last};
    }
};

} // namespace

TEST_F(CalendarPainting, QuartersAndYearsLieAboveTheStripEdgeToEdge) {
    const QImage image = Paint();
    EXPECT_EQ(Rows(image, 30, 60), std::pair(60 - 2 * 18, 59));
    EXPECT_NE(image.pixel(30, 59 - 10), image.pixel(30, 30)) << "two tints";
    EXPECT_EQ(image.pixel(5, 45), image.pixel(5, 100)) << "none in front of the strip";
    EXPECT_TRUE(HasInk(image, QRect(100, 43, 90, 15))) << "Q1 in the middle of its three months";
}

TEST_F(CalendarPainting, BelowOrBesideTheStripWhereTheNodesAre) {
    Told().after = true;
    QImage image = Paint();
    EXPECT_EQ(Rows(image, 30, 60), std::pair(-1, -1));
    EXPECT_NE(image.pixel(30, 100) & 0xFFFFFF, 0xFFFFFFu);
    Told().rightwards = false;
    Told().strip = QRectF(300, 150, 600, 24 * kMonth);
    image = Paint();
    EXPECT_NE(image.pixel(60 + 10, 30) & 0xFFFFFF, 0xFFFFFFu);
    EXPECT_NE(image.pixel(60 + 40, 30) & 0xFFFFFF, 0xFFFFFFu);
    EXPECT_EQ(image.pixel(60 + 70, 30) & 0xFFFFFF, 0xFFFFFFu);
}

TEST_F(CalendarPainting, BelongsToTheExtentOfWhatThereIsWhereThereIsAny) {
    EXPECT_EQ(Scene(surface).Extent().top(), 900 - 2 * kBandThickness);
    Told() = Calendar();
    Scene bare(surface);
    EXPECT_EQ(bare.Extent(), bare.Bounds(*surface.Nodes().begin()));
}

TEST_F(CalendarPainting, NothingWhileTheyAreSwitchedOff) {
    Told().bands = false;
    EXPECT_EQ(Rows(Paint(), 30, 60), std::pair(-1, -1));
}

TEST_F(CalendarPainting, WeeksHaveTicksWhereTheyHaveRoom) {
    const QImage image = Paint();
    const QRgb tick = image.pixel(30, 58); // 450 twips
    EXPECT_NE(tick, image.pixel(33, 58));
    EXPECT_EQ(image.pixel(51, 58), tick) << "and again 21 pixels on";
    const QImage half = Paint(0.4);
    EXPECT_EQ(half.pixel(12, 23), half.pixel(13, 23)) << "8 pixels are too little";
}

TEST_F(CalendarPainting, FarAwayYearsAreWrittenAboveEverythingInASizeThatCanBeRead) {
    options.screen = true;
    Add(10, 0, 2200, 60).SetFillColor(0); // black, where the bands are
    const QImage image = Paint(0.2);      // a year is 216 pixels wide, the strip begins at 12
    const QRect year(2, 0, 197, 12);
    int light = 0, ink = 0;
    for (int y = year.top(); y < year.bottom(); ++y)
        for (int x = year.left(); x < year.right(); ++x) {
            light += qGray(image.pixel(x, y)) > 200;
            ink += qGray(image.pixel(x, y)) < 130;
        }
    EXPECT_GT(light, 1000) << "the band lies over the node";
    EXPECT_GT(ink, 20) << "and is written on";
}

TEST_F(CalendarPainting, FarAwayYearsTakeInTheStripRatherThanNodes) {
    options.screen = true;
    for (const bool after : {false, true}) {
        Told().after = after;
        // of 14 pixels, 4 are the strip's and 7.2 those of its bands
        const QImage image = Paint(0.2);
        const QRgb band = image.pixel(30, after ? 20 : 8);
        EXPECT_NE(band & 0xFFFFFF, 0xFFFFFFu);
        EXPECT_EQ(image.pixel(30, 14), band) << "over the months " << after;
        const QRgb nodes = image.pixel(30, after ? 26 : 1);
        EXPECT_EQ(nodes & 0xFFFFFF, 0xFFFFFFu) << "where nodes may stand " << after;
    }
    const CalendarRows near(Told(), 1 / 15.0), far(Told(), 0.2 / 15);
    EXPECT_EQ(near.PieceAt({1000, 1000}), StripPiece::Month);
    EXPECT_EQ(far.PieceAt({1000, 1000}), StripPiece::Year) << "as it is drawn";
}

TEST_F(CalendarPainting, LanesKeepTheirNamesOutOfTheirNeighbours) {
    options.screen = true;
    Told().bands = false;
    const auto inkIn = [&](double from, double to, double zoom) {
        const QImage image = Paint(zoom);
        constexpr int kInk = 220; // the line over a lane is paler
        int darkest = 255;
        for (int y = int(from / 15 * zoom); y < int(to / 15 * zoom); ++y)
            for (int x = int(15 * zoom); x < int(60 * zoom); ++x)
                darkest = std::min(darkest, qGray(image.pixel(x, y)));
        return darkest < kInk;
    };
    Told().lanes = {{2000, 2100, QString()}, {3000, 3600, QStringLiteral("Marketing")}};
    EXPECT_TRUE(inkIn(2100, 3000, 0.3)) << "room for a large one";
    Told().lanes = {{2000, 2700, QString()}, {3000, 3600, QStringLiteral("Marketing")}};
    EXPECT_FALSE(inkIn(2000, 2700, 0.3));
    EXPECT_TRUE(inkIn(2700, 3000, 0.7));
}

TEST_F(CalendarPainting, OutputsKeepTheSizeOfPaper) {
    const QImage picture = Paint(0.2);
    EXPECT_EQ(Rows(picture, 30, 12).second, 11);
    EXPECT_GT(Rows(picture, 30, 12).first, 3) << "7 pixels high";
}

TEST_F(CalendarPainting, WeekendsRunOverThePageBelowTheNodes) {
    Told().weekends = {{900, 1050, QString()}};
    const QImage image = Paint();
    EXPECT_NE(image.pixel(65, 120) & 0xFFFFFF, 0xFFFFFFu);
    EXPECT_EQ(image.pixel(72, 120) & 0xFFFFFF, 0xFFFFFFu);
    EXPECT_EQ(Paint(0.2).pixel(13, 24) & 0xFFFFFF, 0xFFFFFFu) << "2 pixels are too little";
}

TEST_F(CalendarPainting, TodayIsInOutputsOnlyWhereItIsWanted) {
    Told().today = QLineF(900, 900, 900, 1200);
    EXPECT_EQ(Paint().pixel(60, 120) & 0xFFFFFF, 0xFFFFFFu);
    Told().todayEverywhere = true;
    EXPECT_NE(Paint().pixel(60, 120) & 0xFFFFFF, 0xFFFFFFu);
    EXPECT_EQ(Paint().pixel(62, 120) & 0xFFFFFF, 0xFFFFFFu) << "thin";
    options.screen = true;
    EXPECT_EQ(Paint().pixel(60, 120) & 0xFFFFFF, 0xFFFFFFu) << "the view paints it";
}

TEST_F(CalendarPainting, CaptionsCanBeReadOnDarkPaper) {
    surface.SetBackColor(0x281C14);
    const QImage image = Paint();
    int light = 0;
    for (int y = 42; y < 60; ++y)
        for (int x = 100; x < 190; ++x) light += qGray(image.pixel(x, y)) > 150;
    EXPECT_GT(light, 5);
}

TEST_F(CalendarPainting, AFoldIsASliverWithItsCountInPlaceOfTheMonthsNames) {
    const auto addMonth = [&] {
        Node &month = Add(100, 60, 30, 40);
        month.SetSelectable(false);
        month.SetMarked(true);
        month.SetText(QStringLiteral("May 2026"));
        month.SetFillColor(0xFFFFFF);
        month.SetBorderColor(0xFFFFFF);
        month.SetForeColor(0);
        return month.Id();
    };
    const QRect sliver(102, 62, 26, 36);
    const ItemId first = addMonth(), second = addMonth();
    const QImage unfolded = Paint();
    Told().folds = {{QStringLiteral("May 2026"), QStringLiteral("3"), {first, second}}};
    surface.FindNode(first)->SetTag(QStringLiteral("told"));
    const QImage folded = Paint();
    EXPECT_NE(folded.pixel(106, 66) & 0xFFFFFF, 0xFFFFFFu) << "tinted";
    EXPECT_NE(folded.copy(sliver), unfolded.copy(sliver));
    EXPECT_TRUE(HasInk(folded, QRect(110, 72, 10, 16))) << "the count in the middle";
    Told().folds[0].count = QStringLiteral("8");
    surface.FindNode(first)->SetTag(QStringLiteral("told anew"));
    EXPECT_NE(Paint().copy(sliver), folded.copy(sliver));
    surface.FindNode(second)->SetFillColor(0);
    EXPECT_EQ(Paint().pixel(106, 66), folded.pixel(106, 66)) << "the first stands for both";
}

TEST_F(CalendarPainting, FoldedYearsLeaveTheOthersTheirNames) {
    Told().years = {{75, 150, QStringLiteral("2025"), true}, Piece(0, 12, QStringLiteral("2026"))};
    options.screen = true;
    const QImage image = Paint(0.2);
    int ink = 0;
    for (int y = 0; y < 12; ++y)
        for (int x = 4; x < 197; ++x) ink += qGray(image.pixel(x, y)) < 130;
    EXPECT_GT(ink, 20) << "2026 is written, though 2025 has no room";
}

TEST_F(CalendarPainting, ALinkToADayStandsBackOnTheScreenAndInPictures) {
    Node &from = Add(20, 120, 20, 10);
    Node &day = Add(100, 100, 4, 4);
    Link &link = from.Links().Add(day);
    link.SetSelectable(false);
    link.SetMarked(true);
    link.SetMovePointsMode(true);
    link.SetStyle(3);
    link.SetArrowDest(0);
    link.SetLineColor(0);
    link.Points().Assign({{40 * 15, 125 * 15}, {102 * 15, 125 * 15}, {102 * 15, 104 * 15}});
    for (const bool screen : {false, true}) {
        options.screen = screen;
        EXPECT_GT(qGray(Paint().pixel(70, 125)), 150) << screen;
        EXPECT_LT(qGray(Paint().pixel(70, 125)), 200) << screen;
        EXPECT_GT(qGray(Paint().pixel(102, 125)), 200) << "its corner is round";
    }
    link.SetStyle(0);
    link.Points().Assign({{40 * 15, 125 * 15}, {102 * 15, 125 * 15}});
    EXPECT_LT(qGray(Paint().pixel(70, 125)), 40) << "one from elsewhere doesn't";
}

} // namespace diagram
