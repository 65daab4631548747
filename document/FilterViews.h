// Named views of a map: which levels and groups are ticked, under a name.
#pragma once

#include <QString>
#include <QStringList>
#include <vector>

namespace document {

class clsfrmMain;

// A level or group that a view ticks. It is found by its key, so that it may be renamed, else by its name, as
// keys are good for one run of the program only.
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
// Makes a view of that name, or replaces it, with what is ticked now. Blanks around a name don't count;
// nothing is done for an empty one. The map is Dirty afterwards.
void KeepView(clsfrmMain &settings, const QString &name);
// False, with nothing changed, for a view that isn't there, an empty new name and one that another view has.
bool RenameView(clsfrmMain &settings, const QString &name, const QString &newName);
void DeleteView(clsfrmMain &settings, const QString &name);

// Ticks what the view ticks and nothing else. Gives the names of its levels and groups that the map no longer
// has.
QStringList TickView(clsfrmMain &settings, const FilterView &view);
// Whether exactly those levels and groups are ticked that the view ticks.
bool IsTicked(clsfrmMain &settings, const FilterView &view);

// The names that the view's levels or groups have now; of one that is gone the name that it had last.
QStringList LevelNames(clsfrmMain &settings, const FilterView &view);
QStringList GroupNames(clsfrmMain &settings, const FilterView &view);

} // namespace document
