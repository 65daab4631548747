#include "tests/mainwindow/WindowTest.h"

#include "diagram/hit/Grips.h"
#include "diagram/interaction/Press.h"
#include "diagram/view/SurfaceView.h"
#include "document/DoSave.h"
#include "document/LastPath.h"
#include "document/MapSchema.h"
#include "document/MemoryWindow.h"
#include "document/Tags.h"
#include "mainwindow/controls/cStatusBar.h"
#include "settings/GetSet.h"
#include "support/cRegistry.h"
#include "support/Files.h"
#include "tests/TestTerms.h"
#include "timeline/TimelineNodes.h"

#include <QApplication>
#include <QDropEvent>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QTest>
#include <QToolTip>
#include <QUrl>

namespace mainwindow::testing {

namespace {

const document::LevelRow kLevels[] = {{QStringLiteral("1"), false, 0x111111},
                                      {QStringLiteral("2"), true, 0x222222}};
const document::GroupRow kGroups[] = {{QStringLiteral("Sales"), false}, {QStringLiteral("Finance"), true}};

} // namespace

WindowTest::WindowTest() : program_(kLevels, kGroups) {
    settings::SetTerms(tests::TestTerms());
    document::SetLastPath(QString());
}

WindowTest::~WindowTest() {
    for (frmMain *form : frmMain::Forms()) delete form;
    ProcessEvents();
    settings::SetTerms({});
    document::SetLastPath(QString());
}

frmMain &WindowTest::NewWindow() {
    auto *window = new frmMain(desktop.Get());
    window->ShowWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window));
    window->CurrentView().setFocus();
    ProcessEvents();
    return *window;
}

QString WindowTest::SavedMap(const QString &name, int nodes, int slices) {
    document::MemoryWindow window(desktop.Get());
    for (int slice = 1; slice < slices; ++slice) window.AddFlow1().Load(slice);
    window.TabStrip().SetTabCount(slices);
    for (int slice = 0; slice < slices; ++slice) {
        window.TabStrip().SetTheTab(slice);
        window.TabStrip().SetCaption(QStringLiteral("Slice %1").arg(slice + 1));
    }
    for (int node = 0; node < nodes; ++node)
        window.AddFlow1()[0].Nodes().Add(float(node * 2000), 100, 1500, 1000).SetText(QString::number(node));
    window.clsSettings().SetDatabase(MapFile(name));
    EXPECT_TRUE(document::DoSave(window));
    return window.clsSettings().Database();
}

void WindowTest::Press(frmMain &window, const QString &keys) {
    ProcessEvents();
    QTest::keySequence(&window.CurrentView(), QKeySequence(keys));
    ProcessEvents();
}

QPoint WindowTest::PixelOf(frmMain &window, const QPointF &twips) {
    return window.CurrentView().FromSurface(twips).toPoint();
}

void WindowTest::Click(frmMain &window, const QPointF &at, Qt::KeyboardModifiers modifiers) {
    ProcessEvents();
    QTest::mouseClick(window.CurrentView().viewport(), Qt::LeftButton, modifiers, PixelOf(window, at));
    ProcessEvents();
}

void WindowTest::DoubleClick(frmMain &window, const QPointF &at) {
    Click(window, at);
    QTest::mouseDClick(window.CurrentView().viewport(), Qt::LeftButton, {}, PixelOf(window, at));
    ProcessEvents();
}

void WindowTest::RightClick(frmMain &window, const QPointF &at) {
    ProcessEvents();
    QTest::mouseClick(window.CurrentView().viewport(), Qt::RightButton, {}, PixelOf(window, at));
    ProcessEvents();
}

void WindowTest::Drag(frmMain &window, const QPointF &from, const QPointF &to,
                      Qt::KeyboardModifiers modifiers) {
    ProcessEvents();
    QWidget *viewport = window.CurrentView().viewport();
    const QPoint start = PixelOf(window, from), end = PixelOf(window, to);
    QTest::mousePress(viewport, Qt::LeftButton, modifiers, start);
    for (const QPoint &at : {start + (end - start) / 2, end}) MoveHeld(*viewport, at, modifiers);
    QTest::mouseRelease(viewport, Qt::LeftButton, modifiers, end);
    ProcessEvents();
}

void WindowTest::DragFromBeside(frmMain &window, const diagram::Node &node, const QPointF &to) {
    const double handle = diagram::OptionsFor({{}, {}, QSizeF(15, 15), {}}).handleSize;
    Drag(window, diagram::LinkStartPlaces(node.Bounds(), handle)[1], to);
}

QString WindowTest::TipAt(frmMain &window, const QPointF &at) {
    ProcessEvents();
    QToolTip::hideText();
    QWidget *viewport = window.CurrentView().viewport();
    const QPoint pixel = PixelOf(window, at);
    QHelpEvent help(QEvent::ToolTip, pixel, viewport->mapToGlobal(pixel));
    QApplication::sendEvent(viewport, &help);
    const QString tip = QToolTip::text();
    QToolTip::hideText();
    return tip;
}

QString WindowTest::Status(frmMain &window) { return window.findChild<cStatusBar *>()->Doing(); }

void WindowTest::ProcessEvents() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    for (int i = 0; i < 3; ++i) QApplication::processEvents();
}

int WindowTest::Stored(const QString &name) {
    support::cRegistry key(desktop.registry);
    key.SectionKey = settings::WindowPath();
    key.ValueKey = name;
    key.Default = quint32(kAbsent);
    return int(key.Value().toUInt());
}

void WindowTest::Store(const QString &name, int value) {
    support::cRegistry key(desktop.registry);
    key.SectionKey = settings::WindowPath();
    key.ValueKey = name;
    key.ValueType = support::RegistryType::Number;
    key.SetValue(quint32(value));
}

EscapeWhenOffered::EscapeWhenOffered(frmMain &window) {
    auto *bar = window.findChild<cStatusBar *>(QStringLiteral("staMain"));
    QObject::connect(&timer_, &QTimer::timeout, [bar, &window] {
        if (bar->Doing().contains(QStringLiteral("Escape")))
            QTest::keyClick(&window.CurrentView(), Qt::Key_Escape);
    });
    timer_.start(1);
}

void MoveHeld(QWidget &widget, const QPoint &at, Qt::KeyboardModifiers modifiers) {
    QMouseEvent move(QEvent::MouseMove, at, widget.mapToGlobal(at), Qt::NoButton, Qt::LeftButton, modifiers);
    QApplication::sendEvent(&widget, &move);
}

DropOutcome DropOn(frmMain &window, const QMimeData &data, const QPoint &at) {
    DropOutcome outcome;
    QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &enter);
    outcome.entered = enter.isAccepted();
    QDragMoveEvent move(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &move);
    outcome.moved = move.isAccepted();
    outcome.hint = window.findChild<cStatusBar *>()->Doing();
    QDropEvent drop(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &drop);
    outcome.dropped = drop.isAccepted();
    return outcome;
}

DropOutcome DropFile(frmMain &window, const QString &path, const QPointF &at) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(path)});
    const diagram::SurfaceView &view = window.CurrentView();
    return DropOn(window, data, view.viewport()->mapTo(&window, view.FromSurface(at).toPoint()));
}

QStringList Captions(document::MapWindow &window) {
    QStringList captions;
    for (int i = 0; i < window.TabStrip().TabCount(); ++i) captions << window.TabStrip().TabCaption(i);
    return captions;
}

diagram::Node &AddNode(frmMain &window, float left, float top, const QString &text) {
    diagram::Node &node = window.CurrentSurface().Nodes().Add(left, top, 1500, 900);
    node.SetText(text);
    return node;
}

diagram::Node &AddMonth(frmMain &window, float left, const QString &text) {
    diagram::Surface &surface = window.CurrentSurface();
    document::SetTag(surface, document::tags::kMissing, QStringLiteral("True"));
    diagram::Node &look = *timeline::LocateTimeLineTemplateNode(surface, true);
    if (look.Width() == 0) look.SetBounds(0, 0, 1200, 600);
    diagram::Node &month = AddNode(window, left, 300, text);
    document::SetTag(month, document::tags::kTheDate, text);
    month.SetMarked(true);
    month.SetSelectable(false);
    return month;
}

} // namespace mainwindow::testing
