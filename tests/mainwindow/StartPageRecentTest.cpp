// Which maps the start page lists, and how it tells of their last change.
#include "mainwindow/start/RecentMaps.h"
#include "settings/clsMRU.h"
#include "tests/mainwindow/WindowTest.h"

#include <QFile>

namespace mainwindow::testing {

namespace {

const QLocale kEnglish(QLocale::English, QLocale::UnitedKingdom);
const QDateTime kNow(QDate(2024, 5, 17), QTime(10, 30));

QString When(const QDate &date, const QTime &time = QTime(14, 3)) {
    return WhenText(QDateTime(date, time), kNow, kEnglish);
}

struct StartPageRecent : WindowTest {
    settings::clsMRU list{desktop.registry};

    QString Listed(const QString &name) {
        const QString path = MapFile(name);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_TRUE(
            file.setFileTime(QDateTime(QDate(2024, 5, 17), QTime(9, 5)), QFileDevice::FileModificationTime));
        list.AddFile(path);
        return path;
    }
    std::vector<RecentMap> Maps(int most = 8) { return RecentMaps(list, most, kNow, kEnglish); }
};

} // namespace

TEST(StartPageWhen, IsToldAsOneSaysIt) {
    EXPECT_EQ(When({2024, 5, 17}), QStringLiteral("today 14:03"));
    EXPECT_EQ(When({2024, 5, 17}, QTime(0, 0)), QStringLiteral("today 00:00"));
    EXPECT_EQ(WhenText(QDateTime(kNow.date(), QTime(9, 5, 7)), kNow, QLocale::c()),
              QStringLiteral("today 09:05"));
    EXPECT_EQ(When({2024, 5, 16}, QTime(23, 59)), QStringLiteral("yesterday"));
    EXPECT_EQ(When({2024, 5, 15}), QStringLiteral("15 May 2024"));
    EXPECT_EQ(When({2023, 12, 1}), QStringLiteral("1 Dec 2023"));
    EXPECT_EQ(When({2024, 5, 18}), QStringLiteral("18 May 2024")) << "of a clock that goes wrong";
}

TEST_F(StartPageRecent, NothingWasOpenedYet) { EXPECT_TRUE(Maps().empty()); }

TEST_F(StartPageRecent, AMapHasItsNameItsFolderAndItsTime) {
    const QString path = Listed(QStringLiteral("My plan.v2.map"));
    const std::vector<RecentMap> maps = Maps();
    ASSERT_EQ(maps.size(), 1u);
    EXPECT_EQ(maps[0].path, path);
    EXPECT_EQ(maps[0].name, QStringLiteral("My plan.v2"));
    EXPECT_EQ(maps[0].folder + QStringLiteral("/My plan.v2.map"), path);
    EXPECT_EQ(maps[0].when, QStringLiteral("today 09:05"));
    EXPECT_EQ(maps[0].state, RecentMap::State::There);
}

TEST_F(StartPageRecent, TheLastOneComesFirst) {
    const QString one = Listed(QStringLiteral("one.map")), two = Listed(QStringLiteral("two.map"));
    ASSERT_EQ(Maps().size(), 2u);
    EXPECT_EQ(Maps()[0].path, two);
    list.AddFile(one);
    EXPECT_EQ(Maps()[0].path, one);
    EXPECT_EQ(Maps().size(), 2u);
}

TEST_F(StartPageRecent, OfTenAsManyAsAreAskedFor) {
    for (int map = 0; map < 10; ++map) Listed(QStringLiteral("%1.map").arg(map));
    EXPECT_EQ(Maps(8).size(), 8u);
    EXPECT_EQ(Maps(8)[7].name, QStringLiteral("2"));
    EXPECT_EQ(Maps(12).size(), 10u);
}

TEST_F(StartPageRecent, AFileThatIsGoneIsListedAsSuch) {
    const QString path = Listed(QStringLiteral("gone.map"));
    QFile::remove(path);
    ASSERT_EQ(Maps().size(), 1u);
    EXPECT_EQ(Maps()[0].state, RecentMap::State::Gone);
    EXPECT_EQ(Maps()[0].name, QStringLiteral("gone"));
    EXPECT_TRUE(Maps()[0].when.isEmpty());
}

TEST_F(StartPageRecent, NobodyLooksOnAnotherMachine) {
    list.AddFile(QStringLiteral("\\\\server\\share\\plan.map"));
    ASSERT_EQ(Maps().size(), 1u);
    EXPECT_EQ(Maps()[0].state, RecentMap::State::OnNetwork);
    EXPECT_EQ(Maps()[0].name, QStringLiteral("plan"));
}

TEST_F(StartPageRecent, ARemovedFileLeavesTheOthersInTheirOrder) {
    const QString one = Listed(QStringLiteral("1.map"));
    const QString two = Listed(QStringLiteral("2.map"));
    const QString three = Listed(QStringLiteral("3.map"));
    list.RemoveFile(two);
    ASSERT_EQ(Maps().size(), 2u);
    EXPECT_EQ(Maps()[0].path, three);
    EXPECT_EQ(Maps()[1].path, one);
    list.RemoveFile(MapFile(QStringLiteral("other.map")));
    EXPECT_EQ(Maps().size(), 2u);
    const QString four = Listed(QStringLiteral("4.map"));
    EXPECT_EQ(list.File2(u'b'), four) << "the slot is free again";
    EXPECT_EQ(Maps()[0].path, four);
    EXPECT_EQ(Maps().size(), 3u);
}

} // namespace mainwindow::testing
