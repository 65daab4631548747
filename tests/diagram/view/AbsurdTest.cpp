// Surfaces that nobody would draw: far away, without size, enormous, with thousands of links on one node.
#include "diagram/scene/Scene.h"
#include "tests/diagram/view/ViewFixture.h"

#include <cmath>
#include <QScrollBar>

namespace diagram::testing {

namespace {

constexpr float kFarthest = 1e8F; // twips; the setters allow no more

class Absurd : public ViewTest {
protected:
    // Shows the surface at all zooms and places that it has, and walks over it.
    void LookAround() {
        for (const double percent : {100.0, 10.0, 800.0}) {
            view->ZoomAt(percent, QPointF(400, 300));
            Settle();
            for (QScrollBar *bar : {view->horizontalScrollBar(), view->verticalScrollBar()}) {
                for (const int value :
                     {bar->minimum(), (bar->minimum() + bar->maximum()) / 2, bar->maximum()}) {
                    bar->setValue(value);
                    Settle();
                    for (int x = 5; x < 800; x += 150) MoveTo(QPoint(x, x * 3 / 4));
                }
            }
        }
        EXPECT_EQ(events.Count("Error"), 0);
        const QRectF extent = view->TheScene().Extent();
        EXPECT_TRUE(std::isfinite(extent.width()) && std::isfinite(extent.height()));
    }
};

} // namespace

TEST_F(Absurd, NodesAtTheEndsOfTheRange_ArePaintedAndFound) {
    Node &here = AddNode("{A}", 100, 100);
    Node &far = surface.Nodes().Add(kFarthest, kFarthest, 1500, 900);
    Node &before = surface.Nodes().Add(-kFarthest, -kFarthest, 1500, 900);
    for (Node *node : {&far, &before}) {
        Link &link = AddLink(here, *node);
        link.SetDrawStyle(1);
        link.SetJumpStyle(1);
        link.SetText(QStringLiteral("far"));
    }
    Settle();
    LookAround();
    view->EnsureVisible(far.Bounds());
    Settle();
    const QPoint at = At(far.Bounds().center());
    EXPECT_TRUE(view->viewport()->rect().contains(at)) << at.x() << "," << at.y();
}

TEST_F(Absurd, EnormousNodes_ArePaintedInEveryStyle) {
    for (const int style : {0, 1, 2, 3, 4}) {
        Node &node = surface.Nodes().Add(-kFarthest, -kFarthest, kFarthest, kFarthest);
        node.SetBounds(float(style) * 300, float(style) * 300, kFarthest, kFarthest);
        node.SetDrawStyle(style);
        node.SetShape(style);
        node.SetShadow(1);
        node.SetTransparent(style % 2 == 1);
        node.SetText(QStringLiteral("a text"));
    }
    Settle();
    LookAround();
}

TEST_F(Absurd, NodesWithoutSize_ArePaintedWithTheirLinks) {
    Node &node = AddNode("{A}", 200, 200, 0, 0);
    Node &thin = AddNode("{B}", 300, 200, 0, 100);
    Link &link = AddLink(node, thin);
    node.SetText(QStringLiteral("a text"));
    AddLink(node, node);
    Settle();
    LookAround();
    for (const Point &point : link.Route()) EXPECT_TRUE(std::isfinite(point.x) && std::isfinite(point.y));
}

TEST_F(Absurd, PicturesOfAbsurdSizes_ArePainted) {
    for (const QSize size : {QSize(1, 20000), QSize(20000, 1), QSize(2000, 2000)}) {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::red);
        Node &node = AddNode("", 100 + 40 * surface.Nodes().Count(), 100);
        node.SetPicture(Picture::FromImage(image));
        node.SetAutoSize(int(surface.Nodes().Count()) % 3);
    }
    Node &enormous = surface.Nodes().Add(0, 6000, kFarthest, kFarthest);
    enormous.SetPicture(surface.Nodes().Item(1).Picture());
    Settle();
    LookAround();
}

TEST_F(Absurd, FontsThatAreNotInstalled_AreReplacedAndStayInTheModel) {
    Node &node = AddNode("{A}", 100, 100);
    node.SetText(QStringLiteral("words"));
    for (const QString &name : {QStringLiteral("No Such Font"), QString(), QString(5000, QChar('x'))}) {
        node.SetFont(Font(name, 12));
        Settle();
        LookAround();
        EXPECT_EQ(node.Font().Name(), name);
    }
}

TEST_F(Absurd, ThousandsOfLinksOnOneNode_FollowItAndUndo) {
    Node &hub = AddNode("{HUB}", 300, 250);
    for (int i = 0; i < 3000; ++i) AddLink(hub, AddNode("", 120 * (i % 60), 400 + 80 * (i / 60)));
    Settle();
    const auto before = surface.Links()[2999]->Route();
    Drag(Body(hub), Body(hub) + QPoint(60, -100));
    EXPECT_NE(surface.Links()[2999]->Route(), before);
    EXPECT_EQ(UndoSteps(), 1);
    surface.Undo();
    EXPECT_EQ(surface.Links()[2999]->Route(), before);
}

} // namespace diagram::testing
