// Presentations.
#include "cli/Commands.h"
#include "cli/Session.h"
#include "output/powerpoint/CreatePowerpoint.h"
#include "support/Error.h"

namespace cli {

namespace {

int SliceNumber(QStringList &arguments) {
    const QString text = TakeOption(arguments, QStringLiteral("--slice"));
    bool good = true;
    const int number = text.isEmpty() ? 0 : text.toInt(&good);
    if (!good || (!text.isEmpty() && number < 1))
        throw UsageError(QStringLiteral("--slice needs a number from 1 on"));
    return number;
}

void ChooseSlice(output::MapOutput &map, int number) {
    const int count = int(map.slices.size());
    if (number > count)
        throw support::Error(
            support::kErrSubscriptOutOfRange, QStringLiteral("velmora-cli"),
            QStringLiteral("Slice %1 does not exist; the map has %2").arg(number).arg(count));
    if (number > 0) map.current = number - 1;
}

powerpoint::PowerpointOptions SlideOptions(QStringList &arguments) {
    powerpoint::PowerpointOptions options;
    options.currentOnly = !TakeSwitch(arguments, QStringLiteral("--all"));
    if (TakeSwitch(arguments, QStringLiteral("--title"))) options.layout = powerpoint::kLayoutTitle;
    options.asShapes = TakeSwitch(arguments, QStringLiteral("--shapes"));
    return options;
}

} // namespace

int Slides(QStringList arguments, QTextStream &out) {
    const powerpoint::PowerpointOptions options = SlideOptions(arguments);
    const int number = SliceNumber(arguments);
    const output::FilterChoice filter = TakeFilter(arguments);
    ExpectFiles(arguments, 2);
    if (number > 0 && !options.currentOnly)
        throw UsageError(QStringLiteral("--slice and --all exclude each other"));
    powerpoint::CheckEnding(arguments[1]);
    Session session;
    document::MemoryWindow &window = session.Open(arguments[0]);
    ShowOnly(window, filter, out);
    output::MapOutput map = output::ReadMap(window);
    ChooseSlice(map, number);
    powerpoint::WritePowerpoint(arguments[1], map, options);
    return kGood;
}

} // namespace cli
