// The menu of the template bar, previews, and the user's own templates renamed and deleted.
#include "tests/mainwindow/TemplateBarTest.h"

#include "diagram/view/SurfaceView.h"
#include "mainwindow/menus/CommandSearch.h"
#include "mainwindow/templates/TemplatePreviews.h"
#include "mainwindow/templates/TemplateTip.h"
#include "support/Files.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QHelpEvent>
#include <QMenu>
#include <QTest>

namespace mainwindow::testing {

class TemplateItems : public TemplateBarTest {
protected:
    TemplateItems() {
        MakeTemplate(Beside(QStringLiteral("Plan.TEM")), {"Goal", "Step"});
        MakeFile(Beside(QStringLiteral("letter.odt")), "text");
    }
    void Rest(frmMain &window, const QString &caption) {
        ListBar &list = RB(window);
        const QPoint at = list.ItemRect(PlaceOf(window, caption)).center();
        QHelpEvent help(QEvent::ToolTip, at, list.viewport()->mapToGlobal(at));
        QApplication::sendEvent(list.viewport(), &help);
    }
    // The menu of the item, or of the bar for an empty caption.
    static QMenu *Menu(frmMain &window, const QString &caption) {
        ListBar &list = RB(window);
        if (caption.isEmpty())
            Q_EMIT list.MenuAsked(0, -1, list.mapToGlobal(QPoint(5, 5)));
        else
            Q_EMIT list.MenuAsked(0, PlaceOf(window, caption).item, list.mapToGlobal(QPoint(5, 5)));
        return list.findChild<QMenu *>();
    }
    static QStringList Entries(frmMain &window, const QString &caption) {
        QMenu *menu = Menu(window, caption);
        QStringList entries;
        for (const QAction *entry : menu->actions())
            entries << (entry->isEnabled() ? QString() : QStringLiteral("-")) + entry->text();
        delete menu;
        return entries;
    }
    void Choose(frmMain &window, const QString &caption, const QString &text) {
        QMenu *menu = Menu(window, caption);
        for (QAction *entry : menu->actions())
            if (entry->text() == text) menu->setActiveAction(entry);
        ASSERT_NE(menu->activeAction(), nullptr);
        QTest::keyClick(menu, Qt::Key_Return);
        Settle();
    }
    void PressOn(frmMain &window, const QString &caption, Qt::Key key) {
        RB(window).SetCurrentItem(PlaceOf(window, caption));
        RB(window).setFocus();
        QTest::keyClick(&RB(window), key);
        ProcessEvents();
    }
};

TEST_F(TemplateItems, TheMenuOffersWhatCanBeDone) {
    frmMain &window = FilledWindow();
    const QStringList list = {"Open &folder", "Refres&h", "", "La&rger icons", "&Smaller icons"};
    EXPECT_EQ(Entries(window, {}), list);
    const QStringList change = {"", "&Rename...", "&Delete...", ""};
    EXPECT_EQ(Entries(window, QStringLiteral("Plan")),
              QStringList({"&Load...", "&Add to this Slice"}) + change + list);
    EXPECT_EQ(Entries(window, QStringLiteral("letter")), QStringList{"&Open"} + change + list);
}

TEST_F(TemplateItems, LoadIsTheClick) {
    frmMain &window = FilledWindow();
    Answer(settings::clsRB::kUpdate);
    Choose(window, QStringLiteral("Plan"), QStringLiteral("&Load..."));
    EXPECT_EQ(Texts(window), (QStringList{"Goal", "Step"}));
}

TEST_F(TemplateItems, AddPutsItIntoTheMiddleOfWhatIsSeen) {
    frmMain &window = FilledWindow();
    AddNode(window, 300, 300, QStringLiteral("mine"));
    Choose(window, QStringLiteral("Plan"), QStringLiteral("&Add to this Slice"));
    EXPECT_EQ(Texts(window), (QStringList{"mine", "Goal", "Step"}));
    EXPECT_EQ(window.CurrentSurface().SelectedNodes().size(), 2u);
}

TEST_F(TemplateItems, TheFolderIsOpenedByThePlatform) {
    frmMain &window = FilledWindow();
    desktop.ExpectLaunch(RB(window).BarKey(0));
    Choose(window, {}, QStringLiteral("Open &folder"));
}

TEST_F(TemplateItems, RefreshReadsAgainAndLeavesOpenWhatIsOpen) {
    MakeTemplate(Beside(QStringLiteral("People/Roles.TEM")), {"b"});
    frmMain &window = FilledWindow();
    OpenBar(window, 1);
    MakeTemplate(Beside(QStringLiteral("People/Tasks.TEM")), {"b"});
    Choose(window, {}, QStringLiteral("Refres&h"));
    WaitForFill(window);
    EXPECT_EQ(RB(window).CurrentBar(), 1);
    EXPECT_EQ(Items(window, 1), (QStringList{"Roles", "Tasks"}));
}

TEST_F(TemplateItems, TheMenuMakesIconsLarger) {
    frmMain &window = FilledWindow();
    Choose(window, {}, QStringLiteral("La&rger icons"));
    EXPECT_EQ(RB(window).IconSide(), 64);
    Choose(window, {}, QStringLiteral("&Smaller icons"));
    EXPECT_EQ(RB(window).IconSide(), 48);
}

TEST_F(TemplateItems, RenamingChangesTheFileAndBothWindows) {
    frmMain &first = FilledWindow();
    frmMain &second = FilledWindow();
    desktop.ExpectInput(QStringLiteral("Name of the template."), QStringLiteral("Our: plan"));
    PressOn(second, QStringLiteral("Plan"), Qt::Key_F2);
    const QString caption = QStringLiteral("Our: plan");
    EXPECT_TRUE(QFile::exists(Beside(caption + QStringLiteral(".TEM"))));
    EXPECT_FALSE(QFile::exists(Beside(QStringLiteral("Plan.TEM"))));
    for (frmMain *window : {&first, &second}) {
        EXPECT_EQ(Items(*window, 0), (QStringList{caption, "letter"}));
        Answer(settings::clsRB::kUpdate);
        ClickOn(*window, caption);
        EXPECT_EQ(Texts(*window), (QStringList{"Goal", "Step"}));
    }
}

TEST_F(TemplateItems, TheEndingStaysWhetherThereIsOneOrNot) {
    MakeFile(Beside(QStringLiteral("plain")), "text");
    frmMain &window = FilledWindow();
    desktop.ExpectInput(QStringLiteral("Name of the template."), QStringLiteral("simple"));
    PressOn(window, QStringLiteral("plain"), Qt::Key_F2);
    EXPECT_TRUE(QFile::exists(Beside(QStringLiteral("simple"))));
    desktop.ExpectInput(QStringLiteral("Name of the template."), QStringLiteral("Road.tem"));
    PressOn(window, QStringLiteral("Plan"), Qt::Key_F2);
    EXPECT_TRUE(QFile::exists(Beside(QStringLiteral("Road.TEM"))));
    EXPECT_EQ(Items(window, 0), (QStringList{"Road", "letter", "simple"}));
}

TEST_F(TemplateItems, ANameThatIsTakenOrGivenUpChangesNothing) {
    MakeTemplate(Beside(QStringLiteral("Other.TEM")), {"b"});
    frmMain &window = FilledWindow();
    desktop.ExpectInput(QStringLiteral("Name of the template."), QStringLiteral("Other"));
    desktop.ExpectMessageContaining(QStringLiteral("File already exists: Other.TEM"));
    PressOn(window, QStringLiteral("Plan"), Qt::Key_F2);
    desktop.ExpectInput(QStringLiteral("Name of the template."), QString());
    PressOn(window, QStringLiteral("Plan"), Qt::Key_F2);
    EXPECT_EQ(Items(window, 0), (QStringList{"Other", "Plan", "letter"}));
}

TEST_F(TemplateItems, DeletingAsksFirst) {
    frmMain &window = FilledWindow();
    const QString question = QStringLiteral("Delete 'Plan'?\r\n\r\nThe file can't be brought back.");
    desktop.ExpectMessage(question, support::Answer::No);
    PressOn(window, QStringLiteral("Plan"), Qt::Key_Delete);
    EXPECT_TRUE(QFile::exists(Beside(QStringLiteral("Plan.TEM"))));
    EXPECT_EQ(desktop.Messages().back().enter, support::EnterPresses::No);
    desktop.ExpectMessage(question, support::Answer::Yes);
    PressOn(window, QStringLiteral("Plan"), Qt::Key_Delete);
    EXPECT_FALSE(QFile::exists(Beside(QStringLiteral("Plan.TEM"))));
    EXPECT_EQ(Items(window, 0), QStringList{"letter"});
    EXPECT_EQ(RB(window).BarNote(0), QStringLiteral("1"));
}

TEST_F(TemplateItems, InAFolderWithoutRightsNothingIsRenamedOrDeleted) {
    const QString folder = ProgramFile(QStringLiteral("Templates"));
    ASSERT_TRUE(QFile::setPermissions(folder, QFile::ReadOwner | QFile::ExeOwner));
    frmMain &window = FilledWindow();
    const QStringList entries = Entries(window, QStringLiteral("Plan"));
    EXPECT_TRUE(entries.contains(QStringLiteral("-&Rename...")));
    EXPECT_TRUE(entries.contains(QStringLiteral("-&Delete...")));
    PressOn(window, QStringLiteral("Plan"), Qt::Key_F2);
    PressOn(window, QStringLiteral("Plan"), Qt::Key_Delete);
    EXPECT_EQ(Items(window, 0), (QStringList{"Plan", "letter"}));
    QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

TEST_F(TemplateItems, RestingOnATemplateShowsWhatItHolds) {
    frmMain &window = FilledWindow();
    Rest(window, QStringLiteral("Plan"));
    TemplateTip &tip = window.Templates().Tip();
    EXPECT_TRUE(tip.isVisible());
    EXPECT_EQ(tip.Caption(), QStringLiteral("Plan"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return tip.HasPicture(); }));
    EXPECT_GT(tip.height(), RB(window).IconSide());
    QTest::keyClick(&RB(window), Qt::Key_Down);
    EXPECT_FALSE(tip.isVisible());
}

TEST_F(TemplateItems, ForAnotherFileItsNameIsShownAlone) {
    frmMain &window = FilledWindow();
    Rest(window, QStringLiteral("letter"));
    ProcessEvents();
    EXPECT_EQ(window.Templates().Tip().Caption(), QStringLiteral("letter.odt"));
    EXPECT_FALSE(window.Templates().Tip().HasPicture());
}

TEST_F(TemplateItems, APreviewIsOfTheFileAsItIs) {
    TemplatePreviews previews;
    const QString file = Beside(QStringLiteral("Plan.TEM"));
    EXPECT_TRUE(previews.Ready(file).isNull());
    previews.Prepare(file);
    EXPECT_TRUE(previews.Ready(file).isNull()) << "painted later, when nothing else is to be done";
    ASSERT_TRUE(QTest::qWaitFor([&] { return !previews.Ready(file).isNull(); }));
    const QImage before = previews.Ready(file);
    MakeTemplate(file, {"One", "Two", "Three", "Four"});
    EXPECT_TRUE(previews.Ready(file).isNull());
    previews.Prepare(file);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !previews.Ready(file).isNull(); }));
    EXPECT_NE(previews.Ready(file), before);
}

TEST_F(TemplateItems, ThereIsNoPreviewOfWhatCanNotBeRead) {
    EXPECT_TRUE(PreviewOf(Beside(QStringLiteral("letter.odt")), 100).isNull());
    EXPECT_TRUE(PreviewOf(Beside(QStringLiteral("gone.TEM")), 100).isNull());
    MakeFlat(Beside(QStringLiteral("Empty.TEM")), {});
    EXPECT_TRUE(PreviewOf(Beside(QStringLiteral("Empty.TEM")), 100).isNull());
    EXPECT_EQ(PreviewOf(Beside(QStringLiteral("Plan.TEM")), 100).width(), 100);
}

} // namespace mainwindow::testing
