// What a slice keeps of how its nodes follow their dates: in the tag of the timeline's template node.
#pragma once

namespace diagram {
class Surface;
}

namespace timeline {

// Whether the slice's nodes stay at their dates whatever changes.
bool KeepsNodesAtDates(const diagram::Surface &flow);
// Makes the template node where there is none; the tag stays as it is where the switch already is so.
void SetKeepsNodesAtDates(diagram::Surface &flow, bool keeps);

// Whether what depends on a node is moved on when that ends later than before.
bool PushesFollowing(const diagram::Surface &flow);
void SetPushesFollowing(diagram::Surface &flow, bool pushes);

// What the nodes of one lane beside the strip have in common.
enum class Lanes { None, Level, Group };
Lanes LanesOf(const diagram::Surface &flow);
void SetLanes(diagram::Surface &flow, Lanes lanes);

} // namespace timeline
