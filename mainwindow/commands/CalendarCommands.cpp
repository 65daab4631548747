#include "mainwindow/commands/CalendarCommands.h"

#include "document/clsfrmMain.h"
#include "mainwindow/edits/HandlerStep.h"
#include "mainwindow/frmMain.h"
#include "timeline/CalendarOfStrip.h"

namespace mainwindow {

namespace {

using timeline::CalendarPart;

struct Entry {
    const char *key;
    CalendarPart part;
};
constexpr Entry kEntries[] = {{"mnuViewBands", CalendarPart::Bands},
                              {"mnuViewWeekends", CalendarPart::Weekends},
                              {"mnuViewTodayEverywhere", CalendarPart::TodayEverywhere}};

void Switch(frmMain &window, const Entry &entry) {
    diagram::Surface &surface = window.CurrentSurface();
    const bool on = window.MenuValue(QLatin1String(entry.key));
    if (timeline::Shows(surface, entry.part) == on) return;
    const HandlerStep step(surface);
    timeline::SetShows(surface, entry.part, on);
    window.clsSettings().Dirty = true;
}

} // namespace

void mnuViewBands(frmMain &window) { Switch(window, kEntries[0]); }
void mnuViewWeekends(frmMain &window) { Switch(window, kEntries[1]); }
void mnuViewTodayEverywhere(frmMain &window) { Switch(window, kEntries[2]); }

void ShowCalendarTicks(frmMain &window) {
    for (const Entry &entry : kEntries)
        window.SetMenuValue(QLatin1String(entry.key), timeline::Shows(window.CurrentSurface(), entry.part));
}

} // namespace mainwindow
