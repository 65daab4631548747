#include "diagram/shapes/Shapes.h"
#include "tests/diagram/render/Painting.h"

#include <gtest/gtest.h>

namespace diagram {

namespace {

constexpr QRgb kRed = 0xFFFF0000, kBlue = 0xFF0000FF, kWhite = 0xFFFFFFFF;

Node &AddBox(Painting &painting) {
    Node &node = painting.Add(20, 20, 100, 60);
    node.SetFillColor(support::Rgb(255, 0, 0));
    node.SetBorderColor(support::Rgb(0, 0, 255));
    return node;
}

} // namespace

TEST(Nodes, EachShape_IsFilledInsideItsOutlineOnly) {
    for (const ShapeRow &row : ShapeTable())
        for (int orientation = 0; orientation < 4; ++orientation) {
            SCOPED_TRACE(std::string(row.name) + " turned " + std::to_string(orientation));
            Painting painting;
            Node &node = AddBox(painting);
            node.SetShape(row.value);
            node.SetShapeOrientation(orientation);
            const QImage image = painting.Paint();
            const QPainterPath outline = Outline(row.value, orientation, QRectF(20, 20, 100, 60));
            int inside = 0, red = 0, strayRed = 0;
            for (int y = 0; y < image.height(); ++y)
                for (int x = 0; x < image.width(); ++x) {
                    const bool isInside = outline.contains(QPointF(x + 0.5, y + 0.5));
                    const bool isRed = (image.pixel(x, y) | 0xFF000000) == kRed;
                    inside += isInside, red += isRed && isInside, strayRed += isRed && !isInside;
                }
            EXPECT_GT(red, inside * 0.75);
            EXPECT_LE(strayRed, 20); // middles of pixels that lie on a slanted side
        }
}

TEST(Nodes, Border_IsCrispAtEachZoom) {
    for (double zoom : {0.75, 1.0, 1.5, 2.0, 1.1}) {
        SCOPED_TRACE(zoom);
        Painting painting;
        AddBox(painting);
        const QImage image = painting.Paint(zoom);
        // A row through the middle has the three colours and nothing between them.
        const int row = int(50 * zoom);
        for (int x = 0; x < image.width(); ++x) {
            const QRgb colour = image.pixel(x, row) | 0xFF000000;
            EXPECT_TRUE(colour == kRed || colour == kBlue || colour == kWhite) << x;
        }
        EXPECT_EQ(CountOf(image, QRect(0, row, 60, 1), kBlue), qRound(zoom));
    }
}

TEST(Nodes, Border_IsCrispWithTwoDevicePixelsAPixel) {
    Painting painting;
    AddBox(painting);
    const QImage image = painting.Paint(1, 2);
    EXPECT_EQ(image.pixel(39, 100) | 0xFF000000, kBlue);
    EXPECT_EQ(image.pixel(40, 100) | 0xFF000000, kBlue);
    EXPECT_EQ(image.pixel(38, 100) | 0xFF000000, kWhite);
    EXPECT_EQ(image.pixel(41, 100) | 0xFF000000, kRed);
}

TEST(Nodes, HiddenOnes_AreNotPainted) {
    Painting painting;
    AddBox(painting).SetHidden(true);
    EXPECT_EQ(CountOf(painting.Paint(), kWhite), 200 * 150);
}

TEST(Nodes, TransparentOnes_HaveABorderOnly) {
    Painting painting;
    AddBox(painting).SetTransparent(true);
    const QImage image = painting.Paint();
    EXPECT_EQ(CountOf(image, kRed), 0);
    EXPECT_GT(CountOf(image, kBlue), 300);
}

TEST(Nodes, LineStyles_DrawDifferentBorders) {
    std::vector<QImage> images;
    for (int style = 0; style <= 6; ++style) {
        Painting painting;
        AddBox(painting).SetDrawWidth(3);
        (*painting.surface.Nodes().begin()).SetDrawStyle(style);
        images.push_back(painting.Paint());
    }
    for (std::size_t i = 0; i < images.size(); ++i)
        for (std::size_t k = 0; k < i; ++k) EXPECT_NE(images[i], images[k]) << i << k;
    EXPECT_EQ(CountOf(images[5], kBlue), 0);
}

TEST(Nodes, InsideSolid_StaysInTheBox) {
    for (int shape : {0, 1, 3, 56}) {
        Painting painting;
        Node &node = AddBox(painting);
        node.SetShape(shape);
        node.SetDrawWidth(8);
        node.SetDrawStyle(6);
        const QImage image = painting.Paint();
        EXPECT_EQ(CountOf(image, QRect(0, 0, 200, 19), kWhite), 200 * 19) << shape;
        EXPECT_EQ(CountOf(image, QRect(0, 0, 19, 150), kWhite), 150 * 19) << shape;
        EXPECT_GT(CountOf(image, kBlue), 200) << shape;
    }
}

TEST(Nodes, Shadow_FallsToItsSide) {
    const QPoint corners[] = {{}, {122, 82}, {122, 18}, {18, 18}, {18, 82}};
    for (int shadow = 1; shadow <= 4; ++shadow) {
        Painting painting;
        AddBox(painting).SetShadow(shadow);
        const QImage image = painting.Paint();
        for (int corner = 1; corner <= 4; ++corner)
            EXPECT_EQ((image.pixel(corners[corner]) | 0xFF000000) != kWhite, corner == shadow)
                << shadow << corner;
    }
}

TEST(Nodes, Edges_AreLightAndDarkAsTheirNamesSay) {
    const auto tone = [](int shape, const QPoint &at) {
        Painting painting;
        Node &node = painting.Add(20, 20, 100, 60);
        node.SetFillColor(support::Rgb(192, 192, 192));
        node.SetShape(shape);
        return qGray(painting.Paint().pixel(at));
    };
    constexpr int kBump = 9, kEtched = 10, kRaised = 11, kSunken = 12;
    EXPECT_GT(tone(kRaised, {21, 50}), 192);
    EXPECT_LT(tone(kRaised, {120, 50}), 192);
    EXPECT_LT(tone(kSunken, {21, 50}), 192);
    EXPECT_GT(tone(kSunken, {120, 50}), 192);
    // Of two rings each: a ridge, and a groove.
    EXPECT_GT(tone(kBump, {20, 50}), tone(kBump, {21, 50}));
    EXPECT_GT(tone(kBump, {119, 50}), 192);
    EXPECT_LT(tone(kBump, {120, 50}), 192);
    EXPECT_LT(tone(kEtched, {20, 50}), 192);
    EXPECT_GT(tone(kEtched, {21, 50}), 192);
    EXPECT_LT(tone(kEtched, {119, 50}), 192);
    EXPECT_GT(tone(kEtched, {120, 50}), 192);
}

TEST(Nodes, StackingOrder_IsPaintedFromTheLowestUp) {
    Painting painting;
    AddBox(painting);
    Node &above = painting.Add(60, 40, 20, 20);
    above.SetFillColor(support::Rgb(0, 255, 0));
    EXPECT_EQ(painting.Paint().pixel(70, 50) | 0xFF000000, 0xFF00FF00);
    above.SendToBack();
    EXPECT_EQ(painting.Paint().pixel(70, 50) | 0xFF000000, kRed);
}

TEST(Nodes, Picture_StandsAtItsPlace) {
    QImage green(20, 10, QImage::Format_RGB32);
    green.fill(QColor(0, 255, 0));
    const QPoint kInside[] = {{24, 24},  {24, 50}, {24, 76}, {116, 24}, {116, 50},
                              {116, 76}, {70, 24}, {70, 50}, {70, 76}};
    for (int place = 0; place < 9; ++place) {
        Painting painting;
        Node &node = AddBox(painting);
        node.SetPicture(Picture::FromImage(green));
        node.SetPicturePos(place);
        const QImage image = painting.Paint();
        for (int probe = 0; probe < 9; ++probe)
            EXPECT_EQ((image.pixel(kInside[probe]) | 0xFF000000) == 0xFF00FF00, probe == place)
                << place << probe;
    }
}

TEST(Nodes, PictureRelativeToTheText_StandsAtItsSideOrAbove) {
    QImage green(20, 10, QImage::Format_RGB32);
    green.fill(QColor(0, 255, 0));
    struct Probe {
        int alignment;
        QPoint inside;
    };
    constexpr Probe kProbes[] = {{1, {26, 50}}, {4, {114, 50}}, {7, {70, 40}}};
    for (const Probe &place : kProbes) {
        Painting painting;
        Node &node = AddBox(painting);
        node.SetText(QStringLiteral("HH"));
        node.SetPicture(Picture::FromImage(green));
        node.SetPicturePos(9);
        node.SetAlignment(place.alignment);
        const QImage image = painting.Paint();
        for (const Probe &probe : kProbes)
            EXPECT_EQ((image.pixel(probe.inside) | 0xFF000000) == 0xFF00FF00,
                      probe.alignment == place.alignment)
                << place.alignment << probe.alignment;
    }
}

TEST(Nodes, PictureSizedToTheNode_FillsIt) {
    QImage green(20, 10, QImage::Format_RGB32);
    green.fill(QColor(0, 255, 0));
    Painting painting;
    Node &node = AddBox(painting);
    node.SetPicture(Picture::FromImage(green));
    node.SetAutoSize(1);
    EXPECT_EQ(CountOf(painting.Paint(), kRed), 0);
}

TEST(Nodes, SeenFromAfar_KeepTheirColours) {
    for (int shape : {0, 1, 3, 56}) {
        Painting painting;
        Node &node = AddBox(painting);
        node.SetShape(shape);
        const QImage image = painting.Paint(0.18);
        EXPECT_EQ(image.pixel(12, 9) | 0xFF000000, kRed) << shape;
        EXPECT_EQ(image.pixel(100, 100) | 0xFF000000, kWhite) << shape;
    }
}

TEST(Nodes, SeenFromAfar_StayInTheClipOfThePainter) {
    Painting painting;
    Node &node = painting.Add(0, 0, 3000, 3000);
    node.SetFillColor(support::Rgb(255, 0, 0));
    for (int i = 0; i < 50; ++i)
        painting.Add(float(i * 60), 100, 50, 40).SetFillColor(support::Rgb(255, 0, 0));
    QImage image(200, 150, QImage::Format_RGB32);
    image.fill(Qt::white);
    painting.options.xScale = painting.options.yScale = 0.1 / 15;
    painting.options.background = false;
    Scene scene(painting.surface);
    QPainter painter(&image);
    painter.setClipRect(QRect(50, 5, 20, 20));
    painting.renderer.Paint(painter, scene, QRectF(0, 0, 30000, 22500), painting.options);
    painter.end();
    EXPECT_EQ(CountOf(image, kWhite), 200 * 150 - 20 * 20);
}

TEST(Nodes, Painting_LeavesThePainterAsItWas) {
    Painting painting;
    AddBox(painting);
    QImage image(50, 50, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setPen(Qt::green);
    painter.translate(3, 4);
    Scene scene(painting.surface);
    painting.renderer.Paint(painter, scene, QRectF(0, 0, 750, 750), painting.options);
    EXPECT_EQ(painter.pen().color(), QColor(Qt::green));
    EXPECT_EQ(painter.worldTransform(), QTransform::fromTranslate(3, 4));
}

} // namespace diagram
