// The style of a link that somebody leaves to the program.
#pragma once

#include <vector>

namespace diagram {

class Link;
class Surface;
struct LinkDraft;

// Stands for the best orthogonal style in lists and settings, never in a link.
constexpr int kAutomaticStyle = 255;

// The orthogonal style with which the link would run through, or close by, the fewest nodes; of those the one
// with the fewest bends and crossings with links of other nodes together, then the fewest bends, then the
// shortest. The draft's own where it is as good as any. Bends of the user's are not kept.
int BestOrthogonalStyle(Surface &surface, const LinkDraft &draft);

// The style itself, or the best one for the link in the place of kAutomaticStyle.
int StyleFor(const Link &link, int style);

// The best style to each of the orthogonal links, but for loops and those whose bends are the user's. Nothing
// where that would take long.
void GiveBestStyles(Surface &surface, const std::vector<Link *> &links);

} // namespace diagram
