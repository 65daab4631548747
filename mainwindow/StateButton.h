// A button of a toolbar that shows what is so in the selection.
#pragma once

#include "mainwindow/Look.h"

#include <QToolButton>
#include <QWidgetAction>

namespace mainwindow {

// Looks pressed where it is so everywhere, and framed by dashes where it is so here and there. A click runs
// the button's action and leaves the look to ShowState.
class StateButton : public QToolButton {
    Q_OBJECT
public:
    explicit StateButton(QWidget *parent);
    void ShowState(Shared state);
    Shared State() const { return state_; }

protected:
    void actionEvent(QActionEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void PressIn();

    Shared state_ = Shared::Nowhere;
};

// Stands in a toolbar as such a button.
class StateAction : public QWidgetAction {
    Q_OBJECT
public:
    using QWidgetAction::QWidgetAction;

protected:
    QWidget *createWidget(QWidget *parent) override;
};

} // namespace mainwindow
