// How links are routed that the user draws, in all windows alike.
#pragma once

namespace mainwindow {

// A link style, or diagram::kAutomaticStyle: as the settings have it; straight where they say nothing, or
// nothing that is one.
int RoutingOfNewLinks();
// Kept in the settings, and taken by every view there is. Error 26001.
void SetRoutingOfNewLinks(int style);

} // namespace mainwindow
