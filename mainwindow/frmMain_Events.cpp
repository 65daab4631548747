// What happens on the surfaces: the handlers that keep the document in step with what the user draws.
#include "mainwindow/frmMain.h"

#include "diagram/model/ScreenValues.h"
#include "diagram/view/KeyCodes.h"
#include "dialogs/ListIndex.h"
#include "document/Tags.h"
#include "mainwindow/controls/PickBox.h"
#include "mainwindow/edits/HandlerStep.h"
#include "mainwindow/edits/Selection.h"
#include "mainwindow/slices/HyperlinkFollower.h"
#include "mainwindow/start/StartOffer.h"
#include "mainwindow/window/WindowStatus.h"
#include "mainwindow/WindowParts.h"
#include "settings/Settings.h"
#include "support/Val.h"
#include "timeline/AdjustLinks.h"
#include "timeline/LineUp.h"

namespace mainwindow {

using diagram::VirtualKey;

namespace {

bool Confirmed(support::Desktop &desktop, const QString &question) {
    return desktop.messageBoxes.Show(question, support::Buttons::YesNo, support::Icon::Question,
                                     settings::Terms().TITLE) == support::Answer::Yes;
}

QString DeleteNodesQuestion() {
    const settings::ProductTerms &terms = settings::Terms();
    return QStringLiteral("Are you sure that you want to delete the select %1s?\r\n\r\n"
                          "NB This will remove %2s that are attached to the %1s")
        .arg(terms.NODE, terms.LINK);
}

QString DeleteLinksQuestion() {
    return QStringLiteral("Are you sure that you want to delete the select %1s?").arg(settings::Terms().LINK);
}

// The first entry ticked in the filter, else the first of all; null for an empty pool.
document::cLevel *LevelForNewNode(const document::cLevels &levels) {
    if (document::cLevel *ticked = levels.FirstSelectedLevel()) return ticked;
    return levels.count() > 0 ? &levels.Item(1) : nullptr;
}

document::cGroup *GroupForNewNode(const document::cGroups &groups) {
    if (document::cGroup *ticked = groups.FirstSelectedGroup()) return ticked;
    return groups.count() > 0 ? &groups.Item(1) : nullptr;
}

const diagram::Font &FontOfSelection(const diagram::Surface &surface) {
    if (const diagram::Node *node = surface.SelectedNode()) return node->Font();
    if (const diagram::Link *link = surface.SelectedLink()) return link->Font();
    return surface.Screen().Font();
}

bool AsksForProperties(int keyCode, int shift) {
    return keyCode == VirtualKey(Qt::Key_Menu) ||
           (keyCode == VirtualKey(Qt::Key_F10) && shift == diagram::keys::kShift);
}

} // namespace

void frmMain::AddFlow1_AfterAddNode(int index, diagram::Node &oNode) {
    const HandlerStep step(AddFlow1_[index]);
    if (const document::cGroup *group = GroupForNewNode(clsSettings_->Groups()))
        document::SetTag(oNode, document::tags::kGroup, group->Key);
    if (const document::cLevel *level = LevelForNewNode(clsSettings_->Levels())) {
        document::SetTag(oNode, document::tags::kLevel, level->Key);
        oNode.SetFillColor(level->Color);
    }
    clsSettings_->Dirty = true;
    AddFlow1_afGotFocus(index);
}

void frmMain::AddFlow1_AfterAddNodeLike(int index, diagram::Node &oNode, const diagram::Node &like) {
    const HandlerStep step(AddFlow1_[index]);
    for (const QString &key : {document::tags::kGroup, document::tags::kLevel})
        if (const QString value = document::GetTag(like, key); !value.isEmpty())
            document::SetTag(oNode, key, value);
    clsSettings_->Dirty = true;
    AddFlow1_afGotFocus(index);
}

void frmMain::AddFlow1_AfterAddLink(int index, diagram::Link &) {
    clsSettings_->Dirty = true;
    AddFlow1_afGotFocus(index);
}

void frmMain::AddFlow1_AfterStretch(int) { clsSettings_->Dirty = true; }

void frmMain::AddFlow1_AfterMove(int index) {
    diagram::Surface &surface = AddFlow1_[index];
    const HandlerStep step(surface);
    timeline::AdjustLinksOf(surface.SelectedNodes());
    clsSettings_->Dirty = true;
}

// Dated nodes go back to their dates where nodes stay there, and their links to the days follow.
void frmMain::AddFlow1_AfterResize(int index) {
    diagram::Surface &surface = AddFlow1_[index];
    const HandlerStep step(surface);
    timeline::FollowDates(*this, surface, surface.SelectedNodes());
    AddFlow1_AfterMove(index);
}

// A node may take the size of its text.
void frmMain::AddFlow1_AfterEdit(int index) { AddFlow1_AfterResize(index); }

// A rubber band selects hidden items too, which must not stay selected.
void frmMain::AddFlow1_AfterSelect(int index) {
    diagram::Surface &surface = AddFlow1_[index];
    if (surface.SelectedNodes().empty()) return UnselectHiddenLinks(surface);
    UnselectHiddenNodes(surface);
    AddFlow1_afGotFocus(index);
}

void frmMain::AddFlow1_Click(int index) {
    AddFlow1_AfterSelect(index);
    AddFlow1_afGotFocus(index);
}

void frmMain::AddFlow1_afGotFocus(int index) {
    const diagram::Font &font = FontOfSelection(AddFlow1_[index]);
    dialogs::DoSetIndex2(*parts_->cboFont, font.Name(), true);
    dialogs::DoSetIndex2(*parts_->cboFontSize, QString::number(support::CLng(font.Size())), true);
    ScheduleUpdate();
}

void frmMain::AddFlow1_DblClick(int index) {
    if (!AddFlow1_.Exists(index)) return;
    if (const diagram::Node *node = AddFlow1_[index].SelectedNode())
        HyperlinkFollower(*this).DoubleClick(*node);
}

void frmMain::AddFlow1_Error(int, bool &cancelDisplay) { cancelDisplay = true; }

// Deleting leaves Dirty as it is, like cut, paste and undo.
void frmMain::AddFlow1_KeyDown(int index, int &keyCode, int shift) {
    diagram::Surface &surface = AddFlow1_[index];
    status_->DropHint();
    if (keyCode == VirtualKey(Qt::Key_Escape)) start_->Leave();
    if (keyCode == VirtualKey(Qt::Key_Shift) && shift == diagram::keys::kShift)
        surface.Screen().SetShiftMode(true);
    if (AsksForProperties(keyCode, shift)) {
        keyCode = 0;
        return ShowPropertiesOfSelection(index);
    }
    if (keyCode != VirtualKey(Qt::Key_Delete)) return;
    keyCode = 0;
    if (!surface.SelectedNodes().empty() && Confirmed(desktop_, DeleteNodesQuestion()))
        surface.DeleteSelection();
    if (!surface.SelectedLinks().empty() && Confirmed(desktop_, DeleteLinksQuestion()))
        surface.DeleteSelection();
}

void frmMain::AddFlow1_KeyUp(int index, int keyCode, int) {
    if (keyCode == VirtualKey(Qt::Key_Shift)) AddFlow1_[index].Screen().SetShiftMode(false);
}

} // namespace mainwindow
