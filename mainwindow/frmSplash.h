// The window that is up while the program starts.
#pragma once

#include <QPixmap>
#include <QWidget>

class QLabel;

namespace mainwindow {

class frmSplash : public QWidget {
    Q_OBJECT
public:
    // Shows Splash.jpg of the program's folder where there is one, and behind it images/twomen.jpg and
    // images/LOGO.jpg.
    explicit frmSplash(const QString &title, QWidget *parent = nullptr);

    void SetDoing(const QString &text);
    QString Doing() const;

    // The splash of the process; null when there is none.
    static frmSplash *Current();
    // What is being done now; without a splash no effect. One that isn't visible goes with an empty text.
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
