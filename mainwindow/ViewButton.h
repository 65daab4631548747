// The button of the named views, beside the two lists of what is shown.
#pragma once

#include <functional>
#include <QToolButton>

namespace mainwindow {

class frmMain;

// Its menu shows the views, the one whose ticks hold with a tick, and keeps, renames and deletes them.
class ViewButton : public QToolButton {
    Q_OBJECT
public:
    ViewButton(frmMain &window, QWidget *parent);

    QSize sizeHint() const override;
    // Where the chevron stands that tells of the menu, at the end of the button.
    QRect Chevron() const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void FillMenu();
    void AddViews();
    QMenu *AddSubmenu(const char *name, const QString &text, void (ViewButton::*act)(const QString &view));
    // Errors are told as one of the routine's.
    void Run(const char *routine, const std::function<void()> &body);
    void ShowView(const QString &view);
    void KeepTicks();
    void RenameView(const QString &view);
    void DeleteView(const QString &view);
    bool MayReplace(const QString &view);

    frmMain &window_;
};

} // namespace mainwindow
