// The small pictures of maps and templates.
#include "document/DoSave.h"
#include "document/MemoryWindow.h"
#include "document/OpenMap.h"
#include "mainwindow/start/Thumbnails.h"
#include "support/AtomicFile.h"
#include "support/Platform.h"
#include "templates/SaveAsTemplate.h"
#include "tests/mainwindow/WindowTest.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTest>

namespace mainwindow::testing {

namespace {

using Kind = ThumbnailOrder::Kind;

constexpr QSize kSize(200, 125);

// How many of the pixels are of about that colour.
int Count(const QImage &image, const QColor &colour) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            count += std::abs(pixel.red() - colour.red()) + std::abs(pixel.green() - colour.green()) +
                         std::abs(pixel.blue() - colour.blue()) <
                     30;
        }
    return count;
}

struct Thumbnails : WindowTest {
    QString Folder() const { return MapFile(QStringLiteral("cache")); }
    QStringList Kept() const { return QDir(Folder()).entryList({QStringLiteral("*.png")}, QDir::Files); }

    // A map with a large red node on a yellow ground, and a green one on its second slice.
    QString RedMap(const QString &name) {
        document::MemoryWindow window(desktop.Get());
        window.AddFlow1().Load(1);
        window.TabStrip().SetTabCount(2);
        window.AddFlow1()[0].SetBackColor(support::Rgb(255, 255, 0));
        for (const auto &[slice, colour] :
             {std::pair(0, support::Rgb(255, 0, 0)), std::pair(1, support::Rgb(0, 255, 0))}) {
            diagram::Node &node = window.AddFlow1()[slice].Nodes().Add(50000, 90000, 3000, 2000);
            node.SetFillColor(colour);
        }
        window.clsSettings().SetDatabase(MapFile(name));
        EXPECT_TRUE(document::DoSave(window));
        return MapFile(name);
    }
    std::unique_ptr<ThumbnailSlice> Read(const QString &file, Kind kind = Kind::Map) {
        return ReadForThumbnail(desktop.Get(), {kind, file, kSize, 1});
    }
    static void Write(const QString &path, const QByteArray &bytes) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    void Run(const QString &path, const QString &sql) {
        storage::OpenDatabase(path).Execute(sql, storage::kFailOnError);
    }
    // Has the pictures made; gives each file and whether it got one, in the order in which the maker tells of
    // them.
    std::vector<std::pair<QString, bool>> Made(const std::vector<ThumbnailOrder> &orders) {
        ThumbnailMaker maker(desktop.Get(), Folder());
        const QSignalSpy made(&maker, &ThumbnailMaker::Made);
        for (const ThumbnailOrder &order : orders) maker.Order(order);
        EXPECT_TRUE(QTest::qWaitFor([&] { return maker.IsDone(); }));
        std::vector<std::pair<QString, bool>> told;
        for (const QList<QVariant> &each : made)
            told.emplace_back(each[0].toString(), !each[1].value<QImage>().isNull());
        return told;
    }
};

} // namespace

TEST_F(Thumbnails, ShowTheWholeOfTheFirstSliceOnItsBackground) {
    const std::unique_ptr<ThumbnailSlice> slice = Read(RedMap(QStringLiteral("red.map")));
    ASSERT_TRUE(slice);
    const QImage image = PaintThumbnail(slice->Surface(), kSize);
    EXPECT_EQ(image.size(), kSize);
    EXPECT_EQ(image.pixelColor(2, 2), QColor(255, 255, 0));
    EXPECT_EQ(image.pixelColor(image.rect().center()), QColor(255, 0, 0)) << "it lies far from the corner";
    EXPECT_EQ(Count(image, QColor(0, 255, 0)), 0) << "of the second slice";
}

TEST_F(Thumbnails, AreNotLargerThanTheMapItself) {
    diagram::Surface surface;
    surface.Nodes().Add(0, 0, 300, 300).SetFillColor(support::Rgb(255, 0, 0)); // 20 pixels
    const int plain = Count(PaintThumbnail(surface, kSize), QColor(255, 0, 0));
    EXPECT_GT(plain, 200);
    EXPECT_LT(plain, 420);
    const int fine = Count(PaintThumbnail(surface, kSize * 2, 2), QColor(255, 0, 0));
    EXPECT_GT(fine, 3 * plain) << "a fine screen has more pixels";
}

TEST_F(Thumbnails, OfAnEmptySliceAreItsPaper) {
    diagram::Surface surface;
    surface.SetBackColor(support::Rgb(0, 0, 255));
    EXPECT_EQ(Count(PaintThumbnail(surface, kSize), QColor(0, 0, 255)), kSize.width() * kSize.height());
}

TEST_F(Thumbnails, AMapStaysAsItIs) {
    const QString old = RedMap(QStringLiteral("old.map"));
    Run(old, QStringLiteral("ALTER TABLE [Nodes] DROP COLUMN [Alignment]"));
    ASSERT_TRUE(document::IsOldMap(old));
    const QByteArray before = support::ReadWholeFile(old);
    ASSERT_TRUE(Read(old)) << "a map that lacks a column is shown too";
    EXPECT_EQ(support::ReadWholeFile(old), before);
    EXPECT_TRUE(document::IsOldMap(old));
}

TEST_F(Thumbnails, AMapThatIsBeingWrittenIsShownAllTheSame) {
    const QString path = RedMap(QStringLiteral("busy.map"));
    storage::Database writer = storage::OpenDatabase(path);
    writer.Execute(QStringLiteral("BEGIN EXCLUSIVE"), storage::kFailOnError);
    EXPECT_TRUE(Read(path));
    writer.Execute(QStringLiteral("ROLLBACK"), storage::kFailOnError);
}

TEST_F(Thumbnails, WhatCantBeReadHasNone) {
    const QString cut = RedMap(QStringLiteral("cut.map"));
    QFile file(cut);
    ASSERT_TRUE(file.resize(file.size() / 2));
    EXPECT_FALSE(Read(cut));
    const QString rubbish = MapFile(QStringLiteral("rubbish.map"));
    Write(rubbish, "rubbish");
    EXPECT_FALSE(Read(rubbish));
    EXPECT_FALSE(Read(MapFile(QStringLiteral("gone.map"))));
    EXPECT_FALSE(Read(MapFile(QString()))) << "a folder";
    const QString bare = RedMap(QStringLiteral("bare.map"));
    Run(bare, QStringLiteral("DROP TABLE [Slices]"));
    EXPECT_FALSE(Read(bare));
    const QString without = RedMap(QStringLiteral("without.map"));
    Run(without, QStringLiteral("DELETE FROM [Slices]"));
    EXPECT_FALSE(Read(without));
    EXPECT_TRUE(desktop.Messages().empty());
}

TEST_F(Thumbnails, WhatWouldTakeLongHasNone) {
    EXPECT_FALSE(Read(QStringLiteral("\\\\server\\share\\plan.map")));
    const QString large = RedMap(QStringLiteral("large.map"));
    ASSERT_TRUE(Read(large));
    Run(large, QStringLiteral("CREATE TABLE [Filler] ([Data] BLOB)"));
    Run(large, QStringLiteral("INSERT INTO [Filler] VALUES (zeroblob(6000000))"));
    EXPECT_FALSE(Read(large));
    const QString many = SavedMap(QStringLiteral("many.map"), 2001);
    EXPECT_FALSE(Read(many));
    Run(many, QStringLiteral("DELETE FROM [Nodes] WHERE rowid = (SELECT MIN(rowid) FROM [Nodes])"));
    EXPECT_TRUE(Read(many));
}

TEST_F(Thumbnails, AChangeThatStillWaitsInAJournalIsLeftToTheLoad) {
    const QString path = RedMap(QStringLiteral("waiting.map"));
    const QString journal = path + QStringLiteral("-journal");
    Write(journal, "something");
    EXPECT_FALSE(Read(path));
    EXPECT_TRUE(QFile::exists(journal));
}

TEST_F(Thumbnails, TemplatesHaveThemToo) {
    frmMain &window = NewWindow();
    AddNode(window, 0, 0, QStringLiteral("Idea")).SetFillColor(support::Rgb(255, 0, 0));
    const QString icon = MapFile(QStringLiteral("own.ico"));
    Write(icon, templates::IconFromDrawing(window.CurrentSurface()));
    const QString path = MapFile(QStringLiteral("Idea.TEM"));
    templates::SaveAsTemplate(window, window.CurrentSurface(), icon, path);
    const std::unique_ptr<ThumbnailSlice> slice = Read(path, Kind::Template);
    ASSERT_TRUE(slice);
    EXPECT_GT(Count(PaintThumbnail(slice->Surface(), kSize), QColor(255, 0, 0)), 50);
    EXPECT_FALSE(Read(RedMap(QStringLiteral("no.TEM")), Kind::Template)) << "no template";
}

TEST_F(Thumbnails, AreMadeOneAfterTheOther) {
    const QString red = RedMap(QStringLiteral("red.map")), gone = MapFile(QStringLiteral("gone.map"));
    using Told = std::vector<std::pair<QString, bool>>;
    EXPECT_EQ(Made({{Kind::Map, red, kSize}, {Kind::Map, gone, kSize}, {Kind::Template, red, kSize}}),
              (Told{{red, true}, {gone, false}, {red, true}}))
        << "the third one is the first, kept";
    EXPECT_EQ(Kept().size(), 1);
}

TEST_F(Thumbnails, AreKeptForTheFileAsItIs) {
    const QString path = RedMap(QStringLiteral("red.map"));
    const ThumbnailCache cache(Folder());
    const ThumbnailOrder order{Kind::Map, path, kSize, 1};
    EXPECT_TRUE(cache.Find(order).isNull());
    QImage picture(kSize, QImage::Format_RGB32);
    picture.fill(Qt::magenta);
    cache.Keep(order, picture);
    EXPECT_EQ(cache.Find(order).pixelColor(5, 5), QColor(Qt::magenta));
    EXPECT_TRUE(cache.Find({Kind::Map, path, kSize * 2, 2}).isNull());
    EXPECT_TRUE(cache.Find({Kind::Map, MapFile(QStringLiteral("other.map")), kSize, 1}).isNull());
    Run(path, QStringLiteral("CREATE TABLE [More] ([Data] BLOB)"));
    EXPECT_TRUE(cache.Find(order).isNull()) << "the file has changed";
}

TEST_F(Thumbnails, OthersMayNotLookIntoTheFolder) {
    const QString path = RedMap(QStringLiteral("red.map"));
    Made({{Kind::Map, path, kSize}});
    EXPECT_TRUE(support::platform::IsPrivateFolder(Folder()));
}

TEST_F(Thumbnails, TheOldestGoWhenThereAreMany) {
    const ThumbnailCache cache(Folder());
    ASSERT_TRUE(QDir().mkpath(Folder()));
    for (int kept = 0; kept < 130; ++kept) {
        QFile file(QStringLiteral("%1/%2.png").arg(Folder()).arg(kept));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_TRUE(file.setFileTime(QDateTime(QDate(2024, 1, 1), QTime(0, 0)).addDays(kept),
                                     QFileDevice::FileModificationTime));
    }
    cache.Keep({Kind::Map, MapFile(QStringLiteral("new.map")), kSize, 1},
               QImage(kSize, QImage::Format_RGB32));
    EXPECT_EQ(Kept().size(), 100);
    EXPECT_FALSE(Kept().contains(QStringLiteral("30.png")));
    EXPECT_TRUE(Kept().contains(QStringLiteral("129.png")));
}

TEST_F(Thumbnails, WithoutAFolderNothingIsKept) {
    const ThumbnailCache cache{QString()};
    const ThumbnailOrder order{Kind::Map, RedMap(QStringLiteral("red.map")), kSize, 1};
    cache.Keep(order, QImage(kSize, QImage::Format_RGB32));
    EXPECT_TRUE(cache.Find(order).isNull());
}

} // namespace mainwindow::testing
