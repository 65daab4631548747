#include "mainwindow/slices/SliceEditor.h"

#include "mainwindow/controls/clsLockWindowUpdate.h"
#include "mainwindow/edits/EditSlices.h"
#include "mainwindow/forms/frmLayers.h"
#include "mainwindow/frmMain.h"

namespace mainwindow {

void SliceEditor::Edit(const std::function<void(frmLayers &)> &edit) {
    frmLayers form(window_.Desktop(), SlicesOf(window_), window_.TabStrip().TheTab(), &window_);
    window_.SetMousePointer(document::pointer::kNormal); // the form and what it asks are the user's turn
    edit(form);
    if (form.result() != QDialog::Accepted) return;
    const clsLockWindowUpdate lock(window_);
    RebuildSlices(window_, form.cLayers());
}

void SliceEditor::Move(int from, int to) {
    window_.TabStrip().SetTheTab(from);
    Edit([&](frmLayers &form) {
        for (int at = from; at < to; ++at) form.cmdDown_Click();
        for (int at = from; at > to; --at) form.cmdUp_Click();
        form.OkIfEdited();
    });
    window_.TabStrip().SetTheTab(to);
}

} // namespace mainwindow
