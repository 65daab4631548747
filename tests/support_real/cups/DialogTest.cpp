// What the user chooses in the print dialog, and what comes out of the printer then.
#include "tests/support_real/cups/CupsTest.h"
#include "tests/support_real/cups/PdfReader.h"
#include "tests/support_real/Shown.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTest>

using namespace cups_test;
using namespace support;

namespace {

template <typename Control>
Control &In(QDialog &dialog, const char *name) {
    auto *found = dialog.findChild<Control *>(QString::fromLatin1(name));
    if (!found) qFatal("the dialog has no %s", name);
    return *found;
}

class Dialog : public CupsTest {
protected:
    // Shows the dialog, does what the user does, and presses Print.
    void Choose(std::function<void(QPrintDialog &)> user) {
        OnceShown<QPrintDialog>([&user](QPrintDialog &dialog) {
            user(dialog);
            dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->click();
        });
        EXPECT_TRUE(desktop.dialogs.ShowPrinter(nullptr));
    }
    // Prints a document of four pages as was chosen, and reads what came out.
    QString Printed() {
        const SystemPrinter printer = printers->System();
        QStringList texts;
        for (const int page : PagesToPrint(printer, 4)) texts << QStringLiteral("P%1").arg(page);
        Painted(*printers, printer, texts)->Finish();
        return TextOf(cups->Printed(printer.deviceName));
    }
    Job LastJob() { return cups->Jobs(printers->System().deviceName).back(); }
};

} // namespace

TEST_F(Dialog, OkAloneTakesTheDefaultPrinter) {
    Choose([](QPrintDialog &dialog) {
        const auto &names = In<QComboBox>(dialog, "printers");
        EXPECT_EQ(names.currentText(), "Office");
        EXPECT_GE(names.findText(QStringLiteral("PDF"), Qt::MatchContains), 0);
    });
    EXPECT_EQ(Printed(), "P1\fP2\fP3\fP4\f");
    EXPECT_EQ(LastJob().sides, "one-sided");
}

TEST_F(Dialog, AnotherPrinterBecomesTheProgramsAndTheSystemsDefaultStays) {
    Choose([](QPrintDialog &dialog) { In<QComboBox>(dialog, "printers").setCurrentText("Attic"); });
    EXPECT_EQ(printers->System().deviceName, "Attic");
    EXPECT_EQ(Printed(), "P1\fP2\fP3\fP4\f");
    EXPECT_EQ(printers->Default(), "Office");
    Choose([](QPrintDialog &dialog) { EXPECT_EQ(In<QComboBox>(dialog, "printers").currentText(), "Attic"); });
}

TEST_F(Dialog, CopiesPagesOrderAndSides) {
    Choose([](QPrintDialog &dialog) {
        In<QSpinBox>(dialog, "copies").setValue(2);
        In<QCheckBox>(dialog, "collate").setChecked(true);
        In<QCheckBox>(dialog, "reverse").setChecked(true);
        In<QRadioButton>(dialog, "pagesRadioButton").setChecked(true);
        In<QLineEdit>(dialog, "pagesLineEdit").setText("1,3-4");
        In<QRadioButton>(dialog, "duplexLong").click();
    });
    EXPECT_EQ(Printed(), "P4\fP3\fP1\fP4\fP3\fP1\f");
    EXPECT_EQ(LastJob().sides, "two-sided-long-edge");
    EXPECT_EQ(LastJob().copies, 2);
}

TEST_F(Dialog, TheFormerPagesAreShownAndWrongOnesRefused) {
    printers->System().pages = QPageRanges::fromString("2,4");
    OnceShown<QPrintDialog>([](QPrintDialog &dialog) {
        auto &pages = In<QLineEdit>(dialog, "pagesLineEdit");
        EXPECT_TRUE(In<QRadioButton>(dialog, "pagesRadioButton").isChecked());
        EXPECT_EQ(pages.text(), "2,4");
        pages.setText("4-");
        OnceShown<QMessageBox>([](QMessageBox &box) { box.accept(); });
        dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->click();
        EXPECT_TRUE(dialog.isVisible());
        pages.setText("3-4");
        dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->click();
    });
    EXPECT_TRUE(desktop.dialogs.ShowPrinter(nullptr));
    EXPECT_EQ(Printed(), "P3\fP4\f");
    Choose([](QPrintDialog &dialog) { In<QRadioButton>(dialog, "printAll").click(); });
    EXPECT_TRUE(printers->System().pages.isEmpty());
}

TEST_F(Dialog, EveryOtherPage) {
    Choose([](QPrintDialog &dialog) { In<QComboBox>(dialog, "pageSetCombo").setCurrentIndex(2); });
    EXPECT_EQ(printers->System().pageSet, PageSet::Even);
    EXPECT_EQ(Printed(), "P2\fP4\f");
}

TEST_F(Dialog, PaperOrientationAndColourFromTheProperties) {
    Choose([](QPrintDialog &dialog) {
        OnceShown<QDialog>([](QDialog &properties) {
            QTest::keyClick(&In<QComboBox>(properties, "pageSizeCombo"), Qt::Key_Down);
            In<QRadioButton>(properties, "landscape").click();
            for (QComboBox *combo : properties.findChildren<QComboBox *>())
                if (combo->findText("Gray") >= 0) combo->setCurrentText("Gray");
            properties.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->click();
        });
        In<QPushButton>(dialog, "properties").click();
    });
    const SystemPrinter &printer = printers->System();
    EXPECT_EQ(printer.paper.id(), QPageSize::A3);
    EXPECT_EQ(printer.orientation, PaperOrientation::Landscape);
    EXPECT_FALSE(printer.colour);
    EXPECT_EQ(Printed(), "P1\fP2\fP3\fP4\f");
    EXPECT_EQ(LastJob().media, "A3");
    EXPECT_EQ(LastJob().colour, "monochrome");
    EXPECT_EQ(SizeOf(cups->OutputOf("Office")), "842 x 1191");
    const SystemPrinter before = printer;
    Choose([](QPrintDialog &) {});
    EXPECT_EQ(printers->System(), before);
    Choose([](QPrintDialog &dialog) { In<QComboBox>(dialog, "printers").setCurrentText("Attic"); });
    EXPECT_TRUE(printers->System().colour);
}

TEST_F(Dialog, ThePaperStaysUnlessThePrinterHasNone) {
    printers->System().paper = QPageSize(QPageSize::A3);
    Choose([](QPrintDialog &dialog) {
        OnceShown<QDialog>([](QDialog &properties) {
            EXPECT_EQ(In<QComboBox>(properties, "pageSizeCombo").currentText(), "A3");
            properties.reject();
        });
        In<QPushButton>(dialog, "properties").click();
    });
    EXPECT_EQ(printers->System().paper.id(), QPageSize::A3);
    Choose([](QPrintDialog &) {});
    EXPECT_EQ(printers->System().paper.id(), QPageSize::A3);
    Choose([](QPrintDialog &dialog) { In<QComboBox>(dialog, "printers").setCurrentText("Attic"); });
    EXPECT_EQ(printers->System().paper.id(), QPageSize::A4);
}

TEST_F(Dialog, AFileInsteadOfAPrinterAndBack) {
    const QTemporaryDir folder;
    Choose([&](QPrintDialog &dialog) {
        auto &names = In<QComboBox>(dialog, "printers");
        names.setCurrentIndex(names.findText(QStringLiteral("PDF"), Qt::MatchContains));
        In<QLineEdit>(dialog, "filename").setText(folder.filePath("plan.pdf"));
    });
    EXPECT_EQ(printers->System().outputFile, folder.filePath("plan.pdf"));
    EXPECT_EQ(printers->System().deviceName, "Office");
    Painted(*printers, printers->System(), {"In a file"})->Finish();
    EXPECT_EQ(TextOf(folder.filePath("plan.pdf")), "In a file\f");
    EXPECT_TRUE(cups->Jobs("Office").empty());
    Choose([&](QPrintDialog &dialog) {
        EXPECT_EQ(In<QLineEdit>(dialog, "filename").text(), folder.filePath("plan (2).pdf"));
        In<QComboBox>(dialog, "printers").setCurrentText("Office");
    });
    EXPECT_FALSE(printers->System().ToFile());
    EXPECT_EQ(Printed(), "P1\fP2\fP3\fP4\f");
}

TEST_F(Dialog, AfterThePrinterVanishedAnotherOneIsOffered) {
    EXPECT_EQ(printers->System().deviceName, "Office");
    cups->Command("lpadmin", {"-x", "Office"});
    Choose([](QPrintDialog &dialog) { EXPECT_EQ(In<QComboBox>(dialog, "printers").currentText(), "Attic"); });
    EXPECT_EQ(Printed(), "P1\fP2\fP3\fP4\f");
}

TEST_F(Dialog, ChoicesAreThereTheNextTimeAndCancelChangesNone) {
    Choose([](QPrintDialog &dialog) {
        In<QSpinBox>(dialog, "copies").setValue(3);
        In<QRadioButton>(dialog, "duplexShort").click();
    });
    const SystemPrinter before = printers->System();
    OnceShown<QPrintDialog>([](QPrintDialog &dialog) {
        EXPECT_EQ(In<QSpinBox>(dialog, "copies").value(), 3);
        EXPECT_TRUE(In<QRadioButton>(dialog, "duplexShort").isChecked());
        In<QComboBox>(dialog, "printers").setCurrentText("Attic");
        dialog.reject();
    });
    EXPECT_FALSE(desktop.dialogs.ShowPrinter(nullptr));
    EXPECT_EQ(printers->System(), before);
    EXPECT_EQ(printers->Default(), "Office");
    EXPECT_TRUE(cups->Jobs("Office").empty());
}
