#include "benchmarks/WholeProcess.h"

#include "benchmarks/Stage.h"

#include <cstdio>
#include <cstdlib>
#include <QElapsedTimer>
#include <QProcess>

namespace bench {

namespace {

constexpr int kRuns = 7;

QByteArray Run(const QStringList &command) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("VELMORA_QUIT_AFTER_PAINT", "1");
    environment.insert("VELMORA_NO_SPLASH", "1");
    environment.insert("XDG_CONFIG_HOME", ScratchFolder() + "/config");
    process.setProcessEnvironment(environment);
    process.start(command.first(), command.mid(1));
    if (process.waitForFinished(60000) && process.exitStatus() == QProcess::NormalExit &&
        process.exitCode() == 0)
        return process.readAllStandardOutput();
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
        const QByteArray output = Run(command);
        const double seconds = Number(output, "painted");
        if (i == 0 || seconds < best.seconds) best = {seconds, Number(output, "resident")};
    }
    return best;
}

double BestRun(const QStringList &command) {
    double best = 0;
    for (int i = 0; i < kRuns; ++i) {
        QElapsedTimer timer;
        timer.start();
        Run(command);
        const double seconds = double(timer.nsecsElapsed()) / 1e9;
        if (i == 0 || seconds < best) best = seconds;
    }
    return best;
}

} // namespace bench
