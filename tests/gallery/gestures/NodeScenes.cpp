#include "diagram/model/ScreenValues.h"
#include "gallery/gestures/Film.h"
#include "gallery/gestures/Scenes.h"

namespace gallery {

using namespace diagram;

namespace {

void Draw(Film &film) {
    film.ShootDrag(film.At(120, 80), film.At(320, 210));
    film.ShootRelease("the node is there and selected");
}

void DrawInLine(Film &film) {
    film.Add(60, 60, 120, 70, "Market");
    film.Add(60, 200, 120, 70, "Product");
    film.ShootDrag(film.At(250, 62), film.At(371, 128));
    film.ShootRelease("as large as its neighbour and in line with it");
}

void DrawSquare(Film &film) {
    film.ShootDrag(film.At(120, 60), film.At(330, 180));
    film.Hand().KeyPress(Qt::Key_Shift);
    film.Shoot("Shift: as wide as high");
    film.Hand().Release(film.Hand().At(), Qt::ShiftModifier);
    film.Shoot("released");
}

void Hover(Film &film) {
    Node &a = film.Add(60, 60, 160, 90, "Market entry");
    Node &b = film.Add(320, 180, 140, 90, "A longer text in the middle of the node");
    film.Hand().MoveTo(film.Body(a));
    film.Shoot("over a node");
    film.Hand().MoveTo(film.LinkStart(a, 1));
    film.Shoot("where a link starts");
    film.Hand().MoveTo(film.Body(b));
    film.Shoot("over a node with much text");
}

void Move(Film &film) {
    Node &a = film.Add(60, 60, 120, 70, "Market");
    Node &b = film.Add(300, 200, 120, 70, "Product");
    film.Join(a, b);
    film.ShootDrag(film.Body(b), film.Body(b) + QPoint(-10, -138));
    film.ShootRelease("in line with its neighbour");
}

void MoveEqual(Film &film) {
    film.Add(20, 100, 100, 60, "One");
    film.Add(160, 100, 100, 60, "Two");
    Node &c = film.Add(380, 220, 100, 60, "Three");
    film.ShootDrag(film.Body(c), film.Body(c) + QPoint(-79, -119));
    film.ShootRelease("at the same distance");
}

void Resize(Film &film) {
    film.Add(60, 40, 150, 90, "Neighbour");
    Node &b = film.Add(300, 180, 110, 60, "This one");
    b.SetSelected(true);
    film.ShootDrag(film.Handle(b, 4), film.Handle(b, 4) + QPoint(39, 31));
    film.ShootRelease("as large as its neighbour");
}

void ResizeSeveral(Film &film) {
    Node &a = film.Add(60, 60, 120, 70, "One");
    Node &b = film.Add(220, 170, 80, 110, "Two");
    a.SetSelected(true);
    b.SetSelected(true);
    film.ShootDrag(film.Handle(b, 4), film.Handle(b, 4) + QPoint(60, 50));
    film.ShootRelease("both by the same factors");
}

void ResizeAspect(Film &film) {
    Node &a = film.Add(60, 60, 120, 60, "Twice as wide as high");
    a.SetSelected(true);
    film.Hand().DragAndHold(film.Handle(a, 4), film.Handle(a, 4) + QPoint(120, 90));
    film.Shoot("any proportion");
    film.Hand().KeyPress(Qt::Key_Shift);
    film.Shoot("Shift: the proportion is kept");
    film.Hand().Release(film.Hand().At(), Qt::ShiftModifier);
    film.Hand().KeyRelease(Qt::Key_Shift);
    film.Shoot("released");
}

void AltOff(Film &film) {
    film.Add(60, 60, 120, 70, "Market");
    Node &b = film.Add(300, 200, 120, 70, "Product");
    film.Hand().DragAndHold(film.Body(b), film.Body(b) + QPoint(-3, -138));
    film.Shoot("drawn into line");
    film.Hand().KeyPress(Qt::Key_Alt);
    film.Shoot("Alt: where the hand is");
    film.Hand().Release(film.Hand().At(), Qt::AltModifier);
    film.Hand().KeyRelease(Qt::Key_Alt);
    film.Shoot("released");
}

void ToTheGrid(Film &film) {
    film.surface.SetGridLines(true);
    film.surface.Screen().SetSnapToGrid(true);
    Node &a = film.Add(60, 60, 120, 70, "Market");
    film.ShootDrag(film.Body(a), film.Body(a) + QPoint(173, 118));
    film.ShootRelease("on the grid");
}

void Copy(Film &film) {
    Node &a = film.Add(60, 60, 120, 70, "One");
    Node &b = film.Add(60, 180, 120, 70, "Two");
    film.Join(a, b);
    a.SetSelected(true);
    b.SetSelected(true);
    film.ShootDrag(film.Body(a), film.Body(a) + QPoint(220, 8), Qt::ControlModifier);
    film.Hand().KeyRelease(Qt::Key_Control);
    film.Shoot("Ctrl let go: a move");
    film.Hand().KeyPress(Qt::Key_Control);
    film.Shoot("Ctrl again: a copy");
    film.Hand().Release(film.Hand().At(), Qt::ControlModifier);
    film.Shoot("released");
}

void Band(Film &film) {
    Node &a = film.Add(60, 60, 120, 70, "One");
    Node &b = film.Add(240, 60, 120, 70, "Two");
    film.Add(60, 220, 120, 70, "Three");
    film.Join(a, b);
    film.ShootDrag(film.At(30, 30), film.At(400, 160), Qt::ShiftModifier);
    film.ShootRelease("selected");
}

void SelectedShapes(Film &film) {
    constexpr int kShapes[] = {0, 2, 3, 4, 8, 56, 60, 71};
    for (int i = 0; i < 8; ++i) {
        Node &node = film.Add(40 + (i % 4) * 125, 40 + (i / 4) * 130, 95, 80, "Text");
        node.SetShape(kShapes[i]);
        node.SetSelected(true);
    }
    film.Hand().MoveTo(film.At(520, 330));
    film.Shoot("several nodes of several shapes");
}

void SmallNodes(Film &film) {
    constexpr int kSides[] = {0, 1, 4, 8, 16, 24, 36, 60};
    int left = 30;
    for (const int side : kSides) {
        film.Add(left, 60, side, side).SetSelected(true);
        film.Add(left, 200, side, 30).SetSelected(true);
        left += side + 36;
    }
    film.Hand().MoveTo(film.At(520, 330));
    film.Shoot("small nodes selected");
}

constexpr Scene kScenes[] = {
    {"01-draw", Draw, true},
    {"02-draw-in-line", DrawInLine, false},
    {"03-draw-square", DrawSquare, false},
    {"04-hover", Hover, true},
    {"05-move", Move, true},
    {"06-move-equal-distance", MoveEqual, false},
    {"07-resize", Resize, true},
    {"08-resize-several", ResizeSeveral, false},
    {"09-copy", Copy, false},
    {"13-resize-aspect", ResizeAspect, false},
    {"14-alt", AltOff, false},
    {"15-grid", ToTheGrid, false},
    {"10-band", Band, true},
    {"11-selected-shapes", SelectedShapes, true},
    {"12-small-nodes", SmallNodes, true},
};

} // namespace

std::span<const Scene> NodeScenes() { return kScenes; }

} // namespace gallery
