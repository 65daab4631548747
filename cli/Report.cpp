// Reports of maps.
#include "cli/Commands.h"
#include "cli/Session.h"
#include "output/export/ExportReport.h"
#include "settings/Settings.h"

#include <QFileInfo>

namespace cli {

namespace {

bool TakeIsHtml(QStringList &arguments) {
    const bool html = TakeSwitch(arguments, QStringLiteral("--html"));
    const bool rtf = TakeSwitch(arguments, QStringLiteral("--rtf"));
    if (html == rtf) throw UsageError(QStringLiteral("either --rtf or --html is needed"));
    return html;
}

// The export needs an ending: it makes the names of further pages from the path.
QString WithEnding(const QString &path, bool html) {
    if (!QFileInfo(path).suffix().isEmpty()) return path;
    return path + (html ? QStringLiteral(".htm") : QStringLiteral(".rtf"));
}

} // namespace

int Report(QStringList arguments, QTextStream &out) {
    output::ReportOptions options;
    options.html = TakeIsHtml(arguments);
    options.all = TakeSwitch(arguments, QStringLiteral("--all"));
    options.nodes = TakeSwitch(arguments, QStringLiteral("--nodes"));
    options.details = TakeSwitch(arguments, QStringLiteral("--details"));
    options.map = TakeSwitch(arguments, QStringLiteral("--map"));
    if (options.details && !options.nodes) throw UsageError(QStringLiteral("--details needs --nodes"));
    if (options.all && arguments.contains(QStringLiteral("--slice")))
        throw UsageError(QStringLiteral("either --slice or --all is wanted"));
    const int slice = TakeSlice(arguments);
    const output::FilterChoice filter = TakeFilter(arguments);
    ExpectFiles(arguments, 2);
    settings::LoadSettings();
    Session session;
    document::MemoryWindow &window = session.Open(arguments[0]);
    ShowOnly(window, filter, out);
    output::NoProgress progress;
    const QString path = WithEnding(arguments[1], options.html);
    output::ExportReport(window, SliceOf(window, slice), path, options, progress);
    out << path << "\n";
    return kGood;
}

} // namespace cli
