// Gestures on a surface, without a window, a widget or an application: what the view tells `Interaction` and
// what gestures ask of the screen.
#pragma once

#include "diagram/interaction/Interaction.h"
#include "diagram/model/Surface.h"
#include "diagram/scene/Scene.h"

#include <gtest/gtest.h>
#include <map>
#include <string>
#include <vector>

namespace diagram::testing {

// A screen of 800 by 600 pixels at zoom 100.
class TestStage : public Stage {
public:
    QPointF ScrollOffset() const override { return scroll; }
    void SetScrollOffset(const QPointF &pixels) override { scroll = pixels; }
    QRectF Seen() const override { return {scroll * 15, QSizeF(12000, 9000)}; }
    void EnsureVisible(const QRectF &area) override { shown.push_back(area); }
    void Tell(Hint hint) override { told.push_back(hint); }
    std::optional<int> ShapeToDraw() const override { return shape; }
    void Ask(std::unique_ptr<Gesture> gesture) override { interaction->Begin(std::move(gesture)); }
    void EditText() override { ++edited; }
    DayStrip &Days() const override { return *days; }

    QPointF scroll;
    std::vector<QRectF> shown;
    std::vector<Hint> told;
    std::optional<int> shape;
    int edited = 0;
    DayStrip *days = &DayStrip::None();
    Interaction *interaction = nullptr;
};

class CountedEvents : public SurfaceEvents {
public:
    void AfterAddLink(Surface &, Link &) override { ++counts["AfterAddLink"]; }
    void AfterAddNode(Surface &, Node &) override { ++counts["AfterAddNode"]; }
    void AfterAddNodeLike(Surface &, Node &, const Node &) override { ++counts["AfterAddNode"]; }
    void AfterMove(Surface &) override { ++counts["AfterMove"]; }
    void AfterResize(Surface &) override { ++counts["AfterResize"]; }
    void AfterSelect(Surface &) override { ++counts["AfterSelect"]; }
    void AfterStretch(Surface &) override { ++counts["AfterStretch"]; }
    void Click(Surface &) override { ++counts["Click"]; }
    std::map<std::string, int> counts;
};

// Places are pixels at zoom 100, of 15 twips each.
class StageTest : public ::testing::Test {
public:
    StageTest();
    ~StageTest() override;

    Node &AddNode(double left, double top, double width = 100, double height = 60);
    Link &AddLink(Node &from, Node &to) { return from.Links().Add(to); }

    StageTest &Press(const QPointF &at, Qt::KeyboardModifiers modifiers = {});
    StageTest &Move(const QPointF &to, Qt::KeyboardModifiers modifiers = {});
    StageTest &Release();
    StageTest &Escape();
    StageTest &Key(int key, Qt::KeyboardModifiers modifiers = {});

    static QPointF Middle(const Node &node) { return node.Bounds().center() / 15; }
    // Away from the places where links start.
    static QPointF Body(const Node &node) { return node.Bounds().topLeft() / 15 + QPointF(20, 10); }
    static QPointF LinkStart(const Node &node, int side); // 0 above, clockwise
    static QPointF Handle(const Node &node, int handle);  // 0 left top, clockwise
    static QRectF Box(const Node &node);

    int Count(const char *event) { return events.counts[event]; }
    Hint LastTold() const { return stage.told.empty() ? Hint::Nothing : stage.told.back(); }
    // Steps back until there is none.
    int UndoSteps();
    // No gesture goes on, and the surface is as it was when the test marked it.
    void Mark();
    void ExpectNoTrace();

    Surface surface;
    CountedEvents events;
    Scene scene{surface};
    TestStage stage;
    Interaction interaction{scene, stage};

private:
    PointerInput Input(const QPointF &at, Qt::KeyboardModifiers modifiers);
    QPointF at_;
    Qt::KeyboardModifiers modifiers_;
    QByteArray marked_;
};

} // namespace diagram::testing
