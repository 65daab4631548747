#include "dialogs/LinkEdit.h"

#include "diagram/model/AutomaticStyle.h"
#include "diagram/model/Surface.h"
#include "document/clsfrmMain.h"
#include "document/MapWindow.h"
#include "document/SurfaceArray.h"

#include <algorithm>
#include <tuple>

namespace dialogs {

namespace {

using diagram::Link;
using diagram::LinkData;

// What WriteLink writes, and the route, which a style can change.
auto Compared(const LinkData &d) {
    return std::tie(d.arrowDest, d.arrowMiddle, d.arrowSizeMiddle, d.arrowSource, d.arrowSizeSource,
                    d.arrowSizeDest, d.drawStyle, d.drawWidth, d.jumpStyle, d.style, d.lineColor, d.foreColor,
                    d.text, d.font, d.oriented, d.points, d.ownBends);
}

// The link's data with an up-to-date route, which is computed when it is asked for.
const LinkData &RoutedData(const Link &link) {
    link.Route();
    link.OwnBends();
    return link.Data();
}

// Points that are written while MovePointsMode is on aren't routed anew.
void WriteRoute(Link &link, const LinkData &former) {
    link.SetMovePointsMode(true);
    link.Points().Assign(former.points);
    link.SetMovePointsMode(former.movePointsMode);
    link.SetOwnBends(former.ownBends);
}

// The links that are still there, with what they were.
std::vector<std::pair<Link *, const LinkData *>> Found(document::MapWindow &window,
                                                       const FormerLinks &former) {
    std::vector<std::pair<Link *, const LinkData *>> found;
    if (former.IsEmpty() || !window.AddFlow1().Exists(former.slice)) return found;
    for (const auto &[id, data] : former.links)
        if (Link *link = window.AddFlow1()[former.slice].FindLink(id)) found.emplace_back(link, &data);
    return found;
}

} // namespace

// In the order in which the form has always written them.
void WriteLink(Link &link, const LinkData &values) {
    link.SetArrowDest(values.arrowDest);
    link.SetArrowMiddle(values.arrowMiddle);
    link.SetArrowSizeMiddle(values.arrowSizeMiddle);
    link.SetArrowSource(values.arrowSource);
    link.SetArrowSizeSource(values.arrowSizeSource);
    link.SetArrowSizeDest(values.arrowSizeDest);
    link.SetDrawStyle(values.drawStyle);
    link.SetDrawWidth(values.drawWidth);
    link.SetJumpStyle(values.jumpStyle);
    link.SetStyle(diagram::StyleFor(link, values.style));
    link.SetLineColor(values.lineColor);
    link.SetForeColor(values.foreColor);
    link.SetText(values.text);
    link.SetFont(values.font);
    link.SetOriented(values.oriented);
}

FormerLinks RememberLinks(const std::vector<Link *> &links) {
    FormerLinks former;
    for (const Link *link : links) {
        const bool known = std::any_of(former.links.begin(), former.links.end(),
                                       [link](const auto &entry) { return entry.first == link->Id(); });
        if (known) continue;
        former.slice = link->Owner().Index();
        former.links.emplace_back(link->Id(), RoutedData(*link));
    }
    return former;
}

void ApplyToLinks(document::MapWindow &window, Link &oLink, const std::vector<Link *> &oLinks,
                  const LinkData &values) {
    window.clsSettings().Dirty = true;
    for (Link *link : oLinks) WriteLink(*link, values);
    WriteLink(oLink, values);
}

bool HaveChanged(document::MapWindow &window, const FormerLinks &former) {
    const auto found = Found(window, former);
    return std::any_of(found.begin(), found.end(), [](const auto &entry) {
        return Compared(RoutedData(*entry.first)) != Compared(*entry.second);
    });
}

void PutBackLinks(document::MapWindow &window, const FormerLinks &former) {
    for (const auto &[link, data] : Found(window, former)) {
        WriteLink(*link, *data);
        if (RoutedData(*link).points != data->points || link->OwnBends() != data->ownBends)
            WriteRoute(*link, *data);
    }
}

} // namespace dialogs
