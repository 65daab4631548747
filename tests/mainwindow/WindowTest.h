// What the tests of the window share: a program folder with an empty map, a folder for maps, a scripted
// desktop, windows that are gone at the end, and what a user does in them.
#pragma once

#include "diagram/model/Surface.h"
#include "mainwindow/frmMain.h"
#include "support/testing/ScriptedDesktop.h"
#include "tests/document/ProgramFolder.h"

#include <gtest/gtest.h>
#include <QMimeData>
#include <QTemporaryDir>
#include <QTimer>

namespace mainwindow::testing {

class WindowTest : public ::testing::Test {
protected:
    WindowTest();
    ~WindowTest() override;

    // A shown window that has the focus.
    frmMain &NewWindow();
    QString MapFile(const QString &name) const { return maps_.filePath(name); }
    QString ProgramFile(const QString &name) const { return program_.File(name); }
    // The path of a new map file with that many nodes on its first slice, and none on the others.
    QString SavedMap(const QString &name, int nodes, int slices = 1);
    // Presses a key sequence on the window's current surface.
    void Press(frmMain &window, const QString &keys);
    // The pixel of the window's current view at that place.
    static QPoint PixelOf(frmMain &window, const QPointF &twips);
    // With the mouse on the window's current surface, at places in twips.
    void Click(frmMain &window, const QPointF &at, Qt::KeyboardModifiers modifiers = {});
    void DoubleClick(frmMain &window, const QPointF &at);
    void RightClick(frmMain &window, const QPointF &at);
    void Drag(frmMain &window, const QPointF &from, const QPointF &to, Qt::KeyboardModifiers modifiers = {});
    // Drags from the circle at the node's right side, where a link starts.
    void DragFromBeside(frmMain &window, const diagram::Node &node, const QPointF &to);
    // The tooltip at a place of the window's current surface in twips; empty where there is none.
    QString TipAt(frmMain &window, const QPointF &at);
    // The text of the status bar.
    static QString Status(frmMain &window);
    void ProcessEvents();
    // A number of the window's placement; kAbsent where none is stored.
    int Stored(const QString &name);
    void Store(const QString &name, int value);
    static constexpr int kAbsent = -7777;

    support::testing::ScriptedDesktop desktop;

private:
    document::testing::ProgramFolder program_;
    QTemporaryDir maps_;
};

// The mouse moves to a place of the widget with its left button held. QTest::mouseMove knows of no modifiers.
void MoveHeld(QWidget &widget, const QPoint &at, Qt::KeyboardModifiers modifiers = {});

// How something that was dragged over a window and dropped there was taken.
struct DropOutcome {
    bool entered = false, moved = false, dropped = false; // whether the window accepted that
    QString hint;                                         // what the status bar said before the drop
    bool IsTaken() const { return entered && moved && dropped; }
};
// Drags the data to a place of the window in pixels and drops it, as the desktop tells the window of it.
DropOutcome DropOn(frmMain &window, const QMimeData &data, const QPoint &at);
// The same with a file, to a place of the current surface in twips.
DropOutcome DropFile(frmMain &window, const QString &path, const QPointF &at);

// Of 1500 by 900 twips, on the window's current surface.
diagram::Node &AddNode(frmMain &window, float left, float top, const QString &text = QString());
// A month of the strip. An arrangement keeps it although no date needs it.
diagram::Node &AddMonth(frmMain &window, float left, const QString &text);

// The captions of the tabs.
QStringList Captions(document::MapWindow &window);

// Presses Escape as soon as the window says that Escape gives up what it is doing.
class EscapeWhenOffered {
public:
    explicit EscapeWhenOffered(frmMain &window);

private:
    QTimer timer_;
};

} // namespace mainwindow::testing
