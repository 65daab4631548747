// Dates of the user's nodes: a link to a hidden day of the timeline.
#pragma once

#include <functional>
#include <optional>
#include <QDate>
#include <QString>
#include <QVariantMap>
#include <vector>

namespace diagram {
class Node;
class Surface;
} // namespace diagram
namespace document {
class MapWindow;
}

namespace timeline {

struct TimelineSetupArgument {
    static constexpr char kForm[] = "frmTimelineSetup";
    document::MapWindow &window;
    diagram::Surface *Flow = nullptr;      // whose settings are edited; null for none
    diagram::Node *TemplateNode = nullptr; // receives the look: that of the months, or the default node
    bool asTemplate = false;               // the default node's settings instead of the timeline's
    bool pressOk = false;                  // OK is pressed at once, without showing the form
    std::function<void()> DoFixColors{};   // gives nodes the colours of their levels, for the default node
    // What a form that was given up showed, by the names of its controls: it is written there, and the next
    // form begins with it. Null where that isn't wanted.
    QVariantMap *choices = nullptr;
};

// Gives the node the date, in the form "dd mmmm yyyy", in the place of the one that it had, and lays the
// timeline out. Where the surface has no timeline yet it asks whether the user wants to set it up; else the
// settings that the form shows at first are taken. Opens no group of changes.
void AddTimelineLink(document::MapWindow &window, diagram::Surface &Flow, diagram::Node &Node,
                     const QString &TheDate);

// A date for a node, in whatever form ParseDate reads.
struct NodeDate {
    diagram::Node *node;
    QString date;
    std::optional<QDate> last{}; // its last day; without one the node has no end
};
// The same for several nodes, laid out once; what follows them is pushed on where the slice wants that.
// `moved` are nodes that came or moved besides, as for FollowDates.
void AddTimelineLinks(document::MapWindow &window, diagram::Surface &Flow, const std::vector<NodeDate> &dates,
                      const std::vector<diagram::Node *> &moved = {});
// Takes the date of the node away, with its end: its links to nodes that cannot be selected.
void RemoveTimelineLinks(diagram::Node &Node);

// The date of the node as its timeline link tells it; empty for a node without one.
QString DateOfNode(const diagram::Node &Node);

} // namespace timeline
