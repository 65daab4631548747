// The machine's printers. Nothing is asked of the print system before it is needed: that is slow.
#pragma once

#include "support/Desktop.h"

#include <memory>

class QPrinter;

namespace support {

class SystemPrinters : public Printers {
public:
    SystemPrinters();
    ~SystemPrinters() override;

    QStringList Names() override;
    // The printer that was chosen last, at first the system's default.
    QString Current() override;
    void SetCurrent(const QString &name) override;

    // The program's printer with the settings that the user made. Stays valid as long as this object.
    QPrinter &ProgramPrinter();

private:
    QString current_;
    std::unique_ptr<QPrinter> printer_;
};

} // namespace support
