#include "diagram/layout/LayeredElsewhere.h"

#include "diagram/layout/LayoutStream.h"
#include "support/Error.h"
#include "support/Platform.h"

#include <QFileInfo>
#include <QProcess>

namespace diagram {

namespace {

constexpr int kStartMilliseconds = 10000;
constexpr int kStepMilliseconds = 20;
constexpr long kErrFileNotFound = 53;

QString ProgramPath() {
#ifdef Q_OS_WIN
    const QString name = QStringLiteral("velmora-layout.exe");
#else
    const QString name = QStringLiteral("velmora-layout");
#endif
    const QString path =
        QFileInfo(support::platform::ExecutablePath()).absolutePath() + QLatin1Char('/') + name;
    if (!QFileInfo::exists(path))
        throw support::Error(kErrFileNotFound, QStringLiteral("LayeredElsewhere"),
                             QStringLiteral("File not found: '%1'").arg(name));
    return path;
}

[[noreturn]] void Fail() {
    throw support::Error(kErrNotLaidOut, QStringLiteral("LayeredElsewhere"),
                         QStringLiteral("The diagram could not be laid out"));
}

// False when it was given up.
bool WaitFor(QProcess &process, const GoOn &goOn) {
    while (!process.waitForFinished(kStepMilliseconds)) {
        if (process.state() == QProcess::NotRunning) break;
        if (goOn()) continue;
        process.kill();
        process.waitForFinished(kStartMilliseconds);
        return false;
    }
    return true;
}

} // namespace

std::optional<std::vector<QPointF>> LayeredElsewhere(const LayoutGraph &graph, const LayoutOptions &options,
                                                     const GoOn &goOn) {
    if (graph.sizes.empty()) return std::vector<QPointF>();
    QProcess process;
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(ProgramPath(), QStringList());
    if (!process.waitForStarted(kStartMilliseconds)) Fail();
    process.write(ToBytes({graph, options}));
    process.closeWriteChannel();
    if (!WaitFor(process, goOn)) return std::nullopt;
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) Fail();
    auto centres = CentresFrom(process.readAllStandardOutput(), graph.sizes.size());
    if (!centres) Fail();
    return centres;
}

} // namespace diagram
