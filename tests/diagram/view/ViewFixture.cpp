#include "tests/diagram/view/ViewFixture.h"

#include "diagram/edit/History.h"
#include "diagram/format/SurfaceFile.h"

#include <QApplication>
#include <QBackingStore>
#include <QClipboard>
#include <QScrollBar>

namespace diagram::testing {

namespace {

void Note(RecordingEvents &events, const char *name, const QString &detail = {}) {
    events.names << QString::fromLatin1(name);
    if (!detail.isNull()) events.details << QString::fromLatin1(name) + QLatin1Char(' ') + detail;
    if (events.also) events.also(name);
}

} // namespace

void RecordingEvents::AfterAddLink(Surface &, Link &) { Note(*this, "AfterAddLink"); }
void RecordingEvents::AfterAddNode(Surface &, Node &) { Note(*this, "AfterAddNode"); }
void RecordingEvents::AfterEdit(Surface &) { Note(*this, "AfterEdit"); }
void RecordingEvents::AfterMove(Surface &) { Note(*this, "AfterMove"); }
void RecordingEvents::AfterResize(Surface &) { Note(*this, "AfterResize"); }
void RecordingEvents::AfterSelect(Surface &) { Note(*this, "AfterSelect"); }
void RecordingEvents::AfterStretch(Surface &) { Note(*this, "AfterStretch"); }
void RecordingEvents::Click(Surface &) { Note(*this, "Click"); }
void RecordingEvents::DblClick(Surface &) { Note(*this, "DblClick"); }
void RecordingEvents::Error(Surface &, long number, const QString &description, bool &cancelDisplay) {
    cancelDisplay = true;
    Note(*this, "Error", QStringLiteral("%1 %2").arg(number).arg(description));
}
void RecordingEvents::KeyDown(Surface &, int &keyCode, int shift) {
    Note(*this, "KeyDown", QStringLiteral("%1 %2").arg(keyCode).arg(shift));
    if (keyCode == usedUp) keyCode = 0;
}
void RecordingEvents::KeyUp(Surface &, int keyCode, int shift) {
    Note(*this, "KeyUp", QStringLiteral("%1 %2").arg(keyCode).arg(shift));
}
void RecordingEvents::MouseDown(Surface &, int button, int shift, float x, float y) {
    Note(*this, "MouseDown", QStringLiteral("%1 %2 %3 %4").arg(button).arg(shift).arg(x).arg(y));
}
void RecordingEvents::GotFocus(Surface &) { Note(*this, "GotFocus"); }

ViewTest::ViewTest() {
    AttachHistory(surface);
    view = std::make_unique<SurfaceView>(surface);
    hand = std::make_unique<Hand>(*view);
    view->resize(800, 600);
    view->show();
    QApplication::setActiveWindow(view.get());
    view->setFocus();
    Settle();
    surface.SetEvents(&events);
}

ViewTest::~ViewTest() { QApplication::clipboard()->clear(); }

Node &ViewTest::AddNode(const char *key, int left, int top, int width, int height) {
    Node &node =
        surface.Nodes().Add(float(left) * 15, float(top) * 15, float(width) * 15, float(height) * 15);
    node.SetKey(QString::fromLatin1(key));
    return node;
}

Link &ViewTest::AddLink(Node &from, Node &to) { return from.Links().Add(to); }

void ViewTest::Settle() {
    do QApplication::processEvents();
    while (!view->IsExact());
}

QPoint ViewTest::At(const QPointF &twips) const { return view->FromSurface(twips).toPoint(); }

QPoint ViewTest::Body(const Node &node) const {
    const QRectF box = node.Bounds();
    return At(box.topLeft() + QPointF(box.width() / 2, qMin(box.height() / 8, 150.0)));
}

QPoint ViewTest::Middle(const Node &node) const { return At(node.Bounds().center()); }

QPoint ViewTest::LinkStart(const Node &node, int side) const { return LinkStartOf(*view, node, side); }

QImage ViewTest::Seen() { return view->viewport()->grab().toImage(); }

QImage ViewTest::OnScreen() {
    Settle();
    const auto *window = dynamic_cast<const QImage *>(view->backingStore()->paintDevice());
    if (!window) return {};
    const double ratio = view->devicePixelRatioF();
    return window->copy(QRect(view->viewport()->pos() * ratio, view->viewport()->size() * ratio));
}

QPoint ViewTest::Handle(const Node &node, int handle) const { return HandleOf(*view, node, handle); }

void ViewTest::Press(const QPoint &at, Qt::KeyboardModifiers modifiers, Qt::MouseButton button) {
    hand->Press(at, modifiers, button);
}

void ViewTest::MoveTo(const QPoint &at, Qt::KeyboardModifiers modifiers) { hand->MoveTo(at, modifiers); }

void ViewTest::Release(const QPoint &at, Qt::KeyboardModifiers modifiers, Qt::MouseButton button) {
    hand->Release(at, modifiers, button);
}

void ViewTest::Click(const QPoint &at, Qt::KeyboardModifiers modifiers) {
    Press(at, modifiers);
    Release(at, modifiers);
}

void ViewTest::DragAndHold(const QPoint &from, const QPoint &to, Qt::KeyboardModifiers modifiers) {
    hand->DragAndHold(from, to, modifiers);
}

void ViewTest::Drag(const QPoint &from, const QPoint &to, Qt::KeyboardModifiers modifiers) {
    DragAndHold(from, to, modifiers);
    Release(to, modifiers);
}

void ViewTest::Wheel(const QPoint &at, int angle, Qt::KeyboardModifiers modifiers) {
    hand->Wheel(at, angle, modifiers);
}

void ViewTest::Key(int key, Qt::KeyboardModifiers modifiers) { hand->Key(key, modifiers); }

void ViewTest::Type(const char *text) { hand->Type(text); }

QImage ViewTest::Shown() {
    view->clearFocus();
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(view->viewport(), &leave);
    Settle();
    const QImage image = view->viewport()->grab().toImage();
    view->setFocus();
    return image;
}

QImage ViewTest::Fresh() {
    Surface copy;
    LoadBytes(copy, SaveBytes(surface));
    copy.SetBackColor(surface.BackColor());
    auto to = copy.Nodes().begin();
    for (const Node &node : surface.Nodes()) {
        (*to).SetSelected(node.Selected());
        ++to;
    }
    for (size_t i = 0; i < surface.Links().size(); ++i)
        copy.Links()[i]->SetSelected(surface.Links()[i]->Selected());

    SurfaceView other(copy);
    other.resize(view->size());
    other.show();
    other.ZoomAt(view->ShownZoom(), QPointF());
    Settle();
    const std::pair<QScrollBar *, QScrollBar *> bars[] = {
        {view->horizontalScrollBar(), other.horizontalScrollBar()},
        {view->verticalScrollBar(), other.verticalScrollBar()}};
    for (const auto &[from, like] : bars) {
        like->setRange(from->minimum(), from->maximum());
        like->setValue(from->value());
    }
    do Settle();
    while (!other.IsExact());
    other.clearFocus();
    const QImage image = other.viewport()->grab().toImage();
    QApplication::setActiveWindow(view.get());
    return image;
}

int ViewTest::StalePixels() {
    const QImage shown = Shown();
    return DifferingPixels(shown, Fresh());
}

int ViewTest::UndoSteps() {
    int steps = 0;
    while (surface.CanUndo()) surface.Undo(), ++steps;
    for (int step = 0; step < steps; ++step) surface.Redo();
    return steps;
}

QColor ColourAt(const QImage &image, const QPoint &place) {
    return image.pixelColor((QPointF(place) * image.devicePixelRatio()).toPoint());
}

QImage Part(const QImage &image, const QRect &area) {
    const double ratio = image.devicePixelRatio();
    return image.copy(QRect((QPointF(area.topLeft()) * ratio).toPoint(), area.size() * ratio));
}

int DifferingPixels(const QImage &a, const QImage &b) {
    if (a.size() != b.size()) return a.width() * a.height() + 1;
    int count = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QColor one = a.pixelColor(x, y);
            const QColor other = b.pixelColor(x, y);
            const int most = qMax(qAbs(one.red() - other.red()),
                                  qMax(qAbs(one.green() - other.green()), qAbs(one.blue() - other.blue())));
            count += most > 8;
        }
    }
    return count;
}

} // namespace diagram::testing
