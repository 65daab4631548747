// The two lists of what a window shows, by group and by level.
#pragma once

#include "document/Filter.h"

namespace mainwindow {

class frmMain;
class TickBox;
class Toolbar;

class FilterBoxes {
public:
    // The boxes go into the toolbar, which takes them along when it goes.
    FilterBoxes(frmMain &window, Toolbar &bar);
    ~FilterBoxes();
    FilterBoxes(const FilterBoxes &) = delete;
    FilterBoxes &operator=(const FilterBoxes &) = delete;

    TickBox &Groups() const { return *groups_; }
    TickBox &Levels() const { return *levels_; }
    void LoadGroups();
    void LoadLevels();
    // Turn the tick of a row round.
    void TickGroup(int row);
    void TickLevel(int row);
    // Tick all of them, or none.
    void TickAllGroups(bool ticked);
    void TickAllLevels(bool ticked);
    // Shows on all slices what is ticked. The map is as clean afterwards as before.
    void Apply();
    // What the user drew and the filter hides, over all slices. Every node is looked at.
    int HiddenNodes() const;

private:
    // Lets the current slice look as Apply would leave it while a list is open; nothing is written.
    void Preview();
    void EndPreview();
    document::FilterKeys Keys() const;
    void ShowHideTimelineNodes();

    frmMain &window_;
    TickBox *groups_;
    TickBox *levels_;
};

} // namespace mainwindow
