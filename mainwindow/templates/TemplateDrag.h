// Items of the template bar that are dragged onto the page.
#pragma once

#include <memory>
#include <QObject>
#include <QString>

class QDropEvent;
class QMimeData;

namespace mainwindow {

class frmMain;

// The data of a drag of that template. Only this process can read them.
std::unique_ptr<QMimeData> DragData(const QString &file);
// The template file of such a drag; empty for any other.
QString DraggedTemplate(const QMimeData &data);

// Filters the window's drag events of templates; other drags go on to the other filters of the window.
class TemplateDrops : public QObject {
public:
    explicit TemplateDrops(frmMain &window);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    // Accepts it over the page alone.
    void Accept(QDropEvent &event);
    void Drop(QDropEvent &event);

    frmMain &window_;
};

} // namespace mainwindow
