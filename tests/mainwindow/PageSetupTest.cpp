#include "output/print/form/frmPageSetup.h"
#include "settings/GetSet.h"
#include "tests/mainwindow/PrintTest.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>

namespace mainwindow::testing {

namespace {

using print::frmPageSetup;
class PageSetup : public PrintTest {};

TEST_F(PageSetup, ShowsWhatIsSet) {
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

TEST_F(PageSetup, MarginsThatThePrinterCanNotKeepAreToldQuietly) {
    desktop.printers.unprintable = {4, 4, 4, 12.7};
    print::PageSetupArgument argument = SetupArgument();
    frmPageSetup setup(argument, nullptr);
    const auto &label = *setup.findChild<QLabel *>(QStringLiteral("lblTooNear"));
    EXPECT_EQ(label.text(), QString());
    setup.txtMargin(3)->setValue(10);
    setup.txtMargin(0)->setValue(0);
    EXPECT_EQ(label.text(), QStringLiteral("The printer needs wider margins: left 4.0 mm, bottom 12.7 mm."));
    setup.txtMargin(0)->setValue(4);
    desktop.printers.unprintable = {}; // those of landscape sheets
    setup.optOri(1)->click();
    EXPECT_EQ(label.text(), QString());
    setup.optOri(0)->click();
    desktop.printers.unprintable = {4, 4, 4, 12.7};
    setup.cboPaper()->setCurrentIndex(setup.cboPaper()->count() - 1);
    Q_EMIT setup.cboPaper()->activated(setup.cboPaper()->currentIndex());
    EXPECT_EQ(label.text(), QStringLiteral("The printer needs wider margins: bottom 12.7 mm."));
    setup.cmdOK_Click();
    EXPECT_EQ(setup.result(), QDialog::Accepted) << "it is the user's choice all the same";
}

TEST_F(PageSetup, TakesTheOrientationFromThePrinter) {
    print::PageSetupArgument argument = SetupArgument();
    desktop.printers.system.orientation = support::PaperOrientation::Landscape;
    EXPECT_EQ(loaded->PrnFlow1.Orientation, print::kPortrait);
    EXPECT_TRUE(frmPageSetup(argument, nullptr).optOri(1)->isChecked());
}

TEST_F(PageSetup, IsKeptAndSavedByOkAlone) {
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

TEST_F(PageSetup, SaysWhatMakesNoSense) {
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

TEST_F(PageSetup, ChangesAnOpenPreview) {
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

} // namespace

} // namespace mainwindow::testing
