// A toolbar button for a property of the selection, such as bold.
#pragma once

#include "mainwindow/look/Look.h"

#include <QToolButton>
#include <QWidgetAction>

namespace mainwindow {

// Looks pressed where all of the selection has the property, and has a dashed frame where a part of it has. A
// click runs the button's action; how the button looks is up to ShowState.
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

// An action that a toolbar shows as such a button.
class StateAction : public QWidgetAction {
    Q_OBJECT
public:
    using QWidgetAction::QWidgetAction;

protected:
    QWidget *createWidget(QWidget *parent) override;
};

} // namespace mainwindow
