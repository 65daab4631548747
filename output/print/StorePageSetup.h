// What OK in the page setup does.
#pragma once

namespace print {

class LoadedPrint;
struct PageSetup;

// Gives the control the setup, turns the program's printer, and saves the settings. A preview that is open
// shows the pages anew.
void StorePageSetup(const PageSetup &setup, LoadedPrint &print);

} // namespace print
