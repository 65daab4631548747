// The list of a TickBox: rows to tick, and above them what ticks all or none of them.
#pragma once

#include <QListView>

class QToolButton;

namespace mainwindow {

class TickList : public QListView {
    Q_OBJECT
public:
    explicit TickList(QWidget *parent);

    // Of the widest row, and of what stands above them.
    int NeededWidth() const;

Q_SIGNALS:
    // Ctrl+A or Ctrl+Shift+A was pressed, or one of the buttons.
    void AllAsked(bool ticked);

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QToolButton *AddButton(const char *name, const QString &text, bool ticked);

    QWidget *strip_;
};

} // namespace mainwindow
