// When the window shows a small picture of the whole slice in a corner of the page, and where it stands.
#pragma once

#include "diagram/model/SurfaceObserver.h"

#include <QObject>
#include <QPointer>
#include <QRect>
#include <QTimer>

namespace diagram {
class SurfaceView;
}

namespace mainwindow {

class frmMain;
class OverviewMap;
class OverviewPicture;

// Shown while the user wants it and a part of the slice is out of sight. It moves to another corner where it
// would cover what is selected or a drag comes near.
class Overview : public QObject, private diagram::SurfaceObserver {
    Q_OBJECT
public:
    // The picture is a child of `place`, above the surfaces.
    Overview(frmMain &window, QWidget *place);
    ~Overview() override;

    // Whether the user wants it, in all windows; on at first.
    static bool IsEnabled();
    static void SetEnabled(bool enabled);

    // Allows it to be shown, once the window has been painted.
    void Start();
    // Shows the slice that is on top.
    void Follow();
    // The slice is about to be deleted.
    void Leave(const diagram::Surface &surface);
    // Shows, moves or hides it by what is in sight, how large the page is, and what is selected.
    void Update();
    // Null while it isn't shown.
    OverviewMap *Map() const;
    // Gives it the keyboard focus; false while it isn't shown.
    bool TakeFocus();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void ItemAdded(diagram::Item &) override { NoteChange(); }
    void ItemChanged(diagram::Item &item, diagram::Change what) override;
    void ItemRemoved(diagram::Item &) override { NoteChange(); }
    void SurfaceChanged(diagram::Change) override { NoteChange(); }
    void Cleared() override { NoteChange(); }

    void NoteChange();
    bool IsWanted() const;
    void Make();
    void Show();
    void Hide();
    void PaintAgain();
    void TakePicture();
    void TakeCorner(const QPoint *drag);
    bool Covers(const QRect &corner, const QPoint *drag) const;
    void CentreAt(const QPointF &twips);
    QRect Room() const;     // where it may stand, pixels of place_
    QRectF Content() const; // twips
    QRectF Seen() const;    // twips
    QSize SizeFor(const QRectF &content) const;

    frmMain &window_;
    QWidget *place_;
    QPointer<diagram::SurfaceView> view_; // of the slice on top
    OverviewMap *map_ = nullptr;          // made when it is first needed
    OverviewPicture *picture_ = nullptr;
    QTimer changed_;
    bool started_ = false;
    bool stale_ = true; // the picture
};

} // namespace mainwindow
