#include "benchmarks/BenchWindow.h"

#include "benchmarks/Canvas.h"
#include "benchmarks/Scratch.h"
#include "document/MapSchema.h"
#include "document/TemplateFile.h"
#include "document/UnsavedWork.h"
#include "support/Files.h"
#include "support/OtherDoor.h"

#include <QApplication>
#include <QFile>

namespace bench {

namespace {

constexpr QSize kRoom(1280, 800);

// Answers every question by yes, or by a text.
class Yes : public support::MessageBoxes {
public:
    support::Answer Show(const QString &, support::Buttons buttons, support::Icon, const QString &,
                         support::EnterPresses) override {
        const bool asks = buttons == support::Buttons::YesNo || buttons == support::Buttons::YesNoCancel;
        return asks ? support::Answer::Yes : support::Answer::Ok;
    }
    QString InputBox(const QString &, const QString &, const QString &) override {
        return QStringLiteral("Another");
    }
};

// Cancels every dialog.
class NoForms : public support::DialogHost {
public:
    bool ShowModal(const support::FormRequest &, support::Owner) override { return false; }
};

void GiveRoom(mainwindow::frmMain &form) {
    diagram::SurfaceView &view = form.CurrentView();
    form.showNormal(); // a new window is maximised, which on this screen is too small
    Settle(view);
    // More than one try, as the toolbars need fewer rows in a larger window.
    for (int tries = 0; view.viewport()->size() != kRoom; ++tries) {
        if (tries == 5) qFatal("The surface of the figures doesn't get its size");
        form.resize(form.size() + kRoom - view.viewport()->size());
        Settle(view);
    }
    view.setFocus();
    Settle(view);
}

void CloseUnsaved(mainwindow::frmMain &form) {
    form.clsSettings().Dirty = false;
    document::MarkSaved(form);
    if (!form.close()) qFatal("A window of the figures doesn't close");
}

} // namespace

class BenchDesktop {
public:
    BenchDesktop() { support::SetDesktop(&desktop_); }
    ~BenchDesktop() { support::SetDesktop(&outer_); }
    BenchDesktop(const BenchDesktop &) = delete;
    BenchDesktop &operator=(const BenchDesktop &) = delete;

    support::Desktop &Get() { return desktop_; }

private:
    support::Desktop &outer_ = support::CurrentDesktop();
    Yes yes_;
    NoForms forms_;
    support::Desktop desktop_ = support::WithDoor(support::WithDoor(outer_, yes_), forms_);
};

BenchWindow::BenchWindow()
    : desktop_(std::make_unique<BenchDesktop>()), programPath_(support::ProgramPath()) {
    support::SetProgramPath(ScratchFolder()); // where a new window finds its empty map
    if (!QFile::exists(document::TemplatePath())) document::WriteTemplate(document::TemplatePath(), {}, {});
    form_ = new mainwindow::frmMain(desktop_->Get());
    form_->ShowWindow();
    QApplication::setActiveWindow(form_);
    GiveRoom(*form_);
}

BenchWindow::~BenchWindow() {
    for (mainwindow::frmMain *form : mainwindow::frmMain::Forms()) CloseUnsaved(*form);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    support::SetProgramPath(programPath_);
}

} // namespace bench
