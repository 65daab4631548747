// The window as its journal sees it.
#pragma once

#include "recovery/Journal.h"

namespace mainwindow {

class frmMain;

class WindowJournal : public recovery::JournalSource {
public:
    // From now on windows that are made keep a journal of their work in a folder below that one; an empty
    // text ends it.
    static void SetFolder(const QString &folder);
    // Null while no folder is set.
    static std::unique_ptr<WindowJournal> For(frmMain &window);

    WindowJournal(frmMain &window, const QString &folder);

    void Watch(diagram::Surface &surface) { journal_.Watch(surface); }
    void Unwatch(diagram::Surface &surface);
    // The file holds all now; a journal of later edits begins anew.
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
