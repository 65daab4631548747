#include "gallery/gestures/Film.h"
#include "gallery/gestures/Scenes.h"

namespace gallery {

using namespace diagram;

namespace {

constexpr int kHvh = 5;

// From the upper left to the lower right.
Link &Slanted(Film &film) {
    Node &a = film.Add(40, 60, 120, 70, "Market");
    return film.Join(a, film.Add(400, 220, 120, 70, "Product"));
}

QPoint PixelOf(Film &film, const Point &at) { return film.View().FromSurface(ToQPointF(at)).toPoint(); }

QPoint EndOf(Film &film, const Link &link) { return PixelOf(film, link.Route().back()); }

void Draw(Film &film) {
    Node &a = film.Add(60, 60, 120, 70, "Market");
    Node &b = film.Add(340, 200, 130, 80, "Product");
    b.SetShape(0);
    film.ShootDrag(film.LinkStart(a, 1), film.At(280, 180));
    film.Hand().MoveTo(film.Body(b));
    film.Shoot("over the node that it would join");
    film.ShootRelease("linked");
}

void DrawNowhere(Film &film) {
    Node &a = film.Add(60, 60, 120, 70, "Market");
    film.Hand().DragAndHold(film.LinkStart(a, 1), film.At(330, 220));
    film.Shoot("over empty surface");
    film.ShootRelease("a node is offered");
    film.Hand().Key(Qt::Key_Return);
    film.Shoot("Enter");
    film.Hand().Type("Price");
    film.Shoot("typed");
}

void KeepsToItsSide(Film &film) {
    Node &a = film.Add(60, 60, 120, 70, "Market");
    Node &b = film.Add(260, 260, 130, 80, "Product");
    film.Hand().DragAndHold(film.LinkStart(a, 1), film.Body(b));
    film.Shoot("pulled from the right");
    film.ShootRelease("it leaves there");
}

void DoubleClicks(Film &film) {
    film.Hand().DoubleClick(film.At(200, 150));
    film.Shoot("on the empty page");
    film.Hand().Type("Market");
    film.Hand().Key(Qt::Key_Insert);
    film.Hand().Type("Product");
    film.Hand().Key(Qt::Key_Insert, Qt::AltModifier);
    film.Hand().Type("Price");
    film.Hand().Key(Qt::Key_Return, Qt::ControlModifier);
    film.Shoot("Ins and Alt+Ins while typing");
}

void Loop(Film &film) {
    Node &a = film.Add(160, 120, 150, 90, "Market");
    film.Hand().DragAndHold(film.LinkStart(a, 1), film.At(400, 100));
    film.Hand().MoveTo(film.Body(a));
    film.Shoot("back on the node");
    film.ShootRelease("a loop");
}

void MoveEnd(Film &film) {
    Node &a = film.Add(60, 60, 120, 70, "Market");
    Node &b = film.Add(340, 60, 130, 80, "Product");
    Node &c = film.Add(340, 220, 130, 80, "Price");
    Link &link = film.Join(a, b);
    link.SetSelected(true);
    film.Shoot("selected");
    const QPoint end = EndOf(film, link);
    film.ShootDrag(end, film.At(280, 220));
    film.Hand().MoveTo(film.Body(c));
    film.Shoot("over another node");
    film.ShootRelease("it ends there now");
}

void Bend(Film &film) {
    Link &link = Slanted(film);
    link.SetSelected(true);
    film.Hand().MoveTo(film.OnRoute(link, 0));
    film.Shoot("over the middle of a segment");
    film.ShootDrag(film.OnRoute(link, 0), film.At(320, 80));
    film.ShootRelease("a bend");
    const QPoint bend = PixelOf(film, link.Route()[1]);
    film.ShootDrag(bend, film.At(281, 174));
    film.ShootRelease("dropped in line: it is gone");
}

void Orthogonal(Film &film) {
    Link &link = Slanted(film);
    link.SetStyle(kHvh);
    link.SetSelected(true);
    film.Shoot("selected");
    const QPoint middle = film.OnRoute(link, 1);
    film.ShootDrag(middle, middle + QPoint(70, 10));
    film.ShootRelease("the directions are kept");
}

void OrthogonalBack(Film &film) {
    Link &link = Slanted(film);
    link.SetStyle(kHvh);
    link.SetSelected(true);
    const QPoint middle = film.OnRoute(link, 1);
    film.Hand().DragAndHold(middle, middle + QPoint(-70, 10));
    film.ShootRelease("dragged");
    film.Hand().DoubleClick(PixelOf(film, link.Route()[1]));
    film.Hand().MoveTo(film.At(420, 60));
    film.Shoot("a double click gives it back");
}

void MoveStart(Film &film) {
    Node &a = film.Add(60, 60, 120, 70, "Market");
    Node &b = film.Add(340, 60, 130, 80, "Product");
    Node &c = film.Add(60, 220, 120, 70, "Price");
    Link &link = film.Join(a, b);
    link.SetSelected(true);
    film.Hand().DragAndHold(PixelOf(film, link.Route().front()), film.At(230, 230));
    film.Shoot("on the way");
    film.Hand().MoveTo(film.Body(b));
    film.Shoot("over the node at the other end");
    film.Hand().MoveTo(film.Body(c));
    film.Shoot("over another node");
    film.ShootRelease("it starts there now");
}

// The line goes the way that the link will take.
void OrthogonalEnd(Film &film) {
    Node &a = film.Add(40, 60, 120, 70, "Market");
    Node &b = film.Add(420, 60, 120, 70, "Product");
    film.Add(210, 130, 120, 90, "Place");
    Node &c = film.Add(420, 240, 120, 70, "Price");
    Link &link = film.Join(a, b);
    link.SetStyle(kHvh);
    link.SetSelected(true);
    film.Hand().DragAndHold(EndOf(film, link), film.At(380, 190));
    film.Shoot("on the way");
    film.Hand().MoveTo(film.Body(c));
    film.Shoot("over another node");
    film.ShootRelease("it ends there now");
    film.Hand().DragAndHold(EndOf(film, link), film.Body(b));
    film.Hand().Key(Qt::Key_Escape);
    film.ShootRelease("given up");
}

void CurvedEnd(Film &film) {
    Node &a = film.Add(40, 60, 120, 70, "Market");
    Node &b = film.Add(420, 60, 120, 70, "Product");
    Node &c = film.Add(420, 240, 120, 70, "Price");
    Link &link = film.Join(a, b);
    link.SetStyle(1);
    link.SetSelected(true);
    film.Hand().DragAndHold(EndOf(film, link), film.At(320, 250));
    film.Shoot("on the way");
    film.Hand().MoveTo(film.Body(c));
    film.Shoot("over another node");
}

void SecondLink(Film &film) {
    Node &a = film.Add(60, 60, 120, 90, "Market");
    Node &b = film.Add(340, 200, 130, 90, "Product");
    film.Join(a, b);
    film.Hand().DragAndHold(film.LinkStart(a, 2), film.Body(b));
    film.Shoot("beside the one that is there");
    film.ShootRelease("linked twice");
}

void Label(Film &film) {
    Link &link = Slanted(film);
    link.SetText(QStringLiteral("leads to"));
    film.Hand().Press(film.OnRoute(link, 0));
    film.Hand().Release(film.Hand().At());
    film.Hand().MoveTo(film.At(420, 60));
    film.Shoot("clicked");
    film.Hand().Key(Qt::Key_F2);
    film.Shoot("F2");
    film.Hand().Key(Qt::Key_End);
    film.Hand().Type(" a wider market");
    film.Shoot("typed");
    film.Hand().Key(Qt::Key_Return, Qt::ControlModifier);
    film.Shoot("Ctrl+Enter");
}

constexpr Scene kScenes[] = {
    {"20-link", Draw, true},
    {"21-link-nowhere", DrawNowhere, false},
    {"22-link-loop", Loop, false},
    {"23-link-end", MoveEnd, false},
    {"24-bend", Bend, true},
    {"25-orthogonal", Orthogonal, false},
    {"26-label", Label, true},
    {"27-link-start", MoveStart, true},
    {"28-orthogonal-back", OrthogonalBack, false},
    {"29-orthogonal-end", OrthogonalEnd, false},
    {"30-curved-end", CurvedEnd, false},
    {"31-second-link", SecondLink, false},
    {"32-link-side", KeepsToItsSide, true},
    {"33-double-click", DoubleClicks, true},
};

} // namespace

std::span<const Scene> LinkScenes() { return kScenes; }

} // namespace gallery
