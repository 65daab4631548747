// Named views of a map: which levels and groups are ticked, under a name.
#pragma once

#include <QString>
#include <QStringList>
#include <vector>

namespace document {

class clsfrmMain;

// A level or group that a view ticks. By its key, which is good for one run, it follows a new name; without
// one it is known by its name.
struct ViewTick {
    QString Key, Name;
};

struct FilterView {
    QString Name; // unique without regard to case
    std::vector<ViewTick> Levels, Groups;
};

// In the order of their making.
using FilterViews = std::vector<FilterView>;

// The view of that name, in upper or lower case; null for none.
const FilterView *FindView(const clsfrmMain &settings, const QString &name);
// Keeps what is ticked now under the name, in the place of the view that has it. Blanks around a name don't
// count; nothing is done for an empty one. The map is Dirty afterwards.
void KeepView(clsfrmMain &settings, const QString &name);
// False, with nothing changed, for an empty name and one that another view has.
bool RenameView(clsfrmMain &settings, const QString &name, const QString &newName);
void DeleteView(clsfrmMain &settings, const QString &name);

// Ticks what the view ticks and nothing else. Gives the names of those that the map has no more.
QStringList TickView(clsfrmMain &settings, const FilterView &view);
// Whether just this is ticked.
bool IsTicked(clsfrmMain &settings, const FilterView &view);

// The names that the members have now; of those that are gone the last ones.
QStringList LevelNames(clsfrmMain &settings, const FilterView &view);
QStringList GroupNames(clsfrmMain &settings, const FilterView &view);

} // namespace document
