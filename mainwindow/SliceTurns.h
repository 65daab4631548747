// Going through the slices in the order in which they were used last, as long as Ctrl is held.
#pragma once

#include <QObject>
#include <QTimer>
#include <vector>

class QListWidget;

namespace mainwindow {

class frmMain;

class SliceTurns : public QObject {
    Q_OBJECT
public:
    // The list of names is a child of `place`.
    SliceTurns(frmMain &window, QWidget *place);
    ~SliceTurns() override;

    // A tab was selected, by whatever way.
    void Selected(int tab);
    // Another map has come: none was used but the one on top.
    void Forget();
    // Goes on by one slice, 1 to the one used before, -1 to the one used longest ago; at once the first time,
    // further with each call while Ctrl is held. Then the slice that is shown becomes the one used last.
    void Turn(int step);
    // The tabs, from the one used last to the one used longest ago; those that were never used stand behind,
    // in their own order.
    std::vector<int> Order() const;
    // The list of names; null while none is shown.
    QListWidget *List() const { return list_; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void Begin();
    void End();
    void GiveUp();
    void ShowList();
    void Choose(int row);

    frmMain &window_;
    QWidget *place_;
    std::vector<int> used_; // last first; tabs may be gone by now
    std::vector<int> turn_; // the order that is gone through; empty while Ctrl isn't held
    int at_ = 0;            // in it
    QTimer soon_;           // until the list is shown
    QListWidget *list_ = nullptr;
};

} // namespace mainwindow
