// Plain routines on what is selected on a surface.
#pragma once

#include <QString>
#include <vector>

namespace diagram {
class Link;
class Node;
class Surface;
} // namespace diagram

namespace mainwindow {

// Selects or unselects every node that is neither hidden nor unselectable, and in the same way the links that
// leave them.
void DoSelectAll(diagram::Surface &flow, bool state);
void UnselectHiddenNodes(diagram::Surface &flow);
void UnselectHiddenLinks(diagram::Surface &flow);
// Whether one of them is that very object.
bool NodeIsInCollection(const diagram::Node &node, const std::vector<diagram::Node *> &nodes);
bool LinkIsInCollection(const diagram::Link &link, const std::vector<diagram::Link *> &links);
// "2 Nodes"; empty for none.
QString CountedText(std::size_t count, const QString &term);
// What is selected, in words: "2 Nodes, 1 Link"; empty for nothing.
QString SelectionText(const diagram::Surface &flow);

} // namespace mainwindow
