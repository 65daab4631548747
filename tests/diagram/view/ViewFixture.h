// A view on a surface of its own, driven with real events, and what it raised.
#pragma once

#include "diagram/model/Surface.h"
#include "diagram/view/SurfaceView.h"
#include "tests/diagram/view/Hand.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <QColor>
#include <QImage>
#include <QPoint>
#include <QStringList>

namespace diagram::testing {

// Writes down every event but the moves of the mouse.
class RecordingEvents : public SurfaceEvents {
public:
    void AfterAddLink(Surface &, Link &) override;
    void AfterAddNode(Surface &, Node &) override;
    void AfterEdit(Surface &) override;
    void AfterMove(Surface &) override;
    void AfterResize(Surface &) override;
    void AfterSelect(Surface &) override;
    void AfterStretch(Surface &) override;
    void Click(Surface &) override;
    void DblClick(Surface &) override;
    void Error(Surface &, long number, const QString &description, bool &cancelDisplay) override;
    void KeyDown(Surface &, int &keyCode, int shift) override;
    void KeyUp(Surface &, int keyCode, int shift) override;
    void MouseDown(Surface &, int button, int shift, float x, float y) override;
    void GotFocus(Surface &) override;

    int Count(const char *name) const { return int(names.count(QString::fromLatin1(name))); }

    QStringList names;
    QStringList details;                        // of keys, errors and MouseDown, with their values
    int usedUp = 0;                             // a key code that the listener uses up
    std::function<void(const char *name)> also; // run inside each event
};

class ViewTest : public ::testing::Test {
protected:
    ViewTest();
    ~ViewTest() override;

    // A node with a key, pixels at zoom 100.
    Node &AddNode(const char *key, int left, int top, int width = 100, int height = 60);
    Link &AddLink(Node &from, Node &to);
    // Lets the view catch up with what was written to the model.
    void Settle();

    QPoint At(const QPointF &twips) const; // pixels of the viewport
    QPoint Body(const Node &node) const;   // inside the node, away from the place where a link starts
    QPoint Middle(const Node &node) const;
    QPoint LinkStart(const Node &node, int side = 1) const; // 0 above, clockwise
    QPoint Handle(const Node &node, int handle) const;

    void Press(const QPoint &at, Qt::KeyboardModifiers modifiers = {},
               Qt::MouseButton button = Qt::LeftButton);
    void MoveTo(const QPoint &at, Qt::KeyboardModifiers modifiers = {});
    void Release(const QPoint &at, Qt::KeyboardModifiers modifiers = {},
                 Qt::MouseButton button = Qt::LeftButton);
    void Click(const QPoint &at, Qt::KeyboardModifiers modifiers = {});
    // Press, three moves, release.
    void Drag(const QPoint &from, const QPoint &to, Qt::KeyboardModifiers modifiers = {});
    // The same up to before the release.
    void DragAndHold(const QPoint &from, const QPoint &to, Qt::KeyboardModifiers modifiers = {});
    void Wheel(const QPoint &at, int angle, Qt::KeyboardModifiers modifiers = {});
    void Key(int key, Qt::KeyboardModifiers modifiers = {});
    void Type(const char *text);

    // What the view shows now, painted anew.
    QImage Seen();
    // What has been painted piece by piece, as each change asked for it.
    QImage OnScreen();
    // What the view shows now, and what a new view of a copy shows of the same part; without focus ring and
    // hover marks.
    QImage Shown();
    QImage Fresh();
    int StalePixels(); // that differ between the two
    int UndoSteps();   // counts by undoing and redoing all

    Surface surface;
    RecordingEvents events;
    std::unique_ptr<SurfaceView> view;
    std::unique_ptr<Hand> hand;
};

// Of a picture of the view, at a place in pixels of the viewport, whatever the screen's resolution.
QColor ColourAt(const QImage &image, const QPoint &place);
QImage Part(const QImage &image, const QRect &area);

// Number of pixels that differ by more than a shade.
int DifferingPixels(const QImage &a, const QImage &b);

} // namespace diagram::testing
