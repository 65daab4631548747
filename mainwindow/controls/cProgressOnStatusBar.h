// A progress bar inside the panel "PROGRESS" of a status bar.
#pragma once

#include <QElapsedTimer>
#include <QProgressBar>

namespace mainwindow {

class cStatusBar;

// Shows nothing at 0: an empty groove says nothing to the user.
class cProgressBar : public QProgressBar {
    Q_OBJECT
public:
    explicit cProgressBar(QWidget *parent = nullptr);

    // Both ends are shown at once; a step between them may be left out when another has just been shown.
    void Show(int percent);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QElapsedTimer shown_;
};

class cProgressOnStatusBar {
public:
    // Takes the bar's border away, makes the status bar its parent, and puts it into the panel: 40 twips from
    // its left and top edge, 70 twips narrower than the panel and lower than the status bar. Keeps it hidden
    // when it was.
    void SetProgressBar(cProgressBar &bar, cStatusBar &statusBar) const;
};

} // namespace mainwindow
