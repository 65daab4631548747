// What the tests of the window share: a program folder with an empty map, a folder for maps, a scripted
// desktop, and windows that are gone at the end.
#pragma once

#include "diagram/model/Surface.h"
#include "mainwindow/frmMain.h"
#include "support/testing/ScriptedDesktop.h"
#include "tests/document/ProgramFolder.h"

#include <gtest/gtest.h>
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
    // A map file with that many nodes on its first slice, and further slices without.
    QString SavedMap(const QString &name, int nodes, int slices = 1);
    // Presses keys on the window's current surface, as the user does.
    void Press(frmMain &window, const QString &keys);
    // Pixels of the window's current view.
    static QPoint PixelOf(frmMain &window, const QPointF &twips);
    // With the mouse on the window's current surface, at places in twips.
    void Click(frmMain &window, const QPointF &at, Qt::KeyboardModifiers modifiers = {});
    void DoubleClick(frmMain &window, const QPointF &at);
    void RightClick(frmMain &window, const QPointF &at);
    void Drag(frmMain &window, const QPointF &from, const QPointF &to, Qt::KeyboardModifiers modifiers = {});
    // From the circle at the node's right side, where a link starts.
    void DragFromBeside(frmMain &window, const diagram::Node &node, const QPointF &to);
    // What the status bar says.
    static QString Status(frmMain &window);
    void ProcessEvents();
    // A number of the window's placement; `absent` where none is stored.
    int Stored(const QString &name, int absent = -7777);
    void Store(const QString &name, int value);

    support::testing::ScriptedDesktop desktop;

private:
    document::testing::ProgramFolder program_;
    QTemporaryDir maps_;
};

diagram::Node &AddNode(frmMain &window, float left, float top, const QString &text = QString());
// A month of a strip on which months stay although no date needs them.
diagram::Node &AddMonth(frmMain &window, float left, const QString &text);

// What the tabs say.
QStringList Captions(document::MapWindow &window);

// Presses Escape as soon as the window says that this gives up what it is doing.
class EscapeWhenOffered {
public:
    explicit EscapeWhenOffered(frmMain &window);

private:
    QTimer timer_;
};

} // namespace mainwindow::testing
