// Hands what the surfaces of a window tell to the window: events to the handlers AddFlow1_..., whose errors
// are reported here, and changes to whatever shows something of the surface.
#pragma once

#include "diagram/model/SurfaceEvents.h"
#include "diagram/model/SurfaceObserver.h"

namespace mainwindow {

class frmMain;

class SurfaceSink : public diagram::SurfaceEvents, public diagram::SurfaceObserver {
public:
    // The window must outlive the sink.
    explicit SurfaceSink(frmMain &form) : form_(form) {}

    void AfterAddLink(diagram::Surface &surface, diagram::Link &link) override;
    void AfterAddNode(diagram::Surface &surface, diagram::Node &node) override;
    void AfterAddNodeLike(diagram::Surface &surface, diagram::Node &node, const diagram::Node &like) override;
    void AfterEdit(diagram::Surface &surface) override;
    void AfterMove(diagram::Surface &surface) override;
    void AfterResize(diagram::Surface &surface) override;
    void AfterSelect(diagram::Surface &surface) override;
    void AfterStretch(diagram::Surface &surface) override;
    void Click(diagram::Surface &surface) override;
    // Once the event has returned: a hyperlink can lead to another map in this window, and then the surface
    // that raises the event goes.
    void DblClick(diagram::Surface &surface) override;
    bool LeadsElsewhere(const diagram::Node &node) override;
    void Error(diagram::Surface &surface, long number, const QString &description,
               bool &cancelDisplay) override;
    void KeyDown(diagram::Surface &surface, int &keyCode, int shift) override;
    void KeyUp(diagram::Surface &surface, int keyCode, int shift) override;
    void MouseDown(diagram::Surface &surface, int button, int shift, float x, float y) override;
    void MouseMove(diagram::Surface &surface, int button, int shift, float x, float y) override;
    void GotFocus(diagram::Surface &surface) override;

    void ItemAdded(diagram::Item &item) override;
    void ItemChanged(diagram::Item &item, diagram::Change what) override;
    void ItemRemoved(diagram::Item &item) override;
    void SurfaceChanged(diagram::Change what) override;
    void Cleared() override;

private:
    void NoteRemoval();

    frmMain &form_;
};

} // namespace mainwindow
