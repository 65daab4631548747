// Undo and redo in the current surface of a window, and what they take along outside of it.
#pragma once

#include "support/Colour.h"

#include <cstdint>
#include <QString>
#include <vector>

namespace mainwindow {

class frmMain;

class UndoRedo {
public:
    // The window must live longer.
    explicit UndoRedo(frmMain &window) : window_(window) {}

    // Does nothing where PutBack::StopsUndo.
    void Undo();
    void Redo();

    // A step of undo that also gave a level another colour. `before` and `after` are the steps in the
    // surface's revisions around it.
    struct LevelColour {
        std::uint64_t before, after;
        QString level; // key
        support::Colour former, chosen;
    };
    // Undo and redo of the step change the level's colour too.
    void Note(const LevelColour &step);

private:
    void Follow(std::uint64_t from, std::uint64_t to);
    // Leaves a level alone that has another colour than `from` by now.
    void GiveColour(const QString &level, support::Colour from, support::Colour to);

    frmMain &window_;
    std::vector<LevelColour> colours_;
};

} // namespace mainwindow
