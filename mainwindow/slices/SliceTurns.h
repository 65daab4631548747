// Switches between slices in the order in which they were last used, as long as Ctrl is held.
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

    // To be told of each tab that is selected.
    void Selected(int tab);
    // Another map was loaded: only the current tab counts as used.
    void Forget();
    // Goes to the next slice of the order: 1 to the one used before, -1 to the one used longest ago. Further
    // calls go on from there until Ctrl is released; then the slice that is shown becomes the one used last.
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
