// The editor.
#include "app/Application.h"
#include "app/ConsoleOptions.h"
#include "app/DeveloperOptions.h"
#include "app/frmPrompt.h"
#include "app/Start.h"
#include "dialogs/frmAttachment.h"
#include "dialogs/frmGroups.h"
#include "dialogs/frmLevels.h"
#include "dialogs/frmLinkDialog.h"
#include "dialogs/frmNodeDialog.h"
#include "mainwindow/forms/frmAbout.h"
#include "mainwindow/forms/frmLayers.h"
#include "mainwindow/forms/frmLayout.h"
#include "mainwindow/forms/frmPicture.h"
#include "mainwindow/frmMain.h"
#include "mainwindow/icons/Icons.h"
#include "output/export/form/frmExport.h"
#include "output/powerpoint/form/frmPowerPoint.h"
#include "output/print/form/frmPageSetup.h"
#include "output/print/form/frmPrint.h"
#include "support/ExceptionFilter.h"
#include "support/real/RealDesktop.h"
#include "templates/forms/frmRB.h"
#include "templates/forms/frmSaveAsTemplate.h"
#include "timeline/CalendarOfStrip.h"
#include "timeline/setup/frmDate.h"
#include "timeline/setup/frmTimelineSetup.h"

#include <cstdio>

namespace {

constexpr int kExitFailure = 1;

// Without a display the toolkit would end the process with a message of its own that helps nobody.
bool HasDisplay([[maybe_unused]] int argc, [[maybe_unused]] char **argv) {
#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        if (!qEnvironmentVariableIsEmpty(name)) return true;
    for (int i = 1; i < argc; ++i)
        if (qstrcmp(argv[i], "-platform") == 0 || qstrcmp(argv[i], "--platform") == 0) return true;
    return false;
#else
    return true;
#endif
}

QStringList AsTyped(int argc, char **argv) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i) arguments << QString::fromLocal8Bit(argv[i]);
    return arguments;
}

// A row for a form that is made of its argument and its owner, and shown.
template <typename Form, typename Argument>
void AddForm(support::FormTable &forms) {
    forms.Add<Argument>([](Argument &argument, support::Owner owner) {
        return Form(argument, app::FormOwner(owner)).exec() == QDialog::Accepted;
    });
}

void AddForms(support::RealDesktop &desktop) {
    support::FormTable &forms = desktop.Forms();
    AddForm<app::frmPrompt, app::StartupOffer>(forms);
    AddForm<timeline::frmDate, timeline::DateFormArgument>(forms);
    AddForm<dialogs::frmAttachment, dialogs::cfrmAttachment>(forms);
    AddForm<dialogs::frmLevels, dialogs::LevelsFormArgument>(forms);
    AddForm<dialogs::frmGroups, dialogs::GroupsFormArgument>(forms);
    AddForm<dialogs::frmLinkDialog, dialogs::LinkDialogArgument>(forms);
    AddForm<dialogs::frmNodeDialog, dialogs::NodeDialogArgument>(forms);
    AddForm<templates::frmRB, settings::clsRB>(forms);
    AddForm<templates::frmSaveAsTemplate, templates::SaveAsTemplateArgument>(forms);
    AddForm<powerpoint::frmPowerPoint, powerpoint::PowerPointArgument>(forms);
    AddForm<mainwindow::frmLayout, mainwindow::LayoutFormArgument>(forms);
    AddForm<mainwindow::frmPicture, mainwindow::PictureFormArgument>(forms);
    AddForm<output::frmExport, output::clsExport>(forms);
    AddForm<print::frmPageSetup, print::PageSetupArgument>(forms);
    forms.Add<print::PrintPreviewArgument>([](print::PrintPreviewArgument &argument, support::Owner) {
        auto *form = new print::frmPrint(argument); // deletes itself when it is closed
        form->setWindowIcon(mainwindow::ProgramIcon());
        form->show();
        return true;
    });
    forms.Add<mainwindow::AboutForm>([&desktop](mainwindow::AboutForm &, support::Owner owner) {
        return mainwindow::frmAbout(desktop.Get(), owner).exec() == QDialog::Accepted;
    });
    forms.Add<mainwindow::frmLayers>(
        [](mainwindow::frmLayers &form, support::Owner) { return form.exec() == QDialog::Accepted; });
    forms.Add<timeline::TimelineSetupArgument>(
        [](timeline::TimelineSetupArgument &setup, support::Owner owner) {
            timeline::frmTimelineSetup form(setup, app::FormOwner(owner));
            if (setup.pressOk) {
                form.OKButton_Click();
                return true;
            }
            return form.exec() == QDialog::Accepted;
        });
}

int Run(const QString &commandLine) {
    support::RealDesktop desktop;
    AddForms(desktop);
    diagram::SetCalendarSource(timeline::CalendarOfStrip, timeline::IsBar);
    const app::DeveloperOptions developer = app::ReadDeveloperOptions();
    app::StartOptions options;
    options.commandLine = commandLine;
    options.showSplash = !developer.noSplash;
    options.offerStartup = !developer.EndsAfterPaint();
    options.keepJournals = !developer.EndsAfterPaint();
    options.keepPreviews = true;
    mainwindow::frmMain *first = app::Main(desktop.Get(), options);
    if (!first) return kExitFailure;
    app::WatchFirstPaint(*first, developer);
    return QCoreApplication::exec();
}

// The box of a process that is about to end, shown by a fresh one.
int ShowFault(const QString &text) {
    support::RealDesktop desktop;
    desktop.Get().messageBoxes.Show(text, support::Buttons::Ok, support::Icon::Stop, QString());
    return 0;
}

} // namespace

int main(int argc, char **argv) {
    if (const auto answer = app::AnswerToOption(AsTyped(argc, argv))) return app::Tell(*answer);
    if (!HasDisplay(argc, argv)) {
        std::fprintf(stderr,
                     "velmora: there is no display. Set DISPLAY or WAYLAND_DISPLAY; for work without one use "
                     "velmora-cli.\n");
        return kExitFailure;
    }
    // Desktops find the icon of the program's windows by this name.
    QGuiApplication::setDesktopFileName(QStringLiteral("velmora"));
    app::Application application(argc, argv);
    if (const auto fault = support::FaultToShow(QCoreApplication::arguments())) return ShowFault(*fault);
    if (const auto complaint = app::ComplaintAboutOption(QCoreApplication::arguments()))
        return app::Tell(*complaint);
    support::InstallExceptionFilter(support::OwnFaultBox());
    return Run(app::CommandLine(QCoreApplication::arguments()));
}
