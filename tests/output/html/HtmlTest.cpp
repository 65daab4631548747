#include "output/html/HtmlPage.h"
#include "output/html/HtmlText.h"

#include <gmock/gmock.h>

namespace output {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

ReportProperties Properties() {
    ReportProperties properties;
    properties.title = QStringLiteral("A & B");
    properties.filter = QStringLiteral("Levels: \"A\".");
    properties.made = QDateTime(QDate(2024, 5, 17), QTime(10, 30));
    properties.caption = {true, false, true, 14, QStringLiteral("Some\"</style>Font")};
    properties.value = {false, true, false, 9, QStringLiteral("Arial")};
    return properties;
}

std::string Page(const ReportBlocks &blocks) {
    return WriteHtmlPage(Properties(), blocks, QStringLiteral("0075")).page.toStdString();
}

TEST(HtmlText, WhatMeansSomethingToBrowsersIsText) {
    EXPECT_EQ(HtmlText(QStringLiteral("<script>\"&amp;\"</script>")),
              QStringLiteral("&lt;script&gt;&quot;&amp;amp;&quot;&lt;/script&gt;"));
}

TEST(HtmlText, EveryScriptStaysAndControlCharactersGo) {
    const QString scripts = QStringLiteral("é あ שלום 😀\t.");
    EXPECT_EQ(HtmlText(scripts), scripts);
    EXPECT_EQ(HtmlText(QString::fromUtf8("a\0\x01\x7F\xC2\x85z", 7)), QStringLiteral("az"));
    EXPECT_EQ(HtmlText(QString(QChar(0xD800)) + u'x'), QString(QChar(0xFFFD)) + u'x');
    EXPECT_EQ(HtmlText(QString(QChar(0xFFFE))), QString());
}

TEST(HtmlText, AddressesHoldNothingThatBrowsersTakeForAnotherPart) {
    EXPECT_EQ(AddressOf(QStringLiteral("a b#1?é%.htm")), QStringLiteral("a%20b%231%3F%C3%A9%25.htm"));
}

TEST(HtmlPage, APageSaysWhatItIsAndFitsPhonesAndPaper) {
    const std::string page = Page({});
    EXPECT_THAT(page, ::testing::StartsWith("<!DOCTYPE html>\n<html lang=\"en\">"));
    EXPECT_THAT(page, HasSubstr("<title>A &amp; B</title>"));
    EXPECT_THAT(page, HasSubstr("<meta name=\"description\" content=\"Levels: &quot;A&quot;.\">"));
    EXPECT_THAT(page, HasSubstr("content=\"2024-05-17T10:30:00\""));
    EXPECT_THAT(page, HasSubstr("<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">"));
    EXPECT_THAT(page, HasSubstr("@media print"));
    EXPECT_THAT(page, HasSubstr(".c { font: normal bold 14pt \"Some/style>Font\", sans-serif; "
                                "text-decoration: underline }"));
    EXPECT_THAT(page,
                HasSubstr(".v { font: italic normal 9pt \"Arial\", sans-serif; text-decoration: none }"));
}

TEST(HtmlPage, ALineIsAParagraphWithASpanInEachFont) {
    ReportLine line{
        {{QStringLiteral("Text: "), ReportStyle::Caption}, {QStringLiteral("<b>"), ReportStyle::Value}}};
    EXPECT_THAT(Page({line}),
                HasSubstr("\n<p><span class=\"c\">Text: </span><span class=\"v\">&lt;b&gt;</span></p>\n"));
    line.rightToLeft = line.staysWithNext = true;
    EXPECT_THAT(Page({line}), HasSubstr("<p class=\"k\" dir=\"rtl\">"));
}

TEST(HtmlPage, ALineWithoutTextKeepsItsHeight) {
    EXPECT_THAT(Page({ReportLine{{{QStringLiteral(" "), ReportStyle::Value}}}}),
                HasSubstr("<p><span class=\"v\">&nbsp;</span></p>"));
}

TEST(HtmlPage, ALinkHasItsNameAndItsFrame) {
    const ReportRun run{QStringLiteral("There"),
                        ReportStyle::Value,
                        {QStringLiteral("lk1"), QStringLiteral("a%20b.htm"), QStringLiteral("RHS")}};
    EXPECT_THAT(
        Page({ReportLine{{run}}}),
        HasSubstr("<a href=\"a%20b.htm\" id=\"lk1\" target=\"RHS\"><span class=\"v\">There</span></a>"));
}

TEST(HtmlPage, APictureIsTwoFilesWithItsSizeAndItsDescription) {
    std::vector<int> pixels;
    ReportPicture picture{QStringLiteral("Map \"1\""), {1500, 3000}, [&](auto format, const auto &options) {
                              pixels.push_back(options.pixels);
                              return format == diagram::PictureFormat::Svg ? "svg" : "png";
                          }};
    const HtmlPage html = WriteHtmlPage(Properties(), {picture, picture}, QStringLiteral("0075"));
    EXPECT_THAT(
        html.page.toStdString(),
        HasSubstr("<picture><source srcset=\"0075_1.svg\" type=\"image/svg+xml\"><img src=\"0075_1.png\" "
                  "width=\"100\" height=\"200\" alt=\"Map &quot;1&quot;\"></picture>"));
    ASSERT_EQ(html.pictures.size(), 4u);
    EXPECT_EQ(html.pictures[0].bytes, "svg");
    EXPECT_EQ(html.pictures[1].bytes, "png");
    EXPECT_EQ(html.pictures[1].name, QStringLiteral("0075_1.png"));
    EXPECT_EQ(html.pictures[3].name, QStringLiteral("0075_2.png"));
    EXPECT_THAT(pixels, ::testing::Each(0)) << "as many pixels as it has on the screen";
    picture.size = {150000, 15};
    WriteHtmlPage(Properties(), {picture}, QString());
    EXPECT_EQ(pixels.back(), 4000) << "of a poster fewer";
}

TEST(HtmlPage, APageBreakIsOneOnPaper) {
    EXPECT_THAT(Page({ReportPageBreak{}}), HasSubstr("<hr class=\"page\">"));
}

} // namespace
} // namespace output
