// What the form for links does to them. A change of look or text is no step of undo; instead, what the links
// were before can be put back.
#pragma once

#include "diagram/model/Link.h"

#include <utility>

namespace document {
class MapWindow;
}

namespace dialogs {

// Links of one slice as they were.
struct FormerLinks {
    int slice = -1; // slot of their surface
    std::vector<std::pair<diagram::ItemId, diagram::LinkData>> links;
    bool IsEmpty() const { return links.empty(); }
};
// All links must be on one slice; one that is named twice is remembered once.
FormerLinks RememberLinks(const std::vector<diagram::Link *> &links);

// Writes look and text of `values` and nothing else of them. The style may be diagram::kAutomaticStyle, for
// the one that suits the link best. Error 380 for a value out of its range.
void WriteLink(diagram::Link &link, const diagram::LinkData &values);
// Writes them to each of `oLinks`, then to `oLink`, outside of any group of changes. The map is dirty then,
// after an error too.
void ApplyToLinks(document::MapWindow &window, diagram::Link &oLink,
                  const std::vector<diagram::Link *> &oLinks, const diagram::LinkData &values);

// Whether look, text or route of one of the links isn't what it was. A link that was deleted doesn't count.
bool HaveChanged(document::MapWindow &window, const FormerLinks &former);
// Gives the links the look, text and route that they had, except those that were deleted.
void PutBackLinks(document::MapWindow &window, const FormerLinks &former);

} // namespace dialogs
