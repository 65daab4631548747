#include "output/print/LoadedPrint.h"

#include "diagram/model/Node.h"
#include "output/print/StorePageSetup.h"
#include "settings/GetSet.h"
#include "settings/Settings.h"
#include "support/Error.h"
#include "tests/output/print/PrintTest.h"

#include <QFileInfo>

namespace print::testing {

namespace {

using support::SystemPrinter;
using support::testing::JobFails;

const QString kOffice = QStringLiteral("Office"), kLobby = QStringLiteral("Lobby");

class LoadedPrintTest : public ::testing::Test {
protected:
    LoadedPrintTest() {
        desktop.printers.names = {kOffice, kLobby};
        desktop.printers.defaultName = kOffice;
        desktop.printers.system.deviceName = kOffice;
    }
    // With so many pages.
    std::unique_ptr<LoadedPrint> Loaded(int pages = 3) {
        auto form = std::make_unique<LoadedPrint>(desktop.Get());
        form->PrnFlow1.FitToPage = false;
        form->PrnFlow1.Orientation = kPortrait;
        form->PrnFlow1.paper = QStringLiteral("A4");
        form->PrnFlow1.SetSource([pages](const PageSetup &) {
            PrintedMap map;
            map.title = QStringLiteral("Plan");
            diagram::Surface surface;
            AddBox(surface, 0, 0, 50, 267 * pages - 20);
            map.slices.emplace_back(CopyOf(surface), QStringLiteral("Slice"));
            return map;
        });
        return form;
    }
    static bool GoOn(int, int) { return true; }
    const support::testing::ScriptedJobRecord &LastJob() { return *desktop.printers.jobs.back(); }
    QString Folder(const char *name) { return folder_.filePath(QLatin1String(name)); }

    support::testing::ScriptedDesktop desktop;

private:
    QTemporaryDir folder_;
};

TEST_F(LoadedPrintTest, StartsWithLandscapeOnOnePage) {
    const LoadedPrint form(desktop.Get());
    EXPECT_TRUE(form.PrnFlow1.FitToPage);
    EXPECT_EQ(form.PrnFlow1.Orientation, kLandscape);
    EXPECT_EQ(form.PrinterOrientation(), kLandscape);
    EXPECT_EQ(form.PrnFlow1.DocumentName, settings::Terms().TITLE);
    EXPECT_TRUE(form.PrnFlow1.Display);
}

TEST_F(LoadedPrintTest, SettingsLastFromOneRunToTheNext) {
    {
        LoadedPrint form(desktop.Get());
        form.PrnFlow1.Header = QStringLiteral("Above");
        form.PrnFlow1.Footer = QStringLiteral("Below");
        form.PrnFlow1.Orientation = kPortrait;
        form.PrnFlow1.FitToPage = false;
        form.Unload();
    }
    EXPECT_EQ(settings::GetSet(QStringLiteral("Ori")), QStringLiteral("1"));
    const LoadedPrint next(desktop.Get());
    EXPECT_EQ(next.PrnFlow1.Header, QStringLiteral("Above"));
    EXPECT_EQ(next.PrnFlow1.Footer, QStringLiteral("Below"));
    EXPECT_EQ(next.PrnFlow1.Orientation, kPortrait);
    EXPECT_EQ(next.PrinterOrientation(), kPortrait);
    EXPECT_FALSE(next.PrnFlow1.FitToPage);
}

TEST_F(LoadedPrintTest, TellsWhichMarginsThePrinterCanNotKeep) {
    const auto form = Loaded();
    desktop.printers.unprintable = {5, 5, 5, 20};
    EXPECT_EQ(form->TooNearTheEdge(form->PrnFlow1),
              QStringLiteral("The printer needs wider margins: bottom 20.0 mm."));
    PageSetup setup = form->PrnFlow1;
    setup.margins = {20, 20, 20, 20};
    EXPECT_EQ(form->TooNearTheEdge(setup), QString());
    desktop.printers.unprintable = {30, 30, 30, 30};
    setup.Orientation = kLandscape;
    EXPECT_NE(form->TooNearTheEdge(setup), QString()) << "another sheet is asked for anew";
    desktop.printers.system.outputFile = QStringLiteral("plan.pdf");
    EXPECT_EQ(form->TooNearTheEdge(setup), QString()) << "a file has no such edges";
}

TEST_F(LoadedPrintTest, PageSetupIsSavedAtOnce) {
    LoadedPrint form(desktop.Get());
    PageSetup setup = form.PrnFlow1;
    setup.Header = QStringLiteral("New");
    setup.Orientation = kPortrait;
    StorePageSetup(setup, form);
    EXPECT_EQ(settings::GetSet(QStringLiteral("Header")), QStringLiteral("New"));
    EXPECT_EQ(form.PrinterOrientation(), kPortrait);
}

TEST_F(LoadedPrintTest, PrintsAtOnceOnTheProgramsPrinter) {
    const auto form = Loaded();
    desktop.ExpectJob(kOffice);
    const auto printed = form->PrintAtOnce(nullptr, GoOn);
    ASSERT_TRUE(printed);
    EXPECT_EQ(TextOf(*printed), QStringLiteral("3 pages went to the printer Office."));
    EXPECT_EQ(LastJob().pages, 3);
    EXPECT_TRUE(LastJob().finished);
    EXPECT_EQ(LastJob().printer.orientation, support::PaperOrientation::Portrait);
    EXPECT_EQ(LastJob().documentName, settings::Terms().TITLE);
    EXPECT_FALSE(form->IsLoaded());
}

TEST_F(LoadedPrintTest, OnePageIsToldAsOne) {
    desktop.ExpectJob(kOffice);
    EXPECT_EQ(TextOf(*Loaded(1)->PrintAtOnce(nullptr, GoOn)),
              QStringLiteral("1 page went to the printer Office."));
}

TEST_F(LoadedPrintTest, WithoutAPrinterTheDialogAppears) {
    desktop.printers.names.clear();
    desktop.printers.system = SystemPrinter();
    desktop.ExpectPrinterChosen([&](SystemPrinter &printer) { printer.outputFile = Folder("plan.pdf"); });
    desktop.ExpectJob(Folder("plan.pdf"));
    const auto printed = Loaded()->PrintAtOnce(nullptr, GoOn);
    ASSERT_TRUE(printed);
    EXPECT_TRUE(TextOf(*printed).contains(QStringLiteral("plan.pdf")));
    EXPECT_TRUE(QFileInfo::exists(Folder("plan.pdf")));
}

TEST_F(LoadedPrintTest, WithoutAPrinterACancelledDialogPrintsNothing) {
    desktop.printers.system = SystemPrinter();
    desktop.ExpectPrinter(false);
    const auto form = Loaded();
    EXPECT_FALSE(form->PrintAtOnce(nullptr, GoOn));
    EXPECT_FALSE(form->IsLoaded());
    EXPECT_TRUE(desktop.printers.jobs.empty());
}

TEST_F(LoadedPrintTest, TheNextPrintKeepsTheFileOfTheLast) {
    desktop.printers.system.outputFile = Folder("plan.pdf");
    desktop.ExpectJob(Folder("plan.pdf"));
    Loaded()->PrintAtOnce(nullptr, GoOn);
    const QDateTime written = QFileInfo(Folder("plan.pdf")).lastModified();
    desktop.ExpectJob(Folder("plan (2).pdf"));
    const auto printed = Loaded()->PrintAtOnce(nullptr, GoOn);
    EXPECT_EQ(printed->destination, Folder("plan (2).pdf"));
    EXPECT_EQ(QFileInfo(Folder("plan.pdf")).lastModified(), written);
}

TEST_F(LoadedPrintTest, ACancelledDialogPrintsNothingYetUnloads) {
    const auto form = Loaded();
    desktop.ExpectPrinter(false);
    EXPECT_FALSE(form->PrintWithDialog(nullptr, GoOn));
    EXPECT_FALSE(form->IsLoaded());
    EXPECT_TRUE(desktop.printers.jobs.empty());
    EXPECT_TRUE(desktop.printers.defaultsSet.isEmpty());
    EXPECT_EQ(desktop.printers.defaultName, kOffice);
}

TEST_F(LoadedPrintTest, TheDefaultPrinterIsAsBeforeAlsoAfterAnother) {
    const auto form = Loaded();
    desktop.ExpectPrinterChosen([](SystemPrinter &printer) { printer.deviceName = kLobby; });
    desktop.ExpectJob(kLobby);
    const auto printed = form->PrintWithDialog(nullptr, GoOn);
    EXPECT_EQ(printed->destination, kLobby);
    EXPECT_EQ(desktop.printers.defaultsSet, QStringList({kLobby, kOffice}));
    EXPECT_FALSE(form->IsLoaded());
}

TEST_F(LoadedPrintTest, TheDefaultPrinterIsAsBeforeAlsoAfterAnError) {
    for (const JobFails when : {JobFails::AtStart, JobFails::AtNewPage, JobFails::AtFinish}) {
        desktop.printers.defaultsSet.clear();
        desktop.printers.system.deviceName = kOffice;
        const auto form = Loaded();
        desktop.ExpectPrinterChosen([](SystemPrinter &printer) { printer.deviceName = kLobby; });
        desktop.ExpectJobFails(kLobby, when, support::kErrDeviceUnavailable, QStringLiteral("It has gone."));
        EXPECT_THROW(form->PrintWithDialog(nullptr, GoOn), support::Error);
        EXPECT_EQ(desktop.printers.defaultsSet, QStringList({kLobby, kOffice}));
        EXPECT_FALSE(form->IsLoaded());
    }
}

TEST_F(LoadedPrintTest, TheDialogsChoicesAreHonoured) {
    const auto form = Loaded(6);
    desktop.ExpectPrinterChosen([](SystemPrinter &printer) {
        printer.pages = QPageRanges::fromString(QStringLiteral("2-3,5"));
        printer.order = support::PageOrder::LastToFirst;
        printer.copies = 4;
        printer.sides = support::Sides::LongEdge;
        printer.colour = false;
    });
    desktop.ExpectJob(kOffice);
    const auto printed = form->PrintWithDialog(nullptr, GoOn);
    EXPECT_EQ(printed->pages, 3);
    EXPECT_EQ(LastJob().printer.copies, 4);
    EXPECT_EQ(LastJob().printer.sides, support::Sides::LongEdge);
    EXPECT_FALSE(LastJob().printer.colour);
}

TEST_F(LoadedPrintTest, PagesAndCopiesAreChosenForOneJobAlone) {
    desktop.ExpectPrinterChosen([](SystemPrinter &printer) {
        printer.pages = QPageRanges::fromString(QStringLiteral("2"));
        printer.copies = 4;
        printer.colour = false;
    });
    desktop.ExpectJob(kOffice);
    EXPECT_EQ(Loaded()->PrintWithDialog(nullptr, GoOn)->pages, 1);
    desktop.ExpectJob(kOffice);
    EXPECT_EQ(Loaded()->PrintAtOnce(nullptr, GoOn)->pages, 3);
    EXPECT_EQ(LastJob().printer.copies, 1);
    EXPECT_FALSE(LastJob().printer.colour);
}

TEST_F(LoadedPrintTest, PaperAndOrientationOfTheDialogLayThePagesOutAnew) {
    const auto form = Loaded(3);
    desktop.ExpectPrinterChosen([](SystemPrinter &printer) {
        EXPECT_EQ(printer.orientation, support::PaperOrientation::Portrait);
        EXPECT_EQ(printer.paper.id(), QPageSize::A4);
        EXPECT_EQ(printer.documentName, QStringLiteral("Plan"));
        printer.orientation = support::PaperOrientation::Landscape;
        printer.paper = QPageSize(QPageSize::A3);
    });
    desktop.ExpectJob(kOffice);
    form->PrintWithDialog(nullptr, GoOn);
    EXPECT_EQ(form->PrnFlow1.paper, QStringLiteral("A3"));
    EXPECT_EQ(form->PrnFlow1.Orientation, kLandscape);
    EXPECT_EQ(LastJob().printer.paper.id(), QPageSize::A3);
}

TEST_F(LoadedPrintTest, GivingUpLeavesNothing) {
    const auto form = Loaded(5);
    desktop.printers.system.outputFile = Folder("plan.pdf");
    desktop.ExpectJob(Folder("plan.pdf"));
    const auto printed = form->PrintAtOnce(nullptr, [](int done, int of) { return done < 2 && of == 5; });
    EXPECT_TRUE(printed->givenUp);
    EXPECT_EQ(TextOf(*printed), QStringLiteral("Printing was given up. Nothing was printed."));
    EXPECT_TRUE(LastJob().cancelled);
    EXPECT_FALSE(QFileInfo::exists(Folder("plan.pdf")));
}

TEST_F(LoadedPrintTest, PagesThatAreNotThereAreAnError) {
    const auto form = Loaded(2);
    form->PrnFlow1.range = {5, 9};
    EXPECT_THROW(form->PrintAtOnce(nullptr, GoOn), support::Error);
    EXPECT_FALSE(form->IsLoaded());
    EXPECT_TRUE(desktop.printers.jobs.empty());
}

TEST_F(LoadedPrintTest, UnloadingPutsScalingBackAndClosesTheWindow) {
    const auto form = Loaded();
    form->PrnFlow1.Run();
    form->PrnFlow1.Surface()->SetxZoom(40);
    form->PrnFlow1.Surface()->SetyZoom(40);
    int closed = 0;
    form->close = [&] { ++closed, form->Unload(); };
    form->Unload();
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(form->PrnFlow1.Surface()->xZoom(), 100);
    EXPECT_EQ(form->PrnFlow1.Surface()->yZoom(), 100);
}

} // namespace

} // namespace print::testing
