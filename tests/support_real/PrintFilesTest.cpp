// Printing into files, and the print dialog on a machine without printers.
#include "support/AtomicFile.h"
#include "support/Error.h"
#include "support/headless/HeadlessDesktop.h"
#include "support/PdfJob.h"
#include "support/real/RealDesktop.h"
#include "tests/EnvironmentVariable.h"
#include "tests/Errors.h"
#include "tests/support_real/Shown.h"

#include <gtest/gtest.h>
#include <QAbstractButton>
#include <QBuffer>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QMessageBox>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTemporaryDir>

using namespace support;

namespace {

// The print system isn't asked: none answers at that place.
class NoPrinters : public ::testing::Test {
protected:
    QString Path(const char *name) const { return folder_.filePath(QString::fromLatin1(name)); }
    QStringList Names() const {
        return QDir(folder_.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
    // The program's printer, with that file to print into.
    SystemPrinter To(const QString &path) {
        SystemPrinter printer = printers_.System();
        printer.outputFile = path;
        return printer;
    }

    const tests::EnvironmentVariable server_{"CUPS_SERVER", "/none/of/this"};
    QTemporaryDir folder_;
    RealDesktop real_{std::make_unique<MemoryRegistryStore>()};
    Printers &printers_ = real_.Get().printers;
};

std::unique_ptr<PrintJob> Painted(Printers &printers, const SystemPrinter &printer, int pages) {
    std::unique_ptr<PrintJob> job = printers.Start(printer, QStringLiteral("Plan"));
    QPainter painter(&job->Device());
    for (int page = 0; page < pages; ++page) {
        if (page > 0) job->NewPage();
        painter.fillRect(QRect(1000, 1000, 3000, 3000), Qt::red);
    }
    return job;
}

QString FileOf(QPrintDialog &dialog) {
    return dialog.findChild<QLineEdit *>(QStringLiteral("filename"))->text();
}

void NameFile(QPrintDialog &dialog, const QString &path) {
    dialog.findChild<QLineEdit *>(QStringLiteral("filename"))->setText(path);
}

void Press(QPrintDialog &dialog, QDialogButtonBox::StandardButton which) {
    dialog.findChild<QDialogButtonBox *>()->button(which)->click();
}

QByteArray PdfOf(int pages) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    QPainter painter(&writer);
    for (int page = 1; page < pages; ++page) writer.newPage();
    painter.end();
    return buffer.data();
}

} // namespace

TEST_F(NoPrinters, ThereIsNoneAndNoneIsTheDefault) {
    EXPECT_EQ(printers_.Names(), QStringList());
    EXPECT_EQ(printers_.Default(), QString());
    EXPECT_EQ(printers_.System().deviceName, QString());
    EXPECT_EQ(printers_.State("Office"), PrinterState::Gone);
    EXPECT_GE(printers_.Papers(QString()).size(), 5);
    EXPECT_EQ(printers_.Unprintable(printers_.System()), QMarginsF());
    EXPECT_EQ(tests::NumberOf([&] { printers_.Start(printers_.System(), "x"); }), kErrDeviceUnavailable);
}

TEST_F(NoPrinters, AFileIsThereOnceTheJobHasEnded) {
    const auto job = Painted(printers_, To(Path("plan.pdf")), 2);
    EXPECT_FALSE(QFile::exists(Path("plan.pdf")));
    job->Finish();
    EXPECT_EQ(job->Destination(), Path("plan.pdf"));
    EXPECT_TRUE(IsWholePdf(ReadWholeFile(Path("plan.pdf"))));
    EXPECT_EQ(Names(), QStringList("plan.pdf"));
}

TEST_F(NoPrinters, AJobThatIsGivenUpLeavesNoFile) {
    Painted(printers_, To(Path("plan.pdf")), 2)->Cancel();
    Painted(printers_, To(Path("plan.pdf")), 1).reset();
    EXPECT_EQ(Names(), QStringList());
}

TEST_F(NoPrinters, TheNextPrintTakesTheNextName) {
    printers_.System().outputFile = Path("plan.pdf");
    for (int i = 0; i < 3; ++i) Painted(printers_, printers_.System(), 1)->Finish();
    EXPECT_EQ(Names(), QStringList({"plan (2).pdf", "plan (3).pdf", "plan.pdf"}));
    EXPECT_EQ(printers_.System().outputFile, Path("plan (4).pdf"));
}

TEST_F(NoPrinters, AFileThatCameMeanwhileIsLeftAlone) {
    const SystemPrinter printer = To(Path("plan.pdf"));
    AtomicFile other(Path("plan.pdf"));
    other.Write("mine");
    other.Commit();
    const auto job = Painted(printers_, printer, 1);
    job->Finish();
    EXPECT_EQ(job->Destination(), Path("plan (2).pdf"));
    EXPECT_EQ(ReadWholeFile(Path("plan.pdf")), "mine");
}

TEST_F(NoPrinters, AFileIsReplacedOnceIfTheUserAgreed) {
    Painted(printers_, To(Path("plan.pdf")), 1)->Finish();
    const QByteArray former = ReadWholeFile(Path("plan.pdf"));
    printers_.System() = To(Path("plan.pdf"));
    printers_.System().replaceFile = true;
    Painted(printers_, printers_.System(), 2)->Finish();
    EXPECT_NE(ReadWholeFile(Path("plan.pdf")), former);
    Painted(printers_, printers_.System(), 1)->Finish();
    EXPECT_EQ(Names(), QStringList({"plan (2).pdf", "plan.pdf"}));
}

TEST_F(NoPrinters, AFolderThatIsntThereIsTold) {
    EXPECT_EQ(tests::NumberOf([&] { printers_.Start(To(Path("none/plan.pdf")), "x"); }), kErrPathNotFound);
}

TEST_F(NoPrinters, TheSheetIsPaintedFromItsCorner) {
    for (const bool colour : {true, false}) {
        SystemPrinter printer = To(Path("plan.pdf"));
        printer.colour = colour;
        printer.paper = QPageSize(QPageSize::A3);
        printer.orientation = PaperOrientation::Landscape;
        const auto job = printers_.Start(printer, "Plan");
        const double dots = job->Device().logicalDpiX() / 25.4;
        EXPECT_NEAR(job->Device().width() / dots, 420, 0.2);
        EXPECT_NEAR(job->Device().height() / dots, 297, 0.2);
    }
}

TEST_F(NoPrinters, TheDialogOffersAFileThatIsNotThere) {
    printers_.System().documentName = "Costs: 2026/27";
    QString offered, printer;
    OnceShown<QPrintDialog>([&](QPrintDialog &dialog) {
        offered = FileOf(dialog);
        printer = dialog.findChild<QComboBox *>(QStringLiteral("printers"))->currentText();
        dialog.reject();
    });
    EXPECT_FALSE(real_.Get().dialogs.ShowPrinter(nullptr));
    EXPECT_TRUE(offered.endsWith("/Costs: 2026_27.pdf")) << offered.toStdString();
    EXPECT_TRUE(printer.contains("PDF")) << printer.toStdString();
    EXPECT_FALSE(printers_.System().ToFile());
}

TEST_F(NoPrinters, TheDialogOffersTheNextNameAfterAPrint) {
    printers_.System().outputFile = Path("plan.pdf");
    Painted(printers_, printers_.System(), 1)->Finish();
    OnceShown<QPrintDialog>([&](QPrintDialog &dialog) {
        EXPECT_EQ(FileOf(dialog), Path("plan (2).pdf"));
        Press(dialog, QDialogButtonBox::Ok);
    });
    EXPECT_TRUE(real_.Get().dialogs.ShowPrinter(nullptr));
    EXPECT_EQ(printers_.System().outputFile, Path("plan (2).pdf"));
    EXPECT_FALSE(printers_.System().replaceFile);
}

TEST_F(NoPrinters, TheDialogAsksBeforeAFileIsReplaced) {
    Painted(printers_, To(Path("plan.pdf")), 1)->Finish();
    OnceShown<QPrintDialog>([&](QPrintDialog &dialog) {
        NameFile(dialog, Path("plan.pdf"));
        OnceShown<QMessageBox>([](QMessageBox &box) { box.button(QMessageBox::Yes)->click(); });
        Press(dialog, QDialogButtonBox::Ok);
    });
    EXPECT_TRUE(real_.Get().dialogs.ShowPrinter(nullptr));
    EXPECT_EQ(printers_.System().outputFile, Path("plan.pdf"));
    EXPECT_TRUE(printers_.System().replaceFile);
}

TEST_F(NoPrinters, TheDialogsChoicesForAFileAreHonoured) {
    printers_.System().paper = QPageSize(QPageSize::A3);
    OnceShown<QPrintDialog>([&](QPrintDialog &dialog) {
        NameFile(dialog, Path("plan.pdf"));
        dialog.findChild<QSpinBox *>(QStringLiteral("copies"))->setValue(2);
        dialog.findChild<QCheckBox *>(QStringLiteral("collate"))->setChecked(true);
        dialog.findChild<QCheckBox *>(QStringLiteral("reverse"))->setChecked(true);
        dialog.findChild<QRadioButton *>(QStringLiteral("grayscale"))->setChecked(true);
        dialog.findChild<QRadioButton *>(QStringLiteral("printRange"))->setChecked(true);
        dialog.findChild<QSpinBox *>(QStringLiteral("to"))->setValue(3);
        dialog.findChild<QSpinBox *>(QStringLiteral("from"))->setValue(2);
        Press(dialog, QDialogButtonBox::Ok);
    });
    EXPECT_TRUE(real_.Get().dialogs.ShowPrinter(nullptr));
    EXPECT_EQ(PagesToPrint(printers_.System(), 5), (std::vector<int>{3, 2, 3, 2}));
    EXPECT_FALSE(printers_.System().colour);
    EXPECT_EQ(printers_.System().paper.id(), QPageSize::A3);
}

TEST_F(NoPrinters, TheDialogShowsTheProgramsPrinterAndKeepsItWhenCancelled) {
    SystemPrinter &printer = printers_.System();
    printer.orientation = PaperOrientation::Landscape;
    printer.paper = QPageSize(QPageSize::A3);
    printer.copies = 4;
    printer.order = PageOrder::LastToFirst;
    const SystemPrinter before = printer;
    OnceShown<QPrintDialog>([&](QPrintDialog &dialog) {
        EXPECT_EQ(dialog.printer()->pageLayout().orientation(), QPageLayout::Landscape);
        EXPECT_EQ(dialog.printer()->pageLayout().pageSize().id(), QPageSize::A3);
        EXPECT_EQ(dialog.findChild<QSpinBox *>(QStringLiteral("copies"))->value(), 4);
        EXPECT_TRUE(dialog.findChild<QCheckBox *>(QStringLiteral("reverse"))->isChecked());
        dialog.findChild<QSpinBox *>(QStringLiteral("copies"))->setValue(9);
        Press(dialog, QDialogButtonBox::Cancel);
    });
    EXPECT_FALSE(real_.Get().dialogs.ShowPrinter(nullptr));
    EXPECT_EQ(printers_.System(), before);
}

TEST(HeadlessPrinters, PrintIntoFilesOnly) {
    const QTemporaryDir folder;
    HeadlessDesktop headless(std::make_unique<MemoryRegistryStore>());
    Printers &printers = headless.Get().printers;
    EXPECT_EQ(tests::NumberOf([&] { printers.Start(printers.System(), "x"); }), kErrDeviceUnavailable);
    printers.System().outputFile = folder.filePath("plan.pdf");
    Painted(printers, printers.System(), 2)->Finish();
    EXPECT_TRUE(IsWholePdf(ReadWholeFile(folder.filePath("plan.pdf"))));
}

TEST(PdfJob, IsWholePdf_TellsWhenAnyPartIsMissing) {
    const QByteArray pdf = PdfOf(3);
    EXPECT_TRUE(IsWholePdf(pdf));
    EXPECT_FALSE(IsWholePdf({}));
    EXPECT_FALSE(IsWholePdf(pdf.left(pdf.size() - 20)));
    EXPECT_FALSE(IsWholePdf(pdf.left(200)));
    QByteArray hole = pdf;
    hole.remove(pdf.size() / 2, 10);
    EXPECT_FALSE(IsWholePdf(hole));
}
