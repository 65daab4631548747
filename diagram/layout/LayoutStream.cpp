#include "diagram/layout/LayoutStream.h"

#include <cmath>
#include <QDataStream>
#include <QIODevice>

namespace diagram {

namespace {

constexpr int kBytesOfBox = 4 * 8, kBytesOfEdge = 2 * 4, kBytesOfPoint = 2 * 8;

// A count that the rest of the stream can hold.
bool Fits(const QDataStream &stream, quint32 count, int bytesEach) {
    return stream.status() == QDataStream::Ok &&
           qint64(count) * bytesEach <= stream.device()->bytesAvailable();
}

bool IsBox(const LayoutEdge &edge, quint32 boxes) {
    return edge.from >= 0 && edge.to >= 0 && quint32(edge.from) < boxes && quint32(edge.to) < boxes;
}

bool ReadBoxes(QDataStream &stream, LayoutGraph &graph) {
    quint32 count = 0;
    stream >> count;
    if (!Fits(stream, count, kBytesOfBox)) return false;
    graph.sizes.resize(count);
    graph.centres.resize(count);
    for (quint32 i = 0; i < count; ++i) stream >> graph.sizes[i] >> graph.centres[i];
    return true;
}

bool ReadEdges(QDataStream &stream, LayoutGraph &graph) {
    quint32 count = 0;
    stream >> count;
    if (!Fits(stream, count, kBytesOfEdge)) return false;
    graph.edges.resize(count);
    for (LayoutEdge &edge : graph.edges) {
        qint32 from = 0, to = 0;
        stream >> from >> to;
        edge = {from, to};
        if (!IsBox(edge, quint32(graph.sizes.size()))) return false;
    }
    return true;
}

} // namespace

QByteArray ToBytes(const LayoutTask &task) {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << qint32(task.options.orientation) << task.options.levelDistance
           << task.options.neighbourDistance;
    stream << quint32(task.graph.sizes.size());
    for (std::size_t i = 0; i < task.graph.sizes.size(); ++i)
        stream << task.graph.sizes[i] << task.graph.centres[i];
    stream << quint32(task.graph.edges.size());
    for (const LayoutEdge &edge : task.graph.edges) stream << qint32(edge.from) << qint32(edge.to);
    return bytes;
}

QByteArray ToBytes(const std::vector<QPointF> &centres) {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    for (const QPointF &centre : centres) stream << centre;
    return bytes;
}

std::optional<LayoutTask> TaskFrom(const QByteArray &bytes) {
    QDataStream stream(bytes);
    LayoutTask task;
    qint32 orientation = 0;
    stream >> orientation >> task.options.levelDistance >> task.options.neighbourDistance;
    if (orientation < 0 || orientation > qint32(LayoutOrientation::Left)) return std::nullopt;
    task.options.orientation = LayoutOrientation(orientation);
    if (!ReadBoxes(stream, task.graph) || !ReadEdges(stream, task.graph)) return std::nullopt;
    return task;
}

std::optional<std::vector<QPointF>> CentresFrom(const QByteArray &bytes, std::size_t count) {
    if (std::size_t(bytes.size()) != count * kBytesOfPoint) return std::nullopt;
    QDataStream stream(bytes);
    std::vector<QPointF> centres(count);
    for (QPointF &centre : centres) {
        stream >> centre;
        if (!std::isfinite(centre.x()) || !std::isfinite(centre.y())) return std::nullopt;
    }
    return centres;
}

} // namespace diagram
