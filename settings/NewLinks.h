// How the links are routed that a user draws.
#pragma once

#include <QString>

namespace settings {

inline constexpr char kLinkRouting[] = "LinkRouting";
inline constexpr char kAutomaticRouting[] = "Automatic";

// kAutomaticRouting, or the number of a link style: the named setting kLinkRouting; without one LINKROUTING
// of Settings.nml in the program's folder; an empty text without either.
QString LinkRouting();
void SaveLinkRouting(const QString &routing); // error 26001

} // namespace settings
