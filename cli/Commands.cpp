#include "cli/Commands.h"

#include "support/Error.h"

#include <QCoreApplication>

namespace cli {

namespace {

struct Command {
    const char *name;
    int (*run)(QStringList, QTextStream &);
    bool paints;
    const char *usage; // as the help shows it, but for the indent of its first line
};

constexpr Command kCommands[] = {
    {"info", Info, false, R"(info FILE [--json]
      slices, counts, dates, fonts and pools)"},
    {"check", Check, false, R"(check FILE
      tells of each thing that is wrong with the map where it stands and what it is; ends with 1 if
      anything is)"},
    {"repair", Repair, false, R"(repair IN OUT
      writes what can be read of the map IN as the map OUT and tells of each change)"},
    {"convert", Convert, false, R"(convert IN OUT
      writes the map IN, an old Jet map too, as the map OUT)"},
    {"csv", Csv, false, R"(csv FILE [--slice N] OUT.csv
      a slice, counted from 1, as a text file of columns)"},
    {"import", Import, false, R"(import FILE.csv MAP [--slice N|--new]
      adds what a text file of columns holds to a slice of the map, or to a new one)"},
    {"layout", Layout, false,
     R"(layout IN OUT --engine hierarchical|tree|radial|organic|circular|levels [--slice N]
         [--direction down|up|right|left] [--together levels|groups]
      writes the map IN as the map OUT with a slice, counted from 1, laid out; --together is for the
      hierarchical layout: each level or group by itself, none over another)"},
    {"route", Route, false, R"(route IN OUT [--slice N]
      writes the map IN as the map OUT with the links of a slice, counted from 1, routed anew, but for those
      that were bent by hand)"},
    {"picture", Picture, true, R"(picture FILE [--slice N] [SIZE] OUT.png|OUT.svg|OUT.pdf|OUT.wmf|OUT.emf
  picture FILE --all FOLDER [--format png|svg|pdf|wmf|emf] [SIZE]
      a picture of a slice, counted from 1, or of every slice. SIZE is --scale PERCENT, or for a PNG
      --pixels N, its longest side; --dpi N is a PNG's resolution, --background shown|white|transparent
      what lies behind the drawing. Metafiles are not scaled)"},
    {"report", Report, true, R"(report --rtf|--html FILE OUT [--slice N|--all] [--nodes [--details]] [--map]
      a report of a slice, counted from 1, or of all: the texts of its nodes, what else there is of them,
      and its picture; --html with --all writes a page for each slice beside OUT)"},
    {"slides", Slides, true, R"(slides FILE OUT.pptx|OUT.ppt [--slice N | --all] [--title] [--shapes]
      a presentation of a slice, counted from 1, or of every slice, each as a picture or, with --shapes,
      in a .pptx as shapes to go on with; --title puts the slice's name above it)"},
    {"print", Print, true,
     R"(print FILE --to OUT.pdf [--slice N|--all] [--landscape] [--fit] [--header TEXT] [--footer TEXT]
      the pages of a slice, counted from 1, or of all; &[Page], &[Pages], &[Title], &[Slice], &[Date] and
      &[File] in the texts stand for their values)"},
    {"recovered", Recovered, false, R"(recovered [--folder FOLDER]
  recovered NUMBER OUT [--folder FOLDER]
      the maps of editors that ended before they were saved, or one of them as the new map OUT)"},
    {"template", Template, true, R"(template list
  template apply FILE MAP [--slice N]
  template make MAP [--slice N] OUT
      the templates that the editor offers; a template put in the place of what a slice holds; a slice
      saved as a template, with an icon that is drawn from it. Slices are counted from 1)"},
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
    out << R"(  --help, --version

  Each command that writes what a map shows takes --filter-levels A,B and --filter-groups C,D:
  nodes of other levels and groups are left out. --view NAME takes the levels and groups of a view
  that was kept in the map.
)";
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

int TakeNumber(QStringList &arguments, const QString &option, int lowest, int highest, int preset) {
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
    return TakeNumber(arguments, QStringLiteral("--slice"), 1, kMostSlices, 1);
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
