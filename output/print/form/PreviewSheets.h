// The sheets of a preview: as many beside each other as have room, painted when they are seen.
#pragma once

#include <memory>
#include <QAbstractScrollArea>
#include <QHash>
#include <QPixmap>

namespace print {

class PrintSlices;
class PrnFlow;

class PreviewSheets : public QAbstractScrollArea {
    Q_OBJECT
public:
    // The control must live longer, or until Forget.
    PreviewSheets(PrnFlow &flow, QWidget *parent);
    ~PreviewSheets() override;

    // The pages have changed.
    void Renew();
    // Nothing is shown from now on.
    void Forget();
    int Zoom() const { return zoom_; } // per cent of the size on paper
    void SetZoom(int percent);
    // Brings the control's current page into sight.
    void ShowPage();

    // Of the sheet with that position, from 0, in pixels of the viewport.
    QRectF SheetRect(int sheet) const;
    int Columns() const { return columns_; }
    double PixelsOfMillimetre() const;
    // Whether the sheet is painted, and not only its paper.
    bool IsPainted(int sheet) const { return painted_.contains(sheet); }

Q_SIGNALS:
    // Another page is the current one, by the user's doing here.
    void PageChanged();
    // The user wants it larger or smaller by so many steps.
    void ZoomWanted(int steps);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void changeEvent(QEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    int Count() const;
    void LayOut();
    QSizeF SheetSize() const;
    QRectF ContentRect(int sheet) const;
    void PaintSheet(QPainter &painter, int sheet);
    void PaintGuides(QPainter &painter, int sheet);
    bool IsLarge() const;
    void PaintDirectly(QPainter &painter, int sheet);
    void MakePicture(int sheet);
    void DropUnseen();
    void FollowScroll();
    void GoTo(int page);

    PrnFlow *flow_;
    std::unique_ptr<PrintSlices> slices_;
    QHash<int, QPixmap> painted_;
    int zoom_ = 100;
    int columns_ = 1;
    // The hand that drags the sheets.
    bool holding_ = false, dragged_ = false;
    QPointF heldAt_; // of the viewport
    QPoint heldScroll_;
    bool showing_ = false; // a page is being brought into sight: the scrolling chooses no other
};

} // namespace print
