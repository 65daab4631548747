// The guide's table of the keys of the surface.
#include "tests/mainwindow/GuideReader.h"

#include "diagram/model/ScreenValues.h"
#include "diagram/view/SurfaceView.h"

#include <QScrollBar>

namespace mainwindow::testing {

namespace {

using Nodes = std::vector<diagram::Node *>;

void GoByTab(Reader &r) {
    r.Press("Tab");
    EXPECT_EQ(r.Surface().SelectedNode(), r.a);
    r.Press("Tab");
    EXPECT_EQ(r.Surface().SelectedNode(), r.b);
    r.Press("Shift+Tab");
    EXPECT_EQ(r.Surface().SelectedNode(), r.a);
    r.Select(*r.c);
    EXPECT_TRUE(r.window->CurrentView().hasFocus());
    r.Press("Tab");
    EXPECT_FALSE(r.window->CurrentView().hasFocus());
}

void GoByArrows(Reader &r) {
    r.Select(*r.a);
    r.Press("Ctrl+Right");
    EXPECT_EQ(r.Surface().SelectedNode(), r.b);
    r.Press("Ctrl+Down");
    EXPECT_EQ(r.Surface().SelectedNode(), r.c);
}

void GoAlongLinks(Reader &r) {
    r.Join(*r.b, *r.a);
    r.Select(*r.a);
    r.Press("Ctrl+Alt+Right");
    EXPECT_EQ(r.Surface().SelectedNode(), r.b);
    r.Press("Ctrl+Alt+Down");
    EXPECT_EQ(r.Surface().SelectedNode(), r.b) << "no link leads there";
}

void ReachByArrows(Reader &r) {
    r.Select(*r.a);
    r.Press("Ctrl+Shift+Right");
    EXPECT_EQ(r.Surface().SelectedNodes(), (Nodes{r.a, r.b}));
    r.Press("Ctrl+Shift+Left");
    EXPECT_EQ(r.Surface().SelectedNodes(), Nodes{r.a});
}

void GoThroughLinks(Reader &r) {
    diagram::Link &first = r.Join(*r.a, *r.b), &second = r.Join(*r.a, *r.c);
    r.Select(*r.a);
    r.Press("Return");
    EXPECT_EQ(r.Surface().SelectedLink(), &first);
    r.Press("Return");
    EXPECT_EQ(r.Surface().SelectedLink(), &second);
    r.Press("Shift+Return");
    EXPECT_EQ(r.Surface().SelectedLink(), &first);
    r.Press("Ctrl+Right");
    EXPECT_EQ(r.Surface().SelectedNode(), r.b);
    r.Select(*r.a);
    r.Press("Return");
    r.Press("Tab");
    EXPECT_EQ(r.Surface().SelectedNode(), r.b) << "the next node";
}

void Insert(Reader &r) {
    r.Select(*r.c);
    r.Press("Ctrl+Up"); // so that up is the direction last gone
    r.Select(*r.c);
    r.Press("Ins");
    ASSERT_EQ(r.Nodes(), 4);
    ASSERT_EQ(r.Links(), 1U);
    EXPECT_LT(r.LastNode().Top(), r.c->Top());
    r.Type(QStringLiteral("up"));
    EXPECT_TRUE(r.LastNode().Text().isEmpty()) << "still typing";
    r.Key(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(r.LastNode().Text(), QStringLiteral("up"));
    r.Surface().UnselectAll();
    r.Press("Ins");
    EXPECT_EQ(r.Nodes(), 5);
    EXPECT_EQ(r.Links(), 1U);
    r.Key(Qt::Key_Escape);
    r.Join(*r.a, *r.b);
    r.Select(*r.a);
    r.Press("Ins");
    EXPECT_EQ(r.LastNode().Left(), r.b->Left()) << "beside its other child";
    EXPECT_GT(r.LastNode().Top(), r.b->Top());
}

void InsertSibling(Reader &r) {
    r.Join(*r.a, *r.b);
    r.c->SetTop(r.b->Top() + r.b->Height() + 300);
    r.Join(*r.a, *r.c);
    const float before = r.c->Top();
    r.Select(*r.b);
    r.Press("Alt+Ins");
    ASSERT_EQ(r.Nodes(), 4);
    ASSERT_EQ(r.Links(), 3U);
    EXPECT_EQ(&r.Surface().Links().back()->Source(), r.a);
    EXPECT_GT(r.LastNode().Top(), r.b->Top());
    EXPECT_GT(r.c->Top(), before) << "aside";
    EXPECT_LT(r.LastNode().Top(), r.c->Top());
}

void MoveByArrows(Reader &r) {
    AddNode(*r.window, 30000, 30000);
    r.Select(*r.a);
    r.Press("Right");
    EXPECT_EQ(r.a->Left(), 915);
    r.Press("Shift+Down");
    EXPECT_EQ(r.a->Top(), 900 + r.Surface().Screen().GridSize());
    r.Surface().UnselectAll();
    const QScrollBar &bar = *r.window->CurrentView().verticalScrollBar();
    const int before = bar.value();
    r.Press("Down");
    EXPECT_GT(bar.value(), before);
    EXPECT_EQ(r.a->Left(), 915);
}

void ResizeByArrows(Reader &r) {
    r.b->SetBounds(5400, 900, 3000, 900);
    r.b->SetSelected(true);
    r.a->SetSelected(true);
    r.Press("Alt+Right");
    EXPECT_EQ(r.a->Width(), 1515);
    EXPECT_EQ(r.b->Width(), 3030) << "in proportion";
    r.Press("Alt+Shift+Down");
    EXPECT_EQ(r.a->Height(), 900 + r.Surface().Screen().GridSize());
    r.Press("Alt+Left");
    EXPECT_EQ(r.a->Width(), 1500);
}

void LinkByKeys(Reader &r) {
    r.Select(*r.a);
    r.Press("Ctrl+L");
    r.Press("Return");
    ASSERT_EQ(r.Links(), 1U);
    diagram::Link &link = *r.Surface().Links()[0];
    EXPECT_EQ(&link.Source(), r.a);
    r.Select(*r.a);
    r.Press("Ctrl+Shift+L");
    r.Press("Return");
    ASSERT_EQ(r.Links(), 2U);
    EXPECT_EQ(&r.Surface().Links()[1]->Destination(), r.a);
    const auto join = [&](const char *keys) {
        r.Surface().UnselectAll();
        link.SetSelected(true);
        r.Press(keys);
        r.Click(r.c->Bounds().center());
    };
    join("Ctrl+L");
    EXPECT_EQ(&link.Destination(), r.c);
    link.SetDestination(*r.b);
    join("Ctrl+Shift+L");
    EXPECT_EQ(&link.Source(), r.c);
}

void BendByKeys(Reader &r) {
    diagram::Link &link = r.Join(*r.a, *r.b);
    link.SetSelected(true);
    r.Press("Ctrl+Shift+B");
    r.Press("Shift+Down");
    r.Press("Shift+Down");
    r.Press("Return");
    EXPECT_EQ(link.Route().size(), 3U);
}

constexpr ToldStep kKeyboard[] = {
    {"Tab, Shift+Tab | go from node to node in reading order, and on to the next part of the window behind "
     "the last one",
     GoByTab},
    {"Ctrl and an arrow | go to the neighbour in that direction", GoByArrows},
    {"Ctrl+Alt and an arrow | go along a link in that direction", GoAlongLinks},
    {"Ctrl+Shift and an arrow | take the neighbour into the selection too, or go back from it",
     ReachByArrows},
    {"Enter, Shift+Enter | go through the links of the selected node; Ctrl and an arrow goes on to the end "
     "of the link, Tab to the next node",
     GoThroughLinks},
    {"Ins | add a node linked to the selected one and write into it: behind its other children, else where "
     "the tree grows, else in the direction last gone; with none selected, one in the middle of what is seen",
     Insert},
    {"Alt+Ins | add a sibling of the selected node behind it, linked from the same node; those in the way go "
     "aside with all that they lead to",
     InsertSibling},
    {"arrows | move what is selected by a pixel, with Shift by a step of the grid; with nothing selected, "
     "scroll",
     MoveByArrows},
    {"Alt and an arrow | move the right or the bottom side of what is selected by a pixel, with Shift by a "
     "step of the grid: the nodes grow and shrink, several in proportion",
     ResizeByArrows},
    {"Ctrl+L, Ctrl+Shift+L | link the selected node to another one, or from another one; with a link "
     "selected, join its end or its start elsewhere",
     LinkByKeys},
    {"Ctrl+Shift+B | bend the selected link", BendByKeys},
};

} // namespace

std::span<const ToldStep> KeyboardSteps() { return kKeyboard; }

} // namespace mainwindow::testing
