// A large button of the start page: a picture with two lines of text.
#pragma once

#include <QAbstractButton>
#include <QImage>

class QToolButton;

namespace mainwindow {

struct StartCardText {
    QString title;
    QString note; // below it, smaller; may be empty
    QString tip;  // what is cut off, in full
};

class StartCard : public QAbstractButton {
    Q_OBJECT
public:
    // Beside the text stands the icon; a card with a picture of that size (pixels) has it above the text, and
    // the icon in its place as long as there is none.
    StartCard(const StartCardText &text, const QIcon &icon, const QSize &picture, QWidget *parent);

    void SetPicture(const QImage &picture);
    const QImage &Picture() const { return picture_; }
    // What the card leads to isn't there any more.
    void SetGone();
    // Adds a button that takes the card away; Del does so too.
    void MakeRemovable(const QString &tip);
    QToolButton *RemoveButton() const { return remove_; }
    const StartCardText &Text() const { return text_; }

    QSize sizeHint() const override;

Q_SIGNALS:
    void RemoveAsked();
    // The pointer was dragged from the card: the press, in its pixels.
    void DraggedFrom(const QPoint &press);

protected:
    void paintEvent(QPaintEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    bool event(QEvent *event) override;

private:
    bool IsTile() const { return !pictureSize_.isEmpty(); }
    QFont NoteFont() const;
    QRect PictureRect() const;
    QRect TextRect() const;
    void PaintGround(QPainter &painter) const;
    void PaintPicture(QPainter &painter) const;
    void PaintText(QPainter &painter) const;
    void ShowRemoveButton();
    QString FullText() const;

    StartCardText text_;
    QSize pictureSize_;
    QImage picture_;
    QToolButton *remove_ = nullptr;
    QPoint press_;
    bool gone_ = false;
};

} // namespace mainwindow
