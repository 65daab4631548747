// Every command of the menu runs.
#include "dialogs/PropertyForms.h"
#include "mainwindow/forms/frmAbout.h"
#include "mainwindow/forms/frmLayers.h"
#include "mainwindow/forms/frmLayout.h"
#include "mainwindow/menus/Commands.h"
#include "output/print/PrintForms.h"
#include "settings/clsRB.h"
#include "support/Files.h"
#include "templates/SaveAsTemplate.h"
#include "tests/mainwindow/WindowTest.h"
#include "timeline/AddTimelineLink.h"
#include "timeline/setup/frmDate.h"

#include <QDir>

namespace mainwindow::testing {

namespace {

// What a command asks for; each question is cancelled.
struct Asks {
    const char *key;
    void (*expect)(support::testing::ScriptedDesktop &desktop);
};
using Script = support::testing::ScriptedDesktop;
void AskOpen(Script &desktop) { desktop.ExpectOpenFile(QString()); }
void AskSave(Script &desktop) { desktop.ExpectSaveFile(QString()); }
void AskName(Script &desktop) { desktop.ExpectInput(QStringLiteral("Name for Slice."), QString()); }
template <typename Argument>
void AskForm(Script &desktop) {
    desktop.ExpectForm<Argument>();
}
const Asks kAsks[] = {
    {"mnuFileOpen", AskOpen},
    {"mnuFileSave", AskSave},
    {"mnuFileSaveAs", AskSave},
    {"mnuFileImport", AskOpen},
    {"mnuFileExport", AskSave},
    {"mnuFileExportPicture", AskSave},
    {"mnuFilePageSetup", AskForm<print::PageSetupArgument>},
    {"mnuFilePrint", [](Script &desktop) { desktop.ExpectPrinter(false); }},
    {"mnuFilePrintPreview", AskForm<print::PrintPreviewArgument>},
    {"mnuEditSlicesInsert", AskName},
    {"mnuEditSlicesRename", AskName},
    {"mnuEditSlicesDelete",
     [](Script &desktop) { desktop.ExpectMessageContaining(QStringLiteral("Cannot")); }},
    {"mnuEditSlicesSlices", AskForm<frmLayers>},
    {"mnuEditProperties", [](Script &desktop) { desktop.ExpectMessageContaining(QStringLiteral("Please")); }},
    {"keyDate", AskForm<timeline::DateFormArgument>},
    {"mnuViewBackgroundColor", [](Script &desktop) { desktop.ExpectColour(support::kNoColour); }},
    {"mnuViewBackgroundPicture", AskOpen},
    {"mnuViewDefaultNode", AskForm<timeline::TimelineSetupArgument>},
    {"mnuViewTimelineSetup", AskForm<timeline::TimelineSetupArgument>},
    {"mnuFileSaveAsTemplate", AskForm<templates::SaveAsTemplateArgument>},
    {"mnuViewRBPrompt", AskForm<settings::clsRB>},
    {"mnuViewLevels", AskForm<dialogs::LevelsFormArgument>},
    {"mnuViewGroups", AskForm<dialogs::GroupsFormArgument>},
    {"mnuLayoutHOptions", AskForm<LayoutFormArgument>},
    {"mnuLayoutTreeOptions", AskForm<LayoutFormArgument>},
    {"mnuHelpHelp",
     [](Script &desktop) {
         desktop.ExpectLaunch(QDir(support::ProgramPath()).filePath(QStringLiteral("help.pdf")));
     }},
    {"mnuHelpWeb",
     [](Script &desktop) { desktop.ExpectAddress(QStringLiteral("https://www.velmora.example/")); }},
    {"mnuHelpAbout", AskForm<AboutForm>},
};

using EveryCommand = WindowTest;

} // namespace

TEST_F(EveryCommand, IsThere) {
    desktop.printers.names = {QStringLiteral("Office")};
    frmMain &window = NewWindow();
    QStringList told;
    for (const CommandRow &row : mainwindow::Commands()) {
        const QString key = QLatin1String(row.key);
        if (!row.routine || key == QLatin1String("mnuFileExit")) continue;
        for (const Asks &asks : kAsks)
            if (key == QLatin1String(asks.key)) asks.expect(desktop);
        window.DoStatus(QString());
        window.SetMenuValue(key, true);
        window.SmartMenuXP1_Click(key);
        if (Status(window).contains(QStringLiteral("not there yet"))) told << key + u'|' + Status(window);
    }
    EXPECT_EQ(told, QStringList());
}

} // namespace mainwindow::testing
