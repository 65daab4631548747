// The program's own icons: drawn as SVG on a field of 24, in the colours of the current theme.
#pragma once

#include <QIcon>
#include <QString>

namespace mainwindow {

// The icon of that name (icons/NAME.svg); a null icon for an empty name or one that isn't there. Nothing is
// read or drawn before the icon is painted. Follows the palette: dark ink on light themes, light ink on dark
// ones.
QIcon Icon(const QString &name);

// A shape of the diagram as an icon; drawn from its outline.
QIcon ShapeIcon(int shape);

// The program's icon in its own colours.
QIcon ProgramIcon();

} // namespace mainwindow
