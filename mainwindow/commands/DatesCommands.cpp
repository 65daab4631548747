// The menu View, Dates. Its routines stand in TimelineCommands, CalendarCommands and FoldCommands.
#include "mainwindow/commands/CalendarCommands.h"
#include "mainwindow/commands/FoldCommands.h"
#include "mainwindow/commands/TimelineCommands.h"
#include "mainwindow/menus/Commands.h"

namespace mainwindow {

namespace {

constexpr EntryKind kMenu = EntryKind::Menu;
constexpr EntryKind kCommand = EntryKind::Command;
constexpr EntryKind kCheck = EntryKind::Check;

constexpr CommandRow kRows[] = {
    Separator("mnuView"),
    {"mnuView", "mnuViewPlan", "D&ates", kMenu},
    {"mnuViewPlan", "keyDate", "&Date...", kCommand, keyDate, "timeline", "", "Ctrl+T", Needs::Selection,
     false, "Puts the selected @NODEs on a day of the timeline"},
    {"mnuViewPlan", "mnuViewTimelineLineUp", "&Line up by date", kCommand, mnuViewTimelineLineUp, "lineup",
     "", "Ctrl+Shift+T", Needs::Nothing, false,
     "Puts every @NODE with a date beside its day on the timeline"},
    {"mnuViewPlan", "mnuViewTimelineKeep", "&Keep @NODEs at their dates", kCheck, mnuViewTimelineKeep, "", "",
     "", Needs::Nothing, false, "Dragging along the timeline changes the date, and a date moves the @NODE"},
    {"mnuViewPlan", "mnuViewTimelinePush", "&Push what follows", kCheck, mnuViewTimelinePush, "", "", "",
     Needs::Nothing, false, "A @NODE that ends later moves those that depend on it by as many days"},
    {"mnuViewPlan", "mnuViewLanes", "L&anes beside the timeline", kMenu},
    {"mnuViewLanes", "mnuViewLanesNone", "None", kCheck, mnuViewLanesNone, "", "", "", Needs::Nothing, false,
     "timeline rows"},
    {"mnuViewLanes", "mnuViewLanesLevel", "By level", kCheck, mnuViewLanesLevel, "", "", "", Needs::Nothing,
     false, "timeline rows"},
    {"mnuViewLanes", "mnuViewLanesGroup", "By group", kCheck, mnuViewLanesGroup, "", "", "", Needs::Nothing,
     false, "timeline rows"},
    {"mnuViewPlan", "mnuViewTimelineTidy", "&Tidy the timeline", kCommand, mnuViewTimelineTidy, "", "", "",
     Needs::Nothing, false, "Takes months away that no @NODE needs any more"},
    {"mnuViewPlan", "mnuViewTimelineFill", "&Fill in missing months", kCommand, mnuViewTimelineFill, "", "",
     "", Needs::Nothing, false, "Closes the gaps of the timeline"},
    {"mnuViewPlan", "mnuViewDates", "&Move dates", kMenu},
    {"mnuViewDates", "keyDayLater", "A &day later", kCommand, keyDayLater, "", "", "Ctrl+Alt+PgDown",
     Needs::Selection, false, "Moves the dates of the selected @NODEs"},
    {"mnuViewDates", "keyDayEarlier", "A d&ay earlier", kCommand, keyDayEarlier, "", "", "Ctrl+Alt+PgUp",
     Needs::Selection, false, "Moves the dates of the selected @NODEs"},
    {"mnuViewDates", "keyWeekLater", "A &week later", kCommand, keyWeekLater, "", "", "Ctrl+Alt+Shift+PgDown",
     Needs::Selection, false, "Moves the dates of the selected @NODEs"},
    {"mnuViewDates", "keyWeekEarlier", "A w&eek earlier", kCommand, keyWeekEarlier, "", "",
     "Ctrl+Alt+Shift+PgUp", Needs::Selection, false, "Moves the dates of the selected @NODEs"},
    {"mnuViewPlan", "mnuViewCalendar", "&Beside the timeline", kMenu},
    {"mnuViewCalendar", "mnuViewBands", "Quarters and years", kCheck, mnuViewBands, "", "", "",
     Needs::Nothing, false, "calendar bands timeline"},
    {"mnuViewCalendar", "mnuViewWeekends", "Shade weekends", kCheck, mnuViewWeekends, "", "", "",
     Needs::Nothing, false, "calendar saturday sunday timeline"},
    {"mnuViewCalendar", "mnuViewTodayEverywhere", "Today on paper and in pictures", kCheck,
     mnuViewTodayEverywhere, "", "", "", Needs::Nothing, false, "calendar print line timeline"},
    {"mnuViewPlan", "mnuViewFold", "F&old the timeline", kMenu},
    {"mnuViewFold", "keyFoldMonth", "&Month of the selection", kCommand, keyFoldMonth, "", "", "",
     Needs::Selection, false, "Folds or unfolds the months of the selected @NODEs"},
    {"mnuViewFold", "keyFoldQuarter", "&Quarter of the selection", kCommand, keyFoldQuarter, "", "", "",
     Needs::Selection, false, "Folds or unfolds the quarters of the selected @NODEs"},
    {"mnuViewFold", "keyFoldYear", "&Year of the selection", kCommand, keyFoldYear, "", "", "",
     Needs::Selection, false, "Folds or unfolds the years of the selected @NODEs"},
    {"mnuViewFold", "keyFoldEmpty", "Months &without @NODEs", kCommand, keyFoldEmpty, "", "", "",
     Needs::Nothing, false, "Folds each month of the timeline that has no @NODE"},
    {"mnuViewFold", "keyUnfoldAll", "&Unfold all", kCommand, keyUnfoldAll, "", "", "", Needs::Nothing, false,
     "Every folded month of the timeline"},
};

} // namespace

std::span<const CommandRow> DatesCommands() { return kRows; }

} // namespace mainwindow
