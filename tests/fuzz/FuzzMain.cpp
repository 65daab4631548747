// Feeds a fuzz target with damaged copies of seed files: fuzz_NAME [--runs N] [--seconds S] FILE...
// The damage follows from the number of the run alone, so that a run that fails can be repeated: --first N
// --runs 1. The target is LLVMFuzzerTestOneInput, as other fuzzers call it. It must not throw; what it does
// wrong is found by the sanitizers, by a crash or by a time that never ends.
#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

namespace {

using Bytes = std::vector<std::uint8_t>;
using Chance = std::mt19937_64;

std::size_t Below(Chance &chance, std::size_t limit) {
    return limit == 0 ? 0 : std::size_t(chance() % limit);
}

void FlipBit(Bytes &bytes, Chance &chance, const std::vector<Bytes> &) {
    if (!bytes.empty()) bytes[Below(chance, bytes.size())] ^= std::uint8_t(1 << Below(chance, 8));
}

void SetByte(Bytes &bytes, Chance &chance, const std::vector<Bytes> &) {
    if (!bytes.empty()) bytes[Below(chance, bytes.size())] = std::uint8_t(chance());
}

// A number that is often a limit, over two, four or eight bytes.
void SetNumber(Bytes &bytes, Chance &chance, const std::vector<Bytes> &) {
    static constexpr std::uint64_t kNumbers[] = {
        0,      1,          0x7F,       0x80,       0xFF,       0x7FFF,     0x8000,
        0xFFFF, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF, 0x7F800000, 0x7FC00000, 0x7FFFFFFFFFFFFFFF};
    const std::uint64_t number = kNumbers[Below(chance, std::size(kNumbers))];
    const std::size_t width = std::size_t(2) << Below(chance, 3);
    if (bytes.size() < width) return;
    const std::size_t at = Below(chance, bytes.size() - width + 1);
    for (std::size_t i = 0; i < width; ++i) bytes[at + i] = std::uint8_t(number >> (8 * i));
}

void Cut(Bytes &bytes, Chance &chance, const std::vector<Bytes> &) {
    bytes.resize(Below(chance, bytes.size() + 1));
}

void TakeOut(Bytes &bytes, Chance &chance, const std::vector<Bytes> &) {
    const std::size_t at = Below(chance, bytes.size()),
                      count = std::min(bytes.size() - at, 1 + Below(chance, 64));
    bytes.erase(bytes.begin() + std::ptrdiff_t(at), bytes.begin() + std::ptrdiff_t(at + count));
}

// A part of any seed into this one.
void Splice(Bytes &bytes, Chance &chance, const std::vector<Bytes> &seeds) {
    const Bytes &from = seeds[Below(chance, seeds.size())];
    const std::size_t at = Below(chance, from.size()),
                      count = std::min(from.size() - at, 1 + Below(chance, 256));
    const std::size_t to = Below(chance, bytes.size() + 1);
    const Bytes part(from.begin() + std::ptrdiff_t(at), from.begin() + std::ptrdiff_t(at + count));
    bytes.insert(bytes.begin() + std::ptrdiff_t(to), part.begin(), part.end());
}

using Damage = void (*)(Bytes &, Chance &, const std::vector<Bytes> &);
constexpr Damage kDamages[] = {FlipBit, SetByte, SetByte, SetNumber, SetNumber, Cut, TakeOut, Splice};

Bytes Damaged(const std::vector<Bytes> &seeds, std::uint64_t run) {
    Chance chance(run * 0x9E3779B97F4A7C15U + 1);
    Bytes bytes = seeds[Below(chance, seeds.size())];
    for (std::size_t times = 1 + Below(chance, 6); times > 0; --times) {
        kDamages[Below(chance, std::size(kDamages))](bytes, chance, seeds);
    }
    return bytes;
}

struct Options {
    std::uint64_t first = 1;
    std::uint64_t runs = 10000;
    double seconds = 10;
    std::vector<Bytes> seeds;
};

Options ReadOptions(int count, char **arguments) {
    Options options;
    for (int i = 1; i < count; ++i) {
        const std::string argument = arguments[i];
        const char *value = i + 1 < count ? arguments[i + 1] : "";
        if (argument == "--runs") {
            options.runs = std::strtoull(value, nullptr, 10), ++i;
        } else if (argument == "--first") {
            options.first = std::strtoull(value, nullptr, 10), ++i;
        } else if (argument == "--seconds") {
            options.seconds = std::strtod(value, nullptr), ++i;
        } else {
            std::ifstream file(argument, std::ios::binary);
            if (!file) {
                std::fprintf(stderr, "%s: can't be read\n", argument.c_str());
                std::exit(2);
            }
            options.seeds.emplace_back(std::istreambuf_iterator<char>(file),
                                       std::istreambuf_iterator<char>());
        }
    }
    return options;
}

} // namespace

int main(int count, char **arguments) {
    const Options options = ReadOptions(count, arguments);
    if (options.seeds.empty()) {
        std::fprintf(stderr, "usage: %s [--first N] [--runs N] [--seconds S] FILE...\n", arguments[0]);
        return 2;
    }
    const auto start = std::chrono::steady_clock::now();
    for (const Bytes &seed : options.seeds) LLVMFuzzerTestOneInput(seed.data(), seed.size());
    std::uint64_t run = options.first;
    for (; run < options.first + options.runs; ++run) {
        const std::chrono::duration<double> spent = std::chrono::steady_clock::now() - start;
        if (spent.count() > options.seconds) break;
        const Bytes bytes = Damaged(options.seeds, run);
        LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
    }
    std::printf("%llu runs\n", static_cast<unsigned long long>(run - options.first));
    return 0;
}
