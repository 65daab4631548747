#include "mainwindow/templates/TemplateDrag.h"

#include "mainwindow/frmMain.h"
#include "mainwindow/templates/UseTemplate.h"
#include "mainwindow/window/SurfacePlace.h"
#include "mainwindow/window/WindowStatus.h"
#include "settings/Settings.h"
#include "support/FileStem.h"

#include <QDropEvent>
#include <QMimeData>
#include <QUuid>

namespace mainwindow {

namespace {

const QString kType = QStringLiteral("application/x-velmora-template");

const QByteArray &OwnMark() {
    static const QByteArray mark = QUuid::createUuid().toRfc4122();
    return mark;
}

} // namespace

std::unique_ptr<QMimeData> DragData(const QString &file) {
    auto data = std::make_unique<QMimeData>();
    data->setData(kType, OwnMark() + file.toUtf8());
    return data;
}

QString DraggedTemplate(const QMimeData &data) {
    const QByteArray bytes = data.data(kType);
    return bytes.startsWith(OwnMark()) ? QString::fromUtf8(bytes.mid(OwnMark().size())) : QString();
}

TemplateDrops::TemplateDrops(frmMain &window) : window_(window) { window.installEventFilter(this); }

bool TemplateDrops::eventFilter(QObject *, QEvent *event) {
    if (event->type() != QEvent::DragEnter && event->type() != QEvent::DragMove &&
        event->type() != QEvent::Drop)
        return false;
    auto &drop = static_cast<QDropEvent &>(*event);
    if (DraggedTemplate(*drop.mimeData()).isEmpty()) return false;
    if (event->type() == QEvent::Drop)
        Drop(drop);
    else
        Accept(drop);
    return true;
}

// Entering is accepted everywhere, as the drag enters the window at the bar; else it would get no moves.
void TemplateDrops::Accept(QDropEvent &event) {
    if (frmMain::InsideRoutine()) return event.ignore();
    const bool onSurface = SurfacePlace(window_, event.position().toPoint()).has_value();
    if (onSurface || event.type() == QEvent::DragEnter)
        event.acceptProposedAction();
    else
        event.ignore();
    const QString name = support::FileStem(DraggedTemplate(*event.mimeData()));
    if (onSurface)
        window_.Status().TellInPassing(frmMain::tr("Drop to add %1 here").arg(name));
    else
        window_.Status().DropHint();
}

// The template is added once the drag has ended.
void TemplateDrops::Drop(QDropEvent &event) {
    window_.Status().DropHint();
    const auto place = SurfacePlace(window_, event.position().toPoint());
    if (!place || frmMain::InsideRoutine()) return event.ignore();
    event.acceptProposedAction();
    QTimer::singleShot(0, &window_, [this, file = DraggedTemplate(*event.mimeData()), at = *place] {
        support::Report("frmMain", "OLEDragDrop", [&] { AddTemplateAt(window_, file, at); });
    });
}

} // namespace mainwindow
