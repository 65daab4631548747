#include "output/export/ExportReport.h"

#include "diagram/format/SurfaceFile.h"
#include "diagram/model/Actions.h"
#include "diagram/model/Revision.h"
#include "output/export/ReportNames.h"
#include "settings/GetSet.h"
#include "tests/output/export/ExportTest.h"
#include "timeline/TimelineNodes.h"

#include <gmock/gmock.h>

namespace output {
namespace {

using document::testing::ErrorOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using Reports = output::testing::ExportTest;

constexpr ReportOptions kTextsOnly{true, false, false, false};
constexpr ReportOptions kPicturesOnly{false, false, false, true};

ReportOptions All(ReportOptions options) {
    options.all = true;
    return options;
}

TEST_F(Reports, RichTextHasTheNodesAndThePictureOfOneSlice) {
    AddNode(first, QStringLiteral("Idea"));
    AddNode(AddSlice(QStringLiteral("Two")), QStringLiteral("Other"));
    ASSERT_TRUE(Export(QStringLiteral("a.rtf"), {}));
    EXPECT_THAT(Names(), ElementsAre("a.rtf"));
    const QString rtf = Read(QStringLiteral("a.rtf"));
    EXPECT_TRUE(rtf.contains(QStringLiteral("Idea}")));
    EXPECT_TRUE(rtf.contains(QStringLiteral("Map Picture (One): ")));
    EXPECT_EQ(rtf.count(QStringLiteral("\\emfblip")), 1);
    EXPECT_FALSE(rtf.contains(QStringLiteral("Other}")));
}

TEST_F(Reports, WithoutNodesAReportHoldsThePicturesAlone) {
    AddNode(first, QStringLiteral("Idea"));
    AddSlice(QStringLiteral("Two"));
    ASSERT_TRUE(Export(QStringLiteral("a.rtf"), All(kPicturesOnly)));
    const QString rtf = Read(QStringLiteral("a.rtf"));
    EXPECT_FALSE(rtf.contains(QStringLiteral("Text: ")));
    EXPECT_EQ(rtf.count(QStringLiteral("\\emfblip")), 2);
    EXPECT_EQ(rtf.count(QStringLiteral("\\page\r\n")), 1);
}

TEST_F(Reports, DetailsNeedNodes) {
    AddNode(first, QStringLiteral("Idea"));
    ASSERT_TRUE(Export(QStringLiteral("a.rtf"), {false, true, false, false}));
    EXPECT_FALSE(Read(QStringLiteral("a.rtf")).contains(QStringLiteral("Level: ")));
}

TEST_F(Reports, AHiddenNodeIsLeftOutButCounts) {
    AddNode(first, QStringLiteral("Seen"));
    AddNode(first, QStringLiteral("Unseen")).SetHidden(true);
    ASSERT_TRUE(Export(QStringLiteral("a.htm"), {}));
    EXPECT_TRUE(Read(QStringLiteral("a.htm")).contains(QStringLiteral("Seen")));
    EXPECT_FALSE(Read(QStringLiteral("a.htm")).contains(QStringLiteral("Unseen")));
    const QStringList drawings = Names().filter(QStringLiteral(".svg"));
    ASSERT_EQ(drawings.size(), 1);
    EXPECT_TRUE(Read(drawings[0]).contains(QStringLiteral("Seen")));
    EXPECT_FALSE(Read(drawings[0]).contains(QStringLiteral("Unseen")));
    EXPECT_THAT(progress.nodesTold, ElementsAre(std::pair(0, 2), std::pair(1, 2), std::pair(2, 2)));
}

TEST_F(Reports, ADateIsNoLinkAndTheDayIsNoNode) {
    diagram::Node &node = AddNode(first, QStringLiteral("Idea"));
    timeline::LocateTimelineNode(first, QStringLiteral("17 May 2024"), true, &node);
    ASSERT_TRUE(Export(QStringLiteral("a.htm"), {true, true, false, false}));
    const QString page = Read(QStringLiteral("a.htm"));
    EXPECT_EQ(page.count(QStringLiteral("Date: </span><span class=\"v\">17 May 2024")), 1);
    EXPECT_FALSE(page.contains(QStringLiteral("Links To:")));
    EXPECT_EQ(page.count(QStringLiteral("17 May 2024")), 1);
}

TEST_F(Reports, PagesOfAMapOfThreeSlices) {
    AddNode(first, QStringLiteral("Idea"));
    AddSlice(QStringLiteral("Two & more"));
    AddSlice(QString());
    ASSERT_TRUE(Export(QStringLiteral("my plan.htm"), All(kTextsOnly)));
    EXPECT_THAT(Names(), ElementsAre("my plan.htm", "my plan_-1.htm", "my plan_0.htm", "my plan_1.htm",
                                     "my plan_2.htm"));
    const QString frames = Read(QStringLiteral("my plan.htm"));
    EXPECT_TRUE(frames.contains(QStringLiteral("<frame src=\"my%20plan_-1.htm\"")));
    EXPECT_TRUE(frames.contains(QStringLiteral("<frame src=\"my%20plan_0.htm\" name=\"RHS\"")));
    EXPECT_FALSE(frames.contains(QStringLiteral("%LHS%")) || frames.contains(QStringLiteral("%RHS%")));
    const QString links = Read(QStringLiteral("my plan_-1.htm"));
    EXPECT_TRUE(links.contains(QStringLiteral(
        "<a href=\"my%20plan_1.htm\" id=\"lk2\" target=\"RHS\"><span class=\"v\">Two &amp; more</span>")));
    EXPECT_TRUE(links.contains(
        QStringLiteral("<a href=\"my%20plan_2.htm\" id=\"lk3\" target=\"RHS\"><span class=\"v\">3</span>")));
    EXPECT_FALSE(links.contains(QStringLiteral("</a>"), Qt::CaseInsensitive));
    EXPECT_FALSE(links.mid(links.indexOf(QStringLiteral("<p>"))).contains(u'\n'))
        << "an open link would take it along";
    EXPECT_TRUE(Read(QStringLiteral("my plan_0.htm")).contains(QStringLiteral("Idea")));
}

TEST_F(Reports, OneSliceIsAPageOfItsOwn) {
    AddSlice(QStringLiteral("Two"));
    AddNode(first, QStringLiteral("Idea"));
    ASSERT_TRUE(Export(QStringLiteral("a.htm"), kTextsOnly));
    EXPECT_THAT(Names(), ElementsAre("a.htm"));
    EXPECT_TRUE(Read(QStringLiteral("a.htm")).contains(QStringLiteral("Idea")));
}

TEST_F(Reports, PicturesOfPagesAreCalledByTheIndexAndTwoCharactersOfARandomNumber) {
    AddSlice(QStringLiteral("Two"));
    desktop.random.numbers = {0.7055475, 0.5334240};
    ASSERT_TRUE(Export(QStringLiteral("a.htm"), All(kPicturesOnly)));
    for (const char *name : {"0075_1.svg", "0075_1.png", "0124_1.svg", "0124_1.png"})
        EXPECT_THAT(Names(), Contains(QLatin1String(name)));
    EXPECT_EQ(desktop.random.lastSeed, desktop.clock.Timer());
    EXPECT_TRUE(Read(QStringLiteral("a_1.htm")).contains(QStringLiteral("src=\"0124_1.png\"")));
}

TEST(ReportNames, AnEndingIsTakenToHaveThreeLetters) {
    EXPECT_EQ(PageName(QStringLiteral("/f/plan.htm"), 0), QStringLiteral("/f/plan_0.htm"));
    EXPECT_EQ(PageName(QStringLiteral("/f/plan.html"), -1), QStringLiteral("/f/plan._-1.tml"));
    EXPECT_EQ(PageName(QStringLiteral("ab"), 1), QStringLiteral("_1.ab"));
    EXPECT_TRUE(IsRichText(QStringLiteral("a.RtF")));
    EXPECT_FALSE(IsRichText(QStringLiteral("a.htm")));
}

TEST_F(Reports, FilesThatAreThereAreAskedAboutOnce) {
    AddSlice(QStringLiteral("Two"));
    for (const char *name : {"a.htm", "a_1.htm", "0011_1.svg"}) Make(QLatin1String(name), "old");
    const QString question =
        QStringLiteral("These files are there already:\r\r0011_1.svg\ra_1.htm\r\rReplace them?");
    desktop.random.numbers = {0.11, 0.22};
    desktop.ExpectMessage(question, support::Answer::No);
    EXPECT_FALSE(Export(QStringLiteral("a.htm"), All(kPicturesOnly)));
    for (const char *name : {"a.htm", "a_1.htm", "0011_1.svg"})
        EXPECT_EQ(Read(QLatin1String(name)), QStringLiteral("old"));
    EXPECT_EQ(desktop.Messages().back().enter, support::EnterPresses::No);
    EXPECT_THAT(window->pointers, ElementsAre(document::pointer::kNormal, document::pointer::kHourglass));
    desktop.random.numbers = {0.11, 0.22};
    desktop.ExpectMessage(question, support::Answer::Yes);
    EXPECT_TRUE(Export(QStringLiteral("a.htm"), All(kPicturesOnly)));
    EXPECT_NE(Read(QStringLiteral("a_1.htm")), QStringLiteral("old"));
    EXPECT_NE(Read(QStringLiteral("0011_1.svg")), QStringLiteral("old"));
}

TEST_F(Reports, OfManyFilesThatAreThereTheFirstAreNamed) {
    for (int slice = 1; slice < 14; ++slice) AddSlice(QStringLiteral("More"));
    for (int slice = 0; slice < 14; ++slice) Make(QStringLiteral("a_%1.htm").arg(slice), "old");
    desktop.ExpectMessageContaining(QStringLiteral("a_9.htm\rand 4 more\r\r"), support::Answer::No);
    EXPECT_FALSE(Export(QStringLiteral("a.htm"), All(kTextsOnly)));
}

TEST_F(Reports, ALeftPageThatMayNotBeWrittenIsReplacedAllTheSame) {
    Make(QStringLiteral("a_-1.htm"), "old");
    QFile::setPermissions(Out(QStringLiteral("a_-1.htm")), QFileDevice::ReadOwner);
    desktop.ExpectMessageContaining(QStringLiteral("a_-1.htm"), support::Answer::Yes);
    ASSERT_TRUE(Export(QStringLiteral("a.htm"), All(kTextsOnly)));
    EXPECT_TRUE(Read(QStringLiteral("a_-1.htm")).contains(QStringLiteral("One")));
}

TEST_F(Reports, StepsAreToldInTheirOrder) {
    AddNode(first, QStringLiteral("Idea"));
    AddSlice(QStringLiteral("Two"));
    ASSERT_TRUE(Export(QStringLiteral("a.rtf"), All({})));
    EXPECT_THAT(progress.slicesTold, ElementsAre("One 0/2", "Two 1/2"));
    EXPECT_THAT(progress.steps,
                ElementsAre("Initialising...", "Processing Node (Idea)...", "Inserting picture...",
                            "Saving file...", "Initialising...", "Inserting picture...", "Saving file..."));
}

TEST_F(Reports, GivingUpAtAnyMomentLeavesTheFormerFileAndNoOther) {
    AddNode(first, QStringLiteral("Idea"));
    AddSlice(QStringLiteral("Two"));
    for (const char *name : {"a.rtf", "b.htm"}) {
        Make(QLatin1String(name), "old");
        int given = 0;
        for (progress.questions = 0;; progress.questions = ++given) {
            desktop.random.numbers = {0.11, 0.22};
            if (Export(QLatin1String(name), All({}))) break;
            EXPECT_EQ(Read(QLatin1String(name)), QStringLiteral("old"));
            EXPECT_EQ(Names().size(), name == std::string("a.rtf") ? 1 : 2)
                << Names().join(u' ').toStdString();
        }
        EXPECT_GE(given, 4);
    }
}

TEST_F(Reports, NothingInTheWindowChanges) {
    diagram::Node &node = AddNode(first, QStringLiteral("Idea"));
    node.SetSelected(true);
    AddSlice(QStringLiteral("Two"));
    window->TabStrip().SetTheTab(1);
    window->clsSettings().Dirty = false;
    const QByteArray before = diagram::SaveBytes(first);
    const diagram::Revision revision = first.Actions().Revision();
    ASSERT_TRUE(Export(QStringLiteral("a.htm"), All({})));
    EXPECT_TRUE(diagram::SaveBytes(first) == before);
    EXPECT_TRUE(first.Actions().Revision() == revision);
    EXPECT_TRUE(node.Selected());
    EXPECT_EQ(window->TabStrip().TheTab(), 1);
    EXPECT_FALSE(window->clsSettings().Dirty);
}

TEST_F(Reports, AFolderThatIsGoneOrMayNotBeWrittenIsToldBeforeTheWork) {
    for (const char *name : {"gone/a.rtf", "gone/a.htm"}) {
        const support::Error error = ErrorOf([&] { Export(QLatin1String(name), All({})); });
        EXPECT_EQ(error.Number(), support::kErrPathNotFound) << error.what();
        EXPECT_TRUE(error.Description().contains(QLatin1String(name)));
    }
    EXPECT_THAT(progress.steps, IsEmpty());
    Make(QStringLiteral("fixed.rtf"), "old");
    QFile::setPermissions(Out(QStringLiteral("fixed.rtf")), QFileDevice::ReadOwner);
    EXPECT_EQ(ErrorOf([&] { Export(QStringLiteral("fixed.rtf"), {}); }).Number(),
              support::kErrPathFileAccess);
}

// The folder goes while the second slice is written.
TEST_F(Reports, AFolderThatGoesInTheMiddleIsAnError) {
    class Remover : public output::testing::NotedProgress {
    public:
        explicit Remover(const QString &folder) : folder_(folder) {}
        void Slice(const QString &, int done, int) override {
            if (done == 1) QDir(folder_).removeRecursively();
        }

    private:
        QString folder_;
    };
    AddSlice(QStringLiteral("Two"));
    for (const char *name : {"a.rtf", "a.htm"}) {
        const QString folder = Out(QStringLiteral("sub"));
        QDir().mkpath(folder);
        Remover remover(folder);
        ReportOptions options;
        options.all = true;
        options.html = QString::fromLatin1(name).endsWith(QStringLiteral("htm"));
        EXPECT_NE(ErrorOf([&] {
                      ExportReport(*window, first, folder + u'/' + QLatin1String(name), options, remover);
                  }).Number(),
                  0);
        EXPECT_FALSE(QDir(folder).exists());
    }
}

TEST_F(Reports, AFramesetThatIsMissingIsToldBeforeTheWork) {
    QFile::remove(ProgramFile(QStringLiteral("Default.htm")));
    EXPECT_EQ(ErrorOf([&] { Export(QStringLiteral("a.htm"), All({})); }).Number(), support::kErrFileNotFound);
    EXPECT_THAT(progress.steps, IsEmpty());
    EXPECT_THAT(Names(), IsEmpty());
    EXPECT_TRUE(Export(QStringLiteral("a.htm"), kTextsOnly)) << "a page alone needs none";
}

TEST_F(Reports, SlicesWithOneNameOrNoneAndWithoutNodesAreWritten) {
    window->TabStrip().SetCaption(QStringLiteral("a/b\\c:*?\"<>|"));
    AddSlice(QStringLiteral("a/b\\c:*?\"<>|"));
    AddSlice(QString());
    ASSERT_TRUE(Export(QStringLiteral("a.htm"), All({})));
    EXPECT_EQ(Read(QStringLiteral("a_-1.htm")).count(QStringLiteral("a/b\\c:*?&quot;&lt;&gt;|</span>")), 2);
    ASSERT_TRUE(Export(QStringLiteral("a.rtf"), All({})));
    EXPECT_EQ(Read(QStringLiteral("a.rtf")).count(QStringLiteral("\\emfblip")), 3);
}

TEST_F(Reports, ADamagedPictureInTheMapIsNoObstacle) {
    QByteArray bytes = document::testing::OneColour(qRgb(1, 2, 3), 40).Bytes();
    AddNode(first, QStringLiteral("Idea"))
        .SetPicture(diagram::Picture::FromBytes(bytes.left(bytes.size() * 3 / 4)));
    EXPECT_TRUE(Export(QStringLiteral("a.htm"), {}));
    EXPECT_TRUE(Export(QStringLiteral("a.rtf"), {}));
}

TEST_F(Reports, TheDocumentSaysWhichFilterWasOnAndWhenItWasMade) {
    window->clsSettings().Levels().Clear();
    window->clsSettings().Groups().Clear();
    window->clsSettings().Levels().Create(QStringLiteral("Goal"), true, 0);
    window->clsSettings().Groups().Create(QStringLiteral("Staff"), false);
    ASSERT_TRUE(Export(QStringLiteral("a.htm"), kTextsOnly));
    ASSERT_TRUE(Export(QStringLiteral("a.rtf"), kTextsOnly));
    const QString filter = QStringLiteral("Levels: Goal. Groups: none.");
    EXPECT_TRUE(Read(QStringLiteral("a.htm")).contains(QStringLiteral("content=\"") + filter));
    EXPECT_TRUE(Read(QStringLiteral("a.htm")).contains(QStringLiteral("2024-05-17T10:30")));
    EXPECT_TRUE(Read(QStringLiteral("a.rtf")).contains(QStringLiteral("{\\doccomm ") + filter));
    EXPECT_TRUE(Read(QStringLiteral("a.rtf")).contains(QStringLiteral("{\\creatim\\yr2024\\mo5\\dy17")));
}

TEST_F(Reports, OptionsAreRememberedAndTheFormGoesByTheName) {
    const ReportOptions usual = LastReportOptions(QStringLiteral("a.htm"));
    EXPECT_TRUE(usual.nodes && usual.details && usual.map && usual.html);
    EXPECT_FALSE(usual.all);
    RememberReportOptions({false, false, true, false, true});
    const ReportOptions again = LastReportOptions(QStringLiteral("a.rtf"));
    EXPECT_EQ(again, (ReportOptions{false, false, true, false, false}));
}

} // namespace
} // namespace output
