// What is shown beside an item of the template bar while the pointer rests on it: its picture and caption.
#pragma once

#include <QFrame>

class QLabel;

namespace mainwindow {

class TemplateTip : public QFrame {
    Q_OBJECT
public:
    explicit TemplateTip(QWidget *parent);

    // Beside the place (global pixels), where there is room. Without a picture the caption alone.
    void ShowBeside(const QRect &place, const QString &caption, const QImage &picture);
    QString Caption() const;
    bool HasPicture() const;

private:
    QLabel *picture_;
    QLabel *caption_;
};

} // namespace mainwindow
