// The status bar of the window: the panel of the status text, the panel of the progress bar, and at the right
// end what is selected and how large the diagram is shown.
#pragma once

#include <QMenu>
#include <QPointer>
#include <QStatusBar>

class QLabel;
class QToolButton;

namespace mainwindow {

class cStatusBar : public QStatusBar {
    Q_OBJECT
public:
    explicit cStatusBar(QWidget *parent = nullptr);

    // The panel with that key, "DOING" or "PROGRESS"; null for another.
    QWidget *Panel(const QString &key) const;
    void SetDoing(const QString &text);
    QString Doing() const;
    void SetSelection(const QString &text);
    // What is hidden, in words, on a button that is there only while the text isn't empty.
    void SetHidden(const QString &text);
    // Shows or hides the button of PutBackClicked beside the status text.
    void OfferPutBack(bool on);
    void SetZoom(double percent);
    // Whether all is saved, in words.
    void SetUnsaved(bool unsaved);
    // The button that shows the zoom opens this menu.
    void SetZoomMenu(QMenu *menu);

Q_SIGNALS:
    void ZoomOut();
    void ZoomIn();
    void HiddenClicked();
    void PutBackClicked();

private:
    // Each adds a part of the bar, from left to right.
    void AddDoing();
    void AddPutBack();
    void AddProgress();
    void AddSaved();
    void AddHidden();
    void AddZoom();
    void PopUpZoomMenu();
    QToolButton *AddButton(const QString &image, const QString &name);

    QLabel *doing_;
    QWidget *progress_;
    QLabel *selection_;
    QLabel *saved_;
    QToolButton *hidden_;
    QToolButton *putBack_;
    QToolButton *zoom_;
    QPointer<QMenu> zoomMenu_;
};

} // namespace mainwindow
