#include "app/ConsoleOptions.h"

#include "app/Application.h"
#include "app/Start.h"
#include "support/Files.h"

#include <cstdio>

namespace app {

namespace {

constexpr int kExitUsage = 2;

constexpr char kHelp[] =
    "Draws business plans as diagrams of nodes and links, on slices and timelines.\n"
    "\n"
    "Usage: velmora [MAP]\n"
    "\n"
    "MAP is all that is left of the command line, as one path; blanks in it need no quotes.\n"
    "\n"
    "  -h, --help   print this and end\n"
    "  --version    print the version and end\n"
    "\n"
    "VELMORA_NO_SPLASH=1 in the environment leaves out the splash window.\n"
    "For work without a window: velmora-cli --help\n";

} // namespace

std::optional<ConsoleAnswer> AnswerToOption(const QStringList &arguments) {
    const QString option = arguments.value(1);
    if (option == QLatin1String("--version"))
        return ConsoleAnswer{QStringLiteral("velmora " VELMORA_VERSION "\n")};
    if (option == QLatin1String("--help") || option == QLatin1String("-h"))
        return ConsoleAnswer{QLatin1String(kHelp)};
    return {};
}

std::optional<ConsoleAnswer> ComplaintAboutOption(const QStringList &arguments) {
    const QString option = arguments.value(1);
    if (!option.startsWith(u'-') || option.size() < 2) return {};
    if (support::FileExists(PathInCommandLine(CommandLine(arguments)))) return {};
    return ConsoleAnswer{QStringLiteral("velmora: there is no option %1. See velmora --help.\n").arg(option),
                         true};
}

int Tell(const ConsoleAnswer &answer) {
    std::fputs(qPrintable(answer.text), answer.isComplaint ? stderr : stdout);
    return answer.isComplaint ? kExitUsage : 0;
}

} // namespace app
