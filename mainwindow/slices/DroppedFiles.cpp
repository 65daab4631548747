#include "mainwindow/slices/DroppedFiles.h"

#include "diagram/hit/HitTest.h"
#include "diagram/view/SurfaceClipboard.h"
#include "diagram/view/SurfaceView.h"
#include "dialogs/PictureFile.h"
#include "mainwindow/edits/HandlerStep.h"
#include "mainwindow/frmMain.h"
#include "mainwindow/slices/DroppedFile.h"
#include "mainwindow/slices/SliceViews.h"
#include "mainwindow/window/SurfacePlace.h"
#include "mainwindow/window/WindowStatus.h"
#include "settings/Settings.h"
#include "timeline/AdjustLinks.h"
#include "timeline/LineUp.h"

#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>

namespace mainwindow {

namespace {

// The one file on this machine that is dragged; empty for anything else.
QString DraggedFile(const QMimeData &data) {
    const QList<QUrl> urls = data.urls();
    return urls.size() == 1 && urls.first().isLocalFile() ? urls.first().toLocalFile() : QString();
}

// The node that takes what is dropped there; null for none.
diagram::Node *NodeThatTakes(diagram::SurfaceView &view, const QPointF &twips) {
    return diagram::SelectableNodeAt(view.TheScene(), twips);
}

void ShowNoPicture(support::Desktop &desktop, const QString &name) {
    desktop.messageBoxes.Show(QStringLiteral("%1 holds no picture that can be shown.").arg(name),
                              support::Buttons::Ok, support::Icon::Exclamation, settings::Terms().TITLE);
}

} // namespace

DroppedFiles::DroppedFiles(frmMain &window) : window_(window) { window.installEventFilter(this); }

bool DroppedFiles::eventFilter(QObject *, QEvent *event) {
    switch (event->type()) {
    case QEvent::DragEnter:
        Accept(static_cast<QDropEvent &>(*event));
        return true;
    case QEvent::DragMove:
        if (auto &move = static_cast<QDropEvent &>(*event); Accept(move)) TellAt(move.position().toPoint());
        return true;
    case QEvent::DragLeave:
        window_.Status().DropHint();
        return true;
    case QEvent::Drop:
        window_.Status().DropHint();
        Drop(static_cast<QDropEvent &>(*event));
        return true;
    default:
        return false;
    }
}

bool DroppedFiles::Accept(QDropEvent &event) const {
    if (frmMain::InsideRoutine() || DraggedFile(*event.mimeData()).isEmpty()) return false;
    event.acceptProposedAction();
    return true;
}

void DroppedFiles::TellAt(const QPoint &at) {
    const std::optional<QPointF> twips = SurfacePlace(window_, at);
    const bool onNode = twips && NodeThatTakes(window_.CurrentView(), *twips);
    window_.Status().TellInPassing(settings::ReplaceTerms(
        onNode ? frmMain::tr("Drop the file to attach it to this @NODE or to show it there")
               : frmMain::tr("Drop a @MAP to open it, a picture to add it as a @NODE")));
}

// After the drag has ended, so that a question of ours doesn't hold up the program that the file came from.
void DroppedFiles::Drop(QDropEvent &event) {
    if (!Accept(event)) return;
    QTimer::singleShot(0, &window_,
                       [this, file = DraggedFile(*event.mimeData()), at = event.position().toPoint()] {
                           support::Report("frmMain", "OLEDragDrop", [&] { Take(file, at); });
                       });
}

// A file that is dropped on a node is offered to that; a picture that is dropped elsewhere on the page
// becomes a node; anything else is opened.
void DroppedFiles::Take(const QString &file, const QPoint &at) {
    window_.Views().EndEdits();
    window_.activateWindow(); // the keys go on here
    const std::optional<QPointF> twips = SurfacePlace(window_, at);
    if (!twips) return void(window_.DoOpen(file, window_.WantsNewWindow()));
    if (diagram::Node *node = NodeThatTakes(window_.CurrentView(), *twips))
        return Offer(*node, file, window_.mapToGlobal(at));
    const diagram::Picture picture = dialogs::PictureIn(file);
    if (!picture.IsNull())
        diagram::AddPictureNode(window_.CurrentSurface(), picture, *twips);
    else if (dialogs::IsNamedLikeAPicture(file))
        ShowNoPicture(window_.Desktop(), QFileInfo(file).fileName());
    else
        window_.DoOpen(file, window_.WantsNewWindow());
}

// The node is looked up by its identity when the user has chosen, as it can go while the menu is open.
void DroppedFiles::Offer(diagram::Node &node, const QString &file, const QPoint &global) {
    const QString name = QFileInfo(file).fileName();
    const diagram::Picture picture = dialogs::PictureIn(file);
    auto *menu = new DropMenu(name, !picture.IsNull(), &window_);
    const auto onNode = [this, index = node.Owner().Index(), id = node.Id()](auto body) {
        support::Report("frmMain", "DropMenu_Click", [&] {
            if (!window_.AddFlow1().Exists(index)) return;
            if (diagram::Node *target = window_.AddFlow1()[index].FindNode(id)) body(*target);
        });
    };
    QObject::connect(menu, &DropMenu::Attach, &window_, [this, onNode, file, name] {
        onNode([&](diagram::Node &target) {
            const bool added = AttachFile(window_.clsSettings(), target, file);
            window_.ScheduleUpdate();
            window_.Status().TellInPassing(
                (added ? frmMain::tr("%1 is attached.") : frmMain::tr("%1 was attached already.")).arg(name));
        });
    });
    QObject::connect(menu, &DropMenu::UseAsPicture, &window_, [this, onNode, picture] {
        onNode([&](diagram::Node &target) {
            const HandlerStep step(target.Owner());
            target.SetPicture(picture);
            timeline::FollowDates(window_, target.Owner(), {&target}); // its size may follow the picture
            timeline::AdjustLinksOf({&target});
            window_.clsSettings().Dirty = true;
        });
    });
    menu->popup(global);
}

} // namespace mainwindow
