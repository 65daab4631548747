#include "settings/Settings.h"

#include "support/Files.h"
#include "support/testing/ScriptedDesktop.h"

#include <gtest/gtest.h>
#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

using namespace settings;

namespace {

// A program's folder of its own, with empty terms.
class SettingsFile : public ::testing::Test {
protected:
    SettingsFile() {
        support::SetProgramPath(folder_.path());
        SetTerms({});
        SetMemoryLimit(kFirstMemoryLimit);
    }
    ~SettingsFile() override {
        support::SetProgramPath(QString());
        SetTerms({});
    }
    void Write(const QByteArray &content) const {
        QFile file(folder_.filePath("Settings.nml"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    void WriteKeys(const QByteArray &keys) const { Write("<SETTINGS>" + keys + "</SETTINGS>"); }

    support::testing::ScriptedDesktop desktop_;
    QTemporaryDir folder_;
};

constexpr char kHeaderBold[] = "<EXPORT><HEADER><BOLD>True</BOLD></HEADER></EXPORT>";

constexpr char kWhole[] = R"(<?xml version="1.0"?>
<!-- every key at a value of its own -->
<SETTINGS>
  <TITLE> Velmora &amp; Co </TITLE><SLICE>Slice</SLICE><MAP>Map</MAP><EXT>map</EXT><TEMPLATE>TEM</TEMPLATE>
  <NODE>Node</NODE><LINK>Link</LINK><FLAT>Flat File</FLAT><FLATEXT>flt</FLATEXT><AUTHOR>1</AUTHOR>
  <MEMORYTEXT>Low/non memory</MEMORYTEXT><MEMORY>2000000 bytes</MEMORY>
  <EXPORT>
    <BOLD>1</BOLD><ITALIC>0</ITALIC><UNDERLINE>2x</UNDERLINE><SIZE>10.5</SIZE><FONT>Arial</FONT>
    <HEADER><BOLD>True</BOLD><ITALIC>1</ITALIC><UNDERLINE>no</UNDERLINE><SIZE>14</SIZE><FONT>Times</FONT></HEADER>
    <DATA><BOLD></BOLD><ITALIC>-1</ITALIC><UNDERLINE>1</UNDERLINE><SIZE>8</SIZE><FONT>Courier</FONT></DATA>
  </EXPORT>
</SETTINGS>)";

} // namespace

TEST_F(SettingsFile, LoadSettings_ReadsEveryKey) {
    Write(kWhole);
    LoadSettings();
    const ProductTerms &terms = Terms();
    EXPECT_EQ(terms.TITLE, "Velmora & Co");
    EXPECT_EQ(terms.SLICE, "Slice");
    EXPECT_EQ(terms.MAP, "Map");
    EXPECT_EQ(terms.EXT, "map");
    EXPECT_EQ(terms.TEMPLATE, "TEM");
    EXPECT_EQ(terms.NODE, "Node");
    EXPECT_EQ(terms.LINK, "Link");
    EXPECT_EQ(terms.FLAT, "Flat File");
    EXPECT_EQ(terms.FLATEXT, "flt");
    EXPECT_TRUE(terms.AUTHOR);
    EXPECT_EQ(terms.MEMORY, 2000000);
    EXPECT_EQ(MemoryLimit(), 2000000);
    EXPECT_EQ(QCoreApplication::applicationName(), "Velmora & Co");
    EXPECT_EQ(ReadTitle(), "Velmora & Co");
}

TEST_F(SettingsFile, LoadSettings_ReadsTheThreeStylesOfReports) {
    Write(kWhole);
    LoadSettings();
    const ReportFont &body = Terms().EXPORT;
    EXPECT_TRUE(body.bold);
    EXPECT_FALSE(body.italic);
    EXPECT_TRUE(body.underline);
    EXPECT_DOUBLE_EQ(body.size, 10.5);
    EXPECT_EQ(body.font, "Arial");
    const ReportFont &header = Terms().EXPORT_HEADER;
    EXPECT_TRUE(header.bold);
    EXPECT_TRUE(header.italic);
    EXPECT_FALSE(header.underline);
    EXPECT_DOUBLE_EQ(header.size, 14);
    EXPECT_EQ(header.font, "Times");
    const ReportFont &data = Terms().EXPORT_DATA;
    EXPECT_FALSE(data.bold);
    EXPECT_TRUE(data.italic);
    EXPECT_TRUE(data.underline);
    EXPECT_DOUBLE_EQ(data.size, 8);
    EXPECT_EQ(data.font, "Courier");
}

TEST_F(SettingsFile, LoadSettings_BreaksTheMemoryTextWhereverThePairStands) {
    WriteKeys("<MEMORYTEXT>Low/non memory</MEMORYTEXT>" + QByteArray(kHeaderBold));
    LoadSettings();
    EXPECT_EQ(Terms().MEMORYTEXT, "Low\r\non memory");
}

TEST_F(SettingsFile, LoadSettings_KeepsTheMemoryLimitUnlessMemoryIsAboveZero) {
    for (const char *memory : {"<MEMORY>0</MEMORY>", "<MEMORY>-5</MEMORY>", ""}) {
        WriteKeys(memory + QByteArray(kHeaderBold));
        LoadSettings();
        EXPECT_EQ(MemoryLimit(), 1048576) << memory;
    }
}

TEST_F(SettingsFile, LoadSettings_TakesAuthorByNumber) {
    for (const auto &[text, on] :
         {std::pair{"0", false}, {"1", true}, {"", false}, {"True", false}, {" 7x", true}}) {
        WriteKeys(QByteArray("<AUTHOR>") + text + "</AUTHOR>" + kHeaderBold);
        LoadSettings();
        EXPECT_EQ(Terms().AUTHOR, on) << text;
    }
}

TEST_F(SettingsFile, LoadSettings_WithoutHeaderBoldFailsThereAndLeavesTheRestUnset) {
    for (const char *header : {"", "<BOLD/>", "<BOLD>yes</BOLD>"}) {
        SetTerms({});
        QCoreApplication::setApplicationName("before");
        Write(QByteArray(kWhole).replace("<BOLD>True</BOLD>", header));
        desktop_.ExpectMessage("Type mismatch\r\r(Error #13)");
        LoadSettings();
        EXPECT_EQ(Terms().EXPORT.font, "Arial");
        EXPECT_EQ(Terms().EXPORT_HEADER.font, "");
        EXPECT_FALSE(Terms().EXPORT_HEADER.italic);
        EXPECT_EQ(Terms().EXPORT_DATA.font, "");
        EXPECT_EQ(desktop_.Messages().back().title, "Error in Qz_Source: Sub LoadSettings");
        EXPECT_EQ(QCoreApplication::applicationName(), "before");
    }
}

TEST_F(SettingsFile, LoadSettings_SaysNothingAboutAMissingOrBrokenFileAndKeepsWhatItHeld) {
    ProductTerms held;
    held.MAP = "Chart";
    SetTerms(held);
    LoadSettings();
    EXPECT_EQ(Terms().MAP, "Chart");
    for (const char *broken :
         {"", "no xml", "<SETTINGS><MAP>Map</MAP>", "<SETTINGS><MAP>Map</SETTINGS></MAP>"}) {
        Write(broken);
        LoadSettings();
        EXPECT_EQ(Terms().MAP, "Chart") << broken;
    }
    EXPECT_EQ(ReadTitle(), "");
}

TEST_F(SettingsFile, LoadSettings_OfAnotherRootReadsEmptyWordsAndReportsTheStrictKey) {
    Write("<OTHER><MAP>Map</MAP></OTHER>");
    desktop_.ExpectMessage("Type mismatch\r\r(Error #13)");
    LoadSettings();
    EXPECT_EQ(Terms().MAP, "");
}

TEST_F(SettingsFile, GetXMLNodeText_TakesTheFirstOfEachPathWithItsChildrensText) {
    WriteKeys("<MAP>one<B> two</B></MAP><MAP>three</MAP><EXPORT><FONT>F1</FONT></EXPORT>"
              "<EXPORT><FONT>F2</FONT><SIZE>9</SIZE></EXPORT><NODE><![CDATA[<Node>]]></NODE>");
    SettingsDocument document;
    ASSERT_TRUE(document.load(folder_.filePath("Settings.nml")));
    EXPECT_EQ(GetXMLNodeText("MAP", document), "one two");
    EXPECT_EQ(GetXMLNodeText("EXPORT/FONT", document), "F1");
    EXPECT_EQ(GetXMLNodeText("EXPORT/SIZE", document), "9");
    EXPECT_EQ(GetXMLNodeText("NODE", document), "<Node>");
    EXPECT_EQ(GetXMLNodeText("map", document), "");
    EXPECT_EQ(GetXMLNodeText("NONE", document), "");
}

TEST(ReplaceTerms, ReplacesEveryOccurrenceOfEveryPlaceholder) {
    ProductTerms terms;
    terms.MAP = "Plan";
    terms.SLICE = "Sheet";
    terms.NODE = "Box";
    terms.LINK = "Line";
    SetTerms(terms);
    EXPECT_EQ(ReplaceTerms("@MAP @BOOK @SLICE @SHEET @NODE @LINK"), "Plan Plan Sheet Sheet Box Line");
    EXPECT_EQ(ReplaceTerms("Export All @SLICE's, @NODEs and @NODEs"), "Export All Sheet's, Boxs and Boxs");
    EXPECT_EQ(ReplaceTerms("@map @ @MA"), "@map @ @MA");
    EXPECT_EQ(ReplaceTerms(""), "");
    SetTerms({});
}

TEST(ReplaceTerms, LeavesWhatATermBringsIn) {
    ProductTerms terms;
    terms.MAP = "@NODE";
    terms.NODE = "@MAP";
    terms.SLICE = "@SLICE";
    SetTerms(terms);
    EXPECT_EQ(ReplaceTerms("@MAP, @NODE, @SLICE"), "@NODE, @MAP, @SLICE");
    SetTerms({});
}
