// The tag strings of nodes, links and surfaces: a list of entries "|KEY=value|KEY=value" that only these
// routines read and write. A key matches every entry that begins with it, so no key may be the beginning of
// another. Values hold no "|".
#pragma once

#include "support/Error.h"

#include <QString>

namespace diagram {
class Surface;
}

namespace document {

// Every key in use.
namespace tags {
inline const QString kGroup = QStringLiteral("GROUP");     // node: comma-separated keys of groups
inline const QString kLevel = QStringLiteral("LEVEL");     // node: key of a level, or empty
inline const QString kHyper = QStringLiteral("HYPER");     // node: "Yes" or "No"
inline const QString kTheDate = QStringLiteral("TheDate"); // month and day node: canonical date text
inline const QString kDateFormat =
    QStringLiteral("Date_Format"); // timeline template node: pattern of the months
inline const QString kTimelineAlign =
    QStringLiteral("TM_Align");                            // surface: number of the timeline's arrangement
inline const QString kMissing = QStringLiteral("Missing"); // surface: "True" or "False"
inline const QString kMonthHidden = QStringLiteral("MonthHidden"); // month node: switch, by the user's hand
inline const QString kMonthFolded = QStringLiteral(
    "MonthFolded"); // month node: "Month", "Quarter" or "Year", what it is folded with, or none
inline const QString kBandsHidden = QStringLiteral("BandsHidden"); // timeline template node: switch
inline const QString kWeekends = QStringLiteral("Weekends"); // timeline template node: switch, are shaded
inline const QString kTodayEverywhere =
    QStringLiteral("TodayEverywhere"); // timeline template node: switch, its line is printed too
inline const QString kAtDates = QStringLiteral("AtDates"); // timeline template node: switch, nodes stay there
inline const QString kPushFollowing =
    QStringLiteral("PushFollowing"); // timeline template node: switch, a later end moves what depends on it
inline const QString kEndDate = QStringLiteral("EndDate"); // node with a date: its last day, yyyy-mm-dd
// Node that is a bar: "Width" or "Height", whichever lies along the strip, and how long it was, in twips.
inline const QString kOwnExtent = QStringLiteral("OwnExtent");
inline const QString kLanes = QStringLiteral("Lanes"); // timeline template node: "Level", "Group" or none
inline const QString kRowsOfLanes = QStringLiteral("RowsOfLanes"); // timeline template node: where they stand
inline const QString kNamesOfLevels =
    QStringLiteral("NAMESOFLEVELS"); // node "DIAGRAM": what the keys of levels are called
inline const QString kNamesOfGroups = QStringLiteral("NAMESOFGROUPS"); // the same for groups
} // namespace tags

// The tag with the value under the key, in upper case. Of several entries with the key the last is replaced;
// without one the entry is appended.
QString TagWithEntry(const QString &tag, const QString &key, const QString &value);
// What stands behind the first "=" of the last entry with the key; empty without one.
QString EntryOfTag(const QString &tag, const QString &key);

// Writes the entry into the object's tag, and gives the new tag. Errors have SetTag in their source.
template <typename Tagged>
QString SetTag(Tagged &object, const QString &key, const QString &value) {
    return support::PassOn("SetTag", [&] {
        object.SetTag(TagWithEntry(object.Tag(), key, value));
        return QString(object.Tag());
    });
}

// The value, or an empty text. Errors have GetTag in their source.
template <typename Tagged>
QString GetTag(const Tagged &object, const QString &key) {
    return support::PassOn("GetTag", [&] { return EntryOfTag(object.Tag(), key); });
}

// Keys that are switches hold "Yes" while they are on.
template <typename Tagged>
bool IsOn(const Tagged &object, const QString &key) {
    return GetTag(object, key) == QLatin1String("Yes");
}
// The tag stays as it is where the switch already is so.
template <typename Tagged>
void SetSwitch(Tagged &object, const QString &key, bool on) {
    if (IsOn(object, key) != on) SetTag(object, key, on ? QStringLiteral("Yes") : QStringLiteral("No"));
}

// Gives every node and link of the surface a new key, or only the selected ones.
void ChangeGUIDs(diagram::Surface &surface, bool selectedOnly);

// Opens a group of changes under a random code from 1001 to 32000; the caller closes it with EndAction.
void BeginAction(diagram::Surface &surface);

} // namespace document
