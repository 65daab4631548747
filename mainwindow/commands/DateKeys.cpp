#include "mainwindow/commands/DateKeys.h"

#include "diagram/view/SurfaceView.h"
#include "mainwindow/commands/TimelineCommands.h"
#include "mainwindow/edits/HandlerStep.h"
#include "mainwindow/frmMain.h"
#include "timeline/MoveDates.h"

namespace mainwindow {

namespace {

const QString kName = QStringLiteral("DateKeys");

} // namespace

DateKeys::DateKeys(frmMain &window) : QObject(&window), window_(window) { setObjectName(kName); }

DateKeys &DateKeys::Of(frmMain &window) {
    if (QObject *made = window.findChild<QObject *>(kName, Qt::FindDirectChildrenOnly))
        return static_cast<DateKeys &>(*made);
    return *new DateKeys(window);
}

// A new surface at the address of one that is gone has another revision, which ends the run.
diagram::KeyRun &DateKeys::RunOf(diagram::Surface &surface) {
    if (surface_ != &surface) run_.emplace(surface);
    surface_ = &surface;
    return *run_;
}

void DateKeys::Move(const timeline::DateStep &step) {
    diagram::Surface &surface = window_.CurrentSurface();
    window_.CurrentView().KeepText();
    const auto now = quint64(window_.Desktop().clock.Now().toMSecsSinceEpoch());
    RunOf(surface).Do(diagram::KeyRun::Kind::Date, now, [&](bool goesOn) {
        MoveSelected(surface, step, goesOn);
        return true;
    });
}

void DateKeys::MoveSelected(diagram::Surface &surface, const timeline::DateStep &step, bool goesOn) {
    const std::vector<diagram::Node *> nodes = NodesToDate(surface);
    std::optional<timeline::MovedDates> moved;
    {
        const HandlerStep group(surface, goesOn);
        moved = timeline::MoveDates(window_, surface, nodes, step);
    }
    if (moved && moved->moved > 0) {
        window_.clsSettings().Dirty = true;
        window_.ClickTab();
    }
    TellMoved(window_, moved);
}

} // namespace mainwindow
