// The colours that the user mixed last, for all maps.
#pragma once

#include "support/Colour.h"

#include <vector>

namespace mainwindow {

constexpr std::size_t kRecentColours = 6;

// Most recent first; what is stored and is no colour is passed over.
std::vector<support::Colour> RecentColours();
// Puts the colour first; the oldest goes once there are too many. Error 26001.
void NoteRecentColour(support::Colour colour);

} // namespace mainwindow
