// Large diagrams in motion: a frame shows at once what there is, and at rest the picture is exact.
#include "diagram/render/Renderer.h"
#include "tests/diagram/view/ViewFixture.h"

#include <cmath>
#include <QApplication>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

namespace diagram::testing {

namespace {

class Zooming : public ViewTest {
protected:
    Zooming() {
        constexpr int kColumns = 50, kRows = 40;
        Node *before = nullptr;
        for (int i = 0; i < kColumns * kRows; ++i) {
            Node &node =
                surface.Nodes().Add(float(i % kColumns * 1500), float(i / kColumns * 1100), 1000, 600);
            node.SetFillColor(support::Rgb(40 * (i % 6), 200, 250 - 30 * (i % 7)));
            node.SetText(QStringLiteral("%1").arg(i));
            if (before) before->Links().Add(node);
            before = &node;
        }
        view->clearFocus();
        Settle();
    }

    // One notch without letting the event loop come to rest: one frame only.
    void Notch(int angle) {
        const QPointF at(300, 200);
        QWheelEvent event(at, view->viewport()->mapToGlobal(at.toPoint()), QPoint(), QPoint(0, angle),
                          Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(view->viewport(), &event);
        QApplication::sendPostedEvents();
    }

    QImage Grabbed() { return view->viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32); }

    // What is seen, painted in one go.
    QImage Exact() {
        QImage image((QSizeF(view->viewport()->size()) * Ratio()).toSize(), QImage::Format_RGB32);
        QPainter painter(&image);
        RenderOptions options;
        options.grid = options.marks = true;
        options.xScale = options.yScale = view->ShownZoom() / 100 / 15 * Ratio();
        const QPointF corner(std::round(view->horizontalScrollBar()->value() * Ratio()) - 1e-5,
                             std::round(view->verticalScrollBar()->value() * Ratio()) - 1e-5);
        view->TheRenderer().Paint(painter, view->TheScene(),
                                  QRectF(corner / options.xScale, QSizeF(image.size()) / options.xScale),
                                  options);
        return image;
    }

    double Ratio() const { return view->viewport()->devicePixelRatioF(); }

    // Pixels of the screen.
    QRect OfScreen(const QRect &points) const {
        return QRect((QPointF(points.topLeft()) * Ratio()).toPoint(),
                     (QSizeF(points.size()) * Ratio()).toSize());
    }

    // What lies beyond the surface's origin has a shade of its own.
    QRect OnSurface() {
        const QPoint origin = view->FromSurface(QPointF()).toPoint() + QPoint(2, 2);
        return OfScreen(QRect(origin, QSize(10000, 10000)) & view->viewport()->rect());
    }

    // Slanted lines are smoothed anew in each band, which may differ by a shade.
    int WrongPixels() { return DifferingPixels(Shown().copy(OnSurface()), Exact().copy(OnSurface())); }

    int ColouredPixels(const QImage &image) {
        int count = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) count += (image.pixel(x, y) & 0xFFFFFF) != 0xFFFFFF;
        return count;
    }
};

} // namespace

TEST_F(Zooming, AFrameInMotion_ShowsTheFormerPictureScaled) {
    Notch(-1200);
    Settle();
    view->SetFrameBudget(0);
    Notch(120);
    EXPECT_FALSE(view->IsExact());
    const QImage moving = Grabbed();
    EXPECT_FALSE(view->IsExact());
    const QImage exact = Exact();
    EXPECT_GT(DifferingPixels(moving, exact), 500);
    // But the items are there already, at their places.
    const QRect below = OnSurface() & OfScreen(QRect(0, 200, 400, 200));
    EXPECT_NEAR(ColouredPixels(moving.copy(below)), ColouredPixels(exact.copy(below)),
                0.35 * ColouredPixels(exact.copy(below))); // scaled lines are thicker
}

TEST_F(Zooming, AtRest_ThePictureIsExactToThePixel) {
    view->SetFrameBudget(0);
    for (const int angle : {-120, -120, -240, 120, -480, -600, 360}) {
        Notch(angle);
        Settle();
        ASSERT_TRUE(view->IsExact());
        EXPECT_EQ(WrongPixels(), 0) << view->ShownZoom();
    }
}

TEST_F(Zooming, ManyNotchesWithoutRest_EndInTheExactPicture) {
    view->SetFrameBudget(0);
    for (int i = 0; i < 12; ++i) Notch(-120);
    for (int i = 0; i < 3; ++i) Notch(120);
    EXPECT_FALSE(view->IsExact());
    Settle();
    EXPECT_EQ(WrongPixels(), 0);
}

TEST_F(Zooming, ScrollingInBetween_EndsInTheExactPicture) {
    view->SetFrameBudget(0);
    for (int i = 0; i < 6; ++i) {
        Notch(-120);
        view->horizontalScrollBar()->setValue(view->horizontalScrollBar()->value() + 37);
        view->verticalScrollBar()->setValue(view->verticalScrollBar()->value() + 23);
        QApplication::sendPostedEvents();
    }
    Settle();
    EXPECT_EQ(WrongPixels(), 0);
}

TEST_F(Zooming, AChangeInMotion_IsSeenInTheExactPicture) {
    view->SetFrameBudget(0);
    Notch(-240);
    surface.Nodes().Item(30).SetFillColor(support::Rgb(1, 2, 3));
    surface.Nodes().Item(120).SetBounds(3000, 3000, 4000, 2000);
    Settle();
    EXPECT_EQ(WrongPixels(), 0);
}

TEST_F(Zooming, Resizing_EndsInTheExactPicture) {
    view->SetFrameBudget(0);
    Notch(-600);
    view->resize(900, 500);
    Settle();
    EXPECT_EQ(WrongPixels(), 0);
}

} // namespace diagram::testing
