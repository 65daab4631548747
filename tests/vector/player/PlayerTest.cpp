#include "tests/vector/player/RecordBuilder.h"
#include "vector/player/Metafile.h"

#include <gtest/gtest.h>
#include <QColor>

using namespace vector;
using namespace vector::testing;

namespace {

constexpr QRgb kClear = 0, kRed = 0xFFFF0000, kBlue = 0xFF0000FF;

QImage Played(const QByteArray &file, const QSize &size = {100, 100}) {
    const auto head = ReadMetafileHead(file);
    return head ? PlayMetafile(file, *head, size) : QImage();
}

QRgb At(const QImage &image, int x, int y) {
    return image.convertToFormat(QImage::Format_ARGB32).pixel(x, y);
}

// A red brush and no pen, in slots 0 and 1.
WmfBuilder RedWmf() {
    WmfBuilder builder;
    builder.Add(wmf::kCreateBrush, {0, 255, 0, 0}).Add(wmf::kCreatePen, {5, 0, 0, 0, 0});
    return builder.Add(wmf::kSelectObject, {0}).Add(wmf::kSelectObject, {1});
}

EmfBuilder RedEmf() {
    EmfBuilder builder;
    builder.Add(emf::kCreateBrush, {1, 0, 255, 0}).Add(emf::kSelectObject, {1});
    return builder.Add(emf::kSelectObject, {int(emf::kNullPen)});
}

// Two by two pixels of 24 bits: blue below, red above.
QByteArray Dib() {
    QByteArray dib;
    for (const quint32 number : {40u, 2u, 2u, 1u | 24u << 16, 0u, 0u, 0u, 0u, 0u, 0u}) Append(dib, number);
    return dib + QByteArray("\xFF\0\0\xFF\0\0\0\0", 8) + QByteArray("\0\0\xFF\0\0\xFF\0\0", 8);
}

} // namespace

TEST(WmfPlayer, FormsAreFilledWhereTheyStand) {
    const QImage image = Played(RedWmf().Add(wmf::kRectangle, {60, 70, 20, 30}).File());
    EXPECT_EQ(At(image, 50, 40), kRed);
    EXPECT_EQ(At(image, 10, 40), kClear);
    EXPECT_EQ(At(image, 50, 80), kClear);
}

TEST(WmfPlayer, TheWindowIsStretchedOverThePage) {
    const QByteArray file =
        RedWmf().Add(wmf::kSetWindowExt, {1000, 1000}).Add(wmf::kRectangle, {1000, 1000, 500, 500}).File();
    const QImage image = Played(file, {200, 200});
    EXPECT_EQ(At(image, 50, 50), kClear);
    EXPECT_EQ(At(image, 150, 150), kRed);
}

TEST(WmfPlayer, WithoutThePlaceableHeadTheWindowIsThePage) {
    const QByteArray file =
        RedWmf().Add(wmf::kSetWindowExt, {50, 80}).Add(wmf::kRectangle, {50, 80, 25, 0}).Plain();
    const auto head = ReadMetafileHead(file);
    ASSERT_TRUE(head);
    EXPECT_EQ(head->twips, QSizeF(80 * 15, 50 * 15));
    EXPECT_EQ(At(Played(file), 50, 75), kRed);
    EXPECT_EQ(At(Played(file), 50, 25), kClear);
}

TEST(WmfPlayer, DeletedSlotsAreTakenAgain) {
    WmfBuilder builder = RedWmf();
    builder.Add(wmf::kDeleteObject, {0}).Add(wmf::kCreateBrush, {0, 0, 0xFF, 0});
    const QImage image =
        Played(builder.Add(wmf::kSelectObject, {0}).Add(wmf::kRectangle, {90, 90, 10, 10}).File());
    EXPECT_EQ(At(image, 50, 50), kBlue);
}

TEST(WmfPlayer, ClipsAreSavedAndRestored) {
    WmfBuilder builder = RedWmf();
    builder.Add(wmf::kSaveDc, {}).Add(wmf::kIntersectClipRect, {100, 50, 0, 0});
    builder.Add(wmf::kExcludeClipRect, {50, 50, 0, 0}).Add(wmf::kRectangle, {100, 100, 0, 0});
    const QImage clipped = Played(builder.File());
    EXPECT_EQ(At(clipped, 25, 75), kRed);
    EXPECT_EQ(At(clipped, 25, 25), kClear);
    EXPECT_EQ(At(clipped, 75, 75), kClear);
    const QImage restored =
        Played(builder.Add(wmf::kRestoreDc, {-1}).Add(wmf::kRectangle, {100, 100, 0, 0}).File());
    EXPECT_EQ(At(restored, 75, 25), kRed);
}

TEST(WmfPlayer, BitmapsStandUpright) {
    const QImage image =
        Played(WmfBuilder().Add(wmf::kStretchDib, {0x20, 0xCC, 0, 2, 2, 0, 0, 100, 100, 0, 0}, Dib()).File());
    EXPECT_EQ(At(image, 50, 10), kRed);
    EXPECT_EQ(At(image, 50, 90), kBlue);
}

TEST(WmfPlayer, TextsArePainted) {
    WmfBuilder builder;
    builder.Add(wmf::kSetBkMode, {1}).Add(wmf::kTextOut, {3, 'M' | 'M' << 8, 'M', 40, 10});
    const QImage image = Played(builder.File()).convertToFormat(QImage::Format_ARGB32);
    int dark = 0;
    for (int y = 0; y < 100; ++y)
        for (int x = 0; x < 100; ++x) dark += qAlpha(image.pixel(x, y)) > 128;
    EXPECT_GT(dark, 30);
    EXPECT_LT(dark, 2000);
}

TEST(EmfPlayer, FormsAreFilledWhereTheyStand) {
    const QImage image = Played(RedEmf().Add(emf::kRectangle, {30, 20, 70, 60}).File());
    EXPECT_EQ(At(image, 50, 40), kRed);
    EXPECT_EQ(At(image, 10, 40), kClear);
}

TEST(EmfPlayer, PathsAreFilledClippedAndClosed) {
    EmfBuilder builder = RedEmf();
    builder.Add(emf::kBeginPath, {}).Add(emf::kMoveTo, {0, 0}).Add(emf::kLineTo, {100, 0});
    builder.Add(emf::kLineTo, {0, 100}).Add(emf::kCloseFigure, {}).Add(emf::kEndPath, {});
    EmfBuilder clip = builder;
    const QImage filled = Played(builder.Add(emf::kFillPath, {0, 0, 0, 0}).File());
    const QImage clipped =
        Played(clip.Add(emf::kSelectClipPath, {1}).Add(emf::kRectangle, {0, 0, 100, 100}).File());
    for (const QImage &image : {filled, clipped}) {
        EXPECT_EQ(At(image, 20, 20), kRed);
        EXPECT_EQ(At(image, 80, 80), kClear);
    }
}

TEST(EmfPlayer, MappingAndWorldAreJoined) {
    EmfBuilder builder = RedEmf();
    builder.Add(emf::kSetMapMode, {8})
        .Add(emf::kSetWindowExt, {1000, 1000})
        .Add(emf::kSetViewportExt, {100, 100});
    QByteArray world;
    for (const float value : {0.5f, 0.f, 0.f, 0.5f, 500.f, 500.f}) Append(world, value);
    const QImage image = Played(
        builder.Add(emf::kSetWorldTransform, {}, world).Add(emf::kRectangle, {0, 0, 1000, 1000}).File());
    EXPECT_EQ(At(image, 25, 25), kClear);
    EXPECT_EQ(At(image, 75, 75), kRed);
    EXPECT_EQ(At(image, 75, 25), kClear);
}

TEST(EmfPlayer, PensHaveTheirWidth) {
    EmfBuilder builder;
    builder.Add(emf::kCreatePen, {1, 0, 10, 0, 0x0000FF}).Add(emf::kSelectObject, {1});
    builder.Add(emf::kMoveTo, {0, 50}).Add(emf::kLineTo, {100, 50});
    const QImage line = Played(builder.File());
    EXPECT_EQ(At(line, 50, 47), kRed);
    EXPECT_EQ(At(line, 50, 53), kRed);
    EXPECT_EQ(At(line, 50, 60), kClear);
}

TEST(EmfPlayer, BitmapsBlend) {
    EmfBuilder blended;
    blended.Add(emf::kAlphaBlend,
                {0, 0, 0, 0, 0, 0, 100, 100, 128 << 16, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 108, 40, 148, 16, 2, 2},
                Dib());
    EXPECT_NEAR(qAlpha(At(Played(blended.File()), 50, 10)), 128, 2);
}

TEST(EmfPlayer, ArcsGoAgainstTheClock) {
    const QByteArray file =
        RedEmf().Add(emf::kPie, {0, 0, 100, 100, 100, 50, 50, 0}).File(); // from the right to the top
    EXPECT_EQ(At(Played(file), 70, 30), kRed);
    EXPECT_EQ(At(Played(file), 30, 70), kClear);
}

TEST(MetafileHead, IsKnownByContentAlone) {
    EXPECT_FALSE(ReadMetafileHead({}));
    EXPECT_FALSE(ReadMetafileHead("no metafile"));
    EXPECT_EQ(ReadMetafileHead(WmfBuilder().File())->kind, MetafileKind::Wmf);
    EXPECT_EQ(ReadMetafileHead(EmfBuilder().File())->kind, MetafileKind::Emf);
    EXPECT_NEAR(ReadMetafileHead(WmfBuilder().File())->twips.width(), 1500, 1);
    EXPECT_NEAR(ReadMetafileHead(EmfBuilder().File())->twips.width(), 1500, 1);
}

TEST(MetafileHead, EveryCutOfAFileIsRefusedOrPlayed) {
    const QByteArray wmfFile = RedWmf().Add(wmf::kRectangle, {60, 70, 20, 30}).File();
    const QByteArray emfFile = RedEmf().Add(emf::kRectangle, {30, 20, 70, 60}).File();
    for (const QByteArray &file : {wmfFile, emfFile})
        for (qsizetype size = 0; size < file.size(); ++size) {
            const QImage image = Played(file.first(size));
            EXPECT_TRUE(image.isNull() || image.size() == QSize(100, 100)) << size;
        }
}

TEST(MetafileCanvas, HostileRecordsEndWithTheBudget) {
    QByteArray points;
    for (int i = 0; i < 2000; ++i) Append(points, qint32(i % 2 ? 2000000000 : -2000000000));
    EmfBuilder builder;
    builder.Add(emf::kCreatePen, {1, 2, 1, 0, 255}).Add(emf::kSelectObject, {1});
    for (int i = 0; i < 3000; ++i) {
        builder.Add(emf::kEllipse, {-2000000000, -2000000000, 2000000000, 2000000000 - i});
        builder.Add(emf::kPolygon, {0, 0, 0, 0, 1000}, points);
        builder.Add(emf::kExcludeClipRect, {i % 97, i % 89, i % 97 + 1, i % 89 + 1});
    }
    const QByteArray file = builder.File();
    EXPECT_EQ(Played(file, {1000, 1000}).size(), QSize(1000, 1000));
}
