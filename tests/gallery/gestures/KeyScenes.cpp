#include "gallery/gestures/Film.h"
#include "gallery/gestures/Scenes.h"

namespace gallery {

using namespace diagram;

namespace {

constexpr int kHvh = 5;
constexpr Qt::KeyboardModifiers kCtrlShift = Qt::ControlModifier | Qt::ShiftModifier;

void Press(Film &film, int key, Qt::KeyboardModifiers modifiers, const char *caption) {
    film.Hand().Key(key, modifiers);
    film.Shoot(caption);
}

void LinkNodes(Film &film) {
    Node &a = film.Add(60, 60, 120, 70, "Market");
    film.Add(340, 60, 130, 80, "Product");
    film.Add(340, 220, 130, 80, "Price").SetShape(0);
    a.SetSelected(true);
    film.Shoot("selected");
    Press(film, Qt::Key_L, Qt::ControlModifier, "Ctrl+L");
    Press(film, Qt::Key_Down, {}, "down");
    Press(film, Qt::Key_Tab, {}, "Tab comes round to the node itself");
    Press(film, Qt::Key_Tab, Qt::ShiftModifier, "Shift+Tab goes back");
    Press(film, Qt::Key_Return, {}, "Enter links them");
}

void LinkTwo(Film &film) {
    Node &a = film.Add(60, 60, 120, 70, "Market");
    film.Add(230, 160, 110, 60, "Price");
    Node &c = film.Add(400, 220, 130, 80, "Product");
    a.SetSelected(true);
    c.SetSelected(true);
    film.Shoot("two selected");
    Press(film, Qt::Key_L, Qt::ControlModifier, "Ctrl+L goes to the other");
    Press(film, Qt::Key_Return, {}, "Enter links them");
}

void MoveEnd(Film &film) {
    Node &a = film.Add(60, 60, 120, 70, "Market");
    Node &b = film.Add(400, 60, 130, 80, "Product");
    film.Add(60, 230, 120, 70, "Place");
    film.Add(400, 240, 130, 80, "Price");
    Link &link = film.Join(a, b);
    link.SetStyle(kHvh);
    link.SetSelected(true);
    Press(film, Qt::Key_L, Qt::ControlModifier, "Ctrl+L on a link");
    Press(film, Qt::Key_Down, {}, "down");
    Press(film, Qt::Key_Return, {}, "it ends there now");
    Press(film, Qt::Key_L, kCtrlShift, "Ctrl+Shift+L: its start");
    Press(film, Qt::Key_Down, {}, "down");
    Press(film, Qt::Key_Return, {}, "it starts there now");
}

void Resize(Film &film) {
    Node &a = film.Add(60, 60, 120, 70, "Market");
    Node &b = film.Add(340, 80, 60, 35, "Price");
    b.SetSelected(true);
    a.SetSelected(true);
    film.Shoot("two selected");
    const Qt::KeyboardModifiers altShift = Qt::AltModifier | Qt::ShiftModifier;
    for (int i = 0; i < 6; ++i) film.Hand().KeyPress(Qt::Key_Right, altShift);
    film.Shoot("Alt+Shift+right six times");
    for (int i = 0; i < 30; ++i) film.Hand().KeyPress(Qt::Key_Down, Qt::AltModifier);
    film.Shoot("Alt+down thirty times");
    film.Hand().KeyRelease(Qt::Key_Alt, {});
    film.Shoot("Alt let go");
}

void Bend(Film &film) {
    Node &a = film.Add(40, 60, 120, 70, "Market");
    Node &b = film.Add(400, 220, 120, 70, "Product");
    film.Join(a, b);
    a.SetSelected(true);
    Press(film, Qt::Key_Return, {}, "Enter goes to the link");
    Press(film, Qt::Key_B, kCtrlShift, "Ctrl+Shift+B");
    for (int i = 0; i < 6; ++i) film.Hand().Key(Qt::Key_Up, Qt::ShiftModifier);
    film.Shoot("Shift+up six times");
    Press(film, Qt::Key_Tab, {}, "Tab");
    for (int i = 0; i < 4; ++i) film.Hand().Key(Qt::Key_Right, Qt::ShiftModifier);
    film.Shoot("Shift+right four times");
    Press(film, Qt::Key_Return, {}, "Enter");
}

constexpr Scene kScenes[] = {
    {"60-keys-link", LinkNodes, true},    {"61-keys-link-two", LinkTwo, false},
    {"62-keys-link-end", MoveEnd, false}, {"63-keys-resize", Resize, false},
    {"64-keys-bend", Bend, true},
};

} // namespace

std::span<const Scene> KeyScenes() { return kScenes; }

} // namespace gallery
