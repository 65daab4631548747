// What an empty page says.
#include "diagram/view/EmptyNote.h"

#include "diagram/render/Renderer.h"
#include "diagram/scene/Scene.h"
#include "support/Contrast.h"
#include "tests/diagram/view/ViewFixture.h"

#include <QPainter>

namespace diagram::testing {

namespace {

using support::Contrast;

class EmptyPage : public ViewTest {
protected:
    EmptyPage() {
        MoveTo(QPoint(5, 5));
        blank = Seen();
        view->SetEmptyNote(QStringLiteral("Drag to draw a node.\nOr take a template from the side."));
        Settle();
    }
    // How much of what is seen is not as on a blank page.
    int Ink() { return DifferingPixels(blank, Seen()); }
    // The rectangle of pixels that differ from the page.
    QRect Inked() {
        const QImage image = Seen();
        QRect inked;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixelColor(x, y) != image.pixelColor(1, image.height() - 2))
                    inked |= QRect(x, y, 1, 1);
        const double ratio = image.devicePixelRatio();
        return QRectF(inked.x() / ratio, inked.y() / ratio, inked.width() / ratio, inked.height() / ratio)
            .toAlignedRect();
    }
    QImage blank;
};

} // namespace

TEST_F(EmptyPage, SaysHowToBeginInTheMiddleOfWhatIsSeen) {
    EXPECT_GT(Ink(), 200);
    const QPoint middle = Inked().center(), wanted = view->viewport()->rect().center();
    EXPECT_NEAR(middle.x(), wanted.x(), 12);
    EXPECT_NEAR(middle.y(), wanted.y(), 12);
}

TEST_F(EmptyPage, SaysNothingWithoutWords) {
    view->SetEmptyNote(QString());
    Settle();
    EXPECT_EQ(Ink(), 0);
}

TEST_F(EmptyPage, SaysNothingFromTheFirstNodeOn) {
    Drag(QPoint(20, 20), QPoint(60, 60));
    const QRect middle = view->viewport()->rect().adjusted(100, 100, -100, -100);
    EXPECT_EQ(DifferingPixels(Part(Seen(), middle), Part(blank, middle)), 0);
    surface.Undo();
    Settle();
    EXPECT_GT(Ink(), 200) << "and again once it is taken back";
}

TEST_F(EmptyPage, SaysNothingWhileADragDraws) {
    const QRect middle = view->viewport()->rect().adjusted(100, 100, -100, -100);
    DragAndHold(QPoint(20, 20), QPoint(60, 60));
    EXPECT_EQ(DifferingPixels(Part(Seen(), middle), Part(blank, middle)), 0);
    Key(Qt::Key_Escape);
    EXPECT_GT(Ink(), 200);
    Release(QPoint(60, 60));
}

TEST_F(EmptyPage, IsOneWithHiddenNodesThatNobodyCanSelect) {
    Node &look = AddNode("look", 0, 0);
    look.SetHidden(true);
    look.SetSelectable(false);
    Settle();
    EXPECT_GT(Ink(), 200);
}

TEST_F(EmptyPage, IsNoneWithNodesThatAFilterHides) {
    AddNode("a", 0, 0).SetHidden(true);
    Settle();
    EXPECT_EQ(Ink(), 0);
}

TEST_F(EmptyPage, IsNoneWithMonthsOfATimeline) {
    AddNode("month", 0, 0).SetSelectable(false);
    EXPECT_FALSE(IsEmptyPage(surface));
}

TEST_F(EmptyPage, WritesAsLargeAtEveryZoomAndScrollsWithNothing) {
    const QRect before = Inked();
    surface.SetxZoom(300);
    surface.SetyZoom(300);
    Settle();
    EXPECT_EQ(Inked(), before);
}

TEST_F(EmptyPage, WrapsInASmallWindow) {
    const QRect wide = Inked();
    view->resize(160, 300);
    Settle();
    const QRect narrow = Inked();
    EXPECT_LE(narrow.width(), 160);
    EXPECT_GT(narrow.height(), wide.height());
}

TEST_F(EmptyPage, IsReadableOnPaperOfAnyLightness) {
    for (int grey = 0; grey <= 255; grey += 5) {
        const QColor paper(grey, grey, grey);
        EXPECT_GE(Contrast(QuietInk(paper), paper), 4.5) << grey;
    }
    EXPECT_GE(Contrast(QuietInk(QColor(200, 30, 30)), QColor(200, 30, 30)), 4.5);
}

TEST_F(EmptyPage, IsQuietOnWhiteAndOnBlack) {
    EXPECT_LT(Contrast(QuietInk(Qt::white), Qt::white), 8);
    EXPECT_LT(Contrast(QuietInk(Qt::black), Qt::black), 8);
}

TEST_F(EmptyPage, TellsAssistantsHowToBegin) {
    EXPECT_EQ(view->accessibleDescription(), "Drag to draw a node.\nOr take a template from the side.");
    AddNode("a", 0, 0);
    Settle();
    EXPECT_TRUE(view->accessibleDescription().startsWith("Nodes and the links"));
}

TEST_F(EmptyPage, StandsOnTheScreenAlone) {
    Scene scene(surface);
    QImage page(200, 200, QImage::Format_ARGB32_Premultiplied);
    page.fill(Qt::white);
    QPainter painter(&page);
    view->TheRenderer().Paint(painter, scene, QRectF(0, 0, 9000, 9000), {.xScale = 0.02, .yScale = 0.02});
    painter.end();
    EXPECT_EQ(page.pixelColor(100, 100), QColor(Qt::white));
    QImage plain = page;
    plain.fill(page.pixel(0, 0));
    EXPECT_EQ(DifferingPixels(page, plain), 0);
}

} // namespace diagram::testing
