// Printers without a machine. A job that the test does not expect fails it; expected ones can be made to
// fail.
#pragma once

#include "support/Printers.h"

#include <deque>
#include <map>
#include <QByteArray>
#include <vector>

namespace support::testing {

// When an expected job raises its error.
enum class JobFails { Never, AtStart, AtNewPage, AtFinish };

// What came of a job.
struct ScriptedJobRecord {
    SystemPrinter printer; // as the job was started
    QString documentName;
    QString destination;
    int pages = 0; // begun
    bool finished = false;
    bool cancelled = false; // by Cancel, or by the end of an unfinished job
    QByteArray pdf;         // what was painted, as far as it came; whole once finished
};

// Jobs to a file are files here as well: the PDF is written when the job finishes, and the next free name
// follows as on a machine.
class FakePrinters : public Printers {
public:
    QStringList Names() override { return names; }
    QString Default() override { return defaultName; }
    // Gone for a name that isn't in `names`, else what `states` says, else ready.
    PrinterState State(const QString &name) override;
    QList<QPageSize> Papers(const QString &name) override;
    QMarginsF Unprintable(const SystemPrinter &printer) override;
    SystemPrinter &System() override { return system; }
    void SetDefault(const QString &name) override;
    std::unique_ptr<PrintJob> Start(const SystemPrinter &printer, const QString &documentName) override;

    struct Expected {
        QString destination; // the printer, or the file
        JobFails fails = JobFails::Never;
        long number = 0;
        QString text;
    };
    std::deque<Expected> expected;

    QStringList names;
    QString defaultName;
    std::map<QString, PrinterState> states;
    QMarginsF unprintable; // millimetres, of every printer
    SystemPrinter system;
    // What SetDefault was handed, in order.
    QStringList defaultsSet;
    // In the order of their starts; jobs that failed at their start are none.
    std::vector<std::shared_ptr<ScriptedJobRecord>> jobs;
};

} // namespace support::testing
