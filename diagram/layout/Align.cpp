#include "diagram/layout/Align.h"

#include "diagram/model/Node.h"

#include <algorithm>
#include <array>
#include <QRectF>

namespace diagram {

namespace {

// How much of the free room lies before a node, and in which axis.
struct Line {
    double share;
    bool across;
};
constexpr std::array<Line, 6> kLines{
    {{0, true}, {0.5, true}, {1, true}, {0, false}, {0.5, false}, {1, false}}};

QRectF Extent(const std::vector<Node *> &nodes) {
    QRectF all = nodes.front()->Bounds();
    for (const Node *node : nodes) {
        const QRectF box = node->Bounds();
        all = QRectF(QPointF(qMin(all.left(), box.left()), qMin(all.top(), box.top())),
                     QPointF(qMax(all.right(), box.right()), qMax(all.bottom(), box.bottom())));
    }
    return all;
}

double Length(const Node &node, Spread direction) {
    return direction == Spread::Across ? node.Width() : node.Height();
}
double Start(const Node &node, Spread direction) {
    return direction == Spread::Across ? node.Left() : node.Top();
}
void MoveTo(Node &node, Spread direction, double start) {
    direction == Spread::Across ? node.SetLeft(float(start)) : node.SetTop(float(start));
}

} // namespace

void AlignNodes(const std::vector<Node *> &nodes, AlignTo line) {
    if (nodes.empty()) return;
    const QRectF all = Extent(nodes);
    const auto [share, across] = kLines[std::size_t(line)];
    for (Node *node : nodes) {
        if (across)
            node->SetLeft(float(all.left() + (all.width() - node->Width()) * share));
        else
            node->SetTop(float(all.top() + (all.height() - node->Height()) * share));
    }
}

void DistributeNodes(std::vector<Node *> nodes, Spread direction) {
    if (nodes.size() < 3) return;
    std::ranges::stable_sort(
        nodes, {}, [&](const Node *node) { return Start(*node, direction) + Length(*node, direction) / 2; });
    const Node &first = *nodes.front(), &last = *nodes.back();
    double room = Start(last, direction) - Start(first, direction) - Length(first, direction);
    for (std::size_t i = 1; i + 1 < nodes.size(); ++i) room -= Length(*nodes[i], direction);
    const double gap = room / double(nodes.size() - 1);
    double at = Start(first, direction) + Length(first, direction) + gap;
    for (std::size_t i = 1; i + 1 < nodes.size(); ++i) {
        MoveTo(*nodes[i], direction, at);
        at += Length(*nodes[i], direction) + gap;
    }
}

void MakeSameSize(const std::vector<Node *> &nodes, const Node &model, SameSize what) {
    const float width = model.Width(), height = model.Height();
    for (Node *node : nodes) {
        const QPointF centre = node->Bounds().center();
        if (what != SameSize::Height) {
            node->SetWidth(width);
            node->SetLeft(float(centre.x() - width / 2));
        }
        if (what != SameSize::Width) {
            node->SetHeight(height);
            node->SetTop(float(centre.y() - height / 2));
        }
    }
}

} // namespace diagram
