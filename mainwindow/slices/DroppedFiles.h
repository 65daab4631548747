// Files that are dropped on a window.
#pragma once

#include <QObject>

class QDropEvent;
class QPoint;
class QString;

namespace diagram {
class Node;
}

namespace mainwindow {

class frmMain;

// Filters the drag and drop events of the window; places are pixels of the window.
class DroppedFiles : public QObject {
public:
    explicit DroppedFiles(frmMain &window);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    // Accepts the drag of one file, unless the window is busy; false for any other.
    bool Accept(QDropEvent &event) const;
    // Says in the status bar what a drop would do there.
    void TellAt(const QPoint &at);
    void Drop(QDropEvent &event);
    // What becomes of a file that was dropped there.
    void Take(const QString &file, const QPoint &at);
    // Lets the user choose, at a place of the screen, what the file becomes to the node.
    void Offer(diagram::Node &node, const QString &file, const QPoint &global);

    frmMain &window_;
};

} // namespace mainwindow
