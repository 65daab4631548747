// What the node dialog holds when OK is pressed, and what that does to nodes.
#pragma once

#include "diagram/model/Node.h"
#include "dialogs/PropertyForms.h"

#include <functional>
#include <optional>
#include <QDate>
#include <QString>
#include <QStringList>

namespace dialogs {

// Levels and groups by their names: of several with one name the first counts.
struct Membership {
    QString level; // empty for none
    QStringList groups;
};

struct DateEdit {
    bool dated = false;
    std::optional<QDate> value;  // dated without a value: the date stays as it is
    std::optional<QDate> last{}; // the end of what has a value
};

struct NodeEdit {
    // For every node that is edited.
    diagram::NodeLook look;
    int xTextMargin = 0;
    int yTextMargin = 0;
    diagram::Picture Picture;
    std::optional<Membership> membership; // none leaves levels and groups as they are
    // For the node that is shown alone.
    std::optional<QString> Text, Event; // none leaves the text as it is, to the letter
    DateEdit date;
};

// The edit that changes nothing of the node.
NodeEdit EditOf(const diagram::Node &node);

// The text of the day that the node is linked to; of several days the last. None for a node without a date.
std::optional<QString> DayTextOf(const diagram::Node &node);

// Writes what is for every node that is edited, but for level and groups.
void WriteLook(diagram::Node &node, const NodeEdit &edit);

// Writes the edit as one step of undo, which is closed, and the map dirty, whatever happens. A node without a
// key gets one. `linked` writes what refers to the node by its key; it runs before the date is written. Where
// the slice has no timeline yet, a date asks whether to set it up.
void ApplyNodeEdit(const NodeDialogArgument &argument, const NodeEdit &edit,
                   const std::function<void()> &linked = {});

} // namespace dialogs
