// How a graph goes to velmora-layout and how the centres come back.
#pragma once

#include "diagram/layout/LayoutGraph.h"

#include <optional>
#include <QByteArray>

namespace diagram {

struct LayoutTask {
    LayoutGraph graph;
    LayoutOptions options;
};

QByteArray ToBytes(const LayoutTask &task);
QByteArray ToBytes(const std::vector<QPointF> &centres);
// Nothing for bytes that are cut off, or whose counts or indexes cannot be.
std::optional<LayoutTask> TaskFrom(const QByteArray &bytes);
std::optional<std::vector<QPointF>> CentresFrom(const QByteArray &bytes, std::size_t count);

} // namespace diagram
