#include "mainwindow/slices/SurfaceSink.h"

#include "diagram/model/Surface.h"
#include "mainwindow/frmMain.h"
#include "mainwindow/slices/HyperlinkFollower.h"
#include "mainwindow/slices/LookBar.h"
#include "mainwindow/slices/WindowPrinting.h"
#include "mainwindow/window/WindowStatus.h"
#include "support/Error.h"

namespace mainwindow {

namespace {
template <typename Body>
void Handle(const char *routine, Body &&body) {
    support::Report("frmMain", routine, std::forward<Body>(body));
}
} // namespace

void SurfaceSink::AfterAddLink(diagram::Surface &surface, diagram::Link &link) {
    Handle("AddFlow1_AfterAddLink", [&] { form_.AddFlow1_AfterAddLink(surface.Index(), link); });
}

void SurfaceSink::AfterAddNode(diagram::Surface &surface, diagram::Node &node) {
    Handle("AddFlow1_AfterAddNode", [&] { form_.AddFlow1_AfterAddNode(surface.Index(), node); });
}

void SurfaceSink::AfterAddNodeLike(diagram::Surface &surface, diagram::Node &node,
                                   const diagram::Node &like) {
    Handle("AddFlow1_AfterAddNodeLike",
           [&] { form_.AddFlow1_AfterAddNodeLike(surface.Index(), node, like); });
}

void SurfaceSink::AfterEdit(diagram::Surface &surface) {
    Handle("AddFlow1_AfterEdit", [&] { form_.AddFlow1_AfterEdit(surface.Index()); });
}

void SurfaceSink::AfterMove(diagram::Surface &surface) {
    Handle("AddFlow1_AfterMove", [&] { form_.AddFlow1_AfterMove(surface.Index()); });
}

void SurfaceSink::AfterResize(diagram::Surface &surface) {
    Handle("AddFlow1_AfterResize", [&] { form_.AddFlow1_AfterResize(surface.Index()); });
}

void SurfaceSink::AfterSelect(diagram::Surface &surface) {
    Handle("AddFlow1_AfterSelect", [&] { form_.AddFlow1_AfterSelect(surface.Index()); });
}

void SurfaceSink::AfterStretch(diagram::Surface &surface) {
    Handle("AddFlow1_AfterStretch", [&] { form_.AddFlow1_AfterStretch(surface.Index()); });
}

void SurfaceSink::Click(diagram::Surface &surface) {
    Handle("AddFlow1_Click", [&] { form_.AddFlow1_Click(surface.Index()); });
}

void SurfaceSink::DblClick(diagram::Surface &surface) {
    QMetaObject::invokeMethod(
        &form_,
        [this, index = surface.Index()] {
            Handle("AddFlow1_DblClick", [&] { form_.AddFlow1_DblClick(index); });
        },
        Qt::QueuedConnection);
}

bool SurfaceSink::LeadsElsewhere(const diagram::Node &node) { return HyperlinkFollower::Follows(node); }

void SurfaceSink::Error(diagram::Surface &surface, long, const QString &, bool &cancelDisplay) {
    Handle("AddFlow1_Error", [&] { form_.AddFlow1_Error(surface.Index(), cancelDisplay); });
}

void SurfaceSink::KeyDown(diagram::Surface &surface, int &keyCode, int shift) {
    Handle("AddFlow1_KeyDown", [&] { form_.AddFlow1_KeyDown(surface.Index(), keyCode, shift); });
}

void SurfaceSink::KeyUp(diagram::Surface &surface, int keyCode, int shift) {
    Handle("AddFlow1_KeyUp", [&] { form_.AddFlow1_KeyUp(surface.Index(), keyCode, shift); });
}

void SurfaceSink::MouseDown(diagram::Surface &surface, int button, int shift, float x, float y) {
    Handle("AddFlow1_MouseDown", [&] { form_.AddFlow1_MouseDown(surface.Index(), button, shift, x, y); });
}

void SurfaceSink::MouseMove(diagram::Surface &surface, int, int, float x, float y) {
    Handle("AddFlow1_MouseMove", [&] { form_.AddFlow1_MouseMove(surface.Index(), x, y); });
}

void SurfaceSink::GotFocus(diagram::Surface &surface) {
    Handle("AddFlow1_afGotFocus", [&] { form_.AddFlow1_afGotFocus(surface.Index()); });
}

void SurfaceSink::ItemAdded(diagram::Item &) {
    form_.Status().HiddenMayDiffer();
    form_.Printing().SliceChanged();
}
void SurfaceSink::ItemChanged(diagram::Item &, diagram::Change what) {
    using enum diagram::Change;
    if (diagram::Has(what, Look | Text | Selection)) form_.Look().MayDiffer();
    if (what != Selection) form_.Printing().SliceChanged();
    if (diagram::Has(what, Visibility | Data))
        form_.Status().HiddenMayDiffer();
    else
        form_.ScheduleUpdate();
}
void SurfaceSink::ItemRemoved(diagram::Item &) { NoteRemoval(); }
void SurfaceSink::NoteRemoval() {
    form_.Status().HiddenMayDiffer();
    form_.Look().MayDiffer();
    form_.Printing().SliceChanged();
}
void SurfaceSink::SurfaceChanged(diagram::Change) {
    form_.ScheduleUpdate();
    form_.Printing().SliceChanged();
}
void SurfaceSink::Cleared() { NoteRemoval(); }

} // namespace mainwindow
