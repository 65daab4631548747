// The guide's table of the layouts.
#include "tests/mainwindow/GuideReader.h"

#include "document/Tags.h"

namespace mainwindow::testing {

namespace {

// Links the first node to the two others, and puts these onto its place.
void HangTwoOnTheFirst(Reader &r) {
    r.Join(*r.a, *r.b);
    r.Join(*r.a, *r.c);
    for (diagram::Node *node : {r.b, r.c}) {
        node->SetLeft(r.a->Left());
        node->SetTop(r.a->Top());
    }
}

void ExpectChildrenBelow(Reader &r) {
    EXPECT_GT(r.b->Top(), r.a->Top() + r.a->Height());
    EXPECT_EQ(r.b->Top(), r.c->Top());
}

void ExpectApart(Reader &r) {
    EXPECT_FALSE(r.a->Bounds().intersects(r.b->Bounds()));
    EXPECT_FALSE(r.a->Bounds().intersects(r.c->Bounds()));
    EXPECT_FALSE(r.b->Bounds().intersects(r.c->Bounds()));
}

template <const char *kKey>
void LayOut(Reader &r) {
    HangTwoOnTheFirst(r);
    r.window->SmartMenuXP1_Click(QLatin1String(kKey));
    ExpectApart(r);
}

void LayOutAProcess(Reader &r) {
    HangTwoOnTheFirst(r);
    r.window->SmartMenuXP1_Click(QStringLiteral("mnuLayoutHExecute"));
    ExpectChildrenBelow(r);
}

void LayOutAnOrganization(Reader &r) {
    HangTwoOnTheFirst(r);
    r.Join(*r.b, *r.c);
    r.window->SmartMenuXP1_Click(QStringLiteral("mnuLayoutTreeExecute"));
    ExpectChildrenBelow(r);
    EXPECT_TRUE(r.Status(*r.window).contains(QStringLiteral("no tree")));
}

void LayOutByLevels(Reader &r) {
    HangTwoOnTheFirst(r);
    auto &levels = r.window->clsSettings().Levels();
    document::SetTag(*r.a, document::tags::kLevel, levels.Item(2).Key);
    document::SetTag(*r.b, document::tags::kLevel, levels.Item(1).Key);
    document::SetTag(*r.c, document::tags::kLevel, levels.Item(2).Key);
    r.window->SmartMenuXP1_Click(QStringLiteral("mnuLayoutLevels"));
    EXPECT_LT(r.b->Left() + r.b->Width(), r.a->Left());
    EXPECT_EQ(r.a->Left() + r.a->Width() / 2, r.c->Left() + r.c->Width() / 2);
}

void LayOutAPart(Reader &r) {
    HangTwoOnTheFirst(r);
    r.c->SetLeft(r.b->Left() + 100);
    const QRectF held = r.c->Bounds();
    r.a->SetSelected(true);
    r.b->SetSelected(true);
    r.c->SetSelected(false);
    r.window->SmartMenuXP1_Click(QStringLiteral("mnuLayoutSelection"));
    EXPECT_EQ(r.c->Bounds(), held);
    EXPECT_GT(r.b->Top(), r.a->Top() + r.a->Height());
    ExpectApart(r);
}

constexpr char kRadial[] = "mnuLayoutRadial", kOrganic[] = "mnuLayoutOrganic",
               kCircular[] = "mnuLayoutCircular";

constexpr ToldStep kLayouts[] = {
    {"lay out a process or a plan | *Layout, Hierarchical*: layers along the links", LayOutAProcess},
    {"lay out an organization | *Layout, Tree*: trees, side by side if there are several. What is no tree is "
     "laid out along some of its links, the others lead round, and the status bar says so",
     LayOutAnOrganization},
    {"show what hangs on what | *Layout, Radial*: rings around a middle", LayOut<kRadial>},
    {"lay out a network | *Layout, Organic*: what belongs together comes together, as if the links were "
     "springs",
     LayOut<kOrganic>},
    {"see who is linked with whom | *Layout, Circular*: circles on which few links cross, with ends of "
     "single links outside",
     LayOut<kCircular>},
    {"lay out by levels | *Layout, By Level*: a lane for each level, in the order of the list; the links "
     "lead along the lanes",
     LayOutByLevels},
    {"lay out a part | select its nodes, *Layout, Lay Out Selection*: only these move, in layers about the "
     "middle of where they were or beside it, so that they cover nothing else",
     LayOutAPart},
};

} // namespace

std::span<const ToldStep> LayoutSteps() { return kLayouts; }

} // namespace mainwindow::testing
