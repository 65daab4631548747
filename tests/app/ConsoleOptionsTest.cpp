#include "app/ConsoleOptions.h"

#include <gtest/gtest.h>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace app {

namespace {

QStringList Line(const QStringList &arguments) { return QStringList(QStringLiteral("velmora")) + arguments; }

} // namespace

TEST(ConsoleOptions, HelpAndVersionAreAnswered) {
    for (const auto *option : {"--help", "-h"}) {
        const auto answer = AnswerToOption(Line({QLatin1String(option)}));
        ASSERT_TRUE(answer) << option;
        EXPECT_FALSE(answer->isComplaint);
        for (const auto *word : {"Usage: velmora [MAP]", "--help", "--version", "velmora-cli"})
            EXPECT_TRUE(answer->text.contains(QLatin1String(word))) << word;
        EXPECT_TRUE(answer->text.endsWith(u'\n'));
    }
    const auto version = AnswerToOption(Line({QStringLiteral("--version")}));
    ASSERT_TRUE(version);
    EXPECT_TRUE(version->text.startsWith(QStringLiteral("velmora 1.")));
}

TEST(ConsoleOptions, AMapOrNothingIsNoQuestion) {
    for (const QStringList &line : {Line({}), Line({QStringLiteral("plan.map")}), Line({QString()}),
                                    Line({QStringLiteral("my plan"), QStringLiteral("--help")})}) {
        EXPECT_FALSE(AnswerToOption(line));
        EXPECT_FALSE(ComplaintAboutOption(line));
    }
}

TEST(ConsoleOptions, AnUnknownOptionIsToldWithItsName) {
    const auto complaint = ComplaintAboutOption(Line({QStringLiteral("--halp")}));
    ASSERT_TRUE(complaint);
    EXPECT_TRUE(complaint->isComplaint);
    EXPECT_EQ(complaint->text, QStringLiteral("velmora: there is no option --halp. See velmora --help.\n"));
    EXPECT_FALSE(ComplaintAboutOption(Line({QStringLiteral("-")})));
}

TEST(ConsoleOptions, AFileWhoseNameLooksLikeAnOptionIsAFile) {
    const QTemporaryDir folder;
    const QString before = QDir::currentPath();
    QDir::setCurrent(folder.path());
    ASSERT_TRUE(QFile(QStringLiteral("-my plan.map")).open(QIODevice::WriteOnly));
    EXPECT_FALSE(ComplaintAboutOption(Line({QStringLiteral("-my"), QStringLiteral("plan.map")})));
    EXPECT_TRUE(ComplaintAboutOption(Line({QStringLiteral("-my")})));
    QDir::setCurrent(before);
}

} // namespace app
