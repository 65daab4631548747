// The guide's table of gestures.
#include "tests/mainwindow/GuideDeeds.h"

#include "diagram/model/ScreenValues.h"
#include "diagram/view/SurfaceView.h"
#include "document/Tags.h"
#include "mainwindow/controls/PickBox.h"
#include "mainwindow/menus/Toolbar.h"
#include "mainwindow/slices/DroppedFile.h"
#include "mainwindow/slices/ShapePalette.h"
#include "widgets/ShapeGrid.h"
#include "widgets/ShapePopup.h"

#include <QApplication>
#include <QImage>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTest>

namespace mainwindow::testing {

namespace {

constexpr Qt::KeyboardModifier kCtrl = Qt::ControlModifier, kShift = Qt::ShiftModifier;

void Draw(Reader &r) {
    DrawOne(r);
    r.Stroke({{3900, 5400}, {3930, 5415}});
    EXPECT_EQ(r.Nodes(), 4) << "a click";
    r.Stroke({{3900, 4200}, {4500, 5400}}, {}, kShift);
    ASSERT_EQ(r.Nodes(), 5);
    EXPECT_EQ(r.LastNode().Width(), r.LastNode().Height());
    const QPointF at(2400, 7200);
    r.DoubleClick(at);
    ASSERT_EQ(r.Nodes(), 6);
    EXPECT_TRUE(r.LastNode().Bounds().contains(at));
    r.Type(QStringLiteral("here"));
    r.Key(Qt::Key_Return, kCtrl);
    EXPECT_EQ(r.LastNode().Text(), QStringLiteral("here"));
}

void AddALinkedNode(Reader &r) {
    r.a->SetFillColor(support::Rgb(1, 2, 3));
    r.Stroke({Reader::Start(*r.a), {2400, 6000}});
    ASSERT_TRUE(QApplication::activePopupWidget());
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
    r.ProcessEvents();
    ASSERT_EQ(r.Nodes(), 4);
    EXPECT_EQ(r.LastNode().Look(), r.a->Look());
    ASSERT_EQ(r.Links(), 1U);
    EXPECT_EQ(&r.Surface().Links()[0]->Source(), r.a);
    r.Type(QStringLiteral("here"));
    r.Key(Qt::Key_Return, kCtrl);
    EXPECT_EQ(r.LastNode().Text(), QStringLiteral("here"));
    r.Stroke({Reader::Start(*r.b), {8400, 6000}});
    ASSERT_TRUE(QApplication::activePopupWidget());
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    r.ProcessEvents();
    EXPECT_EQ(r.Nodes(), 4);
    EXPECT_EQ(r.Links(), 1U);
}

void DrawAnotherShape(Reader &r) {
    r.Press("F7");
    widgets::ShapeGrid &grid = r.window->Shapes().Popup()->Grid();
    QTest::keyClicks(&grid.Words(), QStringLiteral("hexa"));
    QTest::keyClick(&grid.Words(), Qt::Key_Return);
    r.Stroke({{600, 3600}, {1800, 4500}});
    r.Stroke({{2400, 3600}, {3600, 4500}});
    ASSERT_EQ(r.Nodes(), 5);
    EXPECT_EQ(r.LastNode().Shape(), 8);
    r.window->findChild<Toolbar *>(QStringLiteral("tlbView"))->actions().first()->trigger();
    const widgets::ShapeList &list = grid.List();
    const QModelIndex picture = list.model()->match(list.model()->index(0, 0), Qt::DisplayRole, "Octogon")[0];
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(picture).center());
    r.Click(Reader::kEmpty);
    ASSERT_EQ(r.Nodes(), 6);
    EXPECT_EQ(r.LastNode().Shape(), 15);
    EXPECT_EQ(r.LastNode().Bounds().size(), QSizeF(1500, 900));
    r.Press("Esc");
    r.Click({600, 7500});
    EXPECT_EQ(r.Nodes(), 6);
}

void LinkTwo(Reader &r) {
    LinkFromBeside(r);
    r.Stroke({Reader::Start(*r.c), {8400, 5400}, r.c->Bounds().center()});
    ASSERT_EQ(r.Links(), 2U);
    EXPECT_EQ(&r.Surface().Links()[1]->Source(), r.c);
    EXPECT_EQ(&r.Surface().Links()[1]->Destination(), r.c);
}

void SelectByMouse(Reader &r) {
    using Nodes = std::vector<diagram::Node *>;
    r.Click(Reader::Body(*r.a));
    EXPECT_EQ(r.Surface().SelectedNodes(), Nodes{r.a});
    r.Click(Reader::Body(*r.b), kCtrl);
    EXPECT_EQ(r.Surface().SelectedNodes(), (Nodes{r.a, r.b}));
    r.Click(Reader::Body(*r.b), kCtrl);
    EXPECT_EQ(r.Surface().SelectedNodes(), Nodes{r.a});
    r.Click(Reader::kEmpty);
    SelectByABand(r);
}

void Move(Reader &r) {
    r.Stroke({Reader::Body(*r.a), Reader::Body(*r.a) + QPointF(450, 2400)});
    EXPECT_NEAR(r.a->Top(), 3300, 150);
    const float left = r.a->Left(), top = r.a->Top();
    r.Press("Right");
    EXPECT_EQ(r.a->Left(), left + 15);
    r.Press("Shift+Down");
    EXPECT_EQ(r.a->Top(), top + r.Surface().Screen().GridSize());
    const float level = r.a->Top();
    r.Stroke({Reader::Body(*r.a), Reader::Body(*r.a) + QPointF(1500, -450)}, {}, kShift);
    EXPECT_EQ(r.a->Top(), level);
    EXPECT_GT(r.a->Left(), left + 1000);
}

void Copy(Reader &r) {
    r.Stroke({Reader::Body(*r.a), Reader::Body(*r.a) + QPointF(0, 3000)}, kCtrl, kCtrl);
    ASSERT_EQ(r.Nodes(), 4);
    EXPECT_EQ(r.a->Top(), 900);
    EXPECT_EQ(r.LastNode().Text(), QStringLiteral("first"));
    r.Stroke({Reader::Body(*r.b), Reader::Body(*r.b) + QPointF(-1800, 1200)}, {}, kCtrl);
    ASSERT_EQ(r.Nodes(), 5);
    EXPECT_EQ(r.b->Left(), 5400);
}

void Resize(Reader &r) {
    ResizeByAHandle(r);
    r.Click(Reader::kEmpty);
    r.Click(Reader::Body(*r.c));
    r.Click(Reader::Body(*r.b), kCtrl);
    QRectF box = r.b->Bounds();
    r.Stroke({box.bottomRight(), box.bottomRight() + QPointF(1500, 0)});
    EXPECT_GT(r.b->Width(), 2000);
    EXPECT_NEAR(r.c->Width(), r.b->Width(), 1) << "in proportion";
    r.Click(Reader::kEmpty);
    r.Click(Reader::Body(*r.c));
    box = r.c->Bounds();
    r.Stroke({box.bottomRight(), box.bottomRight() + QPointF(600, 0)}, {}, kShift);
    EXPECT_GT(r.c->Width(), box.width() + 300);
    EXPECT_NEAR(r.c->Width() / r.c->Height(), box.width() / box.height(), 0.01);
}

void Bend(Reader &r) {
    diagram::Link &link = BendByTheMiddle(r);
    const QPointF bend = diagram::ToQPointF(link.Route()[1]);
    r.Stroke({bend, bend + QPointF(600, 600)});
    ASSERT_EQ(link.Route().size(), 3U);
    EXPECT_NE(diagram::ToQPointF(link.Route()[1]), bend);
    r.DoubleClick(diagram::ToQPointF(link.Route()[1]));
    EXPECT_EQ(link.Route().size(), 2U);
    diagram::Link &level = r.Join(*r.a, *r.c);
    level.Owner().BeginAction(0);
    level.SetStyle(5); // level, upright, level
    level.Owner().EndAction();
    r.ProcessEvents();
    const std::vector<diagram::Point> way = level.Route();
    const QPointF middle = Reader::Half(level, 1);
    r.Click(middle);
    r.Stroke({middle, middle + QPointF(-600, 0)});
    ASSERT_NE(level.Route(), way);
    EXPECT_EQ(level.Route()[1].x, level.Route()[2].x);
    EXPECT_TRUE(level.OwnBends());
    r.DoubleClick(diagram::ToQPointF(level.Route()[1]));
    EXPECT_FALSE(level.OwnBends());
    EXPECT_EQ(level.Route(), way);
}

void JoinElsewhere(Reader &r) {
    diagram::Link &link = r.Join(*r.a, *r.b);
    r.Click(Reader::Half(link));
    r.Stroke({diagram::ToQPointF(link.Route().back()), r.c->Bounds().center()});
    EXPECT_EQ(&link.Destination(), r.c);
}

void Write(Reader &r) {
    WriteIntoANode(r);
    r.desktop.ExpectSaveFile(r.File("typed.map"));
    r.Type(QStringLiteral("so"));
    r.Key(Qt::Key_S, kCtrl);
    EXPECT_EQ(r.a->Text(), QStringLiteral("so"));
    r.Type(QStringLiteral(" far"));
    r.Key(Qt::Key_Return, kCtrl);
    EXPECT_EQ(r.a->Text(), QStringLiteral("so far"));
    r.DoubleClick(Reader::Body(*r.b));
    r.Type(QStringLiteral("twice"));
    r.Key(Qt::Key_Return, kCtrl);
    EXPECT_EQ(r.b->Text(), QStringLiteral("twice"));
    diagram::Link &link = r.Join(*r.a, *r.b);
    r.Click(Reader::Half(link));
    TypeATextOfTwoLines(r);
    EXPECT_EQ(link.Text(), QStringLiteral("Hi\r\nyou"));
}

void Read(Reader &r) {
    EXPECT_EQ(r.TipAt(Reader::Body(*r.b)), QString());
    r.a->SetText(QStringLiteral("a text without end ").repeated(40));
    EXPECT_TRUE(r.TipAt(Reader::Body(*r.a)).contains(QLatin1String("without")));
    r.Wheel(Reader::Body(*r.b), -120 * 12, kCtrl);
    EXPECT_TRUE(r.TipAt(r.b->Bounds().center()).contains(QLatin1String("second")));
}

void Delete(Reader &r) {
    r.Join(*r.a, *r.b);
    r.Click(Reader::Body(*r.a));
    r.desktop.ExpectMessageContaining(QStringLiteral("delete the select Nodes"), support::Answer::No);
    r.Press("Del");
    EXPECT_EQ(r.Nodes(), 3);
    r.desktop.ExpectMessageContaining(QStringLiteral("delete the select Nodes"), support::Answer::Yes);
    r.Press("Del");
    EXPECT_EQ(r.Nodes(), 2);
    EXPECT_EQ(r.Links(), 0U);
}

void ChooseAFont(Reader &r) {
    r.a->SetFont(diagram::Font(QStringLiteral("Some Font"), 21));
    r.Click(Reader::Body(*r.a));
    EXPECT_EQ(r.window->cboFont().currentText(), QStringLiteral("Some Font"));
    EXPECT_EQ(r.window->cboFontSize().currentText(), QStringLiteral("21"));
    r.Press("Ctrl+Alt+F");
    r.Type(QStringLiteral("33"));
    r.Key(Qt::Key_Return);
    EXPECT_EQ(r.a->Font().Size(), 33);
    r.Press("Ctrl+Shift+F");
    const QString name = r.window->cboFont().itemText(0);
    ASSERT_GE(name.size(), 4);
    const QString part = name.mid(1, 3).toLower();
    r.Type(part);
    r.Key(Qt::Key_Return);
    EXPECT_TRUE(r.a->Font().Name().contains(part, Qt::CaseInsensitive)) << qPrintable(r.a->Font().Name());
    EXPECT_NE(r.a->Font().Name(), QStringLiteral("Some Font"));
}

// Chooses by the letters of the menu's entries.
void ChooseInArrange(Reader &r, std::initializer_list<Qt::Key> letters) {
    for (QAction *menu : r.window->menuBar()->actions())
        if (menu->objectName() == QLatin1String("mnuArrange")) menu->menu()->popup(QPoint());
    for (const Qt::Key letter : letters) {
        ASSERT_NE(QApplication::activePopupWidget(), nullptr);
        QTest::keyClick(QApplication::activePopupWidget(), letter);
    }
    r.ProcessEvents();
}

void LineUp(Reader &r) {
    const auto both = [&] {
        r.Click(Reader::Body(*r.a));
        r.Click(Reader::Body(*r.c), kCtrl);
    };
    r.a->SetBounds(600, 600, 900, 600);
    both();
    ChooseInArrange(r, {Qt::Key_A, Qt::Key_R});
    EXPECT_EQ(r.a->Bounds().right(), r.c->Bounds().right());
    r.a->SetBounds(600, 600, 900, 600);
    r.Click(Reader::kEmpty);
    both();
    ChooseInArrange(r, {Qt::Key_S, Qt::Key_S});
    EXPECT_EQ(r.a->Bounds().size(), r.c->Bounds().size());
    r.Click(Reader::Body(*r.b), kCtrl);
    r.b->SetTop(1200);
    ChooseInArrange(r, {Qt::Key_D, Qt::Key_V});
    EXPECT_NEAR(r.b->Top() - r.a->Bounds().bottom(), r.c->Top() - r.b->Bounds().bottom(), 1);
}

void Stack(Reader &r) {
    r.Click(Reader::Body(*r.a));
    r.PushFormatButton("FRONT");
    EXPECT_EQ(r.a->ZOrder(), 2);
    r.PushFormatButton("BACK");
    EXPECT_EQ(r.a->ZOrder(), 0);
    ChooseInArrange(r, {Qt::Key_F});
    EXPECT_EQ(r.a->ZOrder(), 2);
    ChooseInArrange(r, {Qt::Key_B});
    EXPECT_EQ(r.a->ZOrder(), 0);
}

void ShowBothTexts(Reader &r) {
    const QString second = QStringLiteral("what else there is to say of it ").repeated(20);
    r.a->SetEvent(second);
    const QImage one = r.Seen();
    const QRectF box = r.a->Bounds();
    r.PushFormatButton("DISPLAY");
    EXPECT_NE(r.Seen(), one);
    EXPECT_EQ(r.a->Bounds(), box);
    EXPECT_TRUE(r.TipAt(Reader::Body(*r.a)).contains(QLatin1String("to say of it")));
    r.PushFormatButton("DISPLAY");
    EXPECT_EQ(r.Seen(), one);
    r.PushFormatButton("DISPLAY");
    r.Click(Reader::Body(*r.a));
    r.Type(QStringLiteral("typed"));
    r.Key(Qt::Key_Return, kCtrl);
    r.Press("Ctrl+C");
    EXPECT_FALSE(r.window->DisplayPressed());
    r.Press("Ctrl+V");
    EXPECT_EQ(r.LastNode().Text(), QStringLiteral("typed"));
    EXPECT_EQ(r.LastNode().Event(), second);
}

void DropFiles(Reader &r) {
    QImage image(40, 20, QImage::Format_RGB32);
    image.fill(Qt::red);
    const QString picture = r.File("picture.png");
    ASSERT_TRUE(image.save(picture));
    const auto choose = [&](int entry) {
        r.DropAt(picture, Reader::Body(*r.a));
        auto *menu = r.window->findChild<DropMenu *>();
        ASSERT_TRUE(menu && menu->isVisible());
        menu->setActiveAction(menu->actions().at(entry));
        QTest::keyClick(menu, Qt::Key_Return);
        r.ProcessEvents();
    };
    r.DropAt(picture, {3000, 4500});
    ASSERT_EQ(r.Nodes(), 4);
    EXPECT_FALSE(r.LastNode().Picture().IsNull());
    choose(0);
    EXPECT_EQ(r.window->clsSettings().Attachments().count(), 1);
    choose(1);
    EXPECT_FALSE(r.a->Picture().IsNull());
    const QString map = r.SavedPlan("other.map", 1, 1);
    r.DropAt(map, Reader::kEmpty);
    const std::vector<frmMain *> forms = frmMain::Forms();
    EXPECT_TRUE(
        std::ranges::any_of(forms, [&](frmMain *form) { return form->clsSettings().Database() == map; }));
}

void FollowAHyperlink(Reader &r) {
    r.window = &r.Another();
    r.window->DoOpen(r.SavedPlan("here.map", 1, 3), false);
    r.ProcessEvents();
    diagram::Node &node = r.Surface().Nodes().Item(1);
    document::SetTag(node, document::tags::kHyper, QStringLiteral("Yes"));
    QString key;
    document::cHyperlink &hyperlink = r.window->clsSettings().Hyperlinks().add(key);
    hyperlink.Node = node.Key();
    hyperlink.Slice = 3;
    r.DoubleClick(Reader::Body(node));
    EXPECT_EQ(r.window->TabStrip().TheTab(), 2);
}

void GiveUp(Reader &r) {
    QWidget *viewport = r.window->CurrentView().viewport();
    for (const QPointF &from : {Reader::Body(*r.a), Reader::Start(*r.a), Reader::kEmpty}) {
        r.ProcessEvents();
        const QPoint start = r.window->CurrentView().FromSurface(from).toPoint();
        const QPoint to = start + QPoint(90, -30);
        QTest::mousePress(viewport, Qt::LeftButton, {}, start);
        MoveHeld(*viewport, to);
        r.Press("Esc");
        QTest::mouseRelease(viewport, Qt::LeftButton, {}, to);
        r.ProcessEvents();
        EXPECT_EQ(r.a->Left(), 900);
        EXPECT_EQ(r.Nodes(), 3);
    }
}

constexpr ToldStep kDrawing[] = {
    {"draw a node | drag on the empty page; a drag of only a few pixels counts as a click. Shift, pressed on "
     "the way, makes it as wide as high. A double click makes one of the usual size there and lets you "
     "write",
     Draw},
    {"draw another shape | F7, or the first button of the view toolbar; type a part of the shape's name and "
     "Enter, or click its picture. Each drag draws that shape from then on, and a click on the empty page "
     "places one in its usual size, until you choose another or press Escape",
     DrawAnotherShape},
    {"link two nodes | point at the first and drag from one of the circles beside it to the second; back "
     "onto the first gives a loop",
     LinkTwo},
    {"add a linked node | drag from a circle to an empty place and press Enter: it looks like the first, and "
     "you can write at once. Escape leaves it",
     AddALinkedNode},
    {"select | click; Ctrl+click adds or takes away; Shift+drag selects what lies in the rectangle",
     SelectByMouse},
    {"move | drag, or the arrow keys (with Shift by a step of the grid); Shift keeps a drag level or upright",
     Move},
    {"copy | drag with Ctrl, pressed at any time before the button is let go", Copy},
    {"resize | drag one of the eight handles; several selected nodes grow in proportion, Shift keeps the "
     "aspect",
     Resize},
    {"bend a link | select it and drag one of its points, or the middle of a segment to make one; a double "
     "click takes a point away. Links that run level and upright only keep doing so, and a double click "
     "gives their bends back to the program",
     Bend},
    {"join a link elsewhere | drag its end to another node", JoinElsewhere},
    {"write | double click a node, or select and type, or F2; Enter is a new line, Ctrl+Enter or a click "
     "elsewhere ends, Escape gives up. Ctrl+S saves what is typed so far, and typing goes on. Labels of "
     "links are written the same way",
     Write},
    {"read | rest the pointer on a text that is cut off or too small", Read},
    {"delete | Del; links of deleted nodes go too, and you are asked first", Delete},
    {"choose a font | the two boxes of the format toolbar, or Ctrl+Shift+F and Ctrl+Alt+F; they show the "
     "font of what is selected. Type any part of a name, or a size, and press Enter, or choose from the "
     "list, which shows each font in its own letters",
     ChooseAFont},
    {"line up | select several and choose *Align*, *Distribute* or *Same Size* in the menu *Arrange*",
     LineUp},
    {"stack | *Bring to front* and *Send to back* in the format toolbar or in *Arrange*", Stack},
    {"show both texts of the nodes | the button *both texts* in the format toolbar, for all slices; the same "
     "button takes the second texts away again. Nodes that take the size of their text are painted with room "
     "for both; rest the pointer on a text that finds none. What is typed goes into the first text; pictures "
     "show what is seen, copied nodes keep both texts apart, and a copy releases the button",
     ShowBothTexts},
    {"attach a file or show a picture | drop the file on a node and choose; a picture dropped beside the "
     "nodes becomes a node, a map opens",
     DropFiles},
    {"follow a hyperlink | double click its node", FollowAHyperlink},
    {"give up | Escape, in the middle of any drag", GiveUp},
};

} // namespace

std::span<const ToldStep> DrawingSteps() { return kDrawing; }

} // namespace mainwindow::testing
