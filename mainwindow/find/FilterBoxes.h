// The two lists of what a window shows, by group and by level.
#pragma once

#include "document/Filter.h"

namespace mainwindow {

class frmMain;
class TickBox;
class Toolbar;

class FilterBoxes {
public:
    // The boxes stand in the toolbar, which owns them.
    FilterBoxes(frmMain &window, Toolbar &bar);
    ~FilterBoxes();
    FilterBoxes(const FilterBoxes &) = delete;
    FilterBoxes &operator=(const FilterBoxes &) = delete;

    TickBox &Groups() const { return *groups_; }
    TickBox &Levels() const { return *levels_; }
    void LoadGroups();
    void LoadLevels();
    // Toggle the tick of a row.
    void TickGroup(int row);
    void TickLevel(int row);
    // Tick all of them, or none.
    void TickAllGroups(bool ticked);
    void TickAllLevels(bool ticked);
    // Shows on all slices what is ticked, without making the map dirty.
    void Apply();
    // How many nodes the filter hides, on all slices, without those of the timeline. Looks at every node.
    int HiddenNodes() const;

private:
    // Shows the current slice as Apply would leave it while a list is open; writes nothing.
    void Preview();
    void EndPreview();
    document::FilterKeys Keys() const;
    void ShowHideTimelineNodes();

    frmMain &window_;
    TickBox *groups_;
    TickBox *levels_;
};

} // namespace mainwindow
