// The handlers of the two lists of what is shown, by group and by level.
#include "mainwindow/frmMain.h"

#include "mainwindow/find/FilterBoxes.h"

namespace mainwindow {

void frmMain::LoadCombos() {
    LoadGroupCombo();
    LoadLevelCombo();
}

void frmMain::LoadGroupCombo() { filter_->LoadGroups(); }
void frmMain::LoadLevelCombo() { filter_->LoadLevels(); }
TickBox &frmMain::ssDBGroups() const { return filter_->Groups(); }
TickBox &frmMain::ssDBLevels() const { return filter_->Levels(); }

void frmMain::ssDBGroups_Click(int row) {
    support::Report("frmMain", "ssDBGroups_Click", [&] { filter_->TickGroup(row); });
}

void frmMain::ssDBLevels_Click(int row) {
    support::Report("frmMain", "ssDBLevels_Click", [&] { filter_->TickLevel(row); });
}

void frmMain::ssDBGroups_CloseUp() {
    support::Report("frmMain", "ssDBGroups_CloseUp", [&] {
        SetMousePointer(document::pointer::kHourglass);
        filter_->Apply();
        SetMousePointer(document::pointer::kNormal);
        ScheduleUpdate();
    });
}

void frmMain::ssDBLevels_CloseUp() { ssDBGroups_CloseUp(); }

void frmMain::DoFixColors(const LevelColours &former) {
    if (FollowLevels(CurrentSurface(), clsSettings_->Levels(), former)) clsSettings_->Dirty = true;
}

} // namespace mainwindow
