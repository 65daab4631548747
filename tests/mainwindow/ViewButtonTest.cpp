// Named views, from the button beside the lists of what is shown.
#include "mainwindow/find/ViewButton.h"
#include "document/DoSave.h"
#include "document/Tags.h"
#include "mainwindow/controls/cStatusBar.h"
#include "mainwindow/controls/TickBox.h"
#include "tests/document/Slices.h"
#include "tests/mainwindow/WindowTest.h"

#include <QAction>
#include <QFile>
#include <QMenu>
#include <QTest>

namespace mainwindow::testing {

namespace {

const QString kPlan = QStringLiteral("Plan & more"), kAll = QStringLiteral("All");
const QString kName = QStringLiteral("Name of the view.");

// The map's groups are "Sales" and, ticked, "Finance"; its levels "1" and, ticked, "2".
struct ViewButtons : WindowTest {
    frmMain &window = NewWindow();

    document::clsfrmMain &Settings() { return window.clsSettings(); }
    static ViewButton &Button(frmMain &of) { return *of.findChild<ViewButton *>(QStringLiteral("VIEWS")); }
    // The menu with the entries that it has when it opens.
    QMenu &Menu(frmMain &of) {
        Q_EMIT Button(of).menu()->aboutToShow();
        return *Button(of).menu();
    }
    QStringList Entries(frmMain &of, bool checkedAlone = false) {
        QStringList texts;
        for (const QAction *entry : Menu(of).actions())
            if (entry->isCheckable() && (entry->isChecked() || !checkedAlone)) texts << entry->text();
        return texts;
    }
    static QAction *EntryOf(const QMenu &menu, const QString &text) {
        for (QAction *entry : menu.actions())
            if (entry->text() == QString(text).replace(u'&', QLatin1String("&&"))) return entry;
        return nullptr;
    }
    void Choose(frmMain &of, const QString &view) {
        EntryOf(Menu(of), view)->trigger();
        ProcessEvents();
    }
    void ChooseIn(const char *submenu, const QString &view) {
        EntryOf(*Menu(window).findChild<QMenu *>(QLatin1String(submenu)), view)->trigger();
        ProcessEvents();
    }
    void Keep(const QString &name) {
        desktop.ExpectInput(kName, name);
        Menu(window);
        window.findChild<QAction *>(QStringLiteral("cmdKeepView"))->trigger();
        ProcessEvents();
    }
    void Tick(bool sales, bool finance) {
        Settings().Groups().Item(1).Selected = sales;
        Settings().Groups().Item(2).Selected = finance;
        window.LoadCombos();
        window.ssDBGroups_CloseUp();
    }
    diagram::Node &InGroup(diagram::Surface &surface, int group) {
        diagram::Node &node = surface.Nodes().Add(0, 0, 900, 600);
        document::SetTag(node, document::tags::kGroup, Settings().Groups().Item(group).Key);
        document::SetTag(node, document::tags::kLevel, Settings().Levels().Item(2).Key);
        return node;
    }
};

} // namespace

TEST_F(ViewButtons, WithoutViewsTheMenuOffersToKeepOneAndNothingElse) {
    EXPECT_EQ(Menu(window).actions().size(), 1);
    desktop.ExpectInput(kName, QString());
    Menu(window).actions().front()->trigger();
    EXPECT_TRUE(Settings().Views.empty());
    EXPECT_FALSE(window.HasUnsavedWork());
}

TEST_F(ViewButtons, OpensByKeyAndByMouse) {
    ViewButton &button = Button(window);
    EXPECT_TRUE(button.focusPolicy() & Qt::TabFocus);
    EXPECT_FALSE(button.accessibleName().isEmpty());
    EXPECT_FALSE(button.toolTip().isEmpty());
    bool opened = false;
    QObject::connect(button.menu(), &QMenu::aboutToShow, button.menu(), [&] {
        opened = true;
        QMetaObject::invokeMethod(button.menu(), &QMenu::close, Qt::QueuedConnection);
    });
    button.setFocus();
    QTest::keyClick(&button, Qt::Key_Space);
    ProcessEvents();
    EXPECT_TRUE(std::exchange(opened, false));
    QTest::mouseClick(&button, Qt::LeftButton);
    ProcessEvents();
    EXPECT_TRUE(opened);
}

TEST_F(ViewButtons, KeepTheTicksAndShowThemAgainOnEverySlice) {
    document::testing::AddSlice(window);
    diagram::Node &sales = InGroup(window.AddFlow1()[0], 1), &finance = InGroup(window.AddFlow1()[1], 2);
    Settings().Dirty = false;
    Keep(kPlan);
    EXPECT_TRUE(Settings().Dirty);
    Tick(true, false);
    Keep(kAll);
    EXPECT_EQ(Entries(window), (QStringList{QStringLiteral("Plan && more"), kAll}));
    EXPECT_EQ(Entries(window, true), QStringList{kAll}) << "the one whose ticks hold";
    Settings().Dirty = false;
    Choose(window, kPlan);
    EXPECT_TRUE(sales.Hidden());
    EXPECT_FALSE(finance.Hidden());
    EXPECT_EQ(window.ssDBGroups().Text(), QStringLiteral("Finance"));
    EXPECT_EQ(Entries(window, true), QStringList{QStringLiteral("Plan && more")});
    EXPECT_FALSE(Settings().Dirty) << "as with any filter";
    EXPECT_FALSE(window.CurrentSurface().CanUndo());
    Choose(window, kAll);
    EXPECT_FALSE(sales.Hidden());
    EXPECT_TRUE(finance.Hidden());
    Tick(false, false);
    EXPECT_EQ(Entries(window, true), QStringList());
}

TEST_F(ViewButtons, AskBeforeAViewIsReplaced) {
    Keep(kPlan);
    Tick(true, true);
    desktop.ExpectMessage(QStringLiteral("There is a view plan & MORE already. Do you want to replace it?"),
                          support::Answer::No);
    Keep(QStringLiteral(" plan & MORE"));
    EXPECT_EQ(document::GroupNames(Settings(), Settings().Views[0]), QStringList{QStringLiteral("Finance")});
    desktop.ExpectMessageContaining(QStringLiteral("replace"), support::Answer::Yes);
    Keep(kPlan);
    EXPECT_EQ(Settings().Views.size(), 1u);
    EXPECT_EQ(document::GroupNames(Settings(), Settings().Views[0]).size(), 2);
}

TEST_F(ViewButtons, RenameAndDelete) {
    Keep(kPlan);
    Keep(kAll);
    desktop.ExpectInput(kName, QStringLiteral("all"));
    ChooseIn("mnuRenameView", kPlan);
    EXPECT_EQ(Status(window), QStringLiteral("There is a view all already."));
    desktop.ExpectInput(kName, QString());
    ChooseIn("mnuRenameView", kPlan);
    desktop.ExpectInput(kName, QStringLiteral("Money"));
    ChooseIn("mnuRenameView", kPlan);
    EXPECT_EQ(Entries(window), (QStringList{QStringLiteral("Money"), kAll}));
    desktop.ExpectMessage(QStringLiteral("Do you want to delete the view Money?"), support::Answer::No);
    ChooseIn("mnuDeleteView", QStringLiteral("Money"));
    EXPECT_EQ(Entries(window).size(), 2);
    for (const QString &view : {QStringLiteral("Money"), kAll}) {
        desktop.ExpectMessageContaining(view, support::Answer::Yes);
        ChooseIn("mnuDeleteView", view);
    }
    EXPECT_EQ(Menu(window).actions().size(), 1);
}

TEST_F(ViewButtons, AViewWhoseLevelIsGoneShowsTheRestAndSaysSo) {
    diagram::Node &finance = InGroup(window.CurrentSurface(), 2);
    Tick(true, true);
    Keep(kPlan);
    Settings().Groups().Remove(1);
    Settings().Groups().Item(1).Selected = false;
    window.LoadCombos();
    window.ssDBGroups_CloseUp();
    ASSERT_TRUE(finance.Hidden());
    Choose(window, kPlan);
    EXPECT_FALSE(finance.Hidden());
    EXPECT_EQ(Status(window),
              QStringLiteral("The view Plan & more also ticks what this Map no longer has: Sales"));
}

TEST_F(ViewButtons, AreSavedWithTheMapUnderItsOldNameAndANewOne) {
    const QString path = SavedMap(QStringLiteral("plan.map"), 1);
    window.Load(path);
    ASSERT_TRUE(Settings().Views.empty()) << "a map of an earlier version";
    Keep(kPlan);
    ASSERT_TRUE(window.HasUnsavedWork());
    window.SmartMenuXP1_Click(QStringLiteral("mnuFileSave"));
    EXPECT_FALSE(window.HasUnsavedWork());
    const QString copy = MapFile(QStringLiteral("copy.map"));
    desktop.ExpectSaveFile(copy);
    window.SmartMenuXP1_Click(QStringLiteral("mnuFileSaveAs"));
    for (const QString &file : {path, copy}) {
        frmMain &other = NewWindow();
        EXPECT_TRUE(other.clsSettings().Views.empty()) << "each window has its own map's views";
        other.Load(file);
        EXPECT_EQ(Entries(other), QStringList{QStringLiteral("Plan && more")});
        Choose(other, kPlan);
        EXPECT_FALSE(other.HasUnsavedWork());
    }
}

TEST_F(ViewButtons, OfAFileThatMayOnlyBeReadAreChosenLikeAnyOther) {
    const QString path = SavedMap(QStringLiteral("plan.map"), 1);
    window.Load(path);
    Keep(kPlan);
    window.SmartMenuXP1_Click(QStringLiteral("mnuFileSave"));
    QFile::setPermissions(path, QFile::ReadOwner);
    frmMain &other = NewWindow();
    other.Load(path);
    Choose(other, kPlan);
    EXPECT_EQ(Entries(other, true), QStringList{QStringLiteral("Plan && more")});
    EXPECT_FALSE(other.HasUnsavedWork());
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
}

// Level with the text, at its end.
TEST_F(ViewButtons, TheChevronStandsBesideTheText) {
    for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        ViewButton &button = Button(window);
        button.setLayoutDirection(direction);
        button.resize(button.sizeHint());
        const QRect place = button.Chevron();
        EXPECT_TRUE(button.rect().contains(place));
        EXPECT_LE(qAbs(place.center().y() - button.rect().center().y()), 1);
        EXPECT_EQ(place.center().x() > button.rect().center().x(), direction == Qt::LeftToRight);
        const QImage picture = button.grab().toImage().convertToFormat(QImage::Format_Grayscale8);
        int darkest = 255;
        for (int y = place.top(); y <= place.bottom(); ++y)
            for (int x = place.left(); x <= place.right(); ++x)
                darkest = qMin(darkest, qGray(picture.pixel(x, y)));
        EXPECT_LT(darkest, 128) << "it is drawn there";
    }
}

} // namespace mainwindow::testing
