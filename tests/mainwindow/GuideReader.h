// Somebody who does with mouse and keys what the README and the guide tell, and the tables of what they tell.
#pragma once

#include "tests/mainwindow/WindowTest.h"

#include <span>
#include <vector>

namespace mainwindow::testing {

// A window with two nodes side by side and one below, which the steps may use.
class Reader : public WindowTest {
public:
    Reader();

    // With the mouse, at places in twips. A stroke is a drag over several places, with the modifiers `first`
    // at the press and `later` from then on.
    void Stroke(const std::vector<QPointF> &places, Qt::KeyboardModifiers first = {},
                Qt::KeyboardModifiers later = {});
    void Click(const QPointF &at, Qt::KeyboardModifiers modifiers = {});
    void DoubleClick(const QPointF &at);
    void Wheel(const QPointF &at, int angle, Qt::KeyboardModifiers modifiers = {});
    QString TipAt(const QPointF &at);
    void DropAt(const QString &file, const QPointF &at);
    // Keys on the surface.
    void Press(const char *keys);
    // Keys to whatever has the focus.
    void Type(const QString &text);
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
    // Presses Tab or Backtab so many times while Ctrl is held.
    void TabWithCtrl(Qt::Key key, int times);
    void PushFormatButton(const char *key);

    diagram::Surface &Surface() { return window->CurrentSurface(); }
    int Nodes() { return Surface().Nodes().Count(); }
    std::size_t Links() { return Surface().Links().size(); }
    diagram::Node &LastNode() { return Surface().Nodes().Item(Nodes()); }
    diagram::Link &Join(diagram::Node &from, diagram::Node &to);
    void Select(diagram::Node &node);
    static QPointF Body(const diagram::Node &node);  // a place in the node, away from its handles
    static QPointF Start(const diagram::Node &node); // the circle at its right side, where a link starts
    static QPointF Half(const diagram::Link &link, std::size_t segment = 0); // the middle of a segment
    QImage Seen();                                                           // what the surface shows
    QString File(const char *name) const { return MapFile(QLatin1String(name)); }
    QString SavedPlan(const char *name, int nodes, int slices) {
        return SavedMap(QLatin1String(name), nodes, slices);
    }
    QString HelpFile() const { return ProgramFile(QStringLiteral("help.pdf")); }
    frmMain &Another() { return NewWindow(); }
    using WindowTest::desktop;
    using WindowTest::ProcessEvents;
    using WindowTest::Status;

    frmMain *window;
    diagram::Node *a, *b, *c;
    static constexpr QPointF kEmpty{600, 5400}; // on the page, with nothing there
};

// What one numbered step or one row of a table tells, word for word, and how it is done. GuideTest compares
// the texts with the documents.
struct ToldStep {
    const char *text; // of a row: its cells, with a bar between them
    void (*doIt)(Reader &reader);
};

std::span<const ToldStep> ReadmeSteps();
std::span<const ToldStep> DrawingSteps();
std::span<const ToldStep> LookSteps();
std::span<const ToldStep> LayoutSteps();
std::span<const ToldStep> KeyboardSteps();
std::span<const ToldStep> CommandSteps();
std::span<const ToldStep> TemplateSteps();
std::span<const ToldStep> PlanSteps();

} // namespace mainwindow::testing
