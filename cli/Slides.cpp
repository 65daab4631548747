// Presentations.
#include "cli/Commands.h"
#include "cli/Session.h"
#include "output/powerpoint/CreatePowerpoint.h"

namespace cli {

namespace {

powerpoint::PowerpointOptions TakeOptions(QStringList &arguments) {
    powerpoint::PowerpointOptions options;
    options.currentOnly = !TakeSwitch(arguments, QStringLiteral("--all"));
    if (TakeSwitch(arguments, QStringLiteral("--title"))) options.layout = powerpoint::kLayoutTitle;
    options.asShapes = TakeSwitch(arguments, QStringLiteral("--shapes"));
    return options;
}

} // namespace

int Slides(QStringList arguments, QTextStream &out) {
    const powerpoint::PowerpointOptions options = TakeOptions(arguments);
    if (!options.currentOnly && arguments.contains(QStringLiteral("--slice")))
        throw UsageError(QStringLiteral("--slice and --all exclude each other"));
    const int number = TakeSlice(arguments);
    const output::FilterChoice filter = TakeFilter(arguments);
    ExpectFiles(arguments, 2);
    powerpoint::CheckEnding(arguments[1]);
    Session session;
    document::MemoryWindow &window = session.Open(arguments[0]);
    ShowOnly(window, filter, out);
    SliceOf(window, number);
    output::MapOutput map = output::ReadMap(window);
    map.current = number - 1;
    powerpoint::WritePowerpoint(arguments[1], map, options);
    return kGood;
}

} // namespace cli
