// The buttons of the format toolbar as entries of the menus.
#pragma once

class QString;

namespace mainwindow {

class SmartMenu;
class Toolbar;

// Adds the buttons' own actions to the menus, so that picture, keys and state are the same. Menus and buttons
// must have been built.
void AddFormatEntries(const SmartMenu &menu, const Toolbar &format);
// The key of the menu that holds the button; null for one in none.
const char *MenuOfFormat(const QString &button);

} // namespace mainwindow
