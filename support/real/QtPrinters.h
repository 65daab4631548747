// The machine's printers. Nothing is asked of the print system before it is needed: that is slow.
#pragma once

#include "support/Printers.h"

#include <optional>

namespace support {

class SystemPrinters : public Printers {
public:
    QStringList Names() override;
    QString Default() override;
    PrinterState State(const QString &name) override;
    QList<QPageSize> Papers(const QString &name) override;
    QMarginsF Unprintable(const SystemPrinter &printer) override;
    SystemPrinter &System() override;
    void SetDefault(const QString &name) override;
    std::unique_ptr<PrintJob> Start(const SystemPrinter &printer, const QString &documentName) override;

private:
    std::optional<SystemPrinter> system_;
};

} // namespace support
