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

    // Says something until DropHint takes it away: when the user goes on. What another routine has written
    // over it stays.
    void TellInPassing(const QString &text);
    void DropHint();
    // What a view says of a gesture; an empty text takes away what a view said before, and nothing else. A
    // hint that `yields` may be replaced by OfferHintOfView.
    void TellHintOfView(const QString &text, bool yields = false);
    // Shows a hint that yields, but only over another one that does or where nothing stands.
    void OfferHintOfView(const QString &text);
    // Says that the program hasn't got `what` yet.
    void TellNotYet(const QString &what);

    // Shows selection, zoom, and whether all is saved.
    void Update();
    // Other nodes may be hidden than ShowHidden was told last. Counting them looks at every node, so it waits
    // for the next update of the window.
    void HiddenMayDiffer();
    bool MayHiddenDiffer() const { return hiddenMayDiffer_; }
    // Shows how many nodes the filter hides.
    void ShowHidden(int nodes);

Q_SIGNALS:
    // Something of the window is unsaved from now on, or all is saved again. Told once the event that made it
    // so has returned; document::MustAskBeforeLosing tells at any time.
    void UnsavedWorkChanged(bool unsaved);

private:
    void ShowWhetherSaved();

    frmMain &window_;
    cStatusBar &bar_;
    QString hint_;
    QString hintOfView_;
    bool yields_ = false; // hintOfView_
    bool hiddenMayDiffer_ = true;
    bool unsaved_ = false; // as last shown
};

} // namespace mainwindow
