// An etched line that separates controls.
#pragma once

#include <QWidget>

namespace mainwindow {

class ucEctchedLines : public QWidget {
    Q_OBJECT
    Q_PROPERTY(bool Vertical READ Vertical WRITE SetVertical)
public:
    explicit ucEctchedLines(QWidget *parent = nullptr);

    bool Vertical() const { return vertical_; }
    void SetVertical(bool on);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void SetPolicy();
    bool vertical_ = true;
};

} // namespace mainwindow
