// Names for files that come from elsewhere.
#pragma once

#include <QString>

namespace support {

// The platform whose rules a file name must keep to.
enum class NameRules { Posix, Windows };
#ifdef Q_OS_WIN
constexpr NameRules kOwnNameRules = NameRules::Windows;
#else
constexpr NameRules kOwnNameRules = NameRules::Posix;
#endif

// `title` as the name of a file in whatever folder: never a path, never "." or "..", never empty, at most 200
// bytes long in UTF-8 with its ending kept. What the platform's names may not hold becomes "_"; a name that
// the platform keeps for itself gets one in front. A title that is good already comes back as it is.
QString SafeFileName(const QString &title, NameRules rules = kOwnNameRules);

} // namespace support
