// Shows a picture as large as there is room.
#pragma once

#include "diagram/model/Picture.h"

#include <QWidget>

namespace dialogs {

class PictureField : public QWidget {
    Q_OBJECT
public:
    PictureField(const QString &name, QWidget *parent);

    const diagram::Picture &Picture() const { return picture_; }
    void SetPicture(const diagram::Picture &picture);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    diagram::Picture picture_;
};

} // namespace dialogs
