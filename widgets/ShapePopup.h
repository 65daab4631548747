// The grid of shapes in a window that pops up below a button.
#pragma once

#include <QFrame>

namespace widgets {

class ShapeGrid;

// Goes with a choice, with Escape and with a press beside it. What it says and takes is the grid's.
class ShapePopup : public QFrame {
    Q_OBJECT
public:
    explicit ShapePopup(QWidget *parent = nullptr);

    ShapeGrid &Grid() const { return *grid_; }
    // At the side of the place (of the screen) where there is room, never beyond the screen.
    void PopUp(const QRect &place);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    ShapeGrid *grid_;
};

} // namespace widgets
