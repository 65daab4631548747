// Slices as the pages of a PDF file.
#include "tests/cli/CliTest.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>

namespace {

// What "pdfinfo", or "pdftotext" of a file, says.
QString Ask(const QString &program, const QStringList &arguments) {
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished() && process.exitCode() == 0) << qPrintable(program);
    return QString::fromUtf8(process.readAllStandardOutput()).simplified();
}

struct PrintTest : cli::testing::CliTest {};

} // namespace

TEST_F(PrintTest, WritesThePagesOfASliceOrOfAll) {
    const QString map = Map("plan.map"), pdf = Path("plan.pdf");
    ASSERT_EQ(Run({"print", map, "--to", pdf, "--slice", "3", "--fit", "--header", "&[Title] R&d", "--footer",
                   "&[Slice] &[Page]/&[Pages]"}),
              cli::kGood)
        << err.toStdString();
    EXPECT_TRUE(out.startsWith(QStringLiteral("1 page went to "))) << out.toStdString();
    const QString text = Ask("pdftotext", {pdf, "-"});
    EXPECT_TRUE(text.contains(QStringLiteral("plan R&d")));
    EXPECT_TRUE(text.contains(QStringLiteral("Roadmap 1/1")));
    ASSERT_EQ(Run({"print", map, "--to", pdf, "--all", "--fit", "--landscape"}), cli::kGood);
    const QString info = Ask("pdfinfo", {pdf});
    EXPECT_TRUE(info.contains(QStringLiteral("Pages: 3"))) << info.toStdString();
    EXPECT_TRUE(info.contains(QRegularExpression(QStringLiteral("Page size: (842|841\\.\\d+|792) x "))));
    ASSERT_EQ(Run({"print", map, "--to", pdf, "--all"}), cli::kGood);
    EXPECT_TRUE(out.startsWith(QStringLiteral("6 pages went to ")));
    const auto words = [&](const QStringList &filter) {
        EXPECT_EQ(Run(QStringList{"print", map, "--to", pdf, "--fit"} + filter), cli::kGood)
            << err.toStdString();
        return Ask("pdftotext", {pdf, "-"});
    };
    EXPECT_LT(words({"--filter-groups", "Finance"}).size(), words({}).size());
}

TEST_F(PrintTest, FailsForASliceThatIsNotThereAndLeavesTheFile) {
    const QString map = Map("plan.map"), pdf = Path("plan.pdf");
    EXPECT_EQ(Run({"print", map, "--to", pdf, "--slice", "9"}), cli::kFailed);
    EXPECT_TRUE(err.contains(QStringLiteral("Slice 9 does not exist; the map has 3")));
    EXPECT_FALSE(QFile::exists(pdf));
    EXPECT_EQ(Run({"print", map, "--to", Path("missing/plan.pdf")}), cli::kFailed);
    EXPECT_EQ(err.count(QLatin1Char('\n')), 1);
}
