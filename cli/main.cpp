#include "cli/Commands.h"

#include <cstdio>
#include <QGuiApplication>

namespace {

// Drops the libraries' messages: callers expect nothing but our one line on stderr.
void SayNothing(QtMsgType, const QMessageLogContext &, const QString &) {}

QStringList ArgumentsOf(int argc, char **argv) {
    QStringList arguments;
    for (int i = 1; i < argc; ++i) arguments.append(QString::fromLocal8Bit(argv[i]));
    return arguments;
}

int RunAndPrint(const QStringList &arguments) {
    QTextStream out(stdout), err(stderr);
    return cli::Run(arguments, out, err);
}

} // namespace

int main(int argc, char **argv) {
    qInstallMessageHandler(SayNothing);
    QCoreApplication::setApplicationName(QStringLiteral("velmora-cli"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VELMORA_VERSION));
    const QStringList arguments = ArgumentsOf(argc, argv);
    if (cli::Paints(arguments)) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        const QGuiApplication application(argc, argv);
        return RunAndPrint(arguments);
    }
    const QCoreApplication application(argc, argv);
    return RunAndPrint(arguments);
}
