// Files that are dropped on a window. Places are pixels of the window.
#pragma once

#include <optional>
#include <QObject>
#include <QPoint>
#include <QPointF>
#include <QString>

class QDropEvent;

namespace diagram {
class Node;
}

namespace mainwindow {

class frmMain;

// Takes what the window is told of drags.
class DroppedFiles : public QObject {
public:
    explicit DroppedFiles(frmMain &window);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    // Accepts the drag of one file, unless the window is busy; false for any other.
    bool Accept(QDropEvent &event) const;
    // Says what letting it fall would do there.
    void TellAt(const QPoint &at);
    // Takes the file once the drag has ended.
    void Drop(QDropEvent &event);
    void Take(const QString &file, const QPoint &at);
    void Offer(diagram::Node &node, const QString &file, const QPoint &global);
    // The twips of the current surface there; nothing beside the surface.
    std::optional<QPointF> SurfacePlace(const QPoint &at) const;

    frmMain &window_;
};

} // namespace mainwindow
