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

// There is one while the user wants it and part of the slice is out of sight. It leaves its corner to what is
// selected there and to drags that come near.
class Overview : public QObject, private diagram::SurfaceObserver {
    Q_OBJECT
public:
    // The picture is a child of `place`, above the surfaces.
    Overview(frmMain &window, QWidget *place);
    ~Overview() override;

    // Whether the user wants it, in all windows; on at first.
    static bool IsEnabled();
    static void SetEnabled(bool enabled);

    // From now on it may be there: the window has been painted.
    void Start();
    // Shows the slice that is on top.
    void Follow();
    // That slice goes.
    void Leave(const diagram::Surface &surface);
    // In step with what is in sight, how large the page is, and what is selected.
    void Update();
    // The picture while it is there, else null.
    OverviewMap *Map() const;
    // Gives it the keyboard; false where it isn't there.
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
