#include "mainwindow/start/WindowJournal.h"

#include "diagram/view/SurfaceView.h"
#include "mainwindow/frmMain.h"

namespace mainwindow {

namespace {

QString &Folder() {
    static QString folder;
    return folder;
}

} // namespace

void WindowJournal::SetFolder(const QString &folder) { Folder() = folder; }

std::unique_ptr<WindowJournal> WindowJournal::For(frmMain &window) {
    return Folder().isEmpty() ? nullptr : std::make_unique<WindowJournal>(window, Folder());
}

WindowJournal::WindowJournal(frmMain &window, const QString &folder)
    : window_(window), journal_(*this, folder) {}

void WindowJournal::Unwatch(diagram::Surface &surface) { journal_.Unwatch(surface); }

void WindowJournal::Close() {
    closed_ = true;
    journal_.Drop();
}

document::MapWindow &WindowJournal::Window() { return window_; }
QString WindowJournal::Caption() { return window_.windowTitle(); }
bool WindowJournal::HasUnsavedWork() { return !closed_ && window_.HasUnsavedWork(); }
bool WindowJournal::IsBusy() { return closed_ || window_.LetsEventsRun(); }

std::optional<recovery::TypedText> WindowJournal::Typed() {
    const int index = window_.CurrentIndex();
    if (closed_ || index < 0) return std::nullopt;
    const auto typed = window_.CurrentView().Typed();
    if (!typed) return std::nullopt;
    return recovery::TypedText{index, typed->first, typed->second};
}

void WindowJournal::JournalFailed(const QString &why) {
    window_.DoStatus(
        frmMain::tr("What isn't saved would be lost if the program ended unexpectedly: %1").arg(why));
}

} // namespace mainwindow
