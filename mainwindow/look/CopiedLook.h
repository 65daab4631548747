// The look of a node or a link, to be given to others.
#pragma once

#include "diagram/model/Link.h"
#include "diagram/model/Node.h"

#include <optional>

namespace mainwindow {

// Of a node everything but its shape, its size and its picture: font, colours, fill or none, line, placement
// of the text, shadow. Of a link everything but its text and its route: font, colours, line, routing, arrow
// heads, jumps.
class CopiedLook {
public:
    // Of the node and the link that were selected first; with nothing selected what was copied stays.
    void Copy(const diagram::Surface &surface);
    bool IsEmpty() const { return !node_ && !link_; }
    // Gives it to all that is selected, as one step of undo. Nodes take from a link, and links from a node,
    // what they share: font, colours and line. False, and no step, where nothing changes.
    bool Paste(diagram::Surface &surface) const;

private:
    struct NodeValues {
        diagram::NodeLook look;
        bool transparent = false;
    };
    void Give(diagram::Node &node) const;
    void Give(diagram::Link &link) const;

    std::optional<NodeValues> node_;
    std::optional<diagram::LinkData> link_; // its look alone counts
};

} // namespace mainwindow
