// Pictures of slices.
#include "cli/Commands.h"
#include "cli/Session.h"
#include "diagram/export/Export.h"
#include "diagram/export/PictureKinds.h"
#include "support/Error.h"
#include "support/Files.h"

#include <QDir>

namespace cli {

namespace {

constexpr int kMostPixels = 32767;

QString TakeFormat(QStringList &arguments) {
    const QString format = TakeOption(arguments, QStringLiteral("--format"));
    if (format.isEmpty()) return QStringLiteral("png");
    const QStringList known = diagram::PictureEndings();
    if (!known.contains(format))
        throw UsageError(QStringLiteral("--format needs one of %1").arg(known.join(QStringLiteral(", "))));
    return format;
}

diagram::PictureBackground TakeBackground(QStringList &arguments) {
    // In the order of PictureBackground.
    static const QStringList known{QStringLiteral("shown"), QStringLiteral("white"),
                                   QStringLiteral("transparent")};
    const QString name = TakeOption(arguments, QStringLiteral("--background"));
    if (name.isEmpty()) return diagram::PictureBackground::AsShown;
    if (!known.contains(name))
        throw UsageError(
            QStringLiteral("--background needs one of %1").arg(known.join(QStringLiteral(", "))));
    return diagram::PictureBackground(known.indexOf(name));
}

diagram::ExportOptions TakeOptions(QStringList &arguments) {
    constexpr int kMostPercent = 10000, kMostDots = 2400, kUsualDots = 96;
    diagram::ExportOptions options;
    options.pixels = TakeNumber(arguments, QStringLiteral("--pixels"), 1, kMostPixels, 0);
    options.scale = TakeNumber(arguments, QStringLiteral("--scale"), 1, kMostPercent, 100) / 100.0;
    options.dotsPerInch = TakeNumber(arguments, QStringLiteral("--dpi"), 1, kMostDots, kUsualDots);
    options.background = TakeBackground(arguments);
    return options;
}

// "03-Caption.png"; characters that may not be allowed in file names become "_".
QString FileNameFor(int number, const QString &caption, const QString &format) {
    constexpr int kLongestName = 60;
    QString name;
    for (const QChar character : caption.left(kLongestName))
        name += character.isLetterOrNumber() || character.isSurrogate() ||
                        QStringLiteral(" -_.").contains(character)
                    ? character
                    : QLatin1Char('_');
    return QStringLiteral("%1-%2.%3").arg(number, 2, 10, QLatin1Char('0')).arg(name.trimmed(), format);
}

int AllSlices(const QString &map, const QString &folder, const QString &format,
              const diagram::ExportOptions &options, const output::FilterChoice &filter, QTextStream &out) {
    Session session;
    document::MemoryWindow &window = session.Open(map);
    ShowOnly(window, filter, out);
    if (!QDir().mkpath(folder))
        support::Raise(support::kErrPathFileAccess, QStringLiteral("velmora-cli"), folder);
    int tab = 0;
    for (const int index : window.AddFlow1().Indices()) {
        const QString name = FileNameFor(tab + 1, window.TabStrip().TabCaption(tab), format);
        ++tab;
        const QString path = QDir(folder).filePath(name);
        diagram::ExportPictureFile(window.AddFlow1()[index], path, options);
        out << path << "\n";
    }
    return kGood;
}

int OneSlice(const QString &map, int number, const QString &path, const diagram::ExportOptions &options,
             const output::FilterChoice &filter, QTextStream &out) {
    Session session;
    document::MemoryWindow &window = session.Open(map);
    ShowOnly(window, filter, out);
    diagram::ExportPictureFile(SliceOf(window, number), path, options);
    return kGood;
}

} // namespace

int Picture(QStringList arguments, QTextStream &out) {
    const diagram::ExportOptions options = TakeOptions(arguments);
    const output::FilterChoice filter = TakeFilter(arguments);
    const QString folder = TakeOption(arguments, QStringLiteral("--all"));
    if (!folder.isEmpty()) {
        const QString format = TakeFormat(arguments);
        ExpectFiles(arguments, 1);
        return AllSlices(arguments[0], folder, format, options, filter, out);
    }
    const int number = TakeSlice(arguments);
    ExpectFiles(arguments, 2);
    diagram::CheckPictureEnding(arguments[1]);
    return OneSlice(arguments[0], number, arguments[1], options, filter, out);
}

} // namespace cli
