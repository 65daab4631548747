#include "output/powerpoint/CreatePowerpoint.h"

#include "output/powerpoint/Slide.h"
#include "tests/output/powerpoint/PptxTest.h"

#include <QFile>

namespace powerpoint::testing {

namespace {

int SlideCount(const Parts &parts) {
    int count = 0;
    while (parts.contains(SlideName(count + 1))) ++count;
    return count;
}

QString TitleOf(const Parts &parts, int number) {
    pugi::xml_document slide;
    slide.load_buffer(parts.at(SlideName(number)).constData(),
                      std::size_t(parts.at(SlideName(number)).size()));
    return TextsAt(slide, "//p:sp[p:nvSpPr/p:nvPr/p:ph[@type='title']]//a:t").join(u'|');
}

} // namespace

TEST_F(PptxTest, ThreeSlicesGiveThreeSlidesInTheOrderOfTheArray) {
    AddSlice(QStringLiteral("Second")), AddSlice(QStringLiteral("Third"));
    AddNode(0, 0, QStringLiteral("one"), 0), AddNode(0, 0, QStringLiteral("two"), 1);
    window->TabStrip().SetTheTab(2);
    const Parts made = Made(kAllTitled);
    EXPECT_EQ(SlideCount(made), 3);
    EXPECT_EQ(TitleOf(made, 1), "First");
    EXPECT_EQ(TitleOf(made, 2), "Second");
    EXPECT_EQ(TitleOf(made, 3), "Third");
}

TEST_F(PptxTest, TheCurrentSliceAloneIsThatOfTheSelectedTab) {
    AddSlice(QStringLiteral("Second"));
    window->TabStrip().SetTheTab(1);
    const Parts made = Made({kLayoutTitle, true, false});
    EXPECT_EQ(SlideCount(made), 1);
    EXPECT_EQ(TitleOf(made, 1), "Second");
}

TEST_F(PptxTest, ASlideWithoutTitleHasNoTextAndThePictureFillsItLess20) {
    AddNode(0, 0, QStringLiteral("wide")).SetBounds(0, 0, 15000, 3000);
    const pugi::xml_document &slide = Part(kAllBlank);
    EXPECT_TRUE(TextsAt(slide, "//a:t").isEmpty());
    EXPECT_TRUE(TextsAt(slide, "//p:sp").isEmpty());
    EXPECT_EQ(TextsAt(slide, "//p:pic/p:spPr/a:xfrm/a:off/@x"), QStringList("0"));
    EXPECT_EQ(TextsAt(slide, "//p:pic/p:spPr/a:xfrm/a:off/@y"), QStringList("0"));
    EXPECT_EQ(TextsAt(slide, "//p:pic/p:spPr/a:xfrm/a:ext/@cx"), QStringList("11938000")); // 940 points
}

TEST_F(PptxTest, ATitleIsAPlaceholderAndThePictureStandsBelowIt) {
    AddNode(0, 0, QStringLiteral("wide")).SetBounds(0, 0, 15000, 3000);
    const pugi::xml_document &slide = Part(kAllTitled);
    EXPECT_EQ(TextsAt(slide, "//p:ph/@type"), QStringList("title"));
    EXPECT_EQ(TextsAt(slide, "//p:pic/p:spPr/a:xfrm/a:off/@x"), QStringList("838200"));
    EXPECT_EQ(TextsAt(slide, "//p:pic/p:spPr/a:xfrm/a:off/@y"), QStringList("2079625"));
    EXPECT_EQ(TextsAt(slide, "//p:pic/p:spPr/a:xfrm/a:ext/@cx"), QStringList("10261600")); // 808 points
    EXPECT_TRUE(parts["ppt/slides/_rels/slide1.xml.rels"].contains("slideLayout1.xml"));
}

TEST_F(PptxTest, NoScratchFileIsLeft) {
    AddSlice(QStringLiteral("Second"));
    AddNode(0, 0, QStringLiteral("idea"));
    const QStringList before = QDir(TempFolder()).entryList(QDir::Files | QDir::Hidden);
    EXPECT_TRUE(Create(kAllBlank, [&](int, int) {
        EXPECT_EQ(QDir(TempFolder()).entryList(QDir::Files | QDir::Hidden), before);
        return true;
    }));
    EXPECT_EQ(QDir(TempFolder()).entryList(QDir::Files | QDir::Hidden), before);
    EXPECT_EQ(MapFiles(), QStringList("out.pptx"));
}

TEST_F(PptxTest, AFileThatIsThereIsReplacedUnasked) {
    QFile former(Target());
    ASSERT_TRUE(former.open(QIODevice::WriteOnly));
    former.write("former");
    former.close();
    EXPECT_EQ(SlideCount(Made(kAllBlank)), 1);
    EXPECT_TRUE(desktop.Messages().empty());
}

TEST_F(PptxTest, GivingUpLeavesTheFormerFile) {
    AddSlice(QStringLiteral("Second"));
    ASSERT_TRUE(Create(kAllBlank));
    const QByteArray former = support::ReadWholeFile(Target());
    AddNode(0, 0, QStringLiteral("new"));
    std::vector<std::pair<int, int>> asked;
    EXPECT_FALSE(Create(kAllBlank, [&](int done, int all) { return asked.emplace_back(done, all), false; }));
    EXPECT_EQ(asked, (std::vector<std::pair<int, int>>{{1, 2}}));
    EXPECT_EQ(support::ReadWholeFile(Target()), former);
    EXPECT_EQ(MapFiles(), QStringList("out.pptx"));
}

TEST_F(PptxTest, AFailedWriteIsReportedWithTheRoutinesName) {
    const QString missing = MapFile(QStringLiteral("nowhere/out.pptx"));
    desktop.ExpectMessageContaining(QStringLiteral("(Error #76)"));
    EXPECT_FALSE(CreatePowerpoint(missing, *window, kAllBlank));
    ASSERT_EQ(desktop.Messages().size(), 1u);
    EXPECT_EQ(desktop.Messages()[0].title, "Error in frmPowerPoint: Sub CreatePowerpoint");
    EXPECT_FALSE(QFile::exists(missing));
}

TEST_F(PptxTest, AFolderIsNoTarget) {
    QDir().mkpath(Target());
    desktop.ExpectMessageContaining(QStringLiteral("(Error #75)"));
    EXPECT_FALSE(Create(kAllBlank));
}

TEST_F(PptxTest, FailuresWhileSlidesAreMadeHaveTheirOwnWords) {
    desktop.ExpectMessageContaining(QStringLiteral("no more"));
    EXPECT_FALSE(Create(kAllBlank, [](int, int) -> bool {
        throw support::Error(7, QStringLiteral("test"), QStringLiteral("no more"));
    }));
    EXPECT_EQ(desktop.Messages()[0].title, "Error in Report: Sub cmdExpPP1_Click");
    EXPECT_TRUE(MapFiles().isEmpty());
}

TEST_F(PptxTest, TheSameMapGivesTheSameBytes) {
    AddNode(0, 0, QStringLiteral("idea"));
    ASSERT_TRUE(Create(kAllShapes));
    const QByteArray first = support::ReadWholeFile(Target());
    ASSERT_TRUE(Create(kAllShapes));
    EXPECT_EQ(support::ReadWholeFile(Target()), first);
}

TEST_F(PptxTest, WhatIsHiddenIsLeftOutEverywhere) {
    AddNode(0, 0, QStringLiteral("seen"));
    AddNode(0, 3000, QStringLiteral("secret")).SetHidden(true);
    for (const PowerpointOptions &options : {kAllBlank, kAllShapes}) {
        bool seen = false;
        for (const auto &[name, bytes] : Made(options)) {
            EXPECT_FALSE(bytes.contains("secret")) << qPrintable(name);
            seen = seen || bytes.contains("seen");
        }
        EXPECT_TRUE(seen);
    }
}

TEST_F(PptxTest, NotesHoldTheTextsOfTheNodes) {
    AddNode(0, 0, QStringLiteral("one\r\nmore")), AddNode(0, 3000, QString()),
        AddNode(0, 6000, QStringLiteral("two"));
    const pugi::xml_document &notes = Part(kAllBlank, "ppt/notesSlides/notesSlide1.xml");
    EXPECT_EQ(TextsAt(notes, "//a:t"), (QStringList{"one more", "two"}));
}

TEST_F(PptxTest, ThePictureHasAnAlternativeText) {
    AddNode(0, 0, QStringLiteral("one")), AddNode(0, 3000, QStringLiteral("two"));
    EXPECT_EQ(TextsAt(Part(kAllBlank), "//p:pic/p:nvPicPr/p:cNvPr/@descr"), QStringList("First: one, two"));
}

TEST_F(PptxTest, PropertiesTellTitleFilterAndTime) {
    const pugi::xml_document &core = Part(kAllBlank, "docProps/core.xml");
    EXPECT_EQ(TextsAt(core, "//dc:title"), QStringList(output::ReadMap(*window).title));
    EXPECT_EQ(TextsAt(core, "//dc:description"),
              QStringList(output::FilterText(output::ReadMap(*window).filter)));
    const QString made = QDateTime(QDate(2024, 5, 17), QTime(10, 30)).toUTC().toString(Qt::ISODate);
    EXPECT_EQ(TextsAt(core, "//dcterms:created"), QStringList(made));
}

TEST(SlideTexts, AreCutToALengthThatCanBeHeard) {
    output::SliceOutput slice;
    slice.caption = QStringLiteral("Slice");
    EXPECT_EQ(DescriptionOf(slice), "Slice");
    output::NodeOutput node;
    node.text = QString(100000, u'x');
    slice.nodes.assign(3, node);
    EXPECT_EQ(DescriptionOf(slice).size(), 1000);
    slice.caption.clear();
    slice.nodes.assign(1, {});
    EXPECT_EQ(DescriptionOf(slice), QString());
}

TEST(CheckEnding, TakesTheTwoForms) {
    EXPECT_NO_THROW(CheckEnding("a.ppt"));
    EXPECT_NO_THROW(CheckEnding("a.PPTX"));
    EXPECT_THROW(CheckEnding("a.odp"), support::Error);
    EXPECT_THROW(CheckEnding(""), support::Error);
}

} // namespace powerpoint::testing
