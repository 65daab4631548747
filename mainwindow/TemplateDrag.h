// Items of the template bar that are dragged onto the page.
#pragma once

#include <memory>
#include <optional>
#include <QObject>
#include <QPoint>
#include <QPointF>
#include <QString>

class QDropEvent;
class QMimeData;

namespace mainwindow {

class frmMain;

// What is dragged for a template; no other program, and no other run of this one, makes anything of it.
std::unique_ptr<QMimeData> DragData(const QString &file);
// The template of such a drag; empty for any other.
QString DraggedTemplate(const QMimeData &data);

// Takes what the window is told of such drags; all others go on to whoever takes those.
class TemplateDrops : public QObject {
public:
    explicit TemplateDrops(frmMain &window);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    // Accepts it over the page alone.
    void Accept(QDropEvent &event);
    void Drop(QDropEvent &event);
    // The twips of the current surface at a pixel of the window; nothing beside the surface.
    std::optional<QPointF> SurfacePlace(const QPoint &at) const;

    frmMain &window_;
};

} // namespace mainwindow
