// The window as its journal sees it.
#pragma once

#include "recovery/Journal.h"

namespace mainwindow {

class frmMain;

class WindowJournal : public recovery::JournalSource {
public:
    // Windows made from now on keep a journal of their work in a folder below this one; none with an empty
    // text.
    static void SetFolder(const QString &folder);
    // Null while no folder is set.
    static std::unique_ptr<WindowJournal> For(frmMain &window);

    WindowJournal(frmMain &window, const QString &folder);

    void Watch(diagram::Surface &surface) { journal_.Watch(surface); }
    void Unwatch(diagram::Surface &surface);
    // The map was saved: a journal of later edits begins anew.
    void Saved() { journal_.Drop(); }
    // The window closes: what it has is saved, or not wanted.
    void Close();
    recovery::Journal &Writer() { return journal_; }

    document::MapWindow &Window() override;
    QString Caption() override;
    bool HasUnsavedWork() override;
    std::optional<recovery::TypedText> Typed() override;
    bool IsBusy() override;
    void JournalFailed(const QString &why) override;

private:
    frmMain &window_;
    bool closed_ = false;
    recovery::Journal journal_;
};

} // namespace mainwindow
