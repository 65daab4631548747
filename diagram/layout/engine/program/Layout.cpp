// velmora-layout: reads a graph from its input, lays it out in layers and writes the centres of its boxes. A
// program of its own, so that a layout that takes long can be given up.
#include "diagram/layout/engine/Layered.h"
#include "diagram/layout/LayoutStream.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <QFile>

namespace {

constexpr int kExitBadTask = 2, kExitFailed = 3;

int Run() {
    QFile input, output;
    if (!input.open(stdin, QIODevice::ReadOnly) || !output.open(stdout, QIODevice::WriteOnly))
        return kExitFailed;
    const auto task = diagram::TaskFrom(input.readAll());
    if (!task) return kExitBadTask;
    const QByteArray bytes = diagram::ToBytes(diagram::Layered(task->graph, task->options));
    return output.write(bytes) == bytes.size() && output.flush() ? 0 : kExitFailed;
}

} // namespace

// Ends without giving back what the engine holds: the answer is written, and somebody waits for the end.
int main() {
    int result = kExitFailed;
    try {
        result = Run();
    } catch (const std::exception &error) {
        std::fprintf(stderr, "velmora-layout: %s\n", error.what());
    }
    std::_Exit(result);
}
