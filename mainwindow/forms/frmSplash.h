// The window that is up while the program starts.
#pragma once

#include <QPixmap>
#include <QWidget>

class QLabel;

namespace mainwindow {

class frmSplash : public QWidget {
    Q_OBJECT
public:
    // Shows Splash.jpg of the program's folder, and behind it images/twomen.jpg and images/LOGO.jpg, as far
    // as they are there; a picture of its own without any of them.
    explicit frmSplash(const QString &title, QWidget *parent = nullptr);

    void SetDoing(const QString &text);
    QString Doing() const;

    // The splash of the process; null when there is none.
    static frmSplash *Current();
    // Shows what is being done now; no effect without a splash. An empty text deletes a splash that isn't
    // visible.
    static void ShowDoing(const QString &text);
    static void Unload();

protected:
    void paintEvent(QPaintEvent *event) override;
    QSize sizeHint() const override;

private:
    void PaintOwnPicture(QPainter &painter) const;

    QString title_;
    QPixmap picture_;
    QPixmap twomen_;
    QPixmap logo_;
    QLabel *lblDoing_;
};

} // namespace mainwindow
