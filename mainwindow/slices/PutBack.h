// The offer to give links the look and text that they had: a change of theirs is no step of undo.
#pragma once

#include "dialogs/LinkEdit.h"
#include "document/UnsavedWork.h"

#include <QObject>

namespace mainwindow {

class cStatusBar;
class frmMain;

// Stands as a button in the status bar until the map changes, or another slice or window is looked at.
class PutBack : public QObject {
    Q_OBJECT
public:
    // Belongs to the bar.
    PutBack(frmMain &window, cStatusBar &bar);

    // Says that the links were changed, and offers to put them back. Nothing when they are as they were.
    void Offer(dialogs::FormerLinks former);
    bool IsOffered() const { return !former_.IsEmpty(); }
    // True when an undo is to do nothing. As the change of the links is no step of undo, an undo right after
    // it would take back something older: the first one says so instead. Where there is nothing older, each
    // one does.
    bool StopsUndo();
    // Takes the offer away if the map has changed since, or another slice is current.
    void DropIfPast();

private:
    bool IsPast() const;
    void Apply();
    void Drop();
    void Tell(const QString &text);

    frmMain &window_;
    cStatusBar &bar_;
    dialogs::FormerLinks former_;
    document::MapState state_; // of the map at the time of the offer
    bool toldOfUndo_ = false;
};

} // namespace mainwindow
