// A button of the look bar.
#pragma once

#include "mainwindow/look/Look.h"

#include <map>
#include <QIcon>
#include <QToolButton>
#include <utility>

namespace mainwindow {

class LookButton : public QToolButton {
    Q_OBJECT
public:
    LookButton(const LookRow &row, QWidget *parent);
    const LookRow &Row() const { return row_; }
    const LookState &State() const { return state_; }
    void Show(const LookState &state);

Q_SIGNALS:
    // The user wants to choose.
    void Asked();
    // By the keys, to the next button or the one before.
    void StepAsked(int step);
    // The user is through with the bar.
    void Done();

protected:
    void initStyleOption(QStyleOptionToolButton *option) const override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void Describe();

    const LookRow &row_;
    std::map<std::pair<bool, std::optional<double>>, QIcon> pictures_; // painted once for each state
    LookState state_{true, {}};                                        // differs from the one first shown
};

} // namespace mainwindow
