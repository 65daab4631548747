// Named settings of the user.
#pragma once

#include <QString>

namespace settings {

// Where the settings lie, below the machine's and the user's root.
inline constexpr char kSettingsPath[] = "SOFTWARE\\Orbelle\\Velmora";
inline constexpr char kDontStartup[] = "DontStartup";
inline constexpr char kDontStartPage[] = "DontStartPage";

// The user's value; without one the machine's; without that the default.
QString GetSet(const QString &name, const QString &defaultValue = QString());
// Writes the user's value. Error 26001.
void SaveSet(const QString &name, const QString &value);

// Whether the start-up map is offered: on unless "DontStartup" is a number other than 0.
bool GetStartupEnabled();
// Saves that setting alone; ticking menus is the windows' part.
void SaveStartupEnabled(bool on);

// Whether new windows show the start page, in the same way: on unless "DontStartPage" is a number other than
// 0.
bool GetStartPageEnabled();
void SaveStartPageEnabled(bool on);

// "SOFTWARE\" + TITLE: the place of the window placement and of the remembered prompt.
QString WindowPath();

} // namespace settings
