#include "support/headless/HeadlessDesktop.h"

#include "support/Error.h"
#include "support/PdfJob.h"
#include "support/PlatformRegistry.h"

#include <cstdio>
#include <QIcon>

namespace support {

Answer HeadlessMessageBoxes::Show(const QString &text, Buttons buttons, Icon, const QString &title,
                                  EnterPresses) {
    const QString line = title.isEmpty() ? text : title + QStringLiteral(": ") + text;
    std::fprintf(stderr, "%s\n", line.simplified().toLocal8Bit().constData());
    return ClosingAnswer(buttons);
}

QString HeadlessMessageBoxes::InputBox(const QString &, const QString &, const QString &) {
    return QString();
}

QString HeadlessDialogs::ShowOpenFileDialog(const QString &, const QString &, const QString &, long, Owner,
                                            int &) {
    return QString();
}

QString HeadlessDialogs::ShowSaveFileDialog(const QString &, const QString &, const QString &, long, Owner,
                                            int &) {
    return QString();
}

QIcon HeadlessFileIcons::AssociatedIcon(const QString &) { return {}; }

QList<QPageSize> HeadlessPrinters::Papers(const QString &) { return UsualPapers(); }

std::unique_ptr<PrintJob> HeadlessPrinters::Start(const SystemPrinter &printer, const QString &documentName) {
    if (!printer.ToFile()) RequireReady(printer.deviceName, PrinterState::Gone);
    return StartFileJob(printer, documentName, system_);
}

HeadlessDesktop::HeadlessDesktop(std::unique_ptr<RegistryStore> registry)
    : registry_(registry ? std::move(registry) : CreatePlatformRegistry()),
      desktop_{messageBoxes_, dialogs_,  launcher_, clock_,     memory_, *registry_,
               random_,       printers_, identity_, fileIcons_, forms_} {
    SetDesktop(&desktop_);
    SetReporter(ReportWithMessageBoxes);
}

HeadlessDesktop::~HeadlessDesktop() {
    SetReporter(nullptr);
    SetDesktop(nullptr);
}

} // namespace support
