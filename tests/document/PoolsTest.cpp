#include "tests/document/MapTest.h"

#include "document/TemplateFile.h"
#include "support/clsGUID.h"

#include <QFile>

using namespace document;
using namespace document::testing;

class PoolsTest : public MapTest {};

TEST_F(PoolsTest, ANewWindowHasTheLevelsAndGroupsOfTheTemplate) {
    const auto window = NewWindow();
    cLevels &levels = window->clsSettings().Levels();
    ASSERT_EQ(levels.count(), 4);
    EXPECT_EQ(levels.Item(1).LevelName, "1");
    EXPECT_TRUE(levels.Item(1).Selected);
    EXPECT_EQ(levels.Item(2).Color, 0x222222);
    EXPECT_EQ(levels.FirstSelectedLevel(), &levels.Item(1));
    ASSERT_EQ(window->clsSettings().Groups().count(), 2);
    EXPECT_EQ(window->clsSettings().Groups().FirstSelectedGroup()->GroupName, "Sales");
}

TEST_F(PoolsTest, AMissingTemplateIsAnErrorOfTheWindow) {
    QFile::remove(TemplatePath());
    const support::Error error = ErrorOf([&] { NewWindow(); });
    EXPECT_EQ(error.Number(), storage::kErrFileNotFound);
    EXPECT_TRUE(error.Source().contains(QStringLiteral("LoadDefaults")));
}

TEST_F(PoolsTest, NamesAndKeysTranslateBothWaysAndLeaveOutWhatIsUnknown) {
    cGroups groups;
    const QString a = groups.Create(QStringLiteral("A"), false).Key;
    const QString b = groups.Create(QStringLiteral("B"), false).Key;
    EXPECT_EQ(groups.GroupNameForKey(b + ",{unknown}," + a), "B,A");
    EXPECT_EQ(groups.KeyForGroupName(QStringLiteral("A,nobody,B")), a + "," + b);
    EXPECT_EQ(groups.GroupNameForKey(QString()), "");
    EXPECT_EQ(groups.KeyForGroupName(QString()), "");
    EXPECT_EQ(groups.FirstSelectedGroup(), nullptr);
}

TEST_F(PoolsTest, LevelNamesThatDifferInCaseAreDifferentLevels) {
    cLevels levels;
    const QString upper = levels.Create(QStringLiteral("HIGH"), false, 1).Key;
    const QString lower = levels.Create(QStringLiteral("high"), false, 2).Key;
    EXPECT_EQ(levels.KeyForLevelName(QStringLiteral("high")), lower);
    EXPECT_EQ(levels.KeyForLevelName(QStringLiteral("HIGH")), upper);
    EXPECT_EQ(levels.KeyForLevelName(QStringLiteral("High")), "");
    EXPECT_EQ(levels.LevelNameForKey(lower), "high");
    EXPECT_EQ(levels.LevelNameForKey(QString()), "");
}

TEST_F(PoolsTest, AddMakesAKeyForAnEmptyOneAndRefusesATakenOne) {
    cHyperlinks links;
    QString empty, given = QStringLiteral("node");
    cHyperlink &first = links.add(empty);
    EXPECT_TRUE(support::CheckGUID(empty));
    EXPECT_EQ(first.Key, empty);
    const cHyperlink &second = links.add(given);
    EXPECT_EQ(&second, &links.Item(QStringLiteral("node")));
    EXPECT_EQ(ErrorOf([&] { links.add(given); }).Number(), support::kErrKeyInUse);
    EXPECT_EQ(links.count(), 2);
}

TEST_F(PoolsTest, ItemsKeepTheOrderOfAddingAndUnknownOnesAreErrors) {
    cAttachments attachments;
    QString a = QStringLiteral("a"), b = QStringLiteral("b"), c = QStringLiteral("c");
    for (QString *key : {&c, &a, &b}) attachments.add(*key);
    attachments.Remove(QStringLiteral("a"));
    QString order;
    for (const cAttachment &attachment : attachments.NewEnum()) order += attachment.Key;
    EXPECT_EQ(order, "cb");
    EXPECT_EQ(attachments.Item(2).Key, "b");
    EXPECT_EQ(ErrorOf([&] { attachments.Item(QStringLiteral("a")); }).Number(), 5);
    EXPECT_EQ(ErrorOf([&] { attachments.Remove(QStringLiteral("a")); }).Number(), 5);
    EXPECT_EQ(ErrorOf([&] { attachments.Item(3); }).Number(), 9);
    EXPECT_EQ(ErrorOf([&] { attachments.Remove(0); }).Number(), 9);
    attachments.Remove(1);
    attachments.Clear();
    EXPECT_EQ(attachments.count(), 0);
    EXPECT_EQ(attachments.add(a).Key, "a");
}

TEST_F(PoolsTest, DatabaseKeepsTheLongFormOfThePath) {
    const auto window = NewWindow();
    window->clsSettings().SetDatabase(MapFile(QStringLiteral("x/../plan.map")));
    EXPECT_EQ(window->clsSettings().Database(), MapFile(QStringLiteral("plan.map")));
    EXPECT_FALSE(window->clsSettings().Dirty);
}
