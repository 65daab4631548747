#include "output/rtf/RtfText.h"
#include "output/rtf/RtfWriter.h"

#include <gmock/gmock.h>

namespace output {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

ReportProperties Properties() {
    ReportProperties properties;
    properties.title = QStringLiteral("Our {plan}");
    properties.filter = QStringLiteral("Levels: A.");
    properties.made = QDateTime(QDate(2024, 5, 17), QTime(10, 30));
    properties.caption = {true, false, false, 14, QStringLiteral("Arial")};
    properties.value = {false, true, true, 9, QStringLiteral("Some;Font")};
    return properties;
}

std::string Whole(const ReportBlocks &blocks) {
    const RtfWriter writer(Properties());
    return (writer.Begin() + writer.Body(blocks) + writer.End()).toStdString();
}

ReportLine Line(const QString &caption, const QString &value) {
    return {{{caption, ReportStyle::Caption}, {value, ReportStyle::Value}}};
}

// Every group that opens closes, and nothing stands behind the last one.
void ExpectWellFormed(const std::string &rtf) {
    int depth = 0;
    std::size_t closedAt = 0;
    for (std::size_t at = 0; at < rtf.size(); ++at) {
        EXPECT_TRUE(static_cast<unsigned char>(rtf[at]) < 0x80);
        if (rtf[at] == '\\') {
            ++at;
        } else if (rtf[at] == '{') {
            ++depth;
        } else if (rtf[at] == '}') {
            ASSERT_GE(--depth, 0) << at;
            if (depth == 0) closedAt = at;
        }
    }
    EXPECT_EQ(depth, 0);
    EXPECT_EQ(rtf.find_last_not_of("\r\n"), closedAt);
}

TEST(RtfText, WhatMeansSomethingToReadersIsText) {
    EXPECT_EQ(RtfText(QStringLiteral("{\\rtf1 \\par}")), "\\{\\\\rtf1 \\\\par\\}");
    EXPECT_EQ(RtfText(QStringLiteral("a\tb")), "a\\tab b");
}

TEST(RtfText, OtherScriptsAreEscapesOfSignedNumbersWithAFallback) {
    EXPECT_EQ(RtfText(QStringLiteral("é")), "\\u233?");
    EXPECT_EQ(RtfText(QStringLiteral("あ")), "\\u12354?");
    EXPECT_EQ(RtfText(QString(QChar(0xFE00))), "\\u-512?");
    EXPECT_EQ(RtfText(QStringLiteral("😀")), "\\u-10179?\\u-8704?");
}

TEST(RtfText, ControlCharactersGoAndBrokenPairsAreReplaced) {
    EXPECT_EQ(RtfText(QString::fromUtf8("a\0\x01\x1F\x7Fz", 6)), "az");
    EXPECT_EQ(RtfText(QString(QChar(0xD800)) + u'x'), "\\u-3?x");
    EXPECT_EQ(RtfText(QString(QChar(0xDC00))), "\\u-3?");
    EXPECT_EQ(RtfText(QString(QChar(0xFFFF))), "\\u-3?");
}

TEST(RtfText, StretchesGoInOneDirectionWithTheNeutralLettersBehindThem) {
    const auto stretches = StretchesOf(QStringLiteral("(a, שלום! b"), true);
    ASSERT_EQ(stretches.size(), 4u);
    EXPECT_EQ(stretches[0].text, QStringLiteral("("));
    EXPECT_TRUE(stretches[0].rightToLeft);
    EXPECT_EQ(stretches[1].text, QStringLiteral("a, "));
    EXPECT_FALSE(stretches[1].rightToLeft);
    EXPECT_EQ(stretches[2].text, QStringLiteral("שלום! "));
    EXPECT_TRUE(stretches[2].rightToLeft);
    EXPECT_EQ(stretches[3].text, QStringLiteral("b"));
    EXPECT_TRUE(StretchesOf(QString(), false).empty());
    EXPECT_EQ(StretchesOf(QStringLiteral("שלום (1) עולם"), true).size(), 1u)
        << "brackets stay around numbers";
}

TEST(RtfWriter, AReportHasFontsPropertiesAndALandscapePage) {
    const std::string rtf = Whole({});
    ExpectWellFormed(rtf);
    EXPECT_THAT(rtf, ::testing::StartsWith("{\\rtf1\\ansi"));
    EXPECT_THAT(rtf, HasSubstr("{\\fonttbl{\\f0\\fnil\\fcharset0 Arial;}{\\f1\\fnil\\fcharset0 SomeFont;}}"));
    EXPECT_THAT(rtf, HasSubstr("{\\title Our \\{plan\\}}"));
    EXPECT_THAT(rtf, HasSubstr("{\\creatim\\yr2024\\mo5\\dy17\\hr10\\min30}"));
    EXPECT_THAT(rtf, HasSubstr("{\\doccomm Levels: A.}"));
    EXPECT_THAT(rtf, HasSubstr("\\paperw16838\\paperh11906\\landscape"));
    EXPECT_THAT(rtf, HasSubstr("\\sectd\\lndscpsxn\\pgwsxn16838\\pghsxn11906"));
}

TEST(RtfWriter, ALineIsAParagraphWithARunInEachFont) {
    const std::string rtf = Whole({Line(QStringLiteral("Text: "), QStringLiteral("Idea"))});
    ExpectWellFormed(rtf);
    EXPECT_THAT(rtf, HasSubstr("\\ltrch\\fcs0 \\f0\\fs28\\b Text: }"));
    EXPECT_THAT(rtf, HasSubstr("\\ltrch\\fcs0 \\f1\\fs18\\i\\ul Idea}\\par"));
}

TEST(RtfWriter, ALineFromRightToLeftSaysSoAndItsLettersToo) {
    ReportLine line = Line(QStringLiteral("Text: "), QStringLiteral("שלום"));
    line.rightToLeft = line.staysWithNext = true;
    const std::string rtf = Whole({line});
    ExpectWellFormed(rtf);
    EXPECT_THAT(rtf, HasSubstr("\\rtlpar\\qr\\keepn"));
    EXPECT_THAT(rtf, HasSubstr("\\rtlch\\fcs1 \\af1\\afs18\\ai\\aul \\u1513?"));
}

TEST(RtfWriter, ALinkIsAField) {
    ReportRun run{QStringLiteral("There"), ReportStyle::Value, {{}, QStringLiteral("a%20b.htm"), {}}};
    const std::string rtf = Whole({ReportLine{{run}}});
    ExpectWellFormed(rtf);
    EXPECT_THAT(rtf, HasSubstr("{\\field{\\*\\fldinst HYPERLINK \"a%20b.htm\"}{\\fldrslt "));
}

TEST(RtfWriter, PageBreaksStandBetweenSlices) {
    const std::string rtf =
        Whole({Line({}, QStringLiteral("a")), ReportPageBreak{}, Line({}, QStringLiteral("b"))});
    ExpectWellFormed(rtf);
    EXPECT_LT(rtf.find(" a}"), rtf.find("\\page\r\n"));
    EXPECT_LT(rtf.find("\\page\r\n"), rtf.find(" b}"));
}

ReportPicture Picture(const QSizeF &size) {
    return {QStringLiteral("Map {1}"), size, [](diagram::PictureFormat format, const auto &) {
                return format == diagram::PictureFormat::Emf
                           ? QByteArray("emf")
                           : QByteArray("\xD7\xCD\xC6\x9A") + QByteArray(18, 'x') + "wmf";
            }};
}

TEST(RtfWriter, APictureIsAnEnhancedMetafileWithOneOfSixteenBitsForOthers) {
    const std::string rtf = Whole({Picture({1440, 2880})});
    ExpectWellFormed(rtf);
    EXPECT_THAT(rtf, HasSubstr("\\emfblip\\picw2540\\pich5080\\picwgoal1440\\pichgoal2880\r\n656d66\r\n}"));
    EXPECT_THAT(rtf, HasSubstr("{\\nonshppict{\\pict"));
    EXPECT_THAT(rtf, HasSubstr("\\pichgoal2880\r\n776d66\r\n}"))
        << "without the header that makes it placeable";
    EXPECT_THAT(rtf, HasSubstr("{\\sn wzDescription}{\\sv Map \\{1\\}}"));
}

TEST(RtfWriter, APictureThatIsLargerThanThePageIsScaledDownWithItsProportions) {
    const std::string wide = Whole({Picture({145700, 14570})}), high = Whole({Picture({1000, 100000})});
    EXPECT_THAT(wide, HasSubstr("\\picwgoal14570\\pichgoal1457\r\n"));
    EXPECT_THAT(high, Not(HasSubstr("\\pichgoal100000")));
    const std::size_t at = high.find("\\pichgoal") + 9;
    EXPECT_LT(std::stoi(high.substr(at, 5)), 11906 - 2 * 1134);
}

TEST(RtfWriter, AHundredThousandLettersAreOneParagraph) {
    const std::string rtf = Whole({Line({}, QString(100000, u'ß'))});
    ExpectWellFormed(rtf);
    EXPECT_EQ(rtf.size() - Whole({Line({}, QString(1, u'ß'))}).size(), 99999u * 6);
}

} // namespace
} // namespace output
