// The way to the properties of nodes and links, by the right button or by key.
#include "mainwindow/frmMain.h"

#include "diagram/hit/HitTest.h"
#include "diagram/model/ScreenValues.h"
#include "diagram/view/SurfaceView.h"
#include "dialogs/PropertyForms.h"
#include "mainwindow/BusyRetry.h"
#include "mainwindow/commands/TimelinePopup.h"
#include "mainwindow/edits/Selection.h"
#include "mainwindow/slices/PutBack.h"
#include "mainwindow/slices/SliceViews.h"
#include "mainwindow/start/StartOffer.h"
#include "mainwindow/window/ShowForm.h"
#include "mainwindow/window/WindowStatus.h"
#include "settings/Settings.h"
#include "support/Val.h"

namespace mainwindow {

using document::pointer::kHourglass;

namespace {

const QString kDisplay = QStringLiteral("DISPLAY");
constexpr double kReach = 90; // twips from a link's line within which it is hit, at 100 per cent

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
    return {x + surface.Screen().xScroll(), y + surface.Screen().yScroll()};
}

// The display of both texts is off while the form is open.
void ShowNodeDialog(frmMain &window, diagram::Node &oNode) {
    const bool bDisplay = window.DisplayPressed();
    window.SetMousePointer(kHourglass);
    window.DoEvents();
    dialogs::NodeDialogArgument argument{window, oNode.Owner(), oNode,
                                         NodeIsInCollection(oNode, oNode.Owner().SelectedNodes())};
    if (bDisplay) window.ClickFormatButton(kDisplay);
    ShowForm(window, argument, frmMain::tr("The dialog for @NODE properties"));
    if (bDisplay) window.ClickFormatButton(kDisplay);
    window.ClickTab();
}

} // namespace

void frmMain::AddFlow1_MouseDown(int index, int button, int, float x, float y) {
    status_->DropHint();
    start_->Leave();
    if (button != diagram::mouse::kRight) return;
    diagram::SurfaceView &view = views_->At(index);
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
    diagram::SurfaceView &view = views_->At(index);
    const QPointF at = OnSurface(AddFlow1_[index], x, y);
    SetWindowCaption(QStringLiteral("X=%1, Y=%2, OverNode=%3, OverLink=%4")
                         .arg(support::CStr(x), support::CStr(y), BooleanText(NodeUnder(view, at)),
                              BooleanText(LinkUnder(view, at))));
}

void frmMain::ShowNodeProperties(diagram::Node &oNode, float x, float y) {
    support::PassOn("ShowNodeProperties", [&] {
        SelectForProperties(oNode, std::vector(oNode.Owner().SelectedNodes()));
        if (oNode.Selectable())
            ShowNodeDialog(*this, oNode);
        else if (!oNode.Hidden())
            popup_->Show(oNode, views_->At(oNode.Owner().Index()), OnSurface(oNode.Owner(), x, y));
    });
}

void frmMain::ShowLinkProperties(diagram::Link &oLink) {
    support::PassOn("ShowLinkProperties", [&] {
        SetMousePointer(kHourglass);
        DoEvents();
        diagram::Surface &surface = oLink.Owner();
        SelectForProperties(oLink, std::vector(surface.SelectedLinks()));
        dialogs::LinkDialogArgument argument{*this, surface, oLink, {}};
        if (LinkIsInCollection(oLink, surface.SelectedLinks())) argument.oLinks = surface.SelectedLinks();
        ShowForm(*this, argument, tr("The dialog for @LINK properties"));
        putBack_->Offer(std::move(argument.former));
    });
}

void frmMain::ShowPropertiesOfSelection(int index) {
    const diagram::Surface &surface = AddFlow1_[index];
    if (diagram::Node *node = surface.SelectedNode())
        ShowNodeProperties(*node, node->Left() - surface.Screen().xScroll(),
                           node->Top() - surface.Screen().yScroll());
    else if (diagram::Link *link = surface.SelectedLink())
        ShowLinkProperties(*link);
}

} // namespace mainwindow
