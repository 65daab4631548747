// The way to the properties of nodes and links, by the right button or by key, and the popup of the timeline.
#include "mainwindow/frmMain.h"

#include "app/settings/Settings.h"
#include "diagram/hit/HitTest.h"
#include "diagram/view/SurfaceView.h"
#include "dialogs/PropertyForms.h"
#include "mainwindow/ActionGroup.h"
#include "mainwindow/BusyRetry.h"
#include "mainwindow/Commands.h"
#include "mainwindow/PutBack.h"
#include "mainwindow/Selection.h"
#include "mainwindow/TimelineMenu.h"
#include "support/Val.h"
#include "timeline/TimelineNodes.h"

#include <algorithm>

namespace mainwindow {

using document::pointer::kHourglass;
using document::pointer::kNormal;

namespace {

const QString kDisplay = QStringLiteral("DISPLAY");
constexpr double kReach = 60; // twips around the line of a link, at 100 per cent

QString BooleanText(bool value) { return value ? QStringLiteral("True") : QStringLiteral("False"); }

// The item alone, unless it is one of several that are selected already.
template <typename Item>
void SelectForProperties(Item &item, const std::vector<Item *> &selected) {
    if (selected.size() >= 2) return;
    if (!selected.empty() && selected.front() != &item) selected.front()->SetSelected(false);
    item.SetSelected(true);
}

diagram::Node *NodeUnder(diagram::SurfaceView &view, const QPointF &twips) {
    return diagram::NodeAtPoint(view.TheScene(), float(twips.x()), float(twips.y()));
}

diagram::Link *LinkUnder(diagram::SurfaceView &view, const QPointF &twips) {
    return diagram::LinkAtPoint(view.TheScene(), float(twips.x()), float(twips.y()),
                                kReach * 100 / view.ShownZoom());
}

// From the left top corner of what is seen to the surface.
QPointF OnSurface(const diagram::Surface &surface, float x, float y) {
    return {x + surface.xScroll(), y + surface.yScroll()};
}

} // namespace

void frmMain::AddFlow1_MouseDown(int index, int button, int, float x, float y) {
    DropHint();
    if (button != diagram::mouse::kRight) return;
    diagram::SurfaceView &view = ViewOf(index);
    const QPointF at = OnSurface(AddFlow1_[index], x, y);
    diagram::Node *node = nullptr;
    diagram::Link *link = nullptr;
    const std::function<void()> statements[] = {
        [&] { node = NodeUnder(view, at); },
        [&] { link = node ? nullptr : LinkUnder(view, at); },
        [&] {
            if (link) ShowLinkProperties(*link);
        },
        [&] {
            if (node) ShowNodeProperties(*node, x, y);
        },
    };
    if (!RunWhileBusy(statements))
        desktop_.messageBoxes.Show(QStringLiteral("Having Problems..."), support::Buttons::Ok,
                                   support::Icon::None, settings::Terms().TITLE);
}

void frmMain::AddFlow1_MouseMove(int index, float x, float y) {
    if (!DebugReadOut) return;
    diagram::SurfaceView &view = ViewOf(index);
    const QPointF at = OnSurface(AddFlow1_[index], x, y);
    SetWindowCaption(QStringLiteral("X=%1, Y=%2, OverNode=%3, OverLink=%4")
                         .arg(support::CStr(x), support::CStr(y), BooleanText(NodeUnder(view, at)),
                              BooleanText(LinkUnder(view, at))));
}

void frmMain::ShowNodeProperties(diagram::Node &oNode, float x, float y) {
    support::PassOn("ShowNodeProperties", [&] {
        SelectForProperties(oNode, std::vector(oNode.Owner().SelectedNodes()));
        if (oNode.Selectable())
            ShowNodeDialog(oNode);
        else if (!oNode.Hidden())
            ShowTimelineMenu(oNode, x, y);
    });
}

// The form sees the bare texts.
void frmMain::ShowNodeDialog(diagram::Node &oNode) {
    const bool bDisplay = DisplayPressed();
    SetMousePointer(kHourglass);
    DoEvents();
    dialogs::NodeDialogArgument argument{*this, oNode.Owner(), oNode,
                                         NodeIsInCollection(oNode, oNode.Owner().SelectedNodes())};
    if (bDisplay) ClickFormatButton(kDisplay);
    ShowForm(argument, tr("The dialog for @NODE properties"));
    if (bDisplay) ClickFormatButton(kDisplay);
    SSTab_Click();
}

void frmMain::ShowLinkProperties(diagram::Link &oLink) {
    support::PassOn("ShowLinkProperties", [&] {
        SetMousePointer(kHourglass);
        DoEvents();
        diagram::Surface &surface = oLink.Owner();
        SelectForProperties(oLink, std::vector(surface.SelectedLinks()));
        dialogs::LinkDialogArgument argument{*this, surface, oLink, {}};
        if (LinkIsInCollection(oLink, surface.SelectedLinks())) argument.oLinks = surface.SelectedLinks();
        ShowForm(argument, tr("The dialog for @LINK properties"));
        putBack_->Offer(std::move(argument.former));
    });
}

void frmMain::ShowPropertiesOfSelection(int index) {
    const diagram::Surface &surface = AddFlow1_[index];
    if (diagram::Node *node = surface.SelectedNode())
        ShowNodeProperties(*node, node->Left() - surface.xScroll(), node->Top() - surface.yScroll());
    else if (diagram::Link *link = surface.SelectedLink())
        ShowLinkProperties(*link);
}

void frmMain::TellNotYet(const QString &what) {
    TellInPassing(settings::ReplaceTerms(tr("%1 is not there yet.").arg(what)));
}

void frmMain::ShowTimelineMenu(diagram::Node &oNode, float x, float y) {
    const std::vector<diagram::Node *> months = timeline::LocateTimelineNodes(oNode.Owner());
    const auto visible = std::count_if(months.begin(), months.end(),
                                       [](const diagram::Node *month) { return !month->Hidden(); });
    SMXP_->Item(QStringLiteral("mnuTemplateNodeHide"))->setEnabled(visible > 1);
    oTemplateNode_ = {oNode.Owner().Index(), oNode.Id()};
    const diagram::SurfaceView &view = ViewOf(oNode.Owner().Index());
    const QPointF pixels = view.FromSurface(OnSurface(oNode.Owner(), x, y));
    SMXP_->popup(view.viewport()->mapToGlobal(pixels.toPoint()));
}

diagram::Node *frmMain::oTemplateNode() const {
    const auto &[index, id] = oTemplateNode_;
    return AddFlow1_.Exists(index) ? AddFlow1_[index].FindNode(id) : nullptr;
}

void frmMain::HideTimelineNode() {
    const ActionGroup step(CurrentSurface());
    if (diagram::Node *month = oTemplateNode()) month->SetHidden(true);
    CurrentSurface().UnselectAll();
    oTemplateNode_ = {-1, diagram::kNoItem};
    SSTab_Click();
    timeline_.ArrangeTimeLineNodes(CurrentSurface(), -1);
}

void frmMain::UnHideTimelineNodes() {
    const ActionGroup step(CurrentSurface());
    timeline_.DoUnHideTimelineNodes(CurrentSurface());
    SSTab_Click();
}

void frmMain::OpenTimelineSetup() { SmartMenuXP1_Click(QStringLiteral("mnuViewTimelineSetup")); }

void frmMain::SMXP_Click(const QString &key) {
    struct EntryRow {
        const char *key;
        void (frmMain::*routine)();
    };
    static constexpr EntryRow kEntries[] = {
        {"mnuTemplateNodeHide", &frmMain::HideTimelineNode},
        {"mnuTemplateNodeUnHide", &frmMain::UnHideTimelineNodes},
        {"mnuTemplateNodeOpen", &frmMain::OpenTimelineSetup},
    };
    support::Report("frmMain", "SMXP_Click", [&] {
        SetMousePointer(kHourglass);
        const auto entry = std::find_if(std::begin(kEntries), std::end(kEntries),
                                        [&](const EntryRow &row) { return key == QLatin1String(row.key); });
        if (entry != std::end(kEntries))
            (this->*entry->routine)();
        else
            ShowUnknownKey(desktop_, key);
        SetMousePointer(kNormal);
    });
}

} // namespace mainwindow
