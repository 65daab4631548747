// The keys of the commands, pressed on the surface.
#include "mainwindow/menus/Commands.h"
#include "mainwindow/menus/SmartMenu.h"
#include "tests/mainwindow/WindowTest.h"

#include <gmock/gmock.h>
#include <QSignalSpy>

namespace mainwindow::testing {

namespace {

using KeyAndCommand = std::pair<const char *, const char *>;

constexpr KeyAndCommand kKeys[] = {
    {"Ctrl+N", "mnuFileNew"},
    {"Ctrl+O", "mnuFileOpen"},
    {"Ctrl+S", "mnuFileSave"},
    {"Ctrl+Shift+S", "mnuFileSaveAs"},
    {"Ctrl+P", "mnuFilePrint"},
    {"Ctrl+Q", "mnuFileExit"},
    {"Ctrl+W", "mnuFileExit"},
    {"Ctrl+Z", "mnuEditUndo"},
    {"Ctrl+Y", "mnuEditRedo"},
    {"Ctrl+Shift+Z", "mnuEditRedo"},
    {"Ctrl+X", "mnuEditCut"},
    {"Ctrl+C", "mnuEditCopy"},
    {"Ctrl+V", "mnuEditPaste"},
    {"Ctrl+A", "mnuEditSelectAll"},
    {"Ctrl+Shift+A", "mnuEditUnSelectAll"},
    {"F4", "mnuEditProperties"},
    {"Ctrl+G", "mnuViewGrid"},
    {"Ctrl+Shift+G", "mnuViewSnapGrid"},
    {"Ctrl+0", "mnuViewZoom100"},
    {"Ctrl+9", "mnuViewZoomFit"},
    {"F1", "mnuHelpHelp"},
    {"Ctrl++", "keyZoomIn"},
    {"Ctrl+=", "keyZoomIn"},
    {"Ctrl+-", "keyZoomOut"},
    {"Ctrl+Shift+F", "keyFont"},
    {"Ctrl+Alt+F", "keyFontSize"},
    {"Ctrl+T", "keyDate"},
    {"Ctrl+Shift+T", "mnuViewTimelineLineUp"},
    {"Ctrl+Alt+PgDown", "keyDayLater"},
    {"Ctrl+Alt+PgUp", "keyDayEarlier"},
    {"Ctrl+Alt+Shift+PgDown", "keyWeekLater"},
    {"Ctrl+Alt+Shift+PgUp", "keyWeekEarlier"},
    {"F6", "keyTemplates"},
    {"F7", "keyShapes"},
    {"Ctrl+Shift+P", "keySearch"},
    {"Ctrl+PgDown", "keyNextSlice"},
    {"Ctrl+PgUp", "keyPreviousSlice"},
    {"Ctrl+Tab", "keyLastSlice"},
    {"Ctrl+Shift+Tab", "keyFirstSlice"},
    {"Ctrl+D", "keyDuplicate"},
    {"Ctrl+F", "keyFind"},
    {"Ctrl+H", "keyReplace"},
    {"F3", "keyFindNext"},
    {"Shift+F3", "keyFindPrevious"},
    {"Ctrl+B", "mnuEditLookBold"},
    {"Ctrl+I", "mnuEditLookItalic"},
    {"Ctrl+U", "mnuEditLookUnderline"},
    {"Ctrl+Alt+C", "mnuEditLookCopy"},
    {"Ctrl+Alt+V", "mnuEditLookPaste"},
    {"F8", "keyLook"},
};

// A window in which every command may run, but none does: what the menu raises is noted.
class MenuKeys : public WindowTest {
protected:
    MenuKeys() {
        desktop.printers.names = {QStringLiteral("Office")};
        TakeWindow();
        AddNode(*window, 300, 300).SetSelected(true);
        for (const char *keys : {"Right", "Alt+Right"}) Press(*window, QLatin1String(keys)); // a step each
        window->CurrentSurface().Undo();
        window->SmartMenuXP1_Click(QStringLiteral("mnuEditLookCopy"));
    }
    void TakeWindow() {
        window = &NewWindow();
        menu = window->findChild<SmartMenu *>();
        QObject::disconnect(menu, &SmartMenu::Click, window, nullptr);
        clicks = std::make_unique<QSignalSpy>(menu, &SmartMenu::Click);
    }
    QStringList Raised(const char *keys) {
        clicks->clear();
        Press(*window, QLatin1String(keys));
        QStringList raised;
        for (const QList<QVariant> &click : *clicks) raised << click.front().toString();
        return raised;
    }
    frmMain *window = nullptr;
    SmartMenu *menu = nullptr;
    std::unique_ptr<QSignalSpy> clicks;
};

} // namespace

TEST_F(MenuKeys, EachStartsItsCommandOnceAndNoOther) {
    for (const auto &[keys, command] : kKeys)
        EXPECT_EQ(Raised(keys), QStringList(QLatin1String(command))) << keys;
}

TEST_F(MenuKeys, AreTheseAndNoOthers) {
    QStringList expected, found;
    for (const auto &[keys, command] : kKeys)
        expected << QStringLiteral("%1 %2").arg(QLatin1String(keys), QLatin1String(command));
    for (const CommandRow &row : mainwindow::Commands())
        for (const char *column : {row.accelerator, row.keys})
            for (const QString &keys : QString::fromLatin1(column).split(u' ', Qt::SkipEmptyParts))
                found << QStringLiteral("%1 %2").arg(keys, QLatin1String(row.key));
    EXPECT_THAT(found, ::testing::UnorderedElementsAreArray(expected));
}

TEST_F(MenuKeys, FlipTheTickOfACheckEntryBeforeItsCommandRuns) {
    for (const auto &[keys, command] :
         {KeyAndCommand{"Ctrl+G", "mnuViewGrid"}, {"Ctrl+Shift+G", "mnuViewSnapGrid"}}) {
        const bool before = window->MenuValue(QLatin1String(command));
        Raised(keys);
        EXPECT_NE(window->MenuValue(QLatin1String(command)), before) << keys;
    }
}

TEST_F(MenuKeys, OfADisabledEntryDoNothing) {
    TakeWindow();
    for (const char *keys : {"Ctrl+Z", "Ctrl+Y", "Ctrl+D", "Ctrl+X"})
        EXPECT_EQ(Raised(keys), QStringList()) << keys;
}

} // namespace mainwindow::testing
