// Loading and saving beside the same rows through bare SQLite.
#include "benchmarks/RawSqlite.h"
#include "benchmarks/Sample.h"
#include "benchmarks/Scratch.h"
#include "document/clsfrmMain.h"
#include "document/DoLoad.h"
#include "document/DoSave.h"
#include "document/MemoryWindow.h"
#include "document/SurfaceArray.h"

#include <benchmark/benchmark.h>
#include <map>
#include <memory>

namespace {

const bench::RawRows &RowsOf(int nodes) {
    static std::map<int, std::unique_ptr<bench::RawRows>> all;
    auto &rows = all[nodes];
    if (!rows) rows = std::make_unique<bench::RawRows>(bench::SampleMap(nodes));
    return *rows;
}

QString Scratch(const char *name) { return bench::ScratchFolder() + QLatin1Char('/') + QLatin1String(name); }

void RawWrite(benchmark::State &state) {
    const bench::RawRows &rows = RowsOf(int(state.range(0)));
    const QString path = Scratch("raw.db");
    for (auto _ : state) rows.Write(path);
}
BENCHMARK(RawWrite)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->MinTime(2);

void RawRead(benchmark::State &state) {
    const bench::RawRows &rows = RowsOf(int(state.range(0)));
    const QString path = Scratch("raw.db");
    rows.Write(path);
    for (auto _ : state) benchmark::DoNotOptimize(rows.Read(path));
}
BENCHMARK(RawRead)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->MinTime(2);

void Load(benchmark::State &state) {
    const QString map = bench::SampleMap(int(state.range(0)));
    for (auto _ : state) {
        auto window = std::make_unique<document::MemoryWindow>(support::CurrentDesktop());
        window->clsSettings().SetDatabase(map);
        document::DoLoad(*window);
        benchmark::DoNotOptimize(window->AddFlow1()[0].Nodes().Count());
        state.PauseTiming();
        window.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(Load)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->MinTime(2);

void Save(benchmark::State &state) {
    document::MemoryWindow window(support::CurrentDesktop());
    window.clsSettings().SetDatabase(bench::SampleMap(int(state.range(0))));
    document::DoLoad(window);
    window.clsSettings().SetDatabase(Scratch("saved.map"));
    for (auto _ : state) {
        document::DoSave(window);
        state.PauseTiming();
        bench::RemoveSafetyCopies();
        state.ResumeTiming();
    }
}
BENCHMARK(Save)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->MinTime(2);

} // namespace
