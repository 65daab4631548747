// The guide's table of what to do with templates.
#include "tests/mainwindow/GuideReader.h"

#include "diagram/view/SurfaceView.h"
#include "mainwindow/templates/TemplateDrag.h"
#include "mainwindow/templates/TemplateTip.h"
#include "settings/clsRB.h"
#include "settings/Settings.h"
#include "tests/mainwindow/TemplateBarTest.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHelpEvent>
#include <QMenu>
#include <QTest>
#include <QWheelEvent>

namespace mainwindow::testing {

namespace {

// Delivers two templates and a folder with one more; the reader's window then shows the first bar of them.
class Shelf {
public:
    explicit Shelf(Reader &reader) : list(reader.window->Templates().RB()) {
        settings::ProductTerms terms = settings::Terms();
        terms.TEMPLATE = QStringLiteral("TEM");
        settings::SetTerms(terms);
        folder = QFileInfo(reader.HelpFile()).path() + QStringLiteral("/Templates/");
        MakeTemplate(folder + QStringLiteral("Plan.TEM"), {"Goal", "Step"});
        MakeTemplate(folder + QStringLiteral("Roles.TEM"), {"Lead"});
        MakeTemplate(folder + QStringLiteral("People/Team.TEM"), {"Team"});
        TemplateBar::Refresh();
        EXPECT_TRUE(QTest::qWaitFor([this] { return list.ItemCount(0) == 2; }));
    }
    QPoint PlaceOf(const char *name) const {
        return list.ItemRect(*list.FindItem(QDir::toNativeSeparators(folder + QLatin1String(name)))).center();
    }
    void Click(const QPoint &at) { QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, at); }
    bool Has(const char *name) const { return QFile::exists(folder + QLatin1String(name)); }

    ListBar &list;
    QString folder;
};

void AnswerWith(Reader &r, std::int32_t choice) {
    r.desktop.ExpectForm<settings::clsRB>([choice](settings::clsRB &prompt) {
        prompt.Choice = choice;
        return true;
    });
}

void OpenBars(Reader &r) {
    Shelf shelf(r);
    shelf.Click(shelf.list.BarRect(1).center());
    EXPECT_EQ(shelf.list.CurrentBar(), 1);
    QTest::keyClick(&shelf.list, Qt::Key_Home);
    QTest::keyClick(&shelf.list, Qt::Key_Right);
    EXPECT_EQ(shelf.list.CurrentBar(), 0);
}

void SeeWhatATemplateHolds(Reader &r) {
    Shelf shelf(r);
    QHelpEvent rest(QEvent::ToolTip, shelf.PlaceOf("Plan.TEM"),
                    shelf.list.viewport()->mapToGlobal(shelf.PlaceOf("Plan.TEM")));
    QApplication::sendEvent(shelf.list.viewport(), &rest);
    EXPECT_TRUE(QTest::qWaitFor([&] { return r.window->Templates().Tip().HasPicture(); }));
}

void LoadTemplates(Reader &r) {
    Shelf shelf(r);
    AnswerWith(r, settings::clsRB::kUpdate);
    shelf.Click(shelf.PlaceOf("Plan.TEM"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return r.Nodes() == 2; }));
    r.Press("Ctrl+Z");
    EXPECT_EQ(r.Nodes(), 3);
    AnswerWith(r, settings::clsRB::kNew);
    r.desktop.ExpectInput(QStringLiteral("Name for Slice."), QStringLiteral("Roles"));
    shelf.Click(shelf.PlaceOf("Roles.TEM"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return r.window->TabStrip().TabCount() == 2 && r.Nodes() == 1; }));
}

void AddATemplate(Reader &r) {
    Shelf shelf(r);
    const auto dragged = DragData(shelf.folder + QStringLiteral("Plan.TEM"));
    const QWidget *viewport = r.window->CurrentView().viewport();
    const QPoint at = viewport->mapTo(r.window, viewport->rect().center());
    DropOn(*r.window, *dragged, at);
    EXPECT_TRUE(QTest::qWaitFor([&] { return r.Nodes() == 5; }));
    shelf.list.SetCurrentItem({0, 0});
    QContextMenuEvent byKey(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(shelf.list.viewport(), &byKey);
    QTest::keyClick(shelf.list.findChild<QMenu *>(), Qt::Key_A);
    EXPECT_TRUE(QTest::qWaitFor([&] { return r.Nodes() > 5; }));
}

void FindATemplate(Reader &r) {
    Shelf shelf(r);
    r.Press("F6");
    QTest::keyClicks(&shelf.list, QStringLiteral("ro"));
    AnswerWith(r, settings::clsRB::kUpdate);
    QTest::keyClick(&shelf.list, Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([&] { return r.LastNode().Text() == QLatin1String("Lead"); }));
}

void MakeIconsLarger(Reader &r) {
    Shelf shelf(r);
    const int side = shelf.list.IconSide();
    QWheelEvent wheel(QPointF(20, 20), shelf.list.viewport()->mapToGlobal(QPointF(20, 20)), {}, {0, 120},
                      Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(shelf.list.viewport(), &wheel);
    EXPECT_GT(shelf.list.IconSide(), side);
    Q_EMIT shelf.list.MenuAsked(0, -1, {});
    QTest::keyClick(shelf.list.findChild<QMenu *>(), Qt::Key_S);
    EXPECT_EQ(shelf.list.IconSide(), side);
}

void RenameAndDelete(Reader &r) {
    Shelf shelf(r);
    shelf.list.SetCurrentItem(
        *shelf.list.FindItem(QDir::toNativeSeparators(shelf.folder + QStringLiteral("Plan.TEM"))));
    r.desktop.ExpectInput(QStringLiteral("Name of the template."), QStringLiteral("Path"));
    QTest::keyClick(&shelf.list, Qt::Key_F2);
    EXPECT_TRUE(shelf.Has("Path.TEM"));
    r.desktop.ExpectMessageContaining(QStringLiteral("Delete 'Path'?"), support::Answer::Yes);
    QTest::keyClick(&shelf.list, Qt::Key_Delete);
    EXPECT_FALSE(shelf.Has("Path.TEM"));
}

constexpr ToldStep kTemplates[] = {
    {"open a bar | click its heading, or go to it and press Right; the one that was open folds", OpenBars},
    {"see what a template holds | rest the pointer on it", SeeWhatATemplateHolds},
    {"load a template | click it: *New* puts it on a slice of its own, *Update* in the place of what the "
     "slice holds, which Ctrl+Z brings back",
     LoadTemplates},
    {"add a template to what is there | drag it onto the page; Escape gives up. *Add to this Slice* in its "
     "menu does the same by key",
     AddATemplate},
    {"find a template | F6, then type the first letters of its name, and Enter", FindATemplate},
    {"make the icons larger | Ctrl and the wheel, or the menu", MakeIconsLarger},
    {"rename or delete a template | F2 or Del on it; you are asked before it is deleted", RenameAndDelete},
};

} // namespace

std::span<const ToldStep> TemplateSteps() { return kTemplates; }

} // namespace mainwindow::testing
