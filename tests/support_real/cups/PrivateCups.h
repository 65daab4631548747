// A print server of the test's own: a cupsd with its socket, spool and queues in a temporary folder, which
// ends with the object, and with the process if that is killed. Queues put what they print into files, as
// PDF.
#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <vector>

namespace cups_test {

// The argument with which this program does nothing but hold a server.
constexpr char kHoldServer[] = "--hold-a-print-server";

// What the server knows of a job.
struct Job {
    int number = 0;
    bool over = false; // completed, cancelled or aborted
    bool completed = false;
    QString title;
    int copies = 0;
    QString media, sides, colour;
};

class PrivateCups {
public:
    // Why there can be none on this machine; empty when there can.
    static QString WhyNot();

    // Starts the server and makes it the one that this process talks to. The queues: "Office", the default,
    // for A4, A3 and Letter, both sides, with a margin of 5 mm; and "Attic", for A4.
    PrivateCups();
    ~PrivateCups();
    PrivateCups(const PrivateCups &) = delete;
    PrivateCups &operator=(const PrivateCups &) = delete;

    qint64 ProcessId() const { return server_.processId(); }
    QString Folder() const { return folder_.path(); }
    // What the server said, for a test that fails.
    QString Log() const;
    void Stop();

    // Runs a command of the print system's, such as cupsdisable, on this server; fails the test when it
    // doesn't end with 0.
    void Command(const QString &program, const QStringList &arguments) const;

    std::vector<Job> Jobs(const QString &queue) const;
    // Waits until the last job of a queue is over, and gives the path of what was printed.
    QString Printed(const QString &queue) const;
    QString OutputOf(const QString &queue) const;

private:
    void WriteFiles() const;
    void Write(const QString &name, const QString &text) const;
    QString Path(const QString &name) const { return folder_.filePath(name); }
    bool Answers() const;

    QTemporaryDir folder_;
    QProcess server_;
};

} // namespace cups_test
