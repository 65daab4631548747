// Shapes that are dragged from the palette onto the page.
#pragma once

#include <QObject>

class QDropEvent;

namespace mainwindow {

class frmMain;

// Filters the window's drag events of shapes; other drags go on to the other filters of the window. A drop
// places a node of the shape, as a click does.
class ShapeDrops : public QObject {
public:
    explicit ShapeDrops(frmMain &window);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void Take(QDropEvent &event, int shape);

    frmMain &window_;
};

} // namespace mainwindow
