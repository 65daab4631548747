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

// Every key in use; TagsTest looks through all of them for one that is the beginning of another. A switch
// holds "Yes" or "No" (IsOn below). The timeline template node is the hidden node from which the months of a
// surface take their look; it also keeps how the strip of months is set up.
namespace tags {
// In the tags of nodes.
inline const QString kGroup = QStringLiteral("GROUP"); // keys of groups, separated by commas
inline const QString kLevel = QStringLiteral("LEVEL"); // key of a level, or empty
inline const QString kHyper = QStringLiteral("HYPER"); // "Yes" for a node with a hyperlink, else "No"
// Of a node with a date: its last day, yyyy-mm-dd.
inline const QString kEndDate = QStringLiteral("EndDate");
// Of a node that is drawn as a bar: "Width" or "Height", whichever lies along the strip, and how long that
// side was before, in twips.
inline const QString kOwnExtent = QStringLiteral("OwnExtent");

// In the tags of the nodes that are months and days of the strip.
inline const QString kTheDate = QStringLiteral("TheDate");         // canonical text of the date
inline const QString kMonthHidden = QStringLiteral("MonthHidden"); // switch: the user has hidden the month
// What a folded month is folded with: "Month" (alone), "Quarter" or "Year"; empty for one that isn't folded.
inline const QString kMonthFolded = QStringLiteral("MonthFolded");

// In the tags of surfaces.
inline const QString kTimelineAlign = QStringLiteral("TM_Align"); // number of the strip's arrangement
// "True" or "False": whether months are added between those that have dates. The timeline template node has
// one too, for surfaces that have none yet.
inline const QString kMissing = QStringLiteral("Missing");

// In the tag of the timeline template node.
inline const QString kDateFormat = QStringLiteral("Date_Format");  // pattern of the months' texts
inline const QString kBandsHidden = QStringLiteral("BandsHidden"); // switch: no years and quarters
inline const QString kWeekends = QStringLiteral("Weekends");       // switch: weekends are shaded
inline const QString kTodayEverywhere =
    QStringLiteral("TodayEverywhere");                     // switch: today's line is printed too
inline const QString kAtDates = QStringLiteral("AtDates"); // switch: nodes stand at their dates
// Switch: a later end moves the nodes that depend on it.
inline const QString kPushFollowing = QStringLiteral("PushFollowing");
inline const QString kLanes = QStringLiteral("Lanes"); // "Level", "Group", or empty for no lanes
inline const QString kRowsOfLanes =
    QStringLiteral("RowsOfLanes"); // where the lanes lie (timeline/LaneRows.h)

// In the tag of the hidden node "DIAGRAM" of a template: which names the keys of levels and groups had.
inline const QString kNamesOfLevels = QStringLiteral("NAMESOFLEVELS");
inline const QString kNamesOfGroups = QStringLiteral("NAMESOFGROUPS");
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

// Whether the switch holds "Yes".
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
