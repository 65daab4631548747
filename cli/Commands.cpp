#include "cli/Commands.h"

#include "support/Error.h"

#include <QCoreApplication>

namespace cli {

namespace {

struct Command {
    const char *name;
    int (*run)(QStringList, QTextStream &);
    bool paints;
    const char *usage;
};

constexpr Command kCommands[] = {
    {"info", Info, false, "info FILE [--json]\n      slices, counts, dates, fonts and pools"},
    {"check", Check, false,
     "check FILE\n      tells of each thing that is wrong with the map where it stands and what it is; ends "
     "with "
     "1 if\n      anything is"},
    {"repair", Repair, false,
     "repair IN OUT\n      writes what can be read of the map IN as the map OUT and tells of each change"},
    {"convert", Convert, false,
     "convert IN OUT\n      writes the map IN, an old Jet map too, as the map OUT"},
    {"csv", Csv, false,
     "csv FILE [--slice N] OUT.csv\n"
     "      a slice, counted from 1, as a text file of columns"},
    {"import", Import, false,
     "import FILE.csv MAP [--slice N|--new]\n"
     "      adds what a text file of columns holds to a slice of the map, or to a new one"},
    {"layout", Layout, false,
     "layout IN OUT --engine hierarchical|tree|radial|organic|circular|levels [--slice N]\n"
     "         [--direction down|up|right|left] [--together levels|groups]\n"
     "      writes the map IN as the map OUT with a slice, counted from 1, laid out; --together is for the\n"
     "      hierarchical layout: each level or group by itself, none over another"},
    {"route", Route, false,
     "route IN OUT [--slice N]\n"
     "      writes the map IN as the map OUT with the links of a slice, counted from 1, routed anew, but for "
     "those\n      that were bent by hand"},
    {"picture", Picture, true,
     "picture FILE [--slice N] [SIZE] OUT.png|OUT.svg|OUT.pdf|OUT.wmf|OUT.emf\n"
     "  picture FILE --all FOLDER [--format png|svg|pdf|wmf|emf] [SIZE]\n"
     "      a picture of a slice, counted from 1, or of every slice. SIZE is --scale PERCENT, or for a PNG\n"
     "      --pixels N, its longest side; --dpi N is a PNG's resolution, --background shown|white|"
     "transparent\n      what lies behind the drawing. Metafiles are not scaled"},
    {"report", Report, true,
     "report --rtf|--html FILE OUT [--slice N|--all] [--nodes [--details]] [--map]\n"
     "      a report of a slice, counted from 1, or of all: the texts of its nodes, what else there is of "
     "them,\n      and its picture; --html with --all writes a page for each slice beside OUT"},
    {"slides", Slides, true,
     "slides FILE OUT.pptx|OUT.ppt [--slice N | --all] [--title] [--shapes]\n"
     "      a presentation of a slice, counted from 1, or of every slice, each as a picture or, with "
     "--shapes,\n"
     "      in a .pptx as shapes to go on with; --title puts the slice's name above it"},
    {"print", Print, true,
     "print FILE --to OUT.pdf [--slice N|--all] [--landscape] [--fit] [--header TEXT] [--footer TEXT]\n"
     "      the pages of a slice, counted from 1, or of all; &[Page], &[Pages], &[Title], &[Slice], &[Date] "
     "and\n"
     "      &[File] in the texts stand for their values"},
    {"recovered", Recovered, false,
     "recovered [--folder FOLDER]\n"
     "  recovered NUMBER OUT [--folder FOLDER]\n"
     "      the maps of editors that ended before they were saved, or one of them as the new map OUT"},
    {"template", Template, true,
     "template list\n"
     "  template apply FILE MAP [--slice N]\n"
     "  template make MAP [--slice N] OUT\n"
     "      the templates that the editor offers; a template put in the place of what a slice holds; a "
     "slice\n"
     "      saved as a template, with an icon that is drawn from it. Slices are counted from 1"},
};

const Command *Find(const QStringList &arguments) {
    if (arguments.isEmpty()) return nullptr;
    for (const Command &command : kCommands)
        if (arguments.first() == QLatin1String(command.name)) return &command;
    return nullptr;
}

bool AsksForHelp(const QStringList &arguments) {
    const QString first = arguments.value(0);
    return first == QLatin1String("--help") || first == QLatin1String("-h") ||
           first == QLatin1String("help") || arguments.contains(QStringLiteral("--help"));
}

void ShowHelp(QTextStream &out) {
    out << "velmora-cli: maps without a window\n\n";
    for (const Command &command : kCommands) out << "  " << command.usage << "\n";
    out << "  --help, --version\n\n"
           "  Each command that writes what a map shows takes --filter-levels A,B and --filter-groups C,D:\n"
           "  nodes of other levels and groups are left out. --view NAME takes the levels and groups of a "
           "view\n  that was kept in the map.\n";
}

void ShowError(QTextStream &err, const QString &text) {
    err << "velmora-cli: " << QString(text).replace(QLatin1String("\r\n"), QLatin1String(" ")).simplified()
        << "\n";
}

int RunCommand(const Command &command, const QStringList &arguments, QTextStream &out, QTextStream &err) {
    try {
        return command.run(arguments.mid(1), out);
    } catch (const UsageError &error) {
        ShowError(err, error.Text());
        return kUsage;
    } catch (...) {
        const support::Error error = support::CurrentError(QStringLiteral("velmora-cli"));
        ShowError(err, QStringLiteral("%1 (Error #%2)").arg(error.Description()).arg(error.Number()));
        return kFailed;
    }
}

} // namespace

int Run(const QStringList &arguments, QTextStream &out, QTextStream &err) {
    if (AsksForHelp(arguments)) {
        ShowHelp(out);
        return kGood;
    }
    if (arguments.value(0) == QLatin1String("--version")) {
        out << "velmora-cli " << QCoreApplication::applicationVersion() << "\n";
        return kGood;
    }
    if (const Command *command = Find(arguments)) return RunCommand(*command, arguments, out, err);
    ShowError(err, arguments.isEmpty()
                       ? QStringLiteral("a command is missing; see --help")
                       : QStringLiteral("unknown command '%1'; see --help").arg(arguments.first()));
    return kUsage;
}

bool Paints(const QStringList &arguments) {
    const Command *command = Find(arguments);
    return command && command->paints && !AsksForHelp(arguments);
}

QString TakeOption(QStringList &arguments, const QString &option) {
    const qsizetype at = arguments.indexOf(option);
    if (at < 0) return {};
    if (at + 1 >= arguments.size()) throw UsageError(QStringLiteral("%1 needs a value").arg(option));
    arguments.removeAt(at);
    return arguments.takeAt(at);
}

int NumberOption(QStringList &arguments, const QString &option, int lowest, int highest, int preset) {
    const QString text = TakeOption(arguments, option);
    if (text.isEmpty()) return preset;
    bool good = false;
    const int number = text.toInt(&good);
    if (!good || number < lowest || number > highest)
        throw UsageError(
            QStringLiteral("%1 needs a number from %2 to %3").arg(option).arg(lowest).arg(highest));
    return number;
}

int TakeSlice(QStringList &arguments) {
    constexpr int kMostSlices = 32768;
    return NumberOption(arguments, QStringLiteral("--slice"), 1, kMostSlices, 1);
}

namespace {

std::optional<QStringList> TakeNames(QStringList &arguments, const QString &option) {
    if (!arguments.contains(option)) return std::nullopt;
    return TakeOption(arguments, option).split(u',', Qt::SkipEmptyParts);
}

} // namespace

output::FilterChoice TakeFilter(QStringList &arguments) {
    return {TakeNames(arguments, QStringLiteral("--filter-levels")),
            TakeNames(arguments, QStringLiteral("--filter-groups")),
            TakeOption(arguments, QStringLiteral("--view"))};
}

bool TakeSwitch(QStringList &arguments, const QString &option) { return arguments.removeAll(option) > 0; }

void ExpectFiles(const QStringList &arguments, int count) {
    for (const QString &argument : arguments) {
        if (argument.isEmpty()) throw UsageError(QStringLiteral("a file name is empty"));
        if (argument.startsWith(QLatin1String("--")))
            throw UsageError(QStringLiteral("unknown option %1").arg(argument));
    }
    if (arguments.size() != count)
        throw UsageError(
            QStringLiteral("%1 expected, %2 given; see --help")
                .arg(count == 1 ? QStringLiteral("one file") : QStringLiteral("%1 files").arg(count))
                .arg(arguments.size()));
}

} // namespace cli
