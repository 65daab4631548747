// Diagrams written down as short texts, in tests/data/graphs.
#pragma once

#include <QColor>
#include <QString>
#include <QStringList>

namespace diagram {
class Node;
class Surface;
} // namespace diagram

namespace yardstick {

// The names of the files, without their ending, in alphabetical order.
QStringList GraphNames();

// What a file says. A line is one of: "# title", "style N" (of the links), "[Level]" (of the nodes below),
// "name Text" (a node), "name > name" or "name > name : Label" (a link). Nodes stand in rows of six.
struct GraphFile {
    QString title;
    QStringList levels; // in the order of the file
    // Adds the nodes and links. Ends the program for a file that says something else.
    static GraphFile Read(const QString &name, diagram::Surface &surface);
    // The level of a node that was read, from 0; -1 for none.
    static int LevelOf(const diagram::Node &node);
};

} // namespace yardstick
