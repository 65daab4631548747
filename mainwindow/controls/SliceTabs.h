// The tabs of the slices: a drag asks to move one, a double click to rename it, the right button for its
// menu. Nothing is moved or renamed here.
#pragma once

#include <QTabBar>

namespace mainwindow {

class SliceTabs : public QTabBar {
    Q_OBJECT
public:
    explicit SliceTabs(QWidget *parent);

Q_SIGNALS:
    // The mouse, the wheel or a key is about to act on the tabs.
    void Touched();
    // The tab at `from` was dragged to where its position is to be `to`.
    void MoveAsked(int from, int to);
    void RenameAsked(int tab);
    // With `at` in global pixels.
    void MenuAsked(int tab, const QPoint &at);

protected:
    // Wide enough for a usual name; a longer one is cut off and shown whole when the pointer rests on it.
    QSize tabSizeHint(int index) const override;
    QSize minimumTabSizeHint(int index) const override;
    bool event(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void ShowName(const QPoint &at, const QPoint &global);
    // The gap between tabs next to the pixel, 0 before the first.
    int GapAt(const QPoint &at) const;
    void ShowGap(int gap);
    void EndDrag();

    int pressed_ = -1; // tab under the press
    QPoint pressedAt_;
    int gap_ = -1; // where a drag would drop; -1 without one
};

} // namespace mainwindow
