#include "support/Printers.h"

#include "support/Error.h"
#include "support/testing/ScriptedDesktop.h"
#include "tests/Errors.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>
#include <QFile>
#include <QTemporaryDir>

using namespace support;
using support::testing::JobFails;
using support::testing::ScriptedDesktop;

namespace {

void Touch(const QString &path) { ASSERT_TRUE(QFile(path).open(QIODevice::WriteOnly)) << path.toStdString(); }

QString ValueOf(const QStringList &options, const QString &name) {
    for (qsizetype i = options.size() - 2; i >= 0; i -= 2)
        if (options[i] == name) return options[i + 1];
    return {};
}

} // namespace

TEST(PagesToPrint, AreAllInOrderUnlessChosen) {
    SystemPrinter printer;
    EXPECT_EQ(PagesToPrint(printer, 3), (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(PagesToPrint(printer, 0), std::vector<int>());
    printer.pages = QPageRanges::fromString("2-3,5,9");
    EXPECT_EQ(PagesToPrint(printer, 6), (std::vector<int>{2, 3, 5}));
    printer.order = PageOrder::LastToFirst;
    EXPECT_EQ(PagesToPrint(printer, 6), (std::vector<int>{5, 3, 2}));
    printer.pageSet = PageSet::Odd;
    EXPECT_EQ(PagesToPrint(printer, 6), (std::vector<int>{5, 3}));
    printer.pageSet = PageSet::Even;
    EXPECT_EQ(PagesToPrint(printer, 6), (std::vector<int>{2}));
    EXPECT_EQ(PagesToPrint(printer, 1), std::vector<int>());
}

TEST(PagesToPrint, RepeatForTheCopiesOfAFileOnly) {
    SystemPrinter printer;
    printer.copies = 2;
    EXPECT_EQ(PagesToPrint(printer, 2), (std::vector<int>{1, 2}));
    printer.outputFile = "plan.pdf";
    EXPECT_EQ(PagesToPrint(printer, 2), (std::vector<int>{1, 2, 1, 2}));
    printer.collate = false;
    EXPECT_EQ(PagesToPrint(printer, 2), (std::vector<int>{1, 1, 2, 2}));
    printer.copies = 0;
    EXPECT_EQ(PagesToPrint(printer, 2), (std::vector<int>{1, 2}));
}

TEST(QueueOptions, SayWhatWasChosen) {
    SystemPrinter printer;
    EXPECT_EQ(ValueOf(QueueOptions(printer), "media"), "A4");
    EXPECT_EQ(ValueOf(QueueOptions(printer), "copies"), "1");
    EXPECT_EQ(ValueOf(QueueOptions(printer), "sides"), "one-sided");
    EXPECT_EQ(ValueOf(QueueOptions(printer), "print-scaling"), "none");
    EXPECT_EQ(ValueOf(QueueOptions(printer), "print-color-mode"), QString());
    printer.paper = QPageSize(QPageSize::Letter);
    printer.copies = 3;
    printer.sides = Sides::LongEdge;
    printer.colour = false;
    printer.options = QStringList{"copies", "7", "job-priority", "60"};
    EXPECT_EQ(ValueOf(QueueOptions(printer), "media"), "Letter");
    EXPECT_EQ(ValueOf(QueueOptions(printer), "copies"), "3");
    EXPECT_EQ(ValueOf(QueueOptions(printer), "sides"), "two-sided-long-edge");
    EXPECT_EQ(ValueOf(QueueOptions(printer), "print-color-mode"), "monochrome");
    EXPECT_EQ(ValueOf(QueueOptions(printer), "job-priority"), "60");
}

TEST(NextFreeFile, CountsOnFromTheNameThatIsTaken) {
    const QTemporaryDir folder;
    const auto path = [&](const char *name) { return folder.filePath(QString::fromLatin1(name)); };
    EXPECT_EQ(NextFreeFile(path("Plan.pdf")), path("Plan.pdf"));
    Touch(path("Plan.pdf"));
    EXPECT_EQ(NextFreeFile(path("Plan.pdf")), path("Plan (2).pdf"));
    Touch(path("Plan (2).pdf"));
    EXPECT_EQ(NextFreeFile(path("Plan.pdf")), path("Plan (3).pdf"));
    EXPECT_EQ(NextFreeFile(path("Plan (2).pdf")), path("Plan (3).pdf"));
    Touch(path("v1.2"));
    EXPECT_EQ(NextFreeFile(path("v1.2")), path("v1 (2).2"));
    Touch(path("plain"));
    EXPECT_EQ(NextFreeFile(path("plain")), path("plain (2)"));
    Touch(path("(2).pdf"));
    EXPECT_EQ(NextFreeFile(path("(2).pdf")), path("(2) (2).pdf"));
    ASSERT_TRUE(QFile::link("nowhere", path("link.pdf")));
    EXPECT_EQ(NextFreeFile(path("link.pdf")), path("link (2).pdf"));
}

TEST(FreeOutputFile, IsNamedAfterTheTitle) {
    const QTemporaryDir folder;
    EXPECT_EQ(FreeOutputFile(folder.path(), "Plan"), folder.filePath("Plan.pdf"));
    EXPECT_EQ(FreeOutputFile(folder.path(), "a/b"), folder.filePath("a_b.pdf"));
    EXPECT_EQ(FreeOutputFile(folder.path(), " "), folder.filePath("Print.pdf"));
    Touch(folder.filePath("Plan.pdf"));
    EXPECT_EQ(FreeOutputFile(folder.path(), "Plan"), folder.filePath("Plan (2).pdf"));
}

TEST(RequireReady, NamesThePrinterAndWhatToDo) {
    EXPECT_EQ(tests::Raised([] { RequireReady("Office", PrinterState::Ready); }), QString());
    EXPECT_EQ(tests::Raised([] { RequireReady("Office", PrinterState::Paused); }),
              "68 The printer \"Office\" is paused.\nResume it, or choose another one.");
    EXPECT_EQ(tests::Raised([] { RequireReady(QString(), PrinterState::Ready); }), "68 There is no printer.");
}

TEST(DefaultPrinterFor, PutsTheFormerBackWhateverHappens) {
    ScriptedDesktop script;
    script.printers.defaultName = "Office";
    const auto fail = [&] {
        const DefaultPrinterFor other(script.printers, "Attic", "Office");
        EXPECT_EQ(script.printers.Default(), "Attic");
        throw Error(kErrPrinter, QString(), "no");
    };
    EXPECT_EQ(tests::Raised(fail), "482 no");
    EXPECT_EQ(script.printers.defaultsSet, QStringList({"Attic", "Office"}));
}

TEST(ScriptedPrinters, AJobThatNobodyExpectsFailsTheTest) {
    EXPECT_NONFATAL_FAILURE(
        {
            ScriptedDesktop script;
            script.printers.system.deviceName = "Office";
            tests::Raised([&] { script.printers.Start(script.printers.system, "Plan"); });
        },
        "Unexpected print to \"Office\"");
    EXPECT_NONFATAL_FAILURE(
        {
            ScriptedDesktop script;
            script.ExpectJob("Office");
        },
        "1 expected prints never came");
}

TEST(ScriptedPrinters, AJobFailsWhenItIsToldTo) {
    ScriptedDesktop script;
    script.printers.names = QStringList{"Office"};
    script.printers.system.deviceName = "Office";
    script.ExpectJobFails("Office", JobFails::AtStart, 482, "start");
    EXPECT_EQ(tests::Raised([&] { script.printers.Start(script.printers.system, "Plan"); }), "482 start");
    EXPECT_TRUE(script.printers.jobs.empty());
    script.ExpectJobFails("Office", JobFails::AtNewPage, kErrDiskFull, "page");
    EXPECT_EQ(tests::Raised([&] { script.printers.Start(script.printers.system, "Plan")->NewPage(); }),
              "61 page");
    script.ExpectJobFails("Office", JobFails::AtFinish, 482, "finish");
    EXPECT_EQ(tests::Raised([&] { script.printers.Start(script.printers.system, "Plan")->Finish(); }),
              "482 finish");
    for (const auto &job : script.printers.jobs) EXPECT_TRUE(job->cancelled && !job->finished);
    script.printers.states["Office"] = PrinterState::Paused;
    script.ExpectJob("Office");
    EXPECT_TRUE(
        tests::Raised([&] { script.printers.Start(script.printers.system, "Plan"); }).contains("paused"));
}

TEST(ScriptedPrinters, RecordWhatWasPrinted) {
    ScriptedDesktop script;
    script.printers.names = QStringList{"Office"};
    script.printers.system.deviceName = "Office";
    script.ExpectJob("Office");
    const auto job = script.printers.Start(script.printers.system, "Plan");
    job->NewPage();
    job->Finish();
    const auto &record = *script.printers.jobs.back();
    EXPECT_TRUE(record.finished && !record.cancelled);
    EXPECT_EQ(record.pages, 2);
    EXPECT_EQ(record.documentName, "Plan");
    EXPECT_EQ(job->Destination(), "Office");
}
