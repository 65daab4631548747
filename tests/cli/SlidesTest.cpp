// Presentations from the command line.
#include "support/AtomicFile.h"
#include "support/Files.h"
#include "tests/cli/CliTest.h"
#include "tests/Paths.h"

#include <QDir>
#include <QProcess>

namespace {

// The map has three slices.
const QString kPlan = tests::Data(QStringLiteral("map/plan.map"));

class SlidesTest : public cli::testing::CliTest {
protected:
    int Run(const QStringList &arguments) { return CliTest::Run(QStringList{"slides"} + arguments); }
    // A name that stands in the directory of the zip file.
    bool Holds(const char *file, const char *part) {
        return support::ReadWholeFile(Path(file)).contains(part);
    }
};

} // namespace

TEST_F(SlidesTest, WritesTheFirstSliceOrTheOneNamedOrAll) {
    EXPECT_EQ(Run({kPlan, Path("one.pptx")}), cli::kGood) << err.toStdString();
    EXPECT_FALSE(Holds("one.pptx", "slide2.xml"));
    EXPECT_EQ(Run({kPlan, Path("third.pptx"), "--slice", "3"}), cli::kGood) << err.toStdString();
    EXPECT_FALSE(Holds("third.pptx", "slide2.xml"));
    EXPECT_NE(support::ReadWholeFile(Path("third.pptx")), support::ReadWholeFile(Path("one.pptx")));
    EXPECT_EQ(Run({kPlan, Path("all.pptx"), "--all", "--title"}), cli::kGood) << err.toStdString();
    EXPECT_TRUE(Holds("all.pptx", "ppt/slides/slide3.xml"));
    EXPECT_TRUE(Holds("all.pptx", "ppt/media/"));
}

TEST_F(SlidesTest, WritesShapesAndTheBinaryForm) {
    EXPECT_EQ(Run({kPlan, Path("shapes.pptx"), "--slice", "3", "--shapes"}), cli::kGood) << err.toStdString();
    EXPECT_FALSE(Holds("shapes.pptx", "ppt/media/"));
    EXPECT_EQ(Run({kPlan, Path("old.PPT"), "--all"}), cli::kGood) << err.toStdString();
    EXPECT_TRUE(support::ReadWholeFile(Path("old.PPT")).startsWith("\xD0\xCF\x11\xE0"));
}

TEST_F(SlidesTest, LeavesOutWhatTheFilterHides) {
    EXPECT_EQ(Run({kPlan, Path("whole.ppt"), "--all"}), cli::kGood);
    EXPECT_EQ(Run({kPlan, Path("less.ppt"), "--all", "--filter-levels", "1"}), cli::kGood)
        << err.toStdString();
    EXPECT_LT(support::ReadWholeFile(Path("less.ppt")).size(),
              support::ReadWholeFile(Path("whole.ppt")).size());
    EXPECT_TRUE(support::ReadWholeFile(Path("less.ppt")).contains("Levels: 1"));
    EXPECT_EQ(Run({kPlan, Path("no.ppt"), "--filter-levels", "unknown"}), cli::kFailed);
    EXPECT_FALSE(support::FileExists(Path("no.ppt")));
}

TEST_F(SlidesTest, RefusesWhatItDoesNotUnderstand) {
    EXPECT_EQ(Run({kPlan}), cli::kUsage);
    EXPECT_EQ(Run({kPlan, Path("a.pptx"), "--slice", "0"}), cli::kUsage);
    EXPECT_EQ(Run({kPlan, Path("a.pptx"), "--slice", "x"}), cli::kUsage);
    EXPECT_EQ(Run({kPlan, Path("a.pptx"), "--slice", "40000"}), cli::kUsage);
    EXPECT_EQ(Run({kPlan, Path("a.pptx"), "--slice", "1", "--all"}), cli::kUsage);
    EXPECT_EQ(Run({kPlan, Path("a.pptx"), "--wrong"}), cli::kUsage);
    EXPECT_EQ(Run({kPlan, Path("a.pptx"), "--slice", "4"}), cli::kFailed);
    EXPECT_TRUE(err.contains("Slice 4 does not exist; the map has 3")) << err.toStdString();
    EXPECT_EQ(Run({kPlan, Path("a.odp")}), cli::kFailed);
    EXPECT_TRUE(err.contains("Unknown kind of presentation"));
    EXPECT_FALSE(support::FileExists(Path("a.pptx")));
}

TEST_F(SlidesTest, ErrorsNameTheFile) {
    EXPECT_EQ(Run({Path("missing.map"), Path("a.pptx")}), cli::kFailed);
    EXPECT_EQ(Run({kPlan, Path("nowhere/a.pptx")}), cli::kFailed);
    EXPECT_TRUE(err.contains("nowhere")) << err.toStdString();
}
