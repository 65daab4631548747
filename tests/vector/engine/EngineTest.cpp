// Every engine paints on its own, without a surface: what a painter drew stands in the file, and the player
// shows it again.
#include "vector/engine/EmfEngine.h"
#include "vector/engine/SvgEngine.h"
#include "vector/engine/WmfEngine.h"
#include "vector/player/Metafile.h"

#include <gtest/gtest.h>
#include <QPainter>

using namespace vector;

namespace {

const QSizeF kPage(1440, 720); // an inch by half of one
const QRectF kRed(150, 150, 300, 300), kPicture(900, 150, 300, 300);
const QSize kPixels(192, 96);

class GreenPicture : public PictureSource {
public:
    const QByteArray &Bytes() const override { return none_; }
    QImage ImageFor(const QSizeF &) const override {
        QImage image(8, 8, QImage::Format_RGB32);
        image.fill(Qt::green);
        return image;
    }
    quintptr Identity() const override { return 1; }

private:
    QByteArray none_;
};

QByteArray Painted(VectorEngine &engine) {
    VectorDevice device(engine);
    QPainter painter(&device);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::red);
    painter.drawRect(kRed);
    engine.DrawPicture(kPicture, GreenPicture());
    const TextFont font{QStringLiteral("Arial"), 8, true, false};
    engine.DrawLine({{150, 650}, 600, 0, false, QStringLiteral("Sales"), font, QString(), Qt::black});
    painter.end();
    return engine.File();
}

QColor At(const QImage &image, const QRectF &place) {
    return image.pixelColor((place.center() * kPixels.width() / kPage.width()).toPoint());
}

void ExpectPlays(const QByteArray &file, MetafileKind kind) {
    const auto head = ReadMetafileHead(file);
    ASSERT_TRUE(head);
    EXPECT_EQ(head->kind, kind);
    EXPECT_NEAR(head->twips.width(), kPage.width(), 15);
    EXPECT_NEAR(head->twips.height(), kPage.height(), 15);
    const QImage image = PlayMetafile(file, *head, kPixels);
    EXPECT_EQ(At(image, kRed), QColor(Qt::red));
    EXPECT_EQ(At(image, kPicture), QColor(Qt::green));
    EXPECT_EQ(image.pixelColor(kPixels.width() / 2, 5).alpha(), 0) << "nothing was drawn there";
    int dark = 0;
    for (int x = 0; x < kPixels.width() / 2; ++x)
        for (int y = 75; y < kPixels.height(); ++y) dark += image.pixelColor(x, y) == QColor(Qt::black);
    EXPECT_GT(dark, 5) << "the text";
}

} // namespace

TEST(Engines, AMetafileOfSixteenBitsPlaysAsItWasPainted) {
    WmfEngine engine(kPage, 1440, qRgb(255, 255, 255));
    ExpectPlays(Painted(engine), MetafileKind::Wmf);
}

TEST(Engines, AnEnhancedMetafilePlaysAsItWasPainted) {
    EmfEngine engine(kPage, 1, qRgb(255, 255, 255));
    ExpectPlays(Painted(engine), MetafileKind::Emf);
}

TEST(Engines, AnSvgHoldsShapeTextAndPicture) {
    SvgEngine engine(kPage);
    const QByteArray file = Painted(engine);
    EXPECT_TRUE(file.contains("width=\"96\" height=\"48\""));
    EXPECT_TRUE(file.contains("<rect x=\"150\" y=\"150\" width=\"300\" height=\"300\""));
    EXPECT_TRUE(file.contains("fill=\"#ff0000\"") || file.contains("fill=\"#f00\"")) << file.constData();
    EXPECT_TRUE(file.contains("font-weight=\"bold\""));
    EXPECT_TRUE(file.contains(">Sales</text>"));
    EXPECT_TRUE(file.contains("data:image/png;base64,"));
}

TEST(Engines, AnEmptyDrawingIsAFileOfItsSize) {
    for (const double scale : {1.0, 0.5}) {
        EmfEngine engine(kPage * scale, scale, qRgb(255, 255, 255));
        VectorDevice device(engine);
        QPainter(&device).end();
        EXPECT_TRUE(ReadMetafileHead(engine.File()));
    }
}
