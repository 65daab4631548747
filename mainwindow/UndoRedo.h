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

    // Nothing where the window holds an undo up.
    void Undo();
    void Redo();

    // A step of the surface that gave a level another colour as well. `before` and `after` are the steps of
    // the surface's revision then.
    struct LevelColour {
        std::uint64_t before, after;
        QString level; // key
        support::Colour former, chosen;
    };
    void Note(const LevelColour &step);

private:
    void Follow(std::uint64_t from, std::uint64_t to);
    // Unless the level has been given a third colour since.
    void GiveColour(const QString &level, support::Colour from, support::Colour to);

    frmMain &window_;
    std::vector<LevelColour> colours_;
};

} // namespace mainwindow
