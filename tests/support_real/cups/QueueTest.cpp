// What a real print server is handed and prints.
#include "tests/SmallDisk.h"
#include "tests/support_real/cups/CupsTest.h"
#include "tests/support_real/cups/PdfReader.h"

#include <QImage>
#include <QTemporaryDir>

using namespace cups_test;
using namespace support;

namespace {

class Queue : public CupsTest {
protected:
    SystemPrinter Office() { return printers->System(); }
    // Prints such pages, and gives the path of what came out.
    QString Print(const SystemPrinter &printer, const QStringList &texts) {
        Painted(*printers, printer, texts)->Finish();
        return cups->Printed(printer.deviceName);
    }
    Job LastJob(const QString &queue = QStringLiteral("Office")) { return cups->Jobs(queue).back(); }
};

// Whether the other picture, in shades of grey like the first, has about that shade within one dot of the
// place.
bool HasNear(const QImage &other, int x, int y, int grey) {
    constexpr int kClear = 96; // of 255
    for (int row = std::max(0, y - 1); row <= std::min(other.height() - 1, y + 1); ++row)
        for (int column = std::max(0, x - 1); column <= std::min(other.width() - 1, x + 1); ++column)
            if (std::abs(other.constScanLine(row)[column] - grey) <= kClear) return true;
    return false;
}

// The share of the dots that the other picture doesn't have within a dot (a tenth of a millimetre) of their
// place.
double Difference(const QImage &one, const QImage &other) {
    const QImage here = one.convertToFormat(QImage::Format_Grayscale8);
    const QImage there = other.convertToFormat(QImage::Format_Grayscale8);
    int differing = 0;
    for (int y = 0; y < here.height(); ++y)
        for (int x = 0; x < here.width(); ++x)
            if (!HasNear(there, x, y, here.constScanLine(y)[x])) ++differing;
    return static_cast<double>(differing) / (here.width() * here.height());
}

// How far from the left edge the frame begins: the first dark dot of a row, in millimetres; -1 for none.
double FrameFromLeft(const QImage &page) {
    for (int x = 0; x < page.width(); ++x)
        if (qGray(page.pixel(x, page.height() * 2 / 3)) < 128) return x * 25.4 / kDotsPerInch;
    return -1;
}

} // namespace

TEST_F(Queue, NamesAndTheDefaultAreTheServers) {
    QStringList names = printers->Names();
    names.sort();
    EXPECT_EQ(names, QStringList({"Attic", "Office"}));
    EXPECT_EQ(printers->Default(), "Office");
    EXPECT_EQ(printers->System().deviceName, "Office");
    EXPECT_FALSE(printers->System().ToFile());
}

TEST_F(Queue, APrinterTellsItsPapersAndMargins) {
    QStringList keys;
    for (const QPageSize &paper : printers->Papers("Office")) keys << paper.key();
    EXPECT_EQ(keys, QStringList({"A4", "A3", "Letter"}));
    const QMarginsF margins = printers->Unprintable(Office());
    EXPECT_NEAR(margins.left(), 5, 0.1);
    EXPECT_NEAR(margins.bottom(), 5, 0.1);
    SystemPrinter toFile = Office();
    toFile.outputFile = "plan.pdf";
    EXPECT_EQ(printers->Unprintable(toFile), QMarginsF());
}

TEST_F(Queue, WhatIsPrintedIsWhatIsPaintedIntoAFile) {
    for (const auto turned : {PaperOrientation::Portrait, PaperOrientation::Landscape}) {
        SystemPrinter printer = Office();
        printer.orientation = turned;
        const QTemporaryDir folder;
        const std::vector<QImage> printed =
            PagesOf(Print(printer, {"Costs of R&D", "Second"}), folder.path());
        printer.outputFile = folder.filePath("own.pdf");
        Painted(*printers, printer, {"Costs of R&D", "Second"})->Finish();
        const std::vector<QImage> own = PagesOf(printer.outputFile, folder.path());
        ASSERT_EQ(printed.size(), 2u);
        ASSERT_EQ(own.size(), 2u);
        for (std::size_t i = 0; i < own.size(); ++i) {
            const QImage upright = Upright(printed[i], own[i].size());
            ASSERT_EQ(upright.size(), own[i].size());
            EXPECT_LT(Difference(upright, own[i]), 0.0005) << "page " << i + 1;
            EXPECT_LT(Difference(own[i], upright), 0.0005) << "page " << i + 1;
            EXPECT_NEAR(FrameFromLeft(upright), kFrameInset - 0.25, 0.1);
        }
        EXPECT_GT(Difference(own[0], own[1]), 0.001)
            << "the texts differ, so pages that differ are told apart";
    }
}

TEST_F(Queue, TextsArriveAsTexts) {
    const QString text = TextOf(Print(Office(), {"Costs of R&D", "Second"}));
    EXPECT_EQ(text, "Costs of R&D\fSecond\f");
    EXPECT_EQ(LastJob().title, "Plan of the year");
}

TEST_F(Queue, CopiesSidesAndPaperReachTheServer) {
    SystemPrinter printer = Office();
    printer.copies = 2;
    printer.sides = Sides::ShortEdge;
    printer.paper = QPageSize(QPageSize::A3);
    printer.colour = false;
    const QString file = Print(printer, {"One", "Two"});
    const Job job = LastJob();
    EXPECT_EQ(job.copies, 2);
    EXPECT_EQ(job.sides, "two-sided-short-edge");
    EXPECT_EQ(job.media, "A3");
    EXPECT_EQ(job.colour, "monochrome");
    EXPECT_EQ(TextOf(file), "One\fTwo\fOne\fTwo\f");
    EXPECT_EQ(SizeOf(file), "842 x 1191");
}

TEST_F(Queue, CopiesThatAreNotCollatedComePageByPage) {
    SystemPrinter printer = Office();
    printer.copies = 2;
    printer.collate = false;
    EXPECT_EQ(TextOf(Print(printer, {"One", "Two"})), "One\fOne\fTwo\fTwo\f");
}

TEST_F(Queue, AnotherPrinterThanTheDefaultPrintsAndTheDefaultStays) {
    SystemPrinter printer = Office();
    printer.deviceName = "Attic";
    {
        const DefaultPrinterFor other(*printers, "Attic", "Office");
        EXPECT_EQ(TextOf(Print(printer, {"Up"})), "Up\f");
    }
    EXPECT_EQ(LastJob("Attic").completed, true);
    EXPECT_TRUE(cups->Jobs("Office").empty());
    EXPECT_EQ(printers->Default(), "Office");
}

TEST_F(Queue, AJobThatIsGivenUpNeverReachesTheServer) {
    const OwnTemporaryFolder temporary;
    Painted(*printers, Office(), {"One", "Two"})->Cancel();
    Painted(*printers, Office(), {"Three"}).reset();
    EXPECT_TRUE(cups->Jobs("Office").empty());
    EXPECT_EQ(temporary.Names(), QStringList());
    EXPECT_EQ(TextOf(Print(Office(), {"Next"})), "Next\f");
    EXPECT_EQ(temporary.Names(), QStringList());
}

TEST_F(Queue, APausedPrinterTakesNothingUntilItIsResumed) {
    cups->Command("cupsdisable", {"Office"});
    EXPECT_EQ(printers->State("Office"), PrinterState::Paused);
    const Error raised = tests::ErrorOf([&] { printers->Start(Office(), "x"); });
    EXPECT_EQ(raised.Number(), kErrDeviceUnavailable);
    EXPECT_EQ(raised.Description(), "The printer \"Office\" is paused.\nResume it, or choose another one.");
    EXPECT_TRUE(cups->Jobs("Office").empty());
    EXPECT_EQ(printers->Default(), "Office");
    cups->Command("cupsenable", {"Office"});
    EXPECT_EQ(TextOf(Print(Office(), {"Again"})), "Again\f");
}

TEST_F(Queue, APrinterPausedWhileItsPagesArePaintedTakesNothingEither) {
    const std::unique_ptr<PrintJob> job = Painted(*printers, Office(), {"One"});
    cups->Command("cupsdisable", {"Office"});
    EXPECT_EQ(tests::ErrorOf([&] { job->Finish(); }).Number(), kErrDeviceUnavailable);
    EXPECT_TRUE(cups->Jobs("Office").empty());
}

TEST_F(Queue, APrinterThatTakesNoJobsSaysSo) {
    cups->Command("cupsreject", {"Office"});
    EXPECT_EQ(printers->State("Office"), PrinterState::Refusing);
    EXPECT_EQ(tests::ErrorOf([&] { printers->Start(Office(), "x"); }).Description(),
              "The printer \"Office\" takes no jobs at the moment.\nChoose another one.");
}

TEST_F(Queue, APrinterThatVanishedSaysSo) {
    const SystemPrinter office = Office();
    const std::unique_ptr<PrintJob> job = Painted(*printers, office, {"One"});
    cups->Command("lpadmin", {"-x", "Office"});
    EXPECT_EQ(printers->State("Office"), PrinterState::Gone);
    const QString text = "The printer \"Office\" isn't there any longer.\nChoose another one.";
    EXPECT_EQ(tests::ErrorOf([&] { job->Finish(); }).Description(), text);
    EXPECT_EQ(tests::ErrorOf([&] { printers->Start(office, "x"); }).Description(), text);
    EXPECT_EQ(printers->Names(), QStringList("Attic"));
}

TEST_F(Queue, AServerThatIsNoLongerThereSaysSoAndLeavesNothing) {
    const SystemPrinter office = Office();
    const std::unique_ptr<PrintJob> job = Painted(*printers, office, {"One"});
    cups->Stop();
    EXPECT_EQ(tests::ErrorOf([&] { job->Finish(); }).Number(), kErrDeviceUnavailable);
    EXPECT_EQ(printers->Names(), QStringList());
}

TEST_F(Queue, WhatTheServerComplainsOfIsTold) {
    cups->Command("lpadmin", {"-p", "Office", "-o", "job-quota-period=86400", "-o", "job-k-limit=1"});
    Print(Office(), {"Fills the quota"});
    const std::unique_ptr<PrintJob> job = Painted(*printers, Office(), {"One too many"});
    const Error raised = tests::ErrorOf([&] { job->Finish(); });
    EXPECT_EQ(raised.Number(), kErrPrinter);
    EXPECT_EQ(raised.Description(), "The printer \"Office\" didn't take the print:\nQuota limit reached.");
    EXPECT_EQ(cups->Jobs("Office").size(), 1u);
}

TEST_F(Queue, ADiskWithoutRoomForThePagesPrintsNothing) {
    const OwnTemporaryFolder temporary;
    const SystemPrinter office = Office();
    {
        const tests::SmallDisk disk(2000);
        const Error raised = tests::ErrorOf([&] { Painted(*printers, office, {"One", "Two"})->Finish(); });
        EXPECT_EQ(raised.Number(), kErrDiskFull);
        EXPECT_TRUE(raised.Description().startsWith("Disk full: ")) << raised.what();
    }
    EXPECT_TRUE(cups->Jobs("Office").empty());
    EXPECT_EQ(temporary.Names(), QStringList());
}

TEST_F(Queue, WithoutColourAFileHasShadesOfGrey) {
    const QTemporaryDir folder;
    for (const bool colour : {true, false}) {
        SystemPrinter printer = Office();
        printer.colour = colour;
        printer.outputFile = folder.filePath(colour ? "red.pdf" : "grey.pdf");
        Painted(*printers, printer, {"Text"})->Finish();
        const std::vector<QImage> pages = PagesOf(printer.outputFile, folder.path());
        ASSERT_EQ(pages.size(), 1u);
        const QColor patch = pages[0].pixelColor(pages[0].width() / 2 + 100, pages[0].height() / 2 + 50);
        EXPECT_EQ(patch.saturation() > 200, colour) << patch.name().toStdString();
        EXPECT_LT(patch.lightness(), 200);
        EXPECT_EQ(TextOf(printer.outputFile), "Text\f");
    }
}
