#include "dialogs/NodeEdit.h"

#include "diagram/model/Surface.h"
#include "document/clsfrmMain.h"
#include "document/MapWindow.h"
#include "document/Tags.h"
#include "support/clsGUID.h"
#include "timeline/AddTimelineLink.h"
#include "timeline/AdjustLinks.h"
#include "timeline/DateText.h"
#include "timeline/LineUp.h"

#include <algorithm>

namespace dialogs {

namespace {

using diagram::Node;

// A step of undo that closes itself and makes the map dirty.
class Applying {
public:
    explicit Applying(const NodeDialogArgument &argument) : argument_(argument) {
        document::BeginAction(argument.oFlow);
    }
    ~Applying() {
        argument_.oFlow.EndAction();
        argument_.window.clsSettings().Dirty = true;
    }
    Applying(const Applying &) = delete;
    Applying &operator=(const Applying &) = delete;

private:
    const NodeDialogArgument &argument_;
};

// A membership as tags hold it.
struct MembershipKeys {
    QString level, groups;
};

MembershipKeys KeysOf(document::clsfrmMain &settings, const Membership &membership) {
    MembershipKeys keys{settings.Levels().KeyForLevelName(membership.level), {}};
    QStringList groups;
    for (const QString &name : membership.groups)
        for (const document::cGroup &group : settings.Groups()) {
            if (group.GroupName != name) continue;
            groups << group.Key;
            break;
        }
    keys.groups = groups.join(u',');
    return keys;
}

void WriteMembership(Node &node, const MembershipKeys &keys) {
    document::SetTag(node, document::tags::kLevel, keys.level);
    document::SetTag(node, document::tags::kGroup, keys.groups);
}

// The selection first, and the node that is shown in any case.
std::vector<Node *> EditedNodes(const NodeDialogArgument &argument) {
    std::vector<Node *> nodes;
    if (argument.editsSelection) nodes = argument.oFlow.SelectedNodes();
    if (std::find(nodes.begin(), nodes.end(), &argument.oNode) == nodes.end())
        nodes.push_back(&argument.oNode);
    return nodes;
}

std::vector<Node *> Resized(const std::vector<Node *> &nodes, const std::vector<QRectF> &former) {
    std::vector<Node *> resized;
    for (std::size_t i = 0; i < nodes.size(); ++i)
        if (nodes[i]->Bounds() != former[i]) resized.push_back(nodes[i]);
    return resized;
}

// Writes the date, and lines up the nodes that took another size where nodes stay at their dates.
void WriteDate(const NodeDialogArgument &argument, const DateEdit &date, const std::vector<Node *> &resized) {
    if (!date.dated) timeline::RemoveTimelineLinks(argument.oNode);
    if (!date.dated || !date.value) return timeline::FollowDates(argument.window, argument.oFlow, resized);
    const QString first = timeline::FormatDate(*date.value, timeline::kDayPattern);
    timeline::AddTimelineLinks(argument.window, argument.oFlow, {{&argument.oNode, first, date.last}},
                               resized);
}

std::vector<QRectF> BoundsOf(const std::vector<Node *> &nodes) {
    std::vector<QRectF> bounds;
    for (const Node *node : nodes) bounds.push_back(node->Bounds());
    return bounds;
}

void WriteTexts(Node &node, const NodeEdit &edit) {
    if (edit.Text) node.SetText(*edit.Text);
    if (edit.Event) node.SetEvent(*edit.Event);
}

} // namespace

NodeEdit EditOf(const Node &node) {
    NodeEdit edit;
    edit.look = node.Look();
    edit.xTextMargin = node.xTextMargin();
    edit.yTextMargin = node.yTextMargin();
    edit.Picture = node.Picture();
    edit.date.dated = DayTextOf(node).has_value();
    return edit;
}

std::optional<QString> DayTextOf(const Node &node) {
    std::optional<QString> text;
    for (const diagram::Link *link : node.Links())
        if (!link->Selectable() && link->Marked()) text = link->Destination().Text();
    return text;
}

void WriteLook(Node &node, const NodeEdit &edit) {
    node.SetLook(edit.look);
    node.SetxTextMargin(edit.xTextMargin);
    node.SetyTextMargin(edit.yTextMargin);
    node.SetPicture(edit.Picture);
}

void ApplyNodeEdit(const NodeDialogArgument &argument, const NodeEdit &edit,
                   const std::function<void()> &linked) {
    support::PassOn("cmdApply", [&] {
        Node &oNode = argument.oNode;
        std::optional<MembershipKeys> keys;
        if (edit.membership) keys = KeysOf(argument.window.clsSettings(), *edit.membership);
        const Applying step(argument);
        const std::vector<Node *> nodes = EditedNodes(argument);
        const std::vector<QRectF> former = BoundsOf(nodes);
        for (Node *node : nodes) {
            WriteLook(*node, edit);
            if (keys) WriteMembership(*node, *keys);
        }
        WriteTexts(oNode, edit);
        if (oNode.Key().isEmpty()) oNode.SetKey(support::GetGUID());
        if (linked) linked();
        const std::vector<Node *> resized = Resized(nodes, former);
        WriteDate(argument, edit.date, resized);
        timeline::AdjustLinksOf(resized);
        oNode.Refresh();
    });
}

} // namespace dialogs
