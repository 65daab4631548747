// Runs the figures beside their yardsticks, prints a table and writes it as JSON: velmora-bench BIN_FOLDER
// OUT.json
#include "benchmarks/Parts.h"
#include "benchmarks/Scratch.h"
#include "benchmarks/WholeProcess.h"
#include "support/Files.h"
#include "support/headless/HeadlessDesktop.h"
#include "support/RegistryStore.h"

#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <map>
#include <QApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <string>
#include <vector>

namespace {

// Keeps the best of the repetitions of each benchmark: what the machine's other work adds is not ours.
class Times : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run> &runs) override {
        for (const Run &run : runs) {
            if (run.run_type != Run::RT_Iteration || run.error_occurred) continue;
            std::string name = run.run_name.function_name + "/" + run.run_name.args;
            double &best = milliseconds[name];
            const double time = run.GetAdjustedRealTime();
            if (best == 0 || time < best) best = time;
        }
        ConsoleReporter::ReportRuns(runs);
    }
    std::map<std::string, double> milliseconds;
};

using bench::Figure;

class Table {
public:
    explicit Table(const std::map<std::string, double> &times) : times_(times) {}

    void Ratio(const char *name, const std::string &ours, const std::string &yardstick, double bound) {
        if (!times_.count(ours) || !times_.count(yardstick)) return;
        const double a = times_.at(ours), b = times_.at(yardstick);
        figures_.push_back({QString::fromLatin1(name), a / b, QStringLiteral("x"), bound,
                            QStringLiteral("%1 ms : %2 ms").arg(a, 0, 'f', 2).arg(b, 0, 'f', 2)});
    }
    void Milliseconds(const char *name, const std::string &ours, double bound) {
        if (times_.count(ours)) Value(name, times_.at(ours), "ms", bound);
    }
    void Value(const char *name, double value, const char *unit, double bound,
               const QString &remark = QString()) {
        figures_.push_back({QString::fromLatin1(name), value, QString::fromLatin1(unit), bound, remark});
    }

    void Add(const bench::Figures &figures) {
        figures_.insert(figures_.end(), figures.begin(), figures.end());
    }

    void Print() const {
        std::printf("\n%-62s %10s %12s   %s\n", "figure", "measured", "at most", "");
        for (const Figure &figure : figures_)
            std::printf("%-62s %8.2f %-4s %s %-6s %s\n", qPrintable(figure.name), figure.value,
                        qPrintable(figure.unit), qPrintable(BoundOf(figure)),
                        figure.bound == 0              ? "told"
                        : figure.value <= figure.bound ? "ok"
                                                       : "MISSED",
                        qPrintable(figure.remark));
    }
    bool Write(const QString &path) const {
        QJsonArray rows;
        for (const Figure &figure : figures_)
            rows.append(QJsonObject{{"figure", figure.name},
                                    {"measured", figure.value},
                                    {"unit", figure.unit},
                                    {"bound", figure.bound},
                                    {"held", figure.bound == 0 || figure.value <= figure.bound},
                                    {"remark", figure.remark}});
        QJsonObject times;
        for (const auto &[name, time] : times_) times[QString::fromStdString(name)] = time;
        QFile file(path);
        return file.open(QIODevice::WriteOnly) &&
               file.write(QJsonDocument(QJsonObject{{"figures", rows}, {"milliseconds", times}}).toJson()) >
                   0;
    }

private:
    static QString BoundOf(const Figure &figure) {
        if (figure.bound == 0) return QString(11, u' ');
        return QStringLiteral("%1 %2").arg(figure.bound, 6, 'f', 2).arg(figure.unit, -4);
    }

    const std::map<std::string, double> &times_;
    std::vector<Figure> figures_;
};

void AddWholeProcess(Table &table, const QString &bin) {
    const QString map = bench::SampleMap(10000);
    const bench::Start hello = bench::BestStart({bin + "/hello_window"});
    const bench::Start empty = bench::BestStart({bin + "/velmora"});
    const bench::Start loaded = bench::BestStart({bin + "/velmora", map});
    table.Value("start to painted window : plain Qt window", empty.seconds / hello.seconds, "x", 1.6,
                QStringLiteral("%1 s : %2 s").arg(empty.seconds, 0, 'f', 3).arg(hello.seconds, 0, 'f', 3));
    table.Value("start to painted window with 10,000 nodes", loaded.seconds, "s", 0.15);
    table.Value("resident memory with 10,000 nodes above a plain window",
                (loaded.residentKiB - hello.residentKiB) / 1024.0, "MiB", 60);
    const QString out = bench::ScratchFolder() + "/picture";
    for (const auto &[format, bound] : {std::pair("png", 0.5), std::pair("svg", 0.15), std::pair("pdf", 0.6),
                                        std::pair("wmf", 0.6), std::pair("emf", 0.6)}) {
        const QByteArray name = QByteArray("velmora-cli picture, 10,000 nodes, ") + format;
        table.Value(name.constData(),
                    bench::BestRun({bin + "/velmora-cli", "picture", map, "--slice", "1", out + "." + format,
                                    "--pixels", "4096"}),
                    "s", bound);
    }
}

void AddStore(Table &table, const QString &) {
    table.Ratio("load 10,000 nodes : raw SQLite read", "Load/10000", "RawRead/10000", 2.2);
    table.Ratio("load 100,000 nodes : raw SQLite read", "Load/100000", "RawRead/100000", 2.2);
    table.Ratio("save 10,000 nodes : raw SQLite write", "Save/10000", "RawWrite/10000", 2);
    table.Ratio("save 100,000 nodes : raw SQLite write", "Save/100000", "RawWrite/100000", 2);
}

void AddTables(Table &table, const QString &) {
    table.Milliseconds("10,000 nodes to a text file of columns", "ExportCsv/10000", 500);
    table.Milliseconds("10,000 nodes from a text file of columns", "ImportCsv/10000", 500);
    table.Ratio("to a text file : raw SQLite read of the map", "ExportCsv/10000", "RawRead/10000", 0);
    table.Ratio("from a text file : its characters cut into fields", "ImportCsv/10000", "RawCsv/10000", 0);
}

void AddPainting(Table &table, const QString &) {
    table.Ratio("full repaint, 200 of 10,000 nodes : raw QPainter", "FullOurs/10000", "FullRaw/10000", 1.2);
    table.Ratio("full repaint, 200 of 100,000 nodes : of 10,000", "FullOurs/100000", "FullOurs/10000", 1.1);
    table.Ratio("pan, 200 of 10,000 nodes : raw QPainter", "PanOurs/10000", "PanRaw/10000", 1.5);
    table.Ratio("pan, 200 of 100,000 nodes : of 10,000", "PanOurs/100000", "PanOurs/10000", 1.1);
    table.Milliseconds("drag one node with its links, a step, 10,000 nodes", "DragStep/10000", 1.5);
    table.Milliseconds("drag one node with its links, a step, 100,000 nodes", "DragStep/100000", 1.5);
    table.Milliseconds("rerouting a drag of a node with 20 links, a step, 500 nodes", "RouteDrag/", 4);
    table.Milliseconds("dragging a node with 20 links among 1,000 labelled links, a step", "LabelDrag/all:0",
                       8);
    table.Milliseconds("labels when it is let go", "LabelRelease/", 16);
    table.Milliseconds("laying out a timeline of 240 months with 5,000 dated nodes", "Arrange/", 100);
    table.Milliseconds("lining up 5,000 dated nodes beside their days, half of them linked", "LineUpByDate/",
                       100);
    table.Milliseconds("dragging one of 5,000 nodes kept at their dates, a step, event to frame", "DateDrag/",
                       8);
    table.Milliseconds("whole diagram in view, 10,000 nodes", "WholeOurs/10000", 16);
    table.Milliseconds("whole diagram in view, 100,000 nodes", "WholeOurs/100000", 80);
}

void AddExport(Table &table, const QString &) {
    table.Milliseconds("export of 10,000 nodes, PNG", "ExportPng/10000", 600);
    table.Milliseconds("export of 10,000 nodes, SVG", "ExportSvg/10000", 600);
    table.Milliseconds("export of 10,000 nodes, PDF", "ExportPdf/10000", 600);
    table.Milliseconds("export of 10,000 nodes, WMF", "ExportWmf/10000", 600);
    table.Milliseconds("export of 10,000 nodes, EMF", "ExportEmf/10000", 600);
}

template <bench::Figures (*kMeasure)()>
void Add(Table &table, const QString &) {
    table.Add(kMeasure());
}

// A part can be run alone: --part=NAME.
struct Part {
    const char *name;
    bool timed; // takes its values from the micro-benchmarks
    void (*add)(Table &table, const QString &bin);
};
constexpr Part kParts[] = {
    {"store", true, AddStore},
    {"tables", true, AddTables},
    {"painting", true, AddPainting},
    {"export", true, AddExport},
    {"canvas", false, Add<bench::CanvasFigures>},
    {"window", false, Add<bench::WindowFigures>},
    {"bars", false, Add<bench::BarFigures>},
    {"overview", false, Add<bench::OverviewFigures>},
    {"edit", false, Add<bench::EditFigures>},
    {"journal", false, Add<bench::JournalFigures>},
    {"layout", false, Add<bench::LayoutFigures>},
    {"silence", false, Add<bench::SilenceFigures>},
    {"ortho", false, Add<bench::OrthoCrossings>},
    {"wholemap", false, Add<bench::WholeMapFigures>},
    {"commands", false, Add<bench::CommandFigures>},
    {"forms", false, Add<bench::FormFigures>},
    {"print", false, Add<bench::PrintFigures>},
    {"output", false, Add<bench::OutputFigures>},
    {"memory", false, Add<bench::MemoryFigures>},
    {"process", false, AddWholeProcess},
};

bool IsWanted(const Part &part, const QByteArray &only) { return only.isEmpty() || only == part.name; }

// Takes --part=NAME out of the arguments.
QByteArray TakePart(std::vector<char *> &options) {
    const QByteArray option = "--part=";
    for (auto at = options.begin(); at != options.end(); ++at) {
        const QByteArray each(*at);
        if (!each.startsWith(option)) continue;
        options.erase(at);
        return each.mid(option.size());
    }
    return {};
}

} // namespace

int main(int argc, char **argv) {
    if (argc < 3) {
        std::fprintf(stderr, "usage: velmora-bench BIN_FOLDER OUT.json [--part=NAME] [benchmark options]\n");
        return 2;
    }
    const QString bin = QString::fromLocal8Bit(argv[1]), out = QString::fromLocal8Bit(argv[2]);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("TMPDIR", bench::ScratchFolder().toLocal8Bit());
    std::vector<char *> options = {argv[0]};
    options.insert(options.end(), argv + 3, argv + argc);
    const QByteArray only = TakePart(options);
    QApplication app(argc, argv);
    support::HeadlessDesktop desktop(std::make_unique<support::MemoryRegistryStore>());
    support::SetProgramPath(bin);
    int count = int(options.size());
    benchmark::Initialize(&count, options.data());
    Times times;
    if (std::ranges::any_of(kParts, [&](const Part &part) { return part.timed && IsWanted(part, only); }))
        benchmark::RunSpecifiedBenchmarks(&times);

    Table table(times.milliseconds);
    for (const Part &part : kParts)
        if (IsWanted(part, only)) part.add(table, bin);
    table.Print();
    if (table.Write(out)) return 0;
    std::fprintf(stderr, "%s can't be written\n", qPrintable(out));
    return 1;
}
