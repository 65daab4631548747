#include "support/Desktop.h"

#include "support/Error.h"
#include "support/Forms.h"
#include "support/headless/HeadlessDesktop.h"
#include "support/OtherDoor.h"
#include "support/testing/ScriptedDesktop.h"
#include "tests/Errors.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

using namespace support;
using support::testing::ScriptedDesktop;

namespace {

// What a form is handed.
struct Question {
    static constexpr char kForm[] = "frmQuestion";
    int answer = 0;
};

} // namespace

TEST(Desktop, MemoryFigure_IsInUseWithFreeResourcesAndFreeWithALoad) {
    EXPECT_EQ(MemoryFigure({10, std::nullopt}), 90);
    EXPECT_EQ(MemoryFigure({std::nullopt, 10}), 90);
    EXPECT_EQ(MemoryFigure({100, std::nullopt}), 0);
    EXPECT_EQ(MemoryFigure({std::nullopt, 85}), 15);
}

TEST(Desktop, CurrentDesktop_BeforeAnyIsAnError) {
    EXPECT_EQ(tests::NumberOf([&] { CurrentDesktop(); }), 91);
}

TEST(Desktop, AnErrorOfAnEvent_IsShownUnderTheEventsTitleWithTheFirstErrorsText) {
    ScriptedDesktop desktop;
    desktop.ExpectMessage("Type mismatch\r\r(Error #13)");
    Report("frmMain", "AddFlow1_MouseMove",
           [] { PassOn("GetTag", [] { throw Error(13, "GetTag", "Type mismatch"); }); });
    EXPECT_EQ(desktop.Messages().back().title, "Error in frmMain: Sub AddFlow1_MouseMove");
    EXPECT_EQ(desktop.Messages().back().icon, Icon::None);
    EXPECT_EQ(desktop.Messages().back().buttons, Buttons::Ok);
}

TEST(Desktop, WithAnotherDoorTheOthersAreTheSame) {
    ScriptedDesktop script;
    support::testing::FakeClock clock;
    const Desktop other = WithDoor(script.Get(), clock);
    EXPECT_EQ(&other.clock, &clock);
    EXPECT_EQ(&other.messageBoxes, &script.Get().messageBoxes);
    EXPECT_EQ(&other.dialogHost, &script.Get().dialogHost);
}

TEST(ScriptedDesktop, GivesTheScriptedAnswersInOrder) {
    ScriptedDesktop script;
    Desktop &desktop = CurrentDesktop();
    script.ExpectMessage("Save?", Answer::Yes);
    script.ExpectMessageContaining("really", Answer::Cancel);
    EXPECT_EQ(desktop.messageBoxes.Show("Save?", Buttons::YesNo, Icon::Question, "t"), Answer::Yes);
    EXPECT_EQ(desktop.messageBoxes.Show("Do you really?", Buttons::OkCancel, Icon::None, ""), Answer::Cancel);
    script.ExpectInput("Name", "Ann");
    EXPECT_EQ(desktop.messageBoxes.InputBox("Name", "", ""), "Ann");
    script.ExpectOpenFile("/a.map", 2);
    script.ExpectSaveFile("");
    int row = 1;
    EXPECT_EQ(desktop.dialogs.ShowOpenFileDialog("A|*.a|B|*.b", "a", "/", 4, nullptr, row), "/a.map");
    EXPECT_EQ(row, 2);
    EXPECT_EQ(script.dialogs.shownFiles.back().flags, 4 + 524288);
    EXPECT_EQ(desktop.dialogs.ShowSaveFileDialog("A|*.a", "a", "/", 4, nullptr, row), "");
    EXPECT_EQ(row, 2);
    EXPECT_EQ(script.dialogs.shownFiles.back().flags, 4);
}

TEST(ScriptedDesktop, GivesTheScriptedColours) {
    ScriptedDesktop script;
    Desktop &desktop = CurrentDesktop();
    script.ExpectColour(kNoColour);
    EXPECT_EQ(desktop.dialogs.ShowColorDialog(nullptr, true, 0), -1);
    EXPECT_EQ(script.dialogs.startColours.back(), 0);
    script.ExpectColour(5);
    EXPECT_EQ(desktop.dialogs.ShowColorDialog(nullptr, true, static_cast<Colour>(0x80000005)), 5);
    EXPECT_EQ(script.dialogs.startColours.back(), kWhite);
}

TEST(ScriptedDesktop, GivesTheScriptedFontUnlessItIsCancelled) {
    ScriptedDesktop script;
    FontChoice font{"Arial", 9, false, false, false, false};
    Colour colour = 3;
    script.ExpectFontCancelled();
    CurrentDesktop().dialogs.ShowFontDialog(nullptr, 0, font, colour);
    EXPECT_EQ(font.name, "Arial");
    EXPECT_EQ(colour, 3);
    script.ExpectFont({"Times", 12, true, false, false, false}, 7);
    CurrentDesktop().dialogs.ShowFontDialog(nullptr, 0, font, colour);
    EXPECT_EQ(font.name, "Times");
    EXPECT_EQ(colour, 7);
}

TEST(ScriptedDesktop, LeavesTheProgramsPrinterAsTheScriptChoosesIt) {
    ScriptedDesktop script;
    Desktop &desktop = CurrentDesktop();
    script.ExpectPrinter(false);
    EXPECT_FALSE(desktop.dialogs.ShowPrinter(nullptr));
    script.ExpectPrinter(true);
    EXPECT_TRUE(desktop.dialogs.ShowPrinter(nullptr));
    EXPECT_EQ(script.printers.system, SystemPrinter());
    script.ExpectPrinterChosen([](SystemPrinter &printer) { printer.deviceName = "Office"; });
    EXPECT_TRUE(desktop.dialogs.ShowPrinter(nullptr));
    EXPECT_EQ(script.printers.system.deviceName, "Office");
}

TEST(ScriptedDesktop, TellsWhetherALaunchSucceeds) {
    ScriptedDesktop script;
    Desktop &desktop = CurrentDesktop();
    script.ExpectLaunch("help.pdf", false);
    EXPECT_FALSE(desktop.launcher.OpenFile("help.pdf"));
    script.ExpectAddress("https://example.org/");
    EXPECT_TRUE(desktop.launcher.OpenAddress("https://example.org/"));
}

TEST(ScriptedDesktop, RunsTheScriptOfAFormAndHasNoneThatIsMissed) {
    ScriptedDesktop script;
    Desktop &desktop = CurrentDesktop();
    Question question;
    script.ExpectForm<Question>([](Question &given) { return given.answer = 1, true; });
    EXPECT_TRUE(Show(desktop, question, nullptr));
    EXPECT_EQ(question.answer, 1);
    EXPECT_TRUE(HasForm<Question>(desktop));
    script.dialogHost.Miss<Question>();
    EXPECT_FALSE(HasForm<Question>(desktop));
}

TEST(ScriptedDesktop, AnUnexpectedQuestionFailsTheTestAndNamesTheText) {
    EXPECT_NONFATAL_FAILURE(
        {
            ScriptedDesktop script;
            script.Get().messageBoxes.Show("Surprise", Buttons::YesNo, Icon::None, "");
        },
        "Surprise");
    EXPECT_NONFATAL_FAILURE(
        {
            ScriptedDesktop script;
            script.ExpectMessage("Expected");
            script.Get().messageBoxes.Show("Other", Buttons::Ok, Icon::None, "");
        },
        "Message \"Other\" where \"Expected\" was expected");
    EXPECT_NONFATAL_FAILURE(
        {
            ScriptedDesktop script;
            script.ExpectMessage("Never");
        },
        "Expected message \"Never\" never came");
    EXPECT_NONFATAL_FAILURE(
        {
            ScriptedDesktop script;
            script.launcher.OpenFile("x.exe");
        },
        "x.exe");
    EXPECT_NONFATAL_FAILURE(
        {
            ScriptedDesktop script;
            script.ExpectLaunch("https://example.org/");
            script.launcher.OpenAddress("https://example.org/");
        },
        "the address \"https://example.org/\"");
    EXPECT_NONFATAL_FAILURE(
        {
            ScriptedDesktop script;
            int row = 1;
            script.dialogs.ShowOpenFileDialog("Maps|*.map", "", "", 0, nullptr, row);
        },
        "Maps|*.map");
}

TEST(HeadlessDesktop, AnswersAsIfEveryBoxWasClosed) {
    HeadlessDesktop headless;
    Desktop &desktop = CurrentDesktop();
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(desktop.messageBoxes.Show("a\rb", Buttons::YesNo, Icon::None, "T"), Answer::No);
    EXPECT_EQ(desktop.messageBoxes.Show("c", Buttons::YesNoCancel, Icon::None, ""), Answer::Cancel);
    EXPECT_EQ(desktop.messageBoxes.Show("d", Buttons::Ok, Icon::None, ""), Answer::Ok);
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "T: a b\nc\nd\n");
    EXPECT_EQ(desktop.dialogs.ShowColorDialog(nullptr, true, 4), kNoColour);
    EXPECT_FALSE(desktop.launcher.OpenFile("x"));
    EXPECT_FALSE(desktop.launcher.OpenAddress("https://example.org/"));
    EXPECT_FALSE(desktop.identity.UserName().isEmpty());
}

TEST(SystemMemoryProbe, TellsOneFigureInRange) {
    const MemoryReading reading = SystemMemoryProbe().Read();
    EXPECT_NE(reading.freeResourcesPercent.has_value(), reading.memoryLoadPercent.has_value());
    EXPECT_GE(MemoryFigure(reading), 0);
    EXPECT_LE(MemoryFigure(reading), 100);
#if defined(Q_OS_LINUX) || defined(Q_OS_MACOS)
    EXPECT_TRUE(reading.freeResourcesPercent.has_value());
#endif
}
