// Pictures of slices.
#include "support/AtomicFile.h"
#include "support/Files.h"
#include "tests/cli/CliTest.h"

#include <QColor>
#include <QDir>
#include <QImage>

namespace {

using cli::testing::kPlan;

struct PictureTest : cli::testing::CliTest {};

} // namespace

TEST_F(PictureTest, HasTheScaleResolutionAndBackgroundAskedFor) {
    const QString map = Map("plan.map");
    const auto picture = [&](const QStringList &options) {
        EXPECT_EQ(Run(QStringList{"picture", map, Path("a.png")} + options), cli::kGood) << err.toStdString();
        return QImage(Path("a.png"));
    };
    const QImage usual = picture({}), half = picture({"--scale", "50"}),
                 fine = picture({"--dpi", "192", "--background", "transparent"});
    EXPECT_NEAR(half.width(), usual.width() / 2.0, 1);
    EXPECT_NEAR(fine.height(), usual.height() * 2.0, 2);
    EXPECT_NEAR(fine.dotsPerMeterX() * 0.0254, 192, 0.02);
    EXPECT_EQ(fine.pixelColor(0, 0).alpha(), 0);
    EXPECT_FALSE(usual.hasAlphaChannel());
    EXPECT_EQ(picture({"--background", "white", "--pixels", "300"}).pixelColor(0, 0), QColor(Qt::white));
    EXPECT_EQ(Run({"picture", map, "--all", Path("all"), "--scale", "20"}), cli::kGood);
    for (const QStringList &wrong : {QStringList{"--scale", "0"}, {"--dpi", "x"}, {"--background", "red"}})
        EXPECT_EQ(Run(QStringList{"picture", map, Path("a.png")} + wrong), cli::kUsage);
    EXPECT_TRUE(err.contains(QStringLiteral("shown, white, transparent")));
}

TEST_F(PictureTest, RefusesAnUnknownEndingBeforeItLoads) {
    EXPECT_EQ(Run({"picture", Path("missing.map"), Path("x.doc")}), cli::kFailed);
    EXPECT_TRUE(err.contains(QStringLiteral("Unknown kind of picture"))) << err.toStdString();
}

TEST_F(PictureTest, WritesOneSliceInEachForm) {
    const QString map = Map("plan.map");
    EXPECT_EQ(Run({"picture", map, "--slice", "2", "--pixels", "500", Path("two.png")}), cli::kGood)
        << err.toStdString();
    const QImage image(Path("two.png"));
    EXPECT_EQ(std::max(image.width(), image.height()), 500);
    EXPECT_EQ(Run({"picture", map, Path("one.svg")}), cli::kGood) << err.toStdString();
    EXPECT_TRUE(support::ReadWholeFile(Path("one.svg")).contains("<svg"));
    EXPECT_EQ(Run({"picture", map, Path("one.wmf")}), cli::kGood) << err.toStdString();
    EXPECT_TRUE(support::ReadWholeFile(Path("one.wmf")).startsWith("\xD7\xCD\xC6\x9A"));
    EXPECT_EQ(Run({"picture", map, Path("one.emf")}), cli::kGood) << err.toStdString();
    EXPECT_EQ(support::ReadWholeFile(Path("one.emf")).mid(40, 4), " EMF");
    EXPECT_EQ(Run({"picture", map, Path("one.pdf")}), cli::kGood) << err.toStdString();
    EXPECT_TRUE(support::ReadWholeFile(Path("one.pdf")).startsWith("%PDF"));
}

TEST_F(PictureTest, OfAMissingSliceOrFormIsAnError) {
    const QString map = Map("plan.map");
    EXPECT_EQ(Run({"picture", map, "--slice", "4", Path("x.png")}), cli::kFailed);
    EXPECT_TRUE(err.contains(QStringLiteral("the map has 3")));
    EXPECT_EQ(Run({"picture", map, Path("x.doc")}), cli::kFailed);
    EXPECT_FALSE(support::FileExists(Path("x.doc")));
}

TEST_F(PictureTest, OfAllSlicesNamesThemAfterTheirTabs) {
    EXPECT_EQ(Run({"picture", kPlan, "--all", Path("pictures"), "--format", "svg"}), cli::kGood)
        << err.toStdString();
    const QStringList files = QDir(Path("pictures")).entryList(QDir::Files);
    ASSERT_EQ(files.size(), 3);
    EXPECT_EQ(files[2], "03-Roadmap.svg");
}
