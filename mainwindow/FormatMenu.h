// The buttons of the format toolbar as entries of the menus.
#pragma once

class QString;

namespace mainwindow {

class SmartMenu;
class Toolbar;

// Entry and button are the same, so that picture, keys and state stay in step. Both must stand already.
void AddFormatEntries(const SmartMenu &menu, const Toolbar &format);
// The key of the menu that holds the button; null for one in none.
const char *MenuOfFormat(const QString &button);

} // namespace mainwindow
