// The small picture of a slice with a frame around the part in sight, to be dragged.
#pragma once

#include <QImage>
#include <QWidget>

namespace mainwindow {

// All areas and points are in twips.
class OverviewMap : public QWidget {
    Q_OBJECT
public:
    explicit OverviewMap(QWidget *parent);

    // The picture fills the widget, from edge to edge, and shows that area.
    void SetPicture(const QImage &picture, const QRectF &area);
    void SetSeen(const QRectF &seen);
    const QRectF &Content() const { return content_; }
    const QRectF &Seen() const { return seen_; }
    bool IsDragged() const { return dragged_; }
    // Between pixels of the widget and the surface.
    QPointF ToSurface(const QPointF &pixels) const;
    QRectF FromSurface(const QRectF &area) const;

Q_SIGNALS:
    // The part in sight shall have its middle there.
    void CentreAsked(const QPointF &at);
    // The user goes back to the page.
    void Done();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    double Scale() const; // pixels a twip

    QRectF content_, seen_;
    QImage picture_;
    QPointF grip_; // from the middle of the part in sight to where the drag holds it
    bool dragged_ = false;
};

} // namespace mainwindow
