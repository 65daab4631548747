#include "gallery/gestures/Film.h"
#include "gallery/gestures/Scenes.h"

namespace gallery {

using namespace diagram;

namespace {

// Columns and rows of nodes, each linked to the next of its row.
std::vector<Node *> Grid(Film &film, int columns, int rows) {
    std::vector<Node *> nodes;
    for (int i = 0; i < columns * rows; ++i) {
        Node &node = film.Add(40 + (i % columns) * 170, 40 + (i / columns) * 110, 110, 60, "Step");
        if (i % columns) film.Join(*nodes.back(), node);
        nodes.push_back(&node);
    }
    return nodes;
}

void Typing(Film &film) {
    Node &a = film.Add(60, 60, 160, 90, "Market");
    a.SetSelected(true);
    film.Shoot("selected");
    film.Hand().Key(Qt::Key_F2);
    film.Shoot("F2");
    film.Hand().Type("A text that is too long for the node ");
    film.Hand().Key(Qt::Key_Return);
    film.Hand().Type("and has another line, and goes on and on until it has no room");
    film.Shoot("typed");
    film.Hand().Key(Qt::Key_Return, Qt::ControlModifier);
    film.Shoot("Ctrl+Enter");
}

void TypingAligned(Film &film) {
    Node &a = film.Add(60, 50, 180, 110, "Left and top, with margins");
    a.SetAlignment(0);
    a.SetxTextMargin(12);
    a.SetyTextMargin(10);
    a.SetFillColor(0x00FFFFC0);
    a.SetFont(Font(QStringLiteral("DejaVu Serif"), 14, true));
    a.SetSelected(true);
    Node &b = film.Add(300, 180, 180, 110, "Right and bottom");
    b.SetAlignment(5);
    b.SetShape(0);
    b.SetForeColor(0x000000C0);
    film.Shoot("before");
    film.Hand().Key(Qt::Key_F2);
    film.Shoot("F2");
    film.Hand().Key(Qt::Key_Escape);
    a.SetSelected(false);
    b.SetSelected(true);
    film.Hand().Key(Qt::Key_F2);
    film.Shoot("the other one");
    film.View().ZoomAt(170, film.At(390, 240));
    film.Shoot("zoomed while editing");
}

void Keyboard(Film &film) {
    Grid(film, 3, 2);
    film.Hand().Key(Qt::Key_Tab);
    film.Shoot("Tab");
    film.Hand().Key(Qt::Key_Right, Qt::ControlModifier);
    film.Shoot("Ctrl+Right");
    film.Hand().Key(Qt::Key_Down, Qt::ControlModifier);
    film.Shoot("Ctrl+Down");
    film.Hand().Key(Qt::Key_Insert);
    film.Shoot("Insert");
}

void KeyboardMoves(Film &film) {
    const std::vector<Node *> nodes = Grid(film, 3, 2);
    film.Hand().Key(Qt::Key_Tab);
    for (int i = 0; i < 3; ++i) film.Hand().Key(Qt::Key_Right, Qt::ControlModifier | Qt::AltModifier);
    film.Shoot("along the links with Ctrl+Alt+Right");
    for (int i = 0; i < 5; ++i) film.Hand().Key(Qt::Key_Down, Qt::ShiftModifier);
    film.Shoot("moved with Shift+Down");
    nodes[4]->SetSelected(true);
    for (int i = 0; i < 10; ++i) film.Hand().Key(Qt::Key_Left);
    film.Shoot("two nodes moved with Left");
}

void Edge(Film &film) {
    std::vector<Node *> nodes = Grid(film, 6, 5);
    film.Hand().DragAndHold(film.Body(*nodes[0]), QPoint(film.View().viewport()->width() - 2, 150));
    film.Shoot("at the edge");
    for (int i = 0; i < 40; ++i) film.Wait();
    film.Shoot("the page moves on");
    film.Hand().Key(Qt::Key_Escape);
    film.ShootRelease("given up with Escape");
}

void Zoom(Film &film) {
    std::vector<Node *> nodes = Grid(film, 6, 5);
    nodes[7]->SetSelected(true);
    film.Hand().MoveTo(film.Body(*nodes[7]));
    film.Shoot("100 per cent");
    for (int i = 0; i < 8; ++i) film.Hand().Wheel(film.Hand().At(), -120, Qt::ControlModifier);
    film.Shoot("zoomed out at the pointer");
    for (int i = 0; i < 30; ++i) film.Hand().Wheel(film.Hand().At(), 120, Qt::ControlModifier);
    film.Shoot("800 per cent");
    for (int i = 0; i < 60; ++i) film.Hand().Wheel(film.Hand().At(), -120, Qt::ControlModifier);
    film.Shoot("10 per cent");
}

void Pan(Film &film) {
    Grid(film, 6, 5);
    film.Hand().Press(film.At(300, 200), {}, Qt::MiddleButton);
    film.Shoot("press");
    film.Hand().MoveTo(film.At(300, 200) - QPoint(120, 90));
    film.Shoot("the sheet goes with the pointer");
    film.Hand().Release(film.Hand().At(), {}, Qt::MiddleButton);
    film.Shoot("released");
}

void DarkSurface(Film &film) {
    film.surface.SetBackColor(0x00282220);
    Node &a = film.Add(60, 60, 120, 70, "Market");
    Node &b = film.Add(330, 200, 120, 70, "Product");
    a.SetFillColor(0x00503C32);
    a.SetForeColor(0x00FFFFFF);
    a.SetBorderColor(0x00A0A0A0);
    b.SetFillColor(0x00503C32);
    b.SetForeColor(0x00FFFFFF);
    Link &link = film.Join(a, b);
    link.SetLineColor(0x00E0E0E0);
    a.SetSelected(true);
    link.SetSelected(true);
    film.Hand().MoveTo(film.Body(b));
    film.Shoot("selected on a dark surface");
    film.ShootDrag(film.Body(b), film.Body(b) + QPoint(10, -138));
    film.Hand().Key(Qt::Key_Escape);
    film.Hand().Release(film.Hand().At());
    film.Hand().DragAndHold(film.At(20, 20), film.At(250, 180), Qt::ShiftModifier);
    film.Shoot("a band");
    film.Hand().Key(Qt::Key_Escape);
    film.Hand().Release(film.Hand().At());
    film.Hand().DragAndHold(film.LinkStart(b, 3), film.At(230, 270));
    film.Shoot("a link");
    film.Hand().MoveTo(film.Body(a));
    film.Shoot("over its end");
}

constexpr Scene kScenes[] = {
    {"40-typing", Typing, true},
    {"41-typing-aligned", TypingAligned, true},
    {"42-keyboard", Keyboard, true},
    {"43-zoom", Zoom, false},
    {"44-pan", Pan, false},
    {"45-dark-surface", DarkSurface, false},
    {"46-keyboard-moves", KeyboardMoves, false},
    {"47-edge", Edge, false},
};

} // namespace

std::span<const Scene> ViewScenes() { return kScenes; }

} // namespace gallery
