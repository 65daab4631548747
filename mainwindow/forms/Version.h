// The program's version.
#pragma once

#include <QString>

namespace mainwindow {

// "Version " and major, minor and revision, with points between.
inline QString VersionText() { return QStringLiteral("Version " VELMORA_VERSION); }

} // namespace mainwindow
