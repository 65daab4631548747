#include "benchmarks/WholeProcess.h"

#include "benchmarks/Scratch.h"

#include <cstdio>
#include <cstdlib>
#include <QElapsedTimer>
#include <QProcess>

namespace bench {

namespace {

constexpr int kRuns = 11;
constexpr int kLongest = 60000; // milliseconds

struct Outcome {
    QByteArray output;
    double firstLine = 0; // seconds to the first output
    double whole = 0;     // seconds to the end
};

Outcome Run(const QStringList &command) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("VELMORA_QUIT_AFTER_PAINT", "1");
    environment.insert("VELMORA_NO_SPLASH", "1");
    environment.insert("XDG_CONFIG_HOME", ScratchFolder() + "/config");
    process.setProcessEnvironment(environment);
    Outcome outcome;
    QElapsedTimer timer;
    timer.start();
    process.start(command.first(), command.mid(1));
    process.waitForReadyRead(kLongest);
    outcome.firstLine = double(timer.nsecsElapsed()) / 1e9;
    const bool ended = process.state() == QProcess::NotRunning || process.waitForFinished(kLongest);
    outcome.whole = double(timer.nsecsElapsed()) / 1e9;
    outcome.output = process.readAllStandardOutput();
    if (ended && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0) return outcome;
    std::fprintf(stderr, "%s failed: %s\n", qPrintable(command.join(' ')),
                 process.readAllStandardError().constData());
    std::exit(1);
}

double Number(const QByteArray &output, const QByteArray &word) {
    for (const QByteArray &line : output.split('\n'))
        if (line.startsWith(word + ' ')) return line.mid(word.size() + 1).toDouble();
    std::fprintf(stderr, "no line \"%s\" in: %s\n", word.constData(), output.constData());
    std::exit(1);
}

} // namespace

Start BestStart(const QStringList &command) {
    Start best;
    for (int i = 0; i < kRuns; ++i) {
        const Outcome outcome = Run(command);
        if (i == 0 || outcome.firstLine < best.seconds)
            best = {outcome.firstLine, Number(outcome.output, "resident")};
    }
    return best;
}

double BestRun(const QStringList &command) {
    double best = 0;
    for (int i = 0; i < kRuns; ++i) {
        const double seconds = Run(command).whole;
        if (i == 0 || seconds < best) best = seconds;
    }
    return best;
}

} // namespace bench
