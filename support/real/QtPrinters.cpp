#include "support/real/QtPrinters.h"

#include <QPrinter>
#include <QPrinterInfo>

namespace support {

SystemPrinters::SystemPrinters() = default;
SystemPrinters::~SystemPrinters() = default;

QStringList SystemPrinters::Names() { return QPrinterInfo::availablePrinterNames(); }

QString SystemPrinters::Current() {
    if (current_.isEmpty()) current_ = QPrinterInfo::defaultPrinterName();
    return current_;
}

void SystemPrinters::SetCurrent(const QString &name) {
    current_ = name;
    if (printer_ && printer_->printerName() != name) printer_->setPrinterName(name);
}

QPrinter &SystemPrinters::ProgramPrinter() {
    if (!printer_) {
        printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
        if (!Current().isEmpty()) printer_->setPrinterName(Current());
    }
    return *printer_;
}

} // namespace support
