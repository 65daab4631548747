// Keys that move the dates of what is selected.
#pragma once

#include "diagram/view/KeyRun.h"
#include "timeline/DateStep.h"

#include <optional>
#include <QObject>

namespace mainwindow {

class frmMain;

class DateKeys : public QObject {
public:
    // Those of the window, which owns them; made when they are first asked for.
    static DateKeys &Of(frmMain &window);

    // Moves each selected node that has a date, and says in the status bar where to. Keys in a row are one
    // step of undo.
    void Move(const timeline::DateStep &step);

private:
    explicit DateKeys(frmMain &window);
    void MoveSelected(diagram::Surface &surface, const timeline::DateStep &step, bool goesOn);
    diagram::KeyRun &RunOf(diagram::Surface &surface);

    frmMain &window_;
    const diagram::Surface *surface_ = nullptr; // of run_; may be gone, so it is only compared
    std::optional<diagram::KeyRun> run_;
};

} // namespace mainwindow
