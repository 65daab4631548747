// The guide's table of the keys of commands.
#include "tests/mainwindow/GuideReader.h"

#include "diagram/model/ScreenValues.h"
#include "diagram/view/SurfaceView.h"
#include "dialogs/PropertyForms.h"
#include "mainwindow/controls/PickBox.h"
#include "mainwindow/find/FindBar.h"
#include "mainwindow/menus/CommandSearch.h"
#include "mainwindow/slices/ShapePalette.h"
#include "mainwindow/templates/TemplateBar.h"
#include "timeline/AddTimelineLink.h"
#include "timeline/setup/frmDate.h"
#include "timeline/TimelineNodes.h"
#include "widgets/ShapePopup.h"

#include <QApplication>
#include <QFileInfo>
#include <QLineEdit>
#include <QPointer>
#include <QTest>

namespace mainwindow::testing {

namespace {

void Files(Reader &r) {
    const QString mine = r.File("mine.map"), other = r.File("other.map");
    r.desktop.ExpectSaveFile(mine);
    r.Press("Ctrl+S");
    EXPECT_TRUE(QFileInfo::exists(mine));
    r.desktop.ExpectSaveFile(other);
    r.Press("Ctrl+Shift+S");
    EXPECT_TRUE(QFileInfo::exists(other));
    EXPECT_EQ(r.window->clsSettings().Database(), other);
    r.desktop.ExpectOpenFile(mine);
    r.Press("Ctrl+O");
    EXPECT_EQ(r.window->clsSettings().Database(), mine);
    r.Press("Ctrl+N");
    EXPECT_EQ(frmMain::Forms().size(), 2U);
}

void PrintAndClose(Reader &r) {
    r.desktop.printers.names = {QStringLiteral("Office")};
    r.desktop.printers.system.deviceName = QStringLiteral("Office");
    for (const char *keys : {"Ctrl+Q", "Ctrl+W"}) {
        const QPointer<frmMain> other = &r.Another();
        r.desktop.ExpectJob(QStringLiteral("Office"));
        QTest::keySequence(&other->CurrentView(), QKeySequence(QStringLiteral("Ctrl+P")));
        QTest::keySequence(&other->CurrentView(), QKeySequence(QLatin1String(keys)));
        r.ProcessEvents();
        EXPECT_TRUE(other.isNull()) << keys;
    }
    EXPECT_EQ(r.desktop.printers.jobs.size(), 2U);
}

void UndoAndRedo(Reader &r) {
    r.Select(*r.a);
    r.Press("Right");
    for (const char *redo : {"Ctrl+Y", "Ctrl+Shift+Z"}) {
        r.Press("Ctrl+Z");
        EXPECT_EQ(r.a->Left(), 900);
        r.Press(redo);
        EXPECT_EQ(r.a->Left(), 915) << redo;
    }
}

void CutAndPaste(Reader &r) {
    r.Select(*r.a);
    r.Press("Ctrl+C");
    r.Press("Ctrl+V");
    EXPECT_EQ(r.Nodes(), 4);
    r.Press("Ctrl+D");
    EXPECT_EQ(r.Nodes(), 5);
    r.Press("Ctrl+X");
    EXPECT_EQ(r.Nodes(), 4);
    r.Press("Ctrl+V");
    EXPECT_EQ(r.Nodes(), 5);
    r.desktop.ExpectMessageContaining(QStringLiteral("delete the select Nodes"), support::Answer::Yes);
    r.Press("Del");
    EXPECT_EQ(r.Nodes(), 4);
}

void SelectAllOrNothing(Reader &r) {
    r.Press("Ctrl+A");
    EXPECT_EQ(r.Surface().SelectedNodes().size(), 3U);
    r.Press("Ctrl+Shift+A");
    EXPECT_TRUE(r.Surface().SelectedNodes().empty());
}

void EditAndProperties(Reader &r) {
    r.Select(*r.a);
    r.Press("F2");
    EXPECT_TRUE(r.window->CurrentView().IsEditing());
    r.Key(Qt::Key_Escape);
    r.desktop.ExpectForm<dialogs::NodeDialogArgument>();
    r.Press("F4");
    EXPECT_EQ(r.desktop.dialogHost.shown.size(), 1);
}

void Find(Reader &r) {
    r.b->SetText(QStringLiteral("one of two"));
    r.c->SetText(QStringLiteral("two of two"));
    r.Press("Ctrl+F");
    const auto *bar = r.window->findChild<FindBar *>();
    ASSERT_TRUE(bar->isVisible());
    r.Type(QStringLiteral("of two"));
    EXPECT_EQ(r.Surface().SelectedNode(), r.b);
    r.Press("F3");
    EXPECT_EQ(r.Surface().SelectedNode(), r.c);
    r.Press("Shift+F3");
    EXPECT_EQ(r.Surface().SelectedNode(), r.b);
    const auto *with = r.window->findChild<QLineEdit *>(QStringLiteral("txtReplace"));
    EXPECT_FALSE(with->isVisible());
    r.Press("Ctrl+H");
    EXPECT_TRUE(with->isVisible());
}

void SearchCommands(Reader &r) {
    r.Press("Ctrl+Shift+P");
    EXPECT_TRUE(r.window->Search().hasFocus());
}

void GoToTemplates(Reader &r) {
    r.Press("F6");
    EXPECT_TRUE(r.window->Templates().RB().hasFocus());
}

void OpenShapes(Reader &r) {
    r.Press("F7");
    ASSERT_NE(r.window->Shapes().Popup(), nullptr);
    EXPECT_TRUE(r.window->Shapes().Popup()->isVisible());
    r.window->Shapes().Popup()->hide();
}

void Grid(Reader &r) {
    const bool lines = r.Surface().GridLines(), snaps = r.Surface().Screen().SnapToGrid();
    r.Press("Ctrl+G");
    EXPECT_NE(r.Surface().GridLines(), lines);
    r.Press("Ctrl+Shift+G");
    EXPECT_NE(r.Surface().Screen().SnapToGrid(), snaps);
}

void Zoom(Reader &r) {
    const diagram::SurfaceView &view = r.window->CurrentView();
    r.Press("Ctrl++");
    EXPECT_GT(view.ShownZoom(), 101);
    r.Press("Ctrl+0");
    EXPECT_NEAR(view.ShownZoom(), 100, 0.01);
    r.Press("Ctrl+-");
    EXPECT_LT(view.ShownZoom(), 99);
    AddNode(*r.window, 60000, 30000);
    r.Press("Ctrl+9");
    EXPECT_LT(view.ShownZoom(), 40);
}

void Date(Reader &r) {
    r.Select(*r.a);
    r.desktop.ExpectForm<timeline::DateFormArgument>();
    r.Press("Ctrl+T");
    EXPECT_EQ(r.desktop.dialogHost.shown.size(), 1);
}

void MoveDates(Reader &r) {
    diagram::Node &look = *timeline::LocateTimeLineTemplateNode(r.Surface(), true);
    look.SetWidth(1200);
    timeline::AddTimelineLink(*r.window, r.Surface(), *r.a, QStringLiteral("14 March 2004"));
    r.Select(*r.a);
    r.Press("Ctrl+Alt+PgDown");
    EXPECT_EQ(timeline::DateOfNode(*r.a), QStringLiteral("15 March 2004"));
    r.Press("Ctrl+Alt+PgUp");
    EXPECT_EQ(timeline::DateOfNode(*r.a), QStringLiteral("14 March 2004"));
    r.Press("Ctrl+Alt+Shift+PgDown");
    EXPECT_EQ(timeline::DateOfNode(*r.a), QStringLiteral("21 March 2004"));
    r.Press("Ctrl+Alt+Shift+PgUp");
    EXPECT_EQ(timeline::DateOfNode(*r.a), QStringLiteral("14 March 2004"));
}

void GoBySlice(Reader &r) {
    r.window = &r.Another();
    r.window->DoOpen(r.SavedPlan("slices.map", 1, 2), false);
    r.ProcessEvents();
    r.Press("Ctrl+PgDown");
    EXPECT_EQ(r.window->TabStrip().TheTab(), 1);
    r.Press("Ctrl+PgUp");
    EXPECT_EQ(r.window->TabStrip().TheTab(), 0);
}

void GoByLastUse(Reader &r) {
    r.window = &r.Another();
    r.window->DoOpen(r.SavedPlan("slices.map", 1, 3), false);
    for (const int tab : {2, 0, 1}) r.window->TabStrip().SetTheTab(tab);
    r.ProcessEvents();
    r.TabWithCtrl(Qt::Key_Tab, 1);
    EXPECT_EQ(r.window->TabStrip().TheTab(), 0);
    r.TabWithCtrl(Qt::Key_Tab, 2);
    EXPECT_EQ(r.window->TabStrip().TheTab(), 2);
    r.TabWithCtrl(Qt::Key_Backtab, 1);
    EXPECT_EQ(r.window->TabStrip().TheTab(), 1);
}

void GoToFontBoxes(Reader &r) {
    r.Press("Ctrl+Shift+F");
    EXPECT_TRUE(r.window->cboFont().hasFocus());
    r.Press("Ctrl+Alt+F");
    EXPECT_TRUE(r.window->cboFontSize().hasFocus());
}

void BoldItalicUnderline(Reader &r) {
    r.Select(*r.a);
    r.Press("Ctrl+B");
    EXPECT_TRUE(r.a->Font().Bold());
    r.Press("Ctrl+I");
    EXPECT_TRUE(r.a->Font().Italic());
    r.Press("Ctrl+U");
    EXPECT_TRUE(r.a->Font().Underline());
}

void CopyAndPasteLook(Reader &r) {
    r.a->SetShadow(2);
    r.Select(*r.a);
    r.Press("Ctrl+Alt+C");
    r.Select(*r.b);
    r.Press("Ctrl+Alt+V");
    EXPECT_EQ(r.b->Shadow(), 2);
}

void GoToLookBar(Reader &r) {
    r.Select(*r.a);
    r.Press("F8");
    EXPECT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("lookFill"));
    r.Key(Qt::Key_Right);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("lookLineColour"));
    r.Key(Qt::Key_Down);
    QWidget *list = QApplication::activePopupWidget();
    ASSERT_NE(list, nullptr);
    QTest::keyClick(list->focusWidget(), Qt::Key_Escape);
    r.Key(Qt::Key_Escape);
    EXPECT_TRUE(r.window->CurrentView().hasFocus());
}

void Help(Reader &r) {
    r.desktop.ExpectLaunch(r.HelpFile());
    r.Press("F1");
    EXPECT_EQ(r.desktop.launcher.launched, QStringList(r.HelpFile()));
}

constexpr ToldStep kCommands[] = {
    {"Ctrl+N, Ctrl+O, Ctrl+S, Ctrl+Shift+S | new map, open, save, save as", Files},
    {"Ctrl+P, Ctrl+Q or Ctrl+W | print, close the window", PrintAndClose},
    {"Ctrl+Z, Ctrl+Y or Ctrl+Shift+Z | undo, redo", UndoAndRedo},
    {"Ctrl+X, Ctrl+C, Ctrl+V, Ctrl+D, Del | cut, copy, paste, duplicate, delete", CutAndPaste},
    {"Ctrl+A, Ctrl+Shift+A | select all, select nothing", SelectAllOrNothing},
    {"F2, F4 | edit the text, properties", EditAndProperties},
    {"Ctrl+F, Ctrl+H, F3, Shift+F3 | find, replace, next, previous", Find},
    {"Ctrl+Shift+P | search the commands", SearchCommands},
    {"F6 | the templates", GoToTemplates},
    {"F7 | the shapes", OpenShapes},
    {"Ctrl+G, Ctrl+Shift+G | grid lines, snap to grid", Grid},
    {"Ctrl++, Ctrl+-, Ctrl+0, Ctrl+9 | zoom in, zoom out, 100 per cent, fit in window", Zoom},
    {"Ctrl+T | the date of the selected nodes", Date},
    {"Ctrl+Alt+PgDn, Ctrl+Alt+PgUp, with Shift | dates of the selected nodes a day later or earlier, a week",
     MoveDates},
    {"Ctrl+PgDn, Ctrl+PgUp | next and previous slice", GoBySlice},
    {"Ctrl+Tab, Ctrl+Shift+Tab | the slice used last, the one used longest ago; hold Ctrl and press Tab "
     "again to go further",
     GoByLastUse},
    {"Ctrl+Shift+F, Ctrl+Alt+F | the font boxes", GoToFontBoxes},
    {"Ctrl+B, Ctrl+I, Ctrl+U | bold, italic, underline", BoldItalicUnderline},
    {"Ctrl+Alt+C, Ctrl+Alt+V | copy the look, paste it", CopyAndPasteLook},
    {"F8 | the look bar: the arrows go along it, Down opens a list, Escape leaves", GoToLookBar},
    {"F1 | help", Help},
};

} // namespace

std::span<const ToldStep> CommandSteps() { return kCommands; }

} // namespace mainwindow::testing
