#include "support/real/PrintDialog.h"

#include "support/Files.h"
#include "support/real/PrinterSettings.h"

#include <QChildEvent>
#include <QComboBox>
#include <QDir>
#include <QGuiApplication>
#include <QLineEdit>
#include <QPrinterInfo>
#include <QRadioButton>
#include <QStandardPaths>
#include <utility>

namespace support {

namespace {

// Offered to choose from: how many pages there are is known only once the printer is chosen.
constexpr int kMostPages = 9999;

// The name of the next file: that behind the last one, or one after the document.
QString OfferedFile(const SystemPrinter &printer) {
    if (printer.ToFile()) return NextFreeFile(printer.outputFile);
    const QString title =
        printer.documentName.isEmpty() ? QGuiApplication::applicationDisplayName() : printer.documentName;
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return FreeOutputFile(DirExists(documents) ? documents : QDir::homePath(), title);
}

std::unique_ptr<QPrinter> DeviceOf(const SystemPrinter &printer) {
    auto device = std::make_unique<QPrinter>(QPrinter::HighResolution);
    SetUpPrinter(*device, printer);
    return device;
}

QComboBox *PapersIn(const QDialog &dialog) {
    return dialog.findChild<QComboBox *>(QStringLiteral("pageSizeCombo"));
}

} // namespace

PrintDialog::PrintDialog(const SystemPrinter &printer, QWidget *parent)
    : PrintDialog(DeviceOf(printer), printer, parent) {}

PrintDialog::PrintDialog(std::unique_ptr<QPrinter> device, const SystemPrinter &printer, QWidget *parent)
    : QPrintDialog(device.get(), parent),
      device_(std::move(device)),
      pages_(printer.pages),
      paper_(printer.paper) {
    setMinMax(1, kMostPages);
    OfferFile(OfferedFile(printer));
    // On OK the dialog checks the page ranges of the printer before it writes those of its own line there.
    if (auto *pages = findChild<QLineEdit *>(QStringLiteral("pagesLineEdit")))
        connect(pages, &QLineEdit::textChanged, this, &PrintDialog::FollowPages);
}

// Qt's dialog gives back the usual options of a printer, not those chosen in its properties at an earlier
// time. These are kept, unless the user has opened the properties or chosen another printer.
void PrintDialog::ReadBackTo(SystemPrinter &printer) const {
    const SystemPrinter shown = printer;
    ReadBack(*device_, printer);
    printer.paper = ChosenPaper();
    const bool same = !printer.ToFile() && printer.deviceName == shown.deviceName;
    if (!same || properties_) return;
    printer.options = shown.options;
    printer.colour = shown.colour;
}

// Qt's dialog selects "all pages" whenever it is shown, so the pages are put in after that.
void PrintDialog::setVisible(bool visible) {
    QPrintDialog::setVisible(visible);
    if (visible) ShowPages();
}

// Qt itself would offer the name of the last file again, although that exists.
void PrintDialog::OfferFile(const QString &path) {
    if (auto *name = findChild<QLineEdit *>(QStringLiteral("filename")))
        name->setText(QDir::toNativeSeparators(path));
}

void PrintDialog::ShowPages() {
    auto *choice = findChild<QRadioButton *>(QStringLiteral("pagesRadioButton"));
    auto *line = findChild<QLineEdit *>(QStringLiteral("pagesLineEdit"));
    if (pages_.isEmpty() || !choice || !line) return;
    choice->setChecked(true);
    line->setText(pages_.toString());
}

void PrintDialog::childEvent(QChildEvent *event) {
    if (event->added()) event->child()->installEventFilter(this);
    QPrintDialog::childEvent(event);
}

bool PrintDialog::eventFilter(QObject *watched, QEvent *event) {
    auto *properties = qobject_cast<QDialog *>(watched);
    if (event->type() == QEvent::Show && properties && PapersIn(*properties)) ShowPaper(*properties);
    return QPrintDialog::eventFilter(watched, event);
}

// Qt's properties show the printer's usual paper when they are opened, also after a cancel: the paper that
// was chosen is selected each time they are shown.
void PrintDialog::ShowPaper(QDialog &properties) {
    QComboBox *papers = PapersIn(properties);
    for (int i = 0; i < papers->count(); ++i)
        if (papers->itemData(i).value<QPageSize>().isEquivalentTo(paper_)) papers->setCurrentIndex(i);
    if (std::exchange(properties_, &properties) == &properties) return;
    connect(&properties, &QDialog::accepted, this,
            [this, papers] { paper_ = papers->currentData().value<QPageSize>(); });
}

// The paper is looked up among those of the printer. The device can't be asked: it forgets its paper as soon
// as a printer is chosen, and refuses one whose margins were rounded. Only a size that the user made up is
// its.
QPageSize PrintDialog::ChosenPaper() const {
    if (!paper_.isValid()) return device_->pageLayout().pageSize();
    const QPrinterInfo info = QPrinterInfo::printerInfo(device_->printerName());
    for (const QPageSize &paper : info.supportedPageSizes())
        if (paper.isEquivalentTo(paper_)) return paper;
    return info.defaultPageSize().isValid() ? info.defaultPageSize() : paper_;
}

void PrintDialog::FollowPages(const QString &text) { device_->setPageRanges(QPageRanges::fromString(text)); }

} // namespace support
