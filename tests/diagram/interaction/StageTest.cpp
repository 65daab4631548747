#include "tests/diagram/interaction/StageTest.h"

#include "diagram/edit/History.h"
#include "diagram/format/SurfaceFile.h"
#include "diagram/hit/Grips.h"
#include "diagram/model/ScreenValues.h"

namespace diagram::testing {

namespace {

constexpr double kPixel = 15;

double HandleSide() { return OptionsFor({}).handleSize; }

} // namespace

StageTest::StageTest() {
    surface.Screen().SetSize(12000, 9000);
    AttachHistory(surface);
    surface.SetEvents(&events);
    stage.interaction = &interaction;
}

StageTest::~StageTest() { surface.SetEvents(nullptr); }

Node &StageTest::AddNode(double left, double top, double width, double height) {
    return surface.Nodes().Add(float(left * kPixel), float(top * kPixel), float(width * kPixel),
                               float(height * kPixel));
}

PointerInput StageTest::Input(const QPointF &at, Qt::KeyboardModifiers modifiers) {
    at_ = at, modifiers_ = modifiers;
    return {at * kPixel, at - stage.scroll, {kPixel, kPixel}, modifiers};
}

StageTest &StageTest::Press(const QPointF &at, Qt::KeyboardModifiers modifiers) {
    interaction.Press(Input(at, modifiers));
    return *this;
}

// In three moves, as a hand does.
StageTest &StageTest::Move(const QPointF &to, Qt::KeyboardModifiers modifiers) {
    const QPointF from = at_;
    for (const double share : {0.2, 0.6, 1.0}) interaction.Move(Input(from + (to - from) * share, modifiers));
    return *this;
}

StageTest &StageTest::Release() {
    interaction.Release(Input(at_, modifiers_));
    return *this;
}

StageTest &StageTest::Escape() {
    EXPECT_TRUE(interaction.Cancel());
    return *this;
}

StageTest &StageTest::Key(int key, Qt::KeyboardModifiers modifiers) {
    interaction.Key({key, modifiers});
    return *this;
}

QPointF StageTest::LinkStart(const Node &node, int side) {
    return LinkStartPlaces(node.Bounds(), HandleSide())[std::size_t(side)] / kPixel;
}

QPointF StageTest::Handle(const Node &node, int handle) {
    return HandlePlaces(node.Bounds(), HandleSide())[std::size_t(handle)] / kPixel;
}

QRectF StageTest::Box(const Node &node) {
    const QRectF box = node.Bounds();
    return {box.topLeft() / kPixel, box.size() / kPixel};
}

int StageTest::UndoSteps() {
    int steps = 0;
    for (; surface.CanUndo(); ++steps) surface.Undo();
    return steps;
}

void StageTest::Mark() { marked_ = SaveBytes(surface); }

void StageTest::ExpectNoTrace() {
    EXPECT_FALSE(interaction.IsActive());
    EXPECT_FALSE(surface.CanUndo());
    EXPECT_TRUE(SaveBytes(surface) == marked_);
}

} // namespace diagram::testing
