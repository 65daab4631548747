// The button of the named views, beside the two lists of what is shown.
#pragma once

#include <functional>
#include <QToolButton>

namespace mainwindow {

class frmMain;

// Its menu lists the views, checks the one whose ticks are the current ones, and keeps, renames and deletes
// them.
class ViewButton : public QToolButton {
    Q_OBJECT
public:
    ViewButton(frmMain &window, QWidget *parent);

    QSize sizeHint() const override;
    // The place of the chevron, at the end of the button, that stands for the menu.
    QRect Chevron() const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void FillMenu();
    void AddViews();
    QMenu *AddSubmenu(const char *name, const QString &text, void (ViewButton::*act)(const QString &view));
    // Runs `body` as the routine of that name, and schedules the window's update.
    void Run(const char *routine, const std::function<void()> &body);
    void ShowView(const QString &view);
    void KeepTicks();
    void RenameView(const QString &view);
    void DeleteView(const QString &view);
    bool MayReplace(const QString &view);

    frmMain &window_;
};

} // namespace mainwindow
