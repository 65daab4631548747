// A view that is driven by a hand, and the pictures that are taken of it.
#pragma once

#include "diagram/model/Surface.h"
#include "diagram/view/SurfaceView.h"
#include "tests/diagram/view/Hand.h"

#include <memory>
#include <QDir>

namespace gallery {

// One gesture on a surface of its own. Pictures are numbered: NAME-1.png and so on.
class Film {
public:
    Film(const QDir &folder, const char *name);

    diagram::Surface surface;
    diagram::SurfaceView &View() { return *view_; }
    diagram::testing::Hand &Hand() { return *hand_; }

    // Pixels at zoom 100.
    diagram::Node &Add(int left, int top, int width, int height, const char *text = "");
    diagram::Link &Join(diagram::Node &from, diagram::Node &to);
    // Viewport pixels.
    QPoint Middle(const diagram::Node &node) const;
    QPoint LinkStart(const diagram::Node &node, int side) const; // 0 above, clockwise
    QPoint Body(const diagram::Node &node) const;                // away from where a link starts
    QPoint At(double x, double y) const;                         // of pixels at zoom 100
    QPoint Handle(const diagram::Node &node, int handle) const;
    QPoint OnRoute(const diagram::Link &link, int segment) const; // the middle of a segment

    // What the user sees now, with the pointer and a line that says what goes on.
    void Shoot(const char *caption);
    void Wait(); // lets what runs by itself go on, for 30 ms
    // Drags to `to` step by step: a picture at the press, half way and before the release.
    void ShootDrag(const QPoint &from, const QPoint &to, Qt::KeyboardModifiers modifiers = {});
    // Lets the button go where the pointer is, and takes a picture.
    void ShootRelease(const char *caption);

private:
    QDir folder_;
    QString name_;
    int count_ = 0;
    std::unique_ptr<diagram::SurfaceView> view_;
    std::unique_ptr<diagram::testing::Hand> hand_;
};

} // namespace gallery
