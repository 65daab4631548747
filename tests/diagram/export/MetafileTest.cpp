#include "diagram/export/Export.h"
#include "diagram/model/Surface.h"
#include "diagram/shapes/Shapes.h"
#include "support/AtomicFile.h"
#include "tests/diagram/export/Filled.h"
#include "tests/diagram/export/MetafileReader.h"
#include "vector/engine/WmfEngine.h"
#include "vector/player/CodePage.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>
#include <set>

namespace diagram {

namespace {

QByteArray WmfText(const QByteArray &body) { return body.mid(8, At<qint16>(body, 4)); }

QString EmfText(const QByteArray &body) {
    QString text;
    for (quint32 i = 0; i < At<quint32>(body, 36); ++i)
        text += QChar(At<quint16>(body, 68 + qsizetype(i) * 2));
    return text;
}

Node &OneNode(Surface &surface) {
    Node &node = surface.Nodes().Add(0, 0, 1500, 750);
    node.SetDrawWidth(1);
    return node;
}

Played Wmf(Surface &surface) { return ReadWmf(ExportMetafile(surface, vector::MetafileKind::Wmf)); }
Played Emf(Surface &surface) { return ReadEmf(ExportMetafile(surface, vector::MetafileKind::Emf)); }

QImage HalfClear() {
    QImage image(10, 6, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    for (int x = 0; x < 10; ++x) image.setPixel(x, 0, qRgb(10, 20, 30));
    return image;
}

} // namespace

TEST(Metafile, Wmf_IsWholeAndLeaksNoSlot) {
    Surface surface;
    testing::Fill(surface);
    const Played played = Wmf(surface);
    ASSERT_TRUE(played.good);
    ExpectSlotsKept(played, true);
    EXPECT_EQ(played.unitsPerInch, 1440);
}

TEST(Metafile, Emf_IsWholeAndLeaksNoSlot) {
    Surface surface;
    testing::Fill(surface);
    const Played played = Emf(surface);
    ASSERT_TRUE(played.good);
    ExpectSlotsKept(played, false);
    EXPECT_NEAR(played.unitsPerInch, 1440, 1);
    EXPECT_GT(played.Count(kEmfCurves), 10);
}

TEST(Metafile, ManyColours_ReuseSlots) {
    Surface surface;
    for (int i = 0; i < 500; ++i)
        surface.Nodes().Add(100 * float(i), 0, 50, 50).SetFillColor(support::Rgb(i % 250, i / 2, 9));
    for (const vector::MetafileKind kind : {vector::MetafileKind::Wmf, vector::MetafileKind::Emf}) {
        const bool wmf = kind == vector::MetafileKind::Wmf;
        const Played played = wmf ? Wmf(surface) : Emf(surface);
        ASSERT_TRUE(played.good);
        ExpectSlotsKept(played, wmf);
        EXPECT_GE(played.Count(wmf ? kWmfBrush : kEmfBrush), 500);
        EXPECT_LE(played.objects, 65);
    }
}

TEST(Metafile, APlainNode_IsOneRectangleAndOneText) {
    Surface surface;
    OneNode(surface).SetText(QStringLiteral("Hello"));
    const Played wmf = Wmf(surface), emf = Emf(surface);
    EXPECT_EQ(wmf.Count(kWmfRectangle), 2); // the page and the node
    EXPECT_EQ(emf.Count(kEmfRectangle), 2);
    ASSERT_EQ(wmf.Count(kWmfText), 1);
    ASSERT_EQ(emf.Count(kEmfText), 1);
    EXPECT_EQ(WmfText(wmf.Of(kWmfText)[0]), "Hello");
    EXPECT_EQ(EmfText(emf.Of(kEmfText)[0]), QStringLiteral("Hello"));
    const QByteArray box = wmf.Of(kWmfRectangle)[1]; // bottom, right, top, left
    EXPECT_NEAR(At<qint16>(box, 2) - At<qint16>(box, 6), 1500, 1);
    EXPECT_NEAR(At<qint16>(box, 0) - At<qint16>(box, 4), 750, 1);
}

TEST(Metafile, ThePage_IsTheExtentAndItsMargin) {
    Surface surface;
    surface.Nodes().Add(1000, 1000, 1200, 600).SetDrawWidth(0);
    ExportOptions options;
    options.margin = 400;
    const Played wmf = ReadWmf(ExportMetafile(surface, vector::MetafileKind::Wmf, options));
    const Played emf = ReadEmf(ExportMetafile(surface, vector::MetafileKind::Emf, options));
    EXPECT_NEAR(wmf.page.width(), 2000, 80);
    EXPECT_NEAR(wmf.page.height(), 1400, 80);
    EXPECT_EQ(wmf.page, emf.page);
    const QByteArray extent = wmf.Of(kWmfExtent)[0];
    EXPECT_EQ(QSize(At<qint16>(extent, 2), At<qint16>(extent, 0)), wmf.page);
}

TEST(Metafile, AHugeSurface_IsScaledIntoSixteenBits) {
    Surface surface;
    surface.Nodes().Add(0, 0, 10000, 10000);
    surface.Nodes().Add(1e6f, 0, 10000, 10000).SetText(QStringLiteral("far"));
    const Played wmf = Wmf(surface), emf = Emf(surface);
    ASSERT_TRUE(wmf.good && emf.good);
    EXPECT_LE(wmf.page.width(), 32767);
    EXPECT_NEAR(wmf.page.width() / wmf.unitsPerInch, emf.page.width() / 1440.0, 8);
    const QByteArray last = wmf.Of(kWmfRectangle)[2];
    EXPECT_GT(At<qint16>(last, 6), 29000);
    EXPECT_NEAR(emf.page.width(), 1010000 + 300, 200);
}

TEST(Metafile, Fonts_HaveSizeWeightAndSlant) {
    Surface surface;
    Node &node = OneNode(surface);
    node.SetText(QStringLiteral("t"));
    node.SetFont(Font(QStringLiteral("Courier New"), 12, true, true));
    const QByteArray wmf = Wmf(surface).Of(kWmfFont).at(0), emf = Emf(surface).Of(kEmfFont).at(0);
    EXPECT_EQ(At<qint16>(wmf, 0), -240);
    EXPECT_EQ(At<qint16>(wmf, 8), 700);
    EXPECT_EQ(wmf[10], 1);
    EXPECT_STREQ(wmf.constData() + 18, "Courier New");
    EXPECT_EQ(At<qint32>(emf, 4), -240);
    EXPECT_EQ(At<qint32>(emf, 20), 700);
    EXPECT_EQ(emf[24], 1);
    EXPECT_EQ(At<quint16>(emf, 32), u'C');
}

TEST(Metafile, UnderlinedAndStruckOutText_HasItsBarsOnce) {
    Surface surface;
    Node &node = OneNode(surface);
    node.SetText(QStringLiteral("t"));
    node.SetFont(Font(QStringLiteral("Arial"), 12, false, false, true, true));
    const Played wmf = Wmf(surface), emf = Emf(surface);
    EXPECT_EQ(wmf.Count(kWmfRectangle), 4);
    EXPECT_EQ(emf.Count(kEmfRectangle), 4);
    EXPECT_EQ(wmf.Of(kWmfFont).at(0).mid(11, 2), QByteArray(2, '\0'));
}

TEST(Metafile, Dashes_AreSingleLines) {
    Surface surface;
    Node &node = OneNode(surface);
    EXPECT_EQ(Wmf(surface).Count(kWmfPolyline), 0);
    node.SetDrawStyle(1);
    const Played wmf = Wmf(surface);
    const int thin = wmf.Count(kWmfPolyline);
    EXPECT_NEAR(thin, 2 * (1500 + 750) / (6 * 15), 2);
    node.SetDrawWidth(3);
    EXPECT_NEAR(Wmf(surface).Count(kWmfPolyline), thin / 3.0, 2);
    const std::vector<QByteArray> dashes = Emf(surface).Of(kEmfPolylines);
    ASSERT_EQ(dashes.size(), 1u);
    EXPECT_NEAR(At<quint32>(dashes[0], 16), thin / 3.0, 2);
}

TEST(Metafile, TextInBothDirections_IsWrittenInPiecesFromLeftToRight) {
    Surface surface;
    OneNode(surface).SetText(QString::fromUtf8("abc \u05E9\u05DC\u05D5\u05DD 12 d"));
    const std::vector<QByteArray> pieces = Emf(surface).Of(kEmfText);
    ASSERT_EQ(pieces.size(), 4u);
    const char *const kTexts[] = {"abc", "12", "\u05E9\u05DC\u05D5\u05DD", "d"};
    int end = 0;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        const QByteArray &body = pieces[i];
        EXPECT_EQ(EmfText(body), QString::fromUtf8(kTexts[i]));
        EXPECT_EQ(At<quint32>(body, 44), i == 2 ? 0x80u : 0u) << "reads from the right";
        EXPECT_GE(At<qint32>(body, 28), end - 2);
        end = At<qint32>(body, 28);
        const quint32 advances = At<quint32>(body, 64) - 8;
        for (quint32 k = 0; k < At<quint32>(body, 36); ++k) {
            const int advance = At<qint32>(body, qsizetype(advances) + 4 * qsizetype(k));
            EXPECT_GT(advance, 0);
            EXPECT_LT(advance, 200);
            end += advance;
        }
    }
    EXPECT_LT(end, 1500 + 150);
}

TEST(Metafile, Text_StaysTextWhereTheKindHasItsLetters) {
    Surface surface;
    OneNode(surface).SetText(QString::fromUtf8("\u20AC\u00E9"));
    EXPECT_EQ(WmfText(Wmf(surface).Of(kWmfText).at(0)), QByteArray("\x80\xE9"));
    OneNode(surface).SetText(QString::fromUtf8("\u20AC\u00E9\u0107\u4E2D"));
    EXPECT_EQ(EmfText(Emf(surface).Of(kEmfText).at(1)), QString::fromUtf8("\u20AC\u00E9\u0107\u4E2D"));
}

TEST(Metafile, Text_BecomesOutlinesWhereTheKindLacksItsLetters) {
    Surface surface;
    Node &node = OneNode(surface);
    const Played before = Wmf(surface);
    node.SetText(QString::fromUtf8("\u0434\u043E\u043C")); // three letters, two of them with a hole
    const Played wmf = Wmf(surface);
    EXPECT_EQ(wmf.Count(kWmfText), 0);
    ASSERT_EQ(wmf.Count(kWmfPolygons), before.Count(kWmfPolygons) + 1);
    EXPECT_GE(At<quint16>(wmf.Of(kWmfPolygons).back(), 0), 3);
    ExpectSlotsKept(wmf, true);
}

TEST(Metafile, LettersThatTheCodePageLacks_AreTheNearestInLongLines) {
    EXPECT_EQ(vector::ToWindows1252(QString::fromUtf8("a\U0001F600b")), QByteArray("a?\0b", 4));
    Surface surface;
    Node &node = surface.Nodes().Add(0, 0, 3e6f, 750);
    node.SetText(QString::fromUtf8("\u0107\U0001F600").repeated(1000));
    EXPECT_EQ(WmfText(Wmf(surface).Of(kWmfText).at(0)).left(4), "c?c?");
}

TEST(Metafile, Pictures_AreEmbeddedOnTheColourBehindThem) {
    Surface surface;
    Node &node = OneNode(surface);
    node.SetFillColor(support::Rgb(200, 100, 50));
    node.SetPicture(Picture::FromImage(HalfClear()));
    const Played emf = Emf(surface);
    ASSERT_EQ(emf.Count(kEmfBitmap), 1);
    const QByteArray dib = emf.Of(kEmfBitmap)[0].mid(72); // header and bits
    EXPECT_EQ(At<qint32>(dib, 4), 10);
    EXPECT_EQ(At<qint32>(dib, 8), 6);
    EXPECT_EQ(dib.mid(40, 3), QByteArray("\x32\x64\xC8", 3));       // lowest row: blue, green, red
    EXPECT_EQ(dib.mid(40 + 5 * 32, 3), QByteArray("\x1E\x14\x0A")); // topmost
    const Played wmf = Wmf(surface);
    ASSERT_EQ(wmf.Count(kWmfBitmap), 1);
    EXPECT_EQ(wmf.Of(kWmfBitmap)[0].mid(22), dib);
}

TEST(Metafile, LargePictures_AreNoFinerThanShows) {
    QImage image(3000, 3000, QImage::Format_RGB32);
    image.fill(Qt::red);
    Surface surface;
    Node &node = OneNode(surface);
    node.SetAutoSize(1);
    node.SetPicture(Picture::FromImage(image));
    const Played emf = Emf(surface);
    ASSERT_EQ(emf.Count(kEmfBitmap), 1);
    EXPECT_LE(At<qint32>(emf.Of(kEmfBitmap)[0].mid(72), 4), 3 * 1500 / 15 + 3);
}

TEST(Metafile, Clips_AreSavedAndRestored) {
    Surface surface;
    Node &node = OneNode(surface);
    node.SetShape(1);
    QImage larger(300, 300, QImage::Format_RGB32);
    larger.fill(Qt::red);
    node.SetPicture(Picture::FromImage(larger));
    const Played wmf = Wmf(surface), emf = Emf(surface);
    EXPECT_EQ(wmf.Count(kWmfClipToBox), 1);
    EXPECT_EQ(wmf.Count(kWmfSave), 2);
    EXPECT_EQ(wmf.Count(kWmfRestore), 2);
    EXPECT_EQ(emf.Count(kEmfClipToBox), 1);
    EXPECT_EQ(emf.Count(kEmfSave), 2);
    EXPECT_EQ(emf.Count(kEmfRestore), 2);
}

TEST(Metafile, LinesWithinAForm_AreClippedOrCutToIt) {
    Surface surface;
    for (const ShapeRow &row : ShapeTable()) {
        Node &node = surface.Nodes().Add(0, 1000 * float(row.value), 1500, 750);
        node.SetShape(row.value);
        node.SetDrawStyle(6);
    }
    const Played wmf = Wmf(surface), emf = Emf(surface);
    EXPECT_GT(emf.Count(kEmfClipToPath), 10);
    EXPECT_EQ(emf.Count(kEmfBeginPath), emf.Count(kEmfEndPath));
    EXPECT_EQ(wmf.Count(kWmfClipToBox), emf.Count(kEmfClipToPath) + emf.Count(kEmfClipToBox));
    EXPECT_EQ(wmf.Count(kWmfExcludeBox), 0) << "few readers know clips that aren't boxes";
    EXPECT_GT(wmf.Count(kWmfPolygons), 10);
    ExpectSlotsKept(wmf, true);
    ExpectSlotsKept(emf, false);
}

TEST(Metafile, PicturesWithinAForm_AreCutOutByBoxes) {
    vector::WmfEngine engine(QSizeF(1000, 1000), 1440, qRgb(255, 255, 255));
    vector::VectorDevice device(engine);
    QPainter painter(&device);
    QPainterPath form;
    form.addEllipse(100, 100, 800, 800);
    painter.setClipPath(form);
    painter.drawImage(QRectF(0, 0, 1000, 1000), HalfClear());
    painter.drawImage(QRectF(0, 0, 1000, 1000), HalfClear());
    painter.end();
    const Played wmf = ReadWmf(engine.File());
    EXPECT_EQ(wmf.Count(kWmfBitmap), 2);
    EXPECT_GT(wmf.Count(kWmfExcludeBox), 10);
    EXPECT_LE(wmf.Count(kWmfExcludeBox), 2 * 60) << "once for both";
    ExpectSlotsKept(wmf, true);
}

TEST(Metafile, ShadowsAreMixedWithThePaper) {
    Surface surface;
    surface.SetBackColor(support::Rgb(0, 0, 255));
    OneNode(surface).SetShadow(1);
    std::set<quint32> colours;
    for (const QByteArray &brush : Wmf(surface).Of(kWmfBrush)) colours.insert(At<quint32>(brush, 2));
    EXPECT_TRUE(colours.count(0x00FF0000));
    EXPECT_TRUE(std::any_of(colours.begin(), colours.end(),
                            [](quint32 c) { return c > 0x00A00000 && c < 0x00D00000 && c % 0x10000 == 0; }));
}

TEST(Metafile, HiddenItems_AreLeftOut) {
    Surface surface;
    OneNode(surface).SetText(QStringLiteral("seen"));
    Node &hidden = OneNode(surface);
    hidden.SetText(QStringLiteral("secret"));
    hidden.SetHidden(true);
    EXPECT_EQ(Emf(surface).Count(kEmfText), 1);
    EXPECT_EQ(Wmf(surface).Count(kWmfText), 1);
}

TEST(Metafile, AnEmptySurface_GivesAnEmptyPage) {
    Surface surface;
    EXPECT_TRUE(Wmf(surface).good);
    EXPECT_TRUE(Emf(surface).good);
}

TEST(Metafile, LongTexts_AreCutIntoRecords) {
    Surface surface;
    surface.Nodes().Add(0, 0, 4000000, 750).SetText(QString(20000, u'x'));
    const Played emf = Emf(surface), wmf = Wmf(surface);
    ASSERT_TRUE(emf.good && wmf.good);
    QString text;
    for (const QByteArray &body : emf.Of(kEmfText)) text += EmfText(body);
    EXPECT_EQ(text, QString(20000, u'x'));
    EXPECT_EQ(wmf.Count(kWmfText), 3);
}

TEST(Metafile, Files_AreWrittenByTheirEnding) {
    QTemporaryDir folder;
    Surface surface;
    testing::Fill(surface);
    for (const char *name : {"a.wmf", "b.EMF"}) {
        const QString path = folder.filePath(QLatin1String(name));
        ExportPictureFile(surface, path);
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_TRUE(path.endsWith(QLatin1String("wmf")) ? ReadWmf(file.readAll()).good
                                                        : ReadEmf(file.readAll()).good);
    }
}

TEST(Metafile, WriteMetafile_PutsTheEnhancedOneBeside) {
    QTemporaryDir folder;
    Surface surface;
    testing::Fill(surface);
    const QString wmf = folder.filePath(QStringLiteral("map.wmf")),
                  emf = folder.filePath(QStringLiteral("map.emf"));
    WriteMetafile(surface, wmf);
    EXPECT_TRUE(ReadWmf(support::ReadWholeFile(wmf)).good);
    EXPECT_TRUE(ReadEmf(support::ReadWholeFile(emf)).good);
    surface.Nodes().Item(1).SetText(QStringLiteral("changed"));
    const QByteArray before = support::ReadWholeFile(emf);
    WriteMetafile(surface, wmf);
    EXPECT_NE(support::ReadWholeFile(emf), before) << "a file of our own is written again";
}

TEST(Metafile, WriteMetafile_LeavesAnotherProgramsFileAlone) {
    QTemporaryDir folder;
    Surface surface;
    OneNode(surface);
    QFile other(folder.filePath(QStringLiteral("map.emf")));
    ASSERT_TRUE(other.open(QIODevice::WriteOnly));
    other.write("somebody's");
    other.close();
    WriteMetafile(surface, folder.filePath(QStringLiteral("map.wmf")));
    EXPECT_EQ(support::ReadWholeFile(other.fileName()), "somebody's");
}

TEST(Metafile, TextsOfAMegabyte_AreExported) {
    Surface surface;
    OneNode(surface).SetText(QStringLiteral("word ").repeated(200000));
    for (const PictureFormat format :
         {PictureFormat::Png, PictureFormat::Svg, PictureFormat::Pdf, PictureFormat::Wmf, PictureFormat::Emf})
        EXPECT_GT(ExportPicture(surface, format).size(), 100);
}

} // namespace diagram
