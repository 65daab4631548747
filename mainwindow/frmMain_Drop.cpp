// Files that are dropped on the window.
#include "mainwindow/frmMain.h"

#include "app/settings/Settings.h"
#include "diagram/hit/HitTest.h"
#include "diagram/view/SurfaceClipboard.h"
#include "diagram/view/SurfaceView.h"
#include "mainwindow/ActionGroup.h"
#include "mainwindow/DroppedFile.h"

#include <QDragEnterEvent>
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

void frmMain::dragEnterEvent(QDragEnterEvent *event) {
    if (!InsideRoutine() && !DraggedFile(*event->mimeData()).isEmpty()) event->acceptProposedAction();
}

// Says what letting it fall would do there.
void frmMain::dragMoveEvent(QDragMoveEvent *event) {
    if (InsideRoutine() || DraggedFile(*event->mimeData()).isEmpty()) return;
    event->acceptProposedAction();
    const std::optional<QPointF> twips = SurfacePlace(event->position().toPoint());
    const bool onNode = twips && NodeThatTakes(CurrentView(), *twips);
    TellInPassing(
        settings::ReplaceTerms(onNode ? tr("Drop the file to attach it to this @NODE or to show it there")
                                      : tr("Drop a @MAP to open it, a picture to add it as a @NODE")));
}

void frmMain::dragLeaveEvent(QDragLeaveEvent *) { DropHint(); }

void frmMain::dropEvent(QDropEvent *event) {
    DropHint();
    const QString file = DraggedFile(*event->mimeData());
    if (file.isEmpty() || InsideRoutine()) return;
    event->acceptProposedAction();
    // After the drag has ended, so that a question of ours doesn't hold up the program that the file came
    // from.
    QTimer::singleShot(0, this, [this, file, at = event->position().toPoint()] {
        support::Report("frmMain", "OLEDragDrop", [&] { TakeFile(file, at); });
    });
}

std::optional<QPointF> frmMain::SurfacePlace(const QPoint &at) {
    const diagram::SurfaceView &view = CurrentView();
    const QPoint pixels = view.viewport()->mapFrom(this, at);
    if (!view.viewport()->rect().contains(pixels)) return std::nullopt;
    return view.ToSurface(pixels);
}

// On a node it is offered to that; a picture beside the nodes becomes one; anything else is opened.
void frmMain::TakeFile(const QString &file, const QPoint &at) {
    KeepTypedText();
    activateWindow(); // the keys go on here
    const std::optional<QPointF> twips = SurfacePlace(at);
    if (!twips) return void(DoOpen(file, WantsNewWindow()));
    if (diagram::Node *node = NodeThatTakes(CurrentView(), *twips))
        return OfferFile(*node, file, mapToGlobal(at));
    const diagram::Picture picture = PictureIn(file);
    if (!picture.IsNull())
        diagram::AddPictureNode(CurrentSurface(), picture, *twips);
    else if (IsNamedLikeAPicture(file))
        ShowNoPicture(desktop_, QFileInfo(file).fileName());
    else
        DoOpen(file, WantsNewWindow());
}

// The node is found again when the user has chosen: it can go while the menu is open.
void frmMain::OfferFile(diagram::Node &node, const QString &file, const QPoint &global) {
    const QString name = QFileInfo(file).fileName();
    const diagram::Picture picture = PictureIn(file);
    auto *menu = new DropMenu(name, !picture.IsNull(), this);
    const auto onNode = [this, index = node.Owner().Index(), id = node.Id()](auto body) {
        support::Report("frmMain", "DropMenu_Click", [&] {
            if (!AddFlow1_.Exists(index)) return;
            if (diagram::Node *target = AddFlow1_[index].FindNode(id)) body(*target);
        });
    };
    connect(menu, &DropMenu::Attach, this, [this, onNode, file, name] {
        onNode([&](diagram::Node &target) {
            const bool added = AttachFile(*clsSettings_, target, file);
            ScheduleUpdate();
            TellInPassing((added ? tr("%1 is attached.") : tr("%1 was attached already.")).arg(name));
        });
    });
    connect(menu, &DropMenu::UseAsPicture, this, [this, onNode, picture] {
        onNode([&](diagram::Node &target) {
            const ActionGroup step(target.Owner());
            target.SetPicture(picture);
            AdjustLinksOf({&target}, timeline_); // its size may follow the picture
            clsSettings_->Dirty = true;
        });
    });
    menu->popup(global);
}

} // namespace mainwindow
