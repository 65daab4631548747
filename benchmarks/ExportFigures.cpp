// The whole of a surface as a file of each kind.
#include "benchmarks/Sample.h"
#include "diagram/export/Export.h"

#include <benchmark/benchmark.h>
#include <map>
#include <memory>

namespace {

diagram::Surface &SampleOf(int nodes) {
    static std::map<int, std::unique_ptr<diagram::Surface>> samples;
    std::unique_ptr<diagram::Surface> &sample = samples[nodes];
    if (!sample) {
        sample = std::make_unique<diagram::Surface>();
        bench::FillSample(*sample, nodes);
    }
    return *sample;
}

template <diagram::PictureFormat kFormat>
void Export(benchmark::State &state) {
    diagram::Surface &surface = SampleOf(int(state.range(0)));
    diagram::ExportOptions options;
    options.pixels = 4096;
    qsizetype bytes = 0;
    for (auto _ : state) bytes = diagram::ExportPicture(surface, kFormat, options).size();
    state.counters["bytes"] = double(bytes);
}

using diagram::PictureFormat;
void ExportPng(benchmark::State &state) { Export<PictureFormat::Png>(state); }
void ExportSvg(benchmark::State &state) { Export<PictureFormat::Svg>(state); }
void ExportPdf(benchmark::State &state) { Export<PictureFormat::Pdf>(state); }
void ExportWmf(benchmark::State &state) { Export<PictureFormat::Wmf>(state); }
void ExportEmf(benchmark::State &state) { Export<PictureFormat::Emf>(state); }
BENCHMARK(ExportPng)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(ExportSvg)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(ExportPdf)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(ExportWmf)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(ExportEmf)->Arg(10000)->Unit(benchmark::kMillisecond);

} // namespace
