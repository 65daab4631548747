// Files that are dropped on a window. Places are pixels of the window.
#pragma once

#include <optional>
#include <QPoint>
#include <QPointF>
#include <QString>

class QDropEvent;

namespace diagram {
class Node;
}

namespace mainwindow {

class frmMain;

class DroppedFiles {
public:
    explicit DroppedFiles(frmMain &window) : window_(window) {}

    // Accepts the drag of one file, unless the window is busy; false for any other.
    bool Accept(QDropEvent &event) const;
    // Says what letting it fall would do there.
    void TellAt(const QPoint &at);
    // Takes the file once the drag has ended.
    void Drop(QDropEvent &event);

private:
    void Take(const QString &file, const QPoint &at);
    void Offer(diagram::Node &node, const QString &file, const QPoint &global);
    // The twips of the current surface there; nothing beside the surface.
    std::optional<QPointF> SurfacePlace(const QPoint &at) const;

    frmMain &window_;
};

} // namespace mainwindow
