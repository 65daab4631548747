// What the form for links does to them. A change of look or text is no step of undo: what the links were can
// be put back instead.
#pragma once

#include "diagram/model/Link.h"

#include <utility>

namespace document {
class MapWindow;
}

namespace dialogs {

// The links of one slice as they were.
struct FormerLinks {
    int slice = -1;
    std::vector<std::pair<diagram::ItemId, diagram::LinkData>> links;
    bool IsEmpty() const { return links.empty(); }
};
// The links stand on one slice; one that is named twice is remembered once.
FormerLinks RememberLinks(const std::vector<diagram::Link *> &links);

// Writes look and text of `values`, and nothing else of them; with diagram::kAutomaticStyle for a style, the
// best one for the link. Error 380 for a value out of its range.
void WriteLink(diagram::Link &link, const diagram::LinkData &values);
// Writes them to each of `oLinks`, then to `oLink`, outside of any group of changes. The map
// is dirty then, after an error too.
void ApplyToLinks(document::MapWindow &window, diagram::Link &oLink,
                  const std::vector<diagram::Link *> &oLinks, const diagram::LinkData &values);

// Whether look, text or way of one of the links isn't what it was. A link that is gone doesn't count.
bool HaveChanged(document::MapWindow &window, const FormerLinks &former);
// Gives the links look, text and way that they had. Those that are gone are passed over.
void PutBackLinks(document::MapWindow &window, const FormerLinks &former);

} // namespace dialogs
