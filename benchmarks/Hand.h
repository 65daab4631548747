// Events as a user's mouse and keyboard send them to the viewport of a view, each timed up to the painted
// frame.
#pragma once

#include <functional>
#include <QMouseEvent>
#include <QPoint>
#include <QWidget>
#include <vector>

namespace bench {

// Milliseconds of each event of a gesture.
using Steps = std::vector<double>;

class Hand : public QObject {
public:
    // The widget must be shown and outlive the hand.
    explicit Hand(QWidget &viewport);

    void Move(const QPoint &at, Qt::KeyboardModifiers modifiers = {});
    void Press(const QPoint &at, Qt::KeyboardModifiers modifiers = {},
               Qt::MouseButton button = Qt::LeftButton);
    void Release(const QPoint &at, Qt::KeyboardModifiers modifiers = {});
    void Wheel(const QPoint &at, int notches, Qt::KeyboardModifiers modifiers = {});
    // To whatever has the focus.
    void Key(int key, const QString &text = QString(), Qt::KeyboardModifiers modifiers = {});
    // Times anything else that ends in a frame.
    void Do(const std::function<void()> &what);

    // The times since the last call.
    Steps TakeSteps() { return std::exchange(steps_, {}); }
    // How often the viewport was painted since the last call.
    int TakeFrames() { return std::exchange(frames_, 0); }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void Send(QWidget &target, QEvent &event);
    void Mouse(QEvent::Type type, const QPoint &at, Qt::MouseButton button, Qt::KeyboardModifiers modifiers);

    QWidget &viewport_;
    Qt::MouseButton held_ = Qt::NoButton;
    Steps steps_;
    int frames_ = 0;
};

// How long the steps of a gesture took.
struct Timing {
    Steps steps;
    int frames = 0;

    double Worst() const;
    double Median() const;
    QString Remark() const; // tells how many steps, and the median
};

// Runs a gesture several times, with `before` untimed ahead of it, and keeps the best time of each step: what
// the machine's other work adds is not ours.
Timing BestOf(Hand &hand, const std::function<void(Hand &)> &before,
              const std::function<void(Hand &)> &gesture);

} // namespace bench
