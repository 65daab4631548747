// The palette of shapes beside the page: whether it is there, at which side and how wide, as the user last
// had it.
#pragma once

#include <QDockWidget>
#include <QTimer>

namespace widgets {
class ShapeGrid;
}

namespace mainwindow {

class frmMain;

class ShapeStrip : public QDockWidget {
    Q_OBJECT
public:
    // Takes its place in the window.
    explicit ShapeStrip(frmMain &window);
    // Stores what is still to be stored.
    ~ShapeStrip() override;

    // Whether the user wants it.
    static bool IsWanted();
    static void SetWanted(bool wanted);

    widgets::ShapeGrid &Grid() const { return *grid_; }

Q_SIGNALS:
    // By its own button.
    void Closed();
    // Escape: back to the page.
    void Left();

protected:
    void closeEvent(QCloseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void Store();

    frmMain &window_;
    widgets::ShapeGrid *grid_;
    QTimer store_; // a border that is dragged is stored once
};

} // namespace mainwindow
