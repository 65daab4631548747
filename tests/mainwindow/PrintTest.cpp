#include "app/settings/GetSet.h"
#include "diagram/model/Node.h"
#include "diagram/view/SurfaceView.h"
#include "document/DoSave.h"
#include "mainwindow/Toolbar.h"
#include "mainwindow/WindowPrinting.h"
#include "output/print/form/frmPageSetup.h"
#include "output/print/form/frmPrint.h"
#include "output/print/form/PreviewSheets.h"
#include "support/Error.h"
#include "support/Printers.h"
#include "tests/mainwindow/WindowTest.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QStatusBar>
#include <QTest>
#include <QToolBar>
#include <QWheelEvent>

namespace mainwindow::testing {

namespace {

using print::frmPageSetup;
using print::frmPrint;
using print::PreviewSheets;

const QString kOffice = QStringLiteral("Office");

class Print : public WindowTest {
protected:
    Print() {
        desktop.printers.names = {kOffice};
        desktop.printers.defaultName = kOffice;
        desktop.printers.system.deviceName = kOffice;
        settings::SaveSet(QStringLiteral("FitToPage"), QStringLiteral("False"));
        settings::SaveSet(QStringLiteral("PagePaper"), QStringLiteral("A4"));
        window = &NewWindow();
        // 3 by 2 pages of A4, upright.
        AddNode(*window, 100, 100, QStringLiteral("First"));
        AddNode(*window, 26000, 25000, QStringLiteral("Last"));
        settings::SaveSet(QStringLiteral("Ori"), QStringLiteral("1"));
    }
    ~Print() override { delete form; }

    frmPrint &Preview() {
        desktop.ExpectForm<print::PrintPreviewArgument>([this](print::PrintPreviewArgument &argument) {
            form = new frmPrint(argument);
            form->show();
            return true;
        });
        Run("mnuFilePrintPreview");
        EXPECT_TRUE(QTest::qWaitForWindowActive(form));
        return *form;
    }
    void Run(const char *key) { window->SmartMenuXP1_Click(QLatin1String(key)); }
    QString Panels() const {
        return form->Panel(QStringLiteral("PAGE")) + u'|' + form->Panel(QStringLiteral("VPAGE")) + u'|' +
               form->Panel(QStringLiteral("HPAGE"));
    }
    void Click(const char *key) { form->Button(QLatin1String(key))->trigger(); }
    void ChooseNumber(const char *key, int number) {
        form->Button(QLatin1String(key))->menu()->actions().at(number - 1)->trigger();
    }
    print::PageSetupArgument SetupArgument() {
        loaded = window->Printing().Loaded();
        return {
            desktop.Get(), *loaded, {QStringLiteral("One"), QStringLiteral("Two"), QStringLiteral("Three")}};
    }

    frmMain *window;
    QPointer<frmPrint> form;
    std::shared_ptr<print::LoadedPrint> loaded;
};

TEST_F(Print, PageBreaksAreSeenOverTheSliceAsLongAsThePreviewIsOpen) {
    const auto seen = [this] {
        ProcessEvents();
        return window->CurrentView().viewport()->grab().toImage();
    };
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

TEST_F(Print, SheetsStandBesideEachOtherWhereTheyHaveRoom) {
    Preview();
    form->resize(1000, 700);
    ProcessEvents();
    PreviewSheets &sheets = form->Sheets();
    EXPECT_EQ(sheets.Columns(), 1);
    form->cboZoom()->setCurrentIndex(2);
    form->cboZoom_Click();
    EXPECT_EQ(sheets.Columns(), 3);
    EXPECT_EQ(sheets.SheetRect(1).top(), sheets.SheetRect(0).top());
    EXPECT_GT(sheets.SheetRect(1).left(), sheets.SheetRect(0).right());
    EXPECT_GT(sheets.SheetRect(3).top(), sheets.SheetRect(0).bottom());
    const double millimetre = sheets.PixelsOfMillimetre();
    EXPECT_NEAR(sheets.SheetRect(0).width(), 210 * millimetre, 0.6);
    EXPECT_NEAR(sheets.SheetRect(0).height(), 297 * millimetre, 0.6);
}

TEST_F(Print, OnlySheetsInSightArePainted) {
    Preview();
    ASSERT_TRUE(QTest::qWaitFor([this] { return form->Sheets().IsPainted(0); }));
    EXPECT_FALSE(form->Sheets().IsPainted(5));
    QTest::keyClick(&form->Sheets(), Qt::Key_End);
    EXPECT_TRUE(QTest::qWaitFor([this] { return form->Sheets().IsPainted(5); }));
}

TEST_F(Print, KeysTurnPages) {
    Preview();
    const auto page = [this](Qt::Key key) {
        QTest::keyClick(&form->Sheets(), key);
        return form->PrnFlow1().Page();
    };
    EXPECT_EQ(page(Qt::Key_PageDown), 2);
    EXPECT_EQ(page(Qt::Key_PageDown), 3);
    EXPECT_EQ(page(Qt::Key_PageUp), 2);
    EXPECT_EQ(page(Qt::Key_End), 6);
    EXPECT_EQ(page(Qt::Key_PageDown), 6);
    EXPECT_EQ(page(Qt::Key_Home), 1);
    EXPECT_EQ(form->Panel(QStringLiteral("PAGE")), QStringLiteral("Pages: 1/6"));
}

TEST_F(Print, TheWheelScrollsAndZooms) {
    Preview();
    PreviewSheets &sheets = form->Sheets();
    const auto turn = [&](int by, Qt::KeyboardModifiers modifiers) {
        QWheelEvent event({100, 100}, sheets.viewport()->mapToGlobal(QPointF(100, 100)), {}, {0, by},
                          Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
        QApplication::sendEvent(sheets.viewport(), &event);
    };
    turn(-240, Qt::NoModifier);
    EXPECT_GT(sheets.verticalScrollBar()->value(), 0);
    turn(-240, Qt::ControlModifier);
    EXPECT_EQ(sheets.Zoom(), 80);
    EXPECT_EQ(form->cboZoom()->currentData().toInt(), 80);
    turn(120, Qt::ControlModifier);
    EXPECT_EQ(form->PrnFlow1().Zoom, 90);
    for (int i = 0; i < 30; ++i) turn(120, Qt::ControlModifier);
    EXPECT_EQ(sheets.Zoom(), 200);
}

TEST_F(Print, ScrollingFarEnoughTurnsThePage) {
    Preview();
    PreviewSheets &sheets = form->Sheets();
    sheets.verticalScrollBar()->setValue(int(sheets.SheetRect(1).top()));
    EXPECT_EQ(form->PrnFlow1().Page(), 2);
    EXPECT_EQ(form->Panel(QStringLiteral("PAGE")), QStringLiteral("Pages: 2/6"));
}

TEST_F(Print, TheHandDragsAndAClickChooses) {
    Preview();
    PreviewSheets &sheets = form->Sheets();
    sheets.verticalScrollBar()->setValue(50);
    QWidget *place = sheets.viewport();
    QTest::mousePress(place, Qt::LeftButton, {}, {200, 300});
    EXPECT_EQ(place->cursor().shape(), Qt::ClosedHandCursor);
    QTest::mouseMove(place, {200, 200});
    QTest::mouseRelease(place, Qt::LeftButton, {}, {200, 200});
    EXPECT_EQ(place->cursor().shape(), Qt::OpenHandCursor);
    EXPECT_EQ(sheets.verticalScrollBar()->value(), 150);
    form->cboZoom()->setCurrentIndex(1);
    form->cboZoom_Click();
    QTest::mouseClick(place, Qt::LeftButton, {}, sheets.SheetRect(1).center().toPoint());
    EXPECT_EQ(form->PrnFlow1().Page(), 2);
}

TEST_F(Print, PaperIsWhiteInADarkTheme) {
    const QPalette former = QApplication::palette();
    QApplication::setPalette(QPalette(QColor(40, 40, 40)));
    Preview();
    ASSERT_TRUE(QTest::qWaitFor([this] { return form->Sheets().IsPainted(0); }));
    const QImage picture = form->Sheets().viewport()->grab().toImage();
    const QPoint corner = (form->Sheets().SheetRect(0).topLeft() + QPointF(10, 10)).toPoint();
    EXPECT_EQ(picture.pixelColor(corner * picture.devicePixelRatio()), QColor(Qt::white));
    QApplication::setPalette(former);
}

TEST_F(Print, EscapeClosesThePreview) {
    Preview();
    QTest::keyClick(&form->Sheets(), Qt::Key_Escape);
    ProcessEvents();
    EXPECT_TRUE(form.isNull());
}

TEST_F(Print, PageSetupShowsWhatIsSet) {
    print::PageSetupArgument argument = SetupArgument();
    print::PrnFlow &flow = loaded->PrnFlow1;
    flow.Header = QStringLiteral("Above");
    flow.Footer = QStringLiteral("Below");
    flow.margins = {1, 2, 3, 4};
    flow.range = {2, 4};
    flow.slices = print::Slices::Chosen;
    flow.chosen = {1};
    flow.grid = true;
    loaded->SetOrientation(print::kLandscape);
    const frmPageSetup setup(argument, nullptr);
    EXPECT_EQ(setup.windowTitle(), QStringLiteral("Page Setup"));
    EXPECT_EQ(setup.txtHeader()->text(), QStringLiteral("Above"));
    EXPECT_EQ(setup.txtFooter()->text(), QStringLiteral("Below"));
    EXPECT_TRUE(setup.optOri(1)->isChecked());
    EXPECT_FALSE(setup.chkFit()->isChecked());
    EXPECT_EQ(setup.txtMargin(3)->value(), 4);
    EXPECT_EQ(setup.txtPages()->text(), QStringLiteral("2-4"));
    EXPECT_TRUE(setup.optSlices(2)->isChecked());
    EXPECT_EQ(setup.lstSlices()->item(1)->checkState(), Qt::Checked);
    EXPECT_EQ(setup.lstSlices()->item(0)->checkState(), Qt::Unchecked);
    EXPECT_TRUE(setup.chkGrid()->isChecked());
}

TEST_F(Print, PageSetupTakesTheOrientationFromThePrinter) {
    print::PageSetupArgument argument = SetupArgument();
    desktop.printers.system.orientation = support::PaperOrientation::Landscape;
    EXPECT_EQ(loaded->PrnFlow1.Orientation, print::kPortrait);
    EXPECT_TRUE(frmPageSetup(argument, nullptr).optOri(1)->isChecked());
}

TEST_F(Print, PageSetupIsKeptAndSavedByOkAlone) {
    print::PageSetupArgument argument = SetupArgument();
    {
        frmPageSetup setup(argument, nullptr);
        setup.txtHeader()->setText(QStringLiteral("New"));
        setup.findChild<QPushButton *>(QStringLiteral("cmdCancel"))->click();
        EXPECT_EQ(settings::GetSet(QStringLiteral("Header")), QString());
        EXPECT_EQ(loaded->PrnFlow1.Header, QString());
    }
    frmPageSetup setup(argument, nullptr);
    setup.txtHeader()->setText(QStringLiteral("New"));
    setup.txtFooter()->setText(QStringLiteral("&[Page]"));
    setup.optOri(1)->setChecked(true);
    setup.chkFit()->setChecked(true);
    setup.cboPaper()->setCurrentIndex(setup.cboPaper()->findData(QStringLiteral("A3")));
    setup.txtMargin(0)->setValue(33);
    setup.optSlices(1)->setChecked(true);
    setup.findChild<QPushButton *>(QStringLiteral("cmdOK"))->click();
    EXPECT_EQ(setup.result(), QDialog::Accepted);
    EXPECT_EQ(settings::GetSet(QStringLiteral("Header")), QStringLiteral("New"));
    EXPECT_EQ(settings::GetSet(QStringLiteral("Footer")), QStringLiteral("&[Page]"));
    EXPECT_EQ(settings::GetSet(QStringLiteral("Ori")), QStringLiteral("2"));
    EXPECT_EQ(settings::GetSet(QStringLiteral("FitToPage")), QStringLiteral("True"));
    EXPECT_EQ(desktop.printers.system.orientation, support::PaperOrientation::Landscape);
    EXPECT_EQ(loaded->PrnFlow1.paper, QStringLiteral("A3"));
    EXPECT_EQ(loaded->PrnFlow1.margins.left(), 33);
    EXPECT_EQ(loaded->PrnFlow1.slices, print::Slices::All);
}

TEST_F(Print, PageSetupSaysWhatMakesNoSense) {
    print::PageSetupArgument argument = SetupArgument();
    frmPageSetup setup(argument, nullptr);
    setup.txtPages()->setText(QStringLiteral("five"));
    desktop.ExpectMessageContaining(QStringLiteral("2-5"));
    setup.cmdOK_Click();
    setup.txtPages()->clear();
    setup.optSlices(2)->setChecked(true);
    desktop.ExpectMessageContaining(QStringLiteral("Slices"));
    setup.cmdOK_Click();
    EXPECT_NE(setup.result(), QDialog::Accepted);
}

TEST_F(Print, PageSetupChangesAnOpenPreview) {
    Preview();
    desktop.ExpectForm<print::PageSetupArgument>([](print::PageSetupArgument &argument) {
        frmPageSetup setup(argument, nullptr);
        setup.chkFit()->setChecked(true);
        setup.cmdOK_Click();
        return true;
    });
    Run("mnuFilePageSetup");
    EXPECT_EQ(Panels(), QStringLiteral("Pages: 1/1|Vertical Pages: 1|Horizontal Pages: 1"));
    EXPECT_TRUE(form->Button(QStringLiteral("FIT"))->isChecked());
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
