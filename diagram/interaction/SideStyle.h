// Which style lets a link leave its node by the side from which it was pulled.
#pragma once

namespace diagram {

class Scene;
struct LinkDraft;

// The draft's own style when its route leaves its source by the side (0 above, clockwise); else the
// orthogonal one with the fewest bends whose route leaves there and meets no other node. Where none does the
// side isn't free, and the style is the draft's own.
int StyleLeavingBy(Scene &scene, const LinkDraft &draft, int side);

} // namespace diagram
