#include "tests/mainwindow/PrintTest.h"
#include "diagram/model/Node.h"
#include "diagram/view/SurfaceView.h"
#include "mainwindow/controls/cStatusBar.h"
#include "output/print/form/PreviewSheets.h"
#include "settings/GetSet.h"
#include "support/Error.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QProgressDialog>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>

namespace mainwindow::testing {

namespace {

const QString kOffice = QStringLiteral("Office");
class Print : public PrintTest {};

TEST_F(Print, PageBreaksAreSeenOverTheSliceAsLongAsThePreviewIsOpen) {
    const auto seen = [this] {
        ProcessEvents();
        return window->CurrentView().viewport()->grab().toImage();
    };
    window->resize(1200, 900); // a page and a part of the next
    const QImage before = seen();
    Preview();
    const double right = form->PrnFlow1().LayoutOf(1).columns[1];
    const QImage open = seen();
    EXPECT_NE(open, before);
    const int column = PixelOf(*window, {right, 0}).x();
    int differing = 0; // columns that differ from before
    for (int x = 0; x < open.width(); ++x) {
        if (open.copy(x, 0, 1, 20) == before.copy(x, 0, 1, 20)) continue;
        ++differing;
        EXPECT_NEAR(x, column * open.devicePixelRatio(), 2);
    }
    EXPECT_GT(differing, 0);
    Click("FIT");
    EXPECT_EQ(seen(), before);
    Click("FIT");
    EXPECT_EQ(seen(), open);
    form->close();
    EXPECT_EQ(seen(), before);
}

TEST_F(Print, ToolbarHasItsButtonsByKeyAndTip) {
    Preview();
    QStringList buttons;
    for (const QAction *action : form->findChild<QToolBar *>(QStringLiteral("tlbPint"))->actions())
        if (!action->objectName().isEmpty())
            buttons << action->objectName() + u'|' + (action->menu() ? QString() : action->toolTip());
    EXPECT_EQ(buttons,
              QStringList({QStringLiteral("PRINT|Print"), QStringLiteral("PORTRAIT|Portrait"),
                           QStringLiteral("LANDSCAPE|Landscape"), QStringLiteral("PRIOR|Previous Page"),
                           QStringLiteral("NEXT|Next Page"), QStringLiteral("FIT|Fit to one page"),
                           QStringLiteral("DOWN|"), QStringLiteral("WIDE|")}));
    for (const char *key : {"DOWN", "WIDE"}) {
        QStringList entries;
        for (const QAction *entry : form->Button(QLatin1String(key))->menu()->actions())
            entries << entry->text();
        EXPECT_EQ(entries.join(u' '), QStringLiteral("1 2 3 4 5 6 7 8 9 10"));
    }
}

TEST_F(Print, ZoomBoxListsTensToTwoHundred) {
    Preview();
    const QComboBox &box = *form->cboZoom();
    ASSERT_EQ(box.count(), 20);
    for (int i = 0; i < box.count(); ++i) {
        EXPECT_EQ(box.itemText(i), QStringLiteral("%1%").arg((i + 1) * 10));
        EXPECT_EQ(box.itemData(i).toInt(), (i + 1) * 10);
    }
    EXPECT_EQ(box.currentData().toInt(), 100);
    EXPECT_EQ(form->PrnFlow1().Zoom, 0);
    form->cboZoom()->setCurrentIndex(4);
    form->cboZoom_Click();
    EXPECT_EQ(form->PrnFlow1().Zoom, 50);
    EXPECT_EQ(form->Sheets().Zoom(), 50);
}

TEST_F(Print, StatusTellsThePages) {
    Preview();
    EXPECT_EQ(Panels(), QStringLiteral("Pages: 1/6|Vertical Pages: 2|Horizontal Pages: 3"));
    Click("NEXT");
    EXPECT_EQ(form->Panel(QStringLiteral("PAGE")), QStringLiteral("Pages: 2/6"));
    Click("PRIOR");
    EXPECT_EQ(form->Panel(QStringLiteral("PAGE")), QStringLiteral("Pages: 1/6"));
    EXPECT_FALSE(form->Button(QStringLiteral("PRIOR"))->isEnabled());
    Click("LANDSCAPE");
    EXPECT_EQ(Panels(), QStringLiteral("Pages: 1/6|Vertical Pages: 3|Horizontal Pages: 2"));
    EXPECT_TRUE(form->Button(QStringLiteral("LANDSCAPE"))->isChecked());
    EXPECT_FALSE(form->Button(QStringLiteral("PORTRAIT"))->isChecked());
    Click("FIT");
    EXPECT_EQ(Panels(), QStringLiteral("Pages: 1/1|Vertical Pages: 1|Horizontal Pages: 1"));
    Click("FIT");
    EXPECT_EQ(form->PrnFlow1().Pages(), 6);
}

TEST_F(Print, PagesAskedForScaleThePreviewAlone) {
    Preview();
    window->CurrentSurface().SetxZoom(80);
    window->CurrentSurface().SetyZoom(80);
    ChooseNumber("DOWN", 4);
    EXPECT_GE(form->PrnFlow1().VerticalPages(), 4);
    EXPECT_NE(form->AF()->xZoom(), 100);
    EXPECT_EQ(window->CurrentSurface().xZoom(), 80);
    const auto actions = form->Button(QStringLiteral("DOWN"))->menu()->actions();
    EXPECT_EQ(actions.at(3)->property("Tag").toString(), QStringLiteral("1"));
    ChooseNumber("DOWN", 2);
    EXPECT_EQ(actions.at(3)->property("Tag").toString(), QString());
    EXPECT_EQ(actions.at(1)->property("Tag").toString(), QStringLiteral("1"));
    Click("DOWN");
    EXPECT_EQ(form->AF()->xZoom(), 100);
    EXPECT_EQ(form->PrnFlow1().VerticalPages(), 2);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(Print, FittedPagesSayThatNumbersChangeNothing) {
    Preview();
    Click("FIT");
    for (const auto &choose : {std::function<void()>([this] { ChooseNumber("WIDE", 3); }),
                               std::function<void()>([this] { Click("DOWN"); })}) {
        form->statusBar()->clearMessage();
        choose();
        EXPECT_TRUE(form->statusBar()->currentMessage().contains(QStringLiteral("Fit to one page")));
        EXPECT_EQ(form->AF()->xZoom(), 100);
    }
}

TEST_F(Print, ClosingPutsScalingBackAndSavesTheSettings) {
    Preview();
    ChooseNumber("WIDE", 5);
    const auto state = window->Printing().Loaded();
    Click("LANDSCAPE");
    Click("FIT");
    form->close();
    EXPECT_EQ(state->PrnFlow1.Surface()->xZoom(), 100);
    EXPECT_EQ(state->PrnFlow1.Surface()->yZoom(), 100);
    EXPECT_EQ(settings::GetSet(QStringLiteral("Ori")), QStringLiteral("2"));
    EXPECT_EQ(settings::GetSet(QStringLiteral("FitToPage")), QStringLiteral("True"));
    EXPECT_FALSE(state->IsLoaded());
}

TEST_F(Print, ASaveUnderAScaledPreviewKeepsTheWindowsZoom) {
    const QString path = MapFile(QStringLiteral("plan.map"));
    window->clsSettings().SetDatabase(path);
    Preview();
    ChooseNumber("WIDE", 5);
    Run("mnuFileSave");
    form->close();
    frmMain &other = NewWindow();
    other.Load(path);
    EXPECT_EQ(other.CurrentSurface().xZoom(), 100);
}

TEST_F(Print, ThePreviewOutlivesItsSlice) {
    desktop.ExpectInput(QStringLiteral("Name for Slice."), QStringLiteral("Second"));
    Run("mnuEditSlicesInsert");
    window->TabStrip().SetTheTab(1);
    AddNode(*window, 0, 0, QStringLiteral("Only"));
    Preview();
    EXPECT_EQ(form->PrnFlow1().Pages(), 1);
    window->activateWindow();
    desktop.ExpectMessage(QStringLiteral("Are you sure you want to delete 'Second'?"), support::Answer::Yes);
    Run("mnuEditSlicesDelete");
    form->Form_Activate();
    Click("LANDSCAPE");
    EXPECT_EQ(form->PrnFlow1().Pages(), 1);
    EXPECT_EQ(form->AF()->Nodes().Item(1).Text(), QStringLiteral("Only"));
    EXPECT_TRUE(form->PrnFlow1().IsGone());
    EXPECT_FALSE(form->statusBar()->currentMessage().isEmpty());
}

TEST_F(Print, ThePreviewOutlivesItsWindow) {
    Preview();
    delete window;
    form->Form_Activate();
    Click("LANDSCAPE");
    EXPECT_EQ(form->PrnFlow1().Pages(), 6);
    desktop.ExpectPrinter(true);
    desktop.ExpectJob(kOffice);
    Click("PRINT");
    EXPECT_EQ(desktop.printers.jobs.back()->pages, 6);
}

TEST_F(Print, ThePreviewShowsWhatWasChangedMeanwhile) {
    Preview();
    AddNode(*window, 26000, 35000, QStringLiteral("More"));
    form->Form_Activate();
    EXPECT_EQ(form->PrnFlow1().VerticalPages(), 3);
}

// Changes in quick succession are followed once, without a click or an activation.
TEST_F(Print, ThePreviewAndThePageBreaksFollowTheSlice) {
    window->resize(1200, 900);
    Preview();
    int shown = 0;
    const auto state = window->Printing().Loaded();
    const auto told = state->pagesChanged;
    state->pagesChanged = [&] { ++shown, told(); };
    const auto seen = [this] {
        ProcessEvents();
        return window->CurrentView().viewport()->grab().toImage();
    };
    diagram::Surface &surface = window->CurrentSurface();
    for (int i = 0; i < 20; ++i) AddNode(*window, 26000, float(26000 + 500 * i), QStringLiteral("More"));
    EXPECT_TRUE(QTest::qWaitFor([this] { return form->PrnFlow1().VerticalPages() == 3; }));
    EXPECT_EQ(shown, 1);
    while (surface.Nodes().Count() > 1) surface.Remove(surface.Nodes().Item(surface.Nodes().Count()));
    EXPECT_TRUE(QTest::qWaitFor([this] { return form->PrnFlow1().Pages() == 1; }));
    EXPECT_EQ(shown, 2);
    EXPECT_EQ(form->Panel(QStringLiteral("PAGE")), QStringLiteral("Pages: 1/1"));
    const QImage withoutBreaks = seen();
    form->close();
    EXPECT_EQ(seen(), withoutBreaks);
}

TEST_F(Print, AMarginThatThePrinterCanNotKeepIsToldInThePreview) {
    desktop.printers.unprintable = {4, 4, 4, 30};
    Preview();
    const QString told = QStringLiteral("The printer needs wider margins: bottom 30.0 mm.");
    EXPECT_EQ(form->statusBar()->currentMessage(), told);
    form->PrnFlow1().margins = {30, 30, 30, 30};
    Click("LANDSCAPE");
    EXPECT_EQ(form->statusBar()->currentMessage(), QString());
}

// So many pages that the print cannot end before Escape arrives.
class LongPrint : public Print {
protected:
    LongPrint() {
        AddNode(*window, 5'000'000, 5'000'000, QStringLiteral("Far"));
        escape_.start(1);
    }
    // Presses Escape once `where` gives a widget to press it on.
    void PressEscapeOn(std::function<QWidget *()> where) {
        QObject::connect(&escape_, &QTimer::timeout, [where = std::move(where)] {
            if (QWidget *widget = where()) QTest::keyClick(widget, Qt::Key_Escape);
        });
    }
    void ExpectNothingPrinted() {
        EXPECT_EQ(Status(*window), QStringLiteral("Printing was given up. Nothing was printed."));
        ASSERT_EQ(desktop.printers.jobs.size(), 1U);
        EXPECT_TRUE(desktop.printers.jobs[0]->cancelled);
        EXPECT_FALSE(desktop.printers.jobs[0]->finished);
        EXPECT_EQ(window->MousePointer(), document::pointer::kNormal);
    }

private:
    QTimer escape_;
};

TEST_F(LongPrint, EscapeInThePreviewsProgressGivesUp) {
    Preview();
    PressEscapeOn(
        []() -> QWidget * { return qobject_cast<QProgressDialog *>(QApplication::activeModalWidget()); });
    desktop.ExpectPrinter(true);
    desktop.ExpectJob(kOffice);
    Click("PRINT");
    EXPECT_FALSE(form && form->isVisible());
    ExpectNothingPrinted();
}

TEST_F(LongPrint, EscapeInTheWindowGivesUp) {
    auto *bar = window->findChild<cStatusBar *>(QStringLiteral("staMain"));
    PressEscapeOn([this, bar]() -> QWidget * {
        return bar->Doing().contains(QStringLiteral("Escape")) ? &window->CurrentView() : nullptr;
    });
    desktop.ExpectJob(kOffice);
    Run("mnuFilePrint");
    ExpectNothingPrinted();
}

TEST_F(Print, APreviewThatIsGoneIsMadeAnew) {
    Preview();
    delete form;
    Preview();
    EXPECT_EQ(form->PrnFlow1().Pages(), 6);
}

TEST_F(Print, ASecondPreviewOfAWindowIsTheSameForm) {
    Preview();
    Run("mnuFilePrintPreview");
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(form->PrnFlow1().Pages(), 6);
}

TEST_F(Print, PrintsFromThePreviewAndCloses) {
    Preview();
    desktop.ExpectPrinter(true);
    desktop.ExpectJob(kOffice);
    Click("PRINT");
    EXPECT_FALSE(form && form->isVisible());
    EXPECT_EQ(Status(*window), QStringLiteral("6 pages went to the printer Office."));
    EXPECT_EQ(desktop.printers.jobs.back()->pages, 6);
    EXPECT_EQ(desktop.printers.jobs.size(), 1U);
}

TEST_F(Print, ACancelledDialogPrintsNothingAndCloses) {
    Preview();
    desktop.ExpectPrinter(false);
    Click("PRINT");
    EXPECT_FALSE(form && form->isVisible());
    EXPECT_TRUE(desktop.printers.jobs.empty());
    EXPECT_TRUE(desktop.printers.defaultsSet.isEmpty());
}

TEST_F(Print, APrinterThatHasGoneIsToldAndTheWindowStaysUsable) {
    Preview();
    desktop.ExpectPrinter(true);
    desktop.ExpectJobFails(kOffice, support::testing::JobFails::AtStart, support::kErrDeviceUnavailable,
                           QStringLiteral("The printer Office has gone."));
    desktop.ExpectMessageContaining(QStringLiteral("The printer Office has gone."));
    Click("PRINT");
    EXPECT_EQ(desktop.printers.defaultsSet.last(), kOffice);
    EXPECT_TRUE(window->isEnabled());
    desktop.ExpectJob(kOffice);
    Run("mnuFilePrint");
    EXPECT_EQ(Status(*window), QStringLiteral("6 pages went to the printer Office."));
}

TEST_F(Print, TheMenuPrintsAtOnceAndSaysWhere) {
    desktop.ExpectJob(kOffice);
    Run("mnuFilePrint");
    EXPECT_EQ(Status(*window), QStringLiteral("6 pages went to the printer Office."));
    EXPECT_EQ(window->MousePointer(), document::pointer::kNormal);
}

TEST_F(Print, TheMenuPrintsAndUnloadsAnOpenPreview) {
    Preview();
    desktop.ExpectJob(kOffice);
    Run("mnuFilePrint");
    EXPECT_FALSE(form && form->isVisible());
}

TEST_F(Print, WithoutAPrinterTheDialogAppears) {
    desktop.printers.system = {};
    const QString path = MapFile(QStringLiteral("plan.pdf"));
    desktop.ExpectPrinterChosen([&](support::SystemPrinter &printer) { printer.outputFile = path; });
    desktop.ExpectJob(path);
    Run("mnuFilePrint");
    EXPECT_EQ(Status(*window), QStringLiteral("6 pages went to %1.").arg(QDir::toNativeSeparators(path)));
    desktop.ExpectJob(MapFile(QStringLiteral("plan (2).pdf")));
    Run("mnuFilePrint");
}

TEST_F(Print, TextThatIsBeingTypedIsPrinted) {
    diagram::Node &node = window->CurrentSurface().Nodes().Item(1);
    node.SetSelected(true);
    Press(*window, QStringLiteral("F2"));
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("typed"));
    Preview();
    EXPECT_EQ(form->AF()->Nodes().Item(1).Text(), QStringLiteral("typed"));
}

TEST_F(Print, ChosenPagesLastForTheMapOfTheWindow) {
    window->Printing().Loaded()->PrnFlow1.range = {2, 3};
    desktop.ExpectJob(kOffice);
    Run("mnuFilePrint");
    EXPECT_EQ(window->Printing().Loaded()->PrnFlow1.range, (print::PageRange{2, 3}));
    window->Printing().Loaded()->Unload();
    window->clsSettings().SetDatabase(MapFile(QStringLiteral("other.map")));
    EXPECT_EQ(window->Printing().Loaded()->PrnFlow1.range, print::PageRange());
}

} // namespace

} // namespace mainwindow::testing
