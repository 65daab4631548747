#include "diagram/view/Glide.h"

#include "tests/diagram/view/ViewFixture.h"

#include <gmock/gmock.h>
#include <QProxyStyle>
#include <QTest>
#include <QWheelEvent>

namespace diagram::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;

TEST(Glide, ARouteIsJustTheOldAndTheNewOneAtItsEnds) {
    const std::vector<Point> from{{0, 0}, {10, 0}, {10, 10}}, to{{100, 0}, {100, 20}, {110, 20}, {110, 90}};
    const auto start = Between(from, to, 0), end = Between(from, to, 1);
    ASSERT_EQ(start.size(), 5U);
    EXPECT_EQ(start.front(), from.front());
    EXPECT_EQ(start.back(), from.back());
    EXPECT_THAT(start, Contains(from[1]));
    EXPECT_EQ(end.front(), to.front());
    EXPECT_EQ(end.back(), to.back());
    for (const Point &bend : {to[1], to[2]}) EXPECT_THAT(end, Contains(bend));
}

TEST(Glide, RoutesOfAsManyPointsGoPointByPoint) {
    EXPECT_THAT(Between({{0, 0}, {10, 0}}, {{0, 20}, {30, 40}}, 0.5),
                ElementsAre(Point{0, 10}, Point{20, 20}));
}

TEST(Glide, ARouteWithoutLengthIsNoTrouble) {
    const auto route = Between({{5, 5}, {5, 5}, {5, 5}}, {{0, 0}, {10, 0}}, 0.5);
    EXPECT_EQ(route.front(), (Point{2.5F, 2.5F}));
    EXPECT_EQ(route.back(), (Point{7.5F, 2.5F}));
}

// What a desktop says of motion.
class Motion : public QProxyStyle {
public:
    explicit Motion(int milliseconds) : milliseconds_(milliseconds) {}
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *data) const override {
        return hint == SH_Widget_Animation_Duration ? milliseconds_
                                                    : QProxyStyle::styleHint(hint, option, widget, data);
    }

private:
    int milliseconds_;
};

struct Gliding : ViewTest {
    Motion motion{10000000}, still{0};
    Node &a = surface.Nodes().Add(300, 300, 1500, 900), &b = surface.Nodes().Add(3000, 300, 1500, 900);
    Link &link = a.Links().Add(b);

    Gliding() {
        view->setStyle(&motion);
        Settle();
    }
    ~Gliding() override { view->setStyle(nullptr); }
    // As a layout does.
    void MoveAway() {
        const ItemPlaces before = PlacesOf(surface);
        surface.BeginAction(1);
        b.SetTop(4500);
        surface.EndAction();
        Glide::Begin(*view, before);
    }
};

TEST_F(Gliding, TheModelIsFinalAtOnceAndOnlyThePictureIsNot) {
    MoveAway();
    EXPECT_TRUE(Glide::GoesOnIn(*view));
    EXPECT_EQ(b.Top(), 4500);
    surface.Undo();
    EXPECT_EQ(b.Top(), 300);
    EXPECT_FALSE(surface.CanUndo());
}

TEST_F(Gliding, TheCopyStandsHalfWayAtHalfTheTime) {
    const ItemPlaces before = PlacesOf(surface);
    b.SetTop(4500);
    GlidingCopy glide(surface, before);
    const Surface &half = glide.At(0.5);
    EXPECT_EQ(half.Nodes().Item(2).Top(), 2400);
    EXPECT_EQ(half.Nodes().Item(1).Top(), 300);
    EXPECT_EQ(glide.At(0).Nodes().Item(2).Top(), 300);
    EXPECT_EQ(glide.At(0).Links()[0]->Route(), before.routes.value(link.Id()));
    EXPECT_EQ(glide.At(1).Nodes().Item(2).Top(), 4500);
    EXPECT_EQ(glide.At(1).Links()[0]->Route(), link.Route());
}

TEST_F(Gliding, ItBeginsWithTheFormerPictureAndEndsWithThePresentOne) {
    const QImage former = Seen();
    MoveAway();
    EXPECT_EQ(DifferingPixels(Seen(), former), 0);
    Key(Qt::Key_Shift);
    EXPECT_FALSE(Glide::GoesOnIn(*view));
    EXPECT_GT(DifferingPixels(Seen(), former), 1000);
    EXPECT_EQ(StalePixels(), 0);
}

TEST_F(Gliding, AnyInputEndsIt) {
    const auto endsBy = [this](const auto &input) {
        MoveAway();
        EXPECT_TRUE(Glide::GoesOnIn(*view));
        input();
        EXPECT_FALSE(Glide::GoesOnIn(*view));
        b.SetTop(300);
    };
    endsBy([this] { QTest::mousePress(view->viewport(), Qt::LeftButton, {}, {700, 500}); });
    QTest::mouseRelease(view->viewport(), Qt::LeftButton, {}, {700, 500});
    endsBy([this] { QTest::keyClick(view.get(), Qt::Key_Right); });
    endsBy([this] {
        QWheelEvent wheel({10, 10}, view->mapToGlobal(QPointF(10, 10)), {}, {0, 120}, {}, {},
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(view->viewport(), &wheel);
    });
    endsBy([this] { view->hide(), view->show(); });
}

TEST_F(Gliding, AChangeOfTheModelEndsIt) {
    MoveAway();
    a.SetText(QStringLiteral("new"));
    EXPECT_FALSE(Glide::GoesOnIn(*view));
    MoveAway();
    surface.Undo();
    EXPECT_FALSE(Glide::GoesOnIn(*view));
}

TEST_F(Gliding, ADesktopWithoutMotionHasNone) {
    view->setStyle(&still);
    MoveAway();
    EXPECT_FALSE(Glide::GoesOnIn(*view));
}

TEST_F(Gliding, VeryManyItemsGoAtOnce) {
    for (int i = 0; i < Glide::kMostItems; ++i) surface.Nodes().Add(float(i), 9000, 100, 100);
    MoveAway();
    EXPECT_FALSE(Glide::GoesOnIn(*view));
}

TEST_F(Gliding, ItIsOverByItself) {
    Motion shortly(20);
    view->setStyle(&shortly);
    MoveAway();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !Glide::GoesOnIn(*view); }));
    view->setStyle(&motion);
}

} // namespace
} // namespace diagram::testing
