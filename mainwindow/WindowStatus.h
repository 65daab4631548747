// What the status bar of a window says.
#pragma once

#include <QObject>
#include <QString>

namespace mainwindow {

class cStatusBar;
class frmMain;

class WindowStatus : public QObject {
    Q_OBJECT
public:
    WindowStatus(frmMain &window, cStatusBar &bar) : window_(window), bar_(bar) {}

    // Says something until the user goes on; DropHint takes it away unless something else stands there by
    // now.
    void TellInPassing(const QString &text);
    void DropHint();
    // What a view says of a gesture; an empty text takes away what a view said before, and nothing else. What
    // yields gives way to anything else that a view says.
    void TellHintOfView(const QString &text, bool yields = false);
    // Something that yields, unless there stands something that doesn't.
    void OfferHintOfView(const QString &text);
    // That the program has no such thing yet.
    void TellNotYet(const QString &what);

    // Selection, zoom, hidden nodes, and whether all is saved. Hidden nodes are counted only where they may
    // differ, as every node is looked at.
    void Update();
    void HiddenMayDiffer();

Q_SIGNALS:
    // Something of the window is unsaved from now on, or all is saved again. Told once the event that made it
    // so has returned; document::MustAskBeforeLosing tells at any time.
    void UnsavedWorkChanged(bool unsaved);

private:
    void ShowHiddenCount();
    void ShowWhetherSaved();

    frmMain &window_;
    cStatusBar &bar_;
    QString hint_;
    QString hintOfView_;
    bool yields_ = false; // what a view said last
    bool hiddenMayDiffer_ = true;
    bool unsaved_ = false; // as last shown
};

} // namespace mainwindow
