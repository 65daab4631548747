// A slice of 10,000 nodes and 13,000 links as a text file of columns, out and in, beside the least that has
// to be done: the file's rows read by bare SQLite (RawRead in StoreFigures.cpp), the file's characters cut
// into fields.
#include "benchmarks/Scratch.h"
#include "diagram/edit/History.h"
#include "document/clsfrmMain.h"
#include "document/DoLoad.h"
#include "document/MemoryWindow.h"
#include "document/SurfaceArray.h"
#include "output/csv/ExportMap.h"
#include "output/csv/ImportMap.h"
#include "support/AtomicFile.h"

#include <benchmark/benchmark.h>
#include <memory>
#include <string>
#include <vector>

namespace {

QString CsvFile() { return bench::ScratchFolder() + QStringLiteral("/sample.csv"); }

std::unique_ptr<document::MemoryWindow> LoadedSample(int nodes) {
    auto window = std::make_unique<document::MemoryWindow>(support::CurrentDesktop());
    window->clsSettings().SetDatabase(bench::SampleMap(nodes));
    document::DoLoad(*window);
    return window;
}

void ExportCsv(benchmark::State &state) {
    const auto window = LoadedSample(int(state.range(0)));
    for (auto _ : state) output::ExportMap(*window, window->AddFlow1()[0], CsvFile());
}
BENCHMARK(ExportCsv)->Arg(10000)->Unit(benchmark::kMillisecond)->MinTime(1);

void ImportCsv(benchmark::State &state) {
    const auto window = LoadedSample(int(state.range(0)));
    output::ExportMap(*window, window->AddFlow1()[0], CsvFile());
    for (auto _ : state) {
        state.PauseTiming();
        auto target = std::make_unique<document::MemoryWindow>(support::CurrentDesktop());
        state.ResumeTiming();
        output::ImportMap(*target, target->AddFlow1()[0], CsvFile());
        state.PauseTiming();
        target.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(ImportCsv)->Arg(10000)->Unit(benchmark::kMillisecond)->MinTime(1);

std::vector<std::string> Cut(const QByteArray &bytes) {
    std::vector<std::string> fields(1);
    bool quoted = false;
    for (const char character : bytes) {
        if (character == '"')
            quoted = !quoted;
        else if (!quoted && (character == ',' || character == '\n'))
            fields.emplace_back();
        else
            fields.back().push_back(character);
    }
    return fields;
}

void RawCsv(benchmark::State &state) {
    const auto window = LoadedSample(int(state.range(0)));
    output::ExportMap(*window, window->AddFlow1()[0], CsvFile());
    for (auto _ : state) benchmark::DoNotOptimize(Cut(support::ReadWholeFile(CsvFile())).size());
}
BENCHMARK(RawCsv)->Arg(10000)->Unit(benchmark::kMillisecond)->MinTime(1);

} // namespace
