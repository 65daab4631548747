#include "timeline/AtDates.h"

#include "diagram/model/Surface.h"
#include "document/Tags.h"
#include "timeline/TimelineNodes.h"

#include <iterator>

namespace timeline {

namespace {

using document::tags::kAtDates;
using document::tags::kLanes;
using document::tags::kPushFollowing;

constexpr const char *kNamesOfLanes[] = {"", "Level", "Group"}; // as stored

bool IsOn(const diagram::Surface &flow, const QString &key) {
    const diagram::Node *look = TemplateOf(flow);
    return look && document::IsOn(*look, key);
}

void Switch(diagram::Surface &flow, const QString &key, bool on) {
    if (on != IsOn(flow, key)) document::SetSwitch(*LocateTimeLineTemplateNode(flow, true), key, on);
}

} // namespace

bool KeepsNodesAtDates(const diagram::Surface &flow) { return IsOn(flow, kAtDates); }
void SetKeepsNodesAtDates(diagram::Surface &flow, bool keeps) { Switch(flow, kAtDates, keeps); }

bool PushesFollowing(const diagram::Surface &flow) { return IsOn(flow, kPushFollowing); }
void SetPushesFollowing(diagram::Surface &flow, bool pushes) { Switch(flow, kPushFollowing, pushes); }

Lanes LanesOf(const diagram::Surface &flow) {
    const diagram::Node *look = TemplateOf(flow);
    const QString name = look ? document::GetTag(*look, kLanes) : QString();
    for (int i = 1; i < int(std::size(kNamesOfLanes)); ++i)
        if (name == QLatin1String(kNamesOfLanes[i])) return Lanes(i);
    return Lanes::None;
}

void SetLanes(diagram::Surface &flow, Lanes lanes) {
    if (lanes != LanesOf(flow))
        document::SetTag(*LocateTimeLineTemplateNode(flow, true), kLanes,
                         QLatin1String(kNamesOfLanes[int(lanes)]));
}

} // namespace timeline
