#include "mainwindow/slices/UndoRedo.h"

#include "diagram/model/Actions.h"
#include "mainwindow/frmMain.h"
#include "mainwindow/slices/PutBack.h"

namespace mainwindow {

void UndoRedo::Undo() {
    if (window_.FormerLinks().StopsUndo()) return;
    const std::uint64_t from = window_.CurrentSurface().Actions().Revision().step;
    window_.CurrentSurface().Undo();
    Follow(from, window_.CurrentSurface().Actions().Revision().step);
}

void UndoRedo::Redo() {
    const std::uint64_t from = window_.CurrentSurface().Actions().Revision().step;
    window_.CurrentSurface().Redo();
    Follow(from, window_.CurrentSurface().Actions().Revision().step);
}

void UndoRedo::Note(const LevelColour &step) {
    if (step.before != step.after && step.former != step.chosen) colours_.push_back(step);
}

void UndoRedo::Follow(std::uint64_t from, std::uint64_t to) {
    for (const LevelColour &step : colours_) {
        if (step.after == from && step.before == to) GiveColour(step.level, step.chosen, step.former);
        if (step.before == from && step.after == to) GiveColour(step.level, step.former, step.chosen);
    }
}

void UndoRedo::GiveColour(const QString &level, support::Colour from, support::Colour to) {
    document::cLevel *found = window_.clsSettings().Levels().NewEnum().Find(level);
    if (found && found->Color == from) found->Color = to;
}

} // namespace mainwindow
