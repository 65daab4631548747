// The box of the fonts: its list shows each font's name in that font, and typing finds a font by a part of
// its name.
#pragma once

#include "mainwindow/controls/PickBox.h"

#include <QStringList>

namespace mainwindow {

// The name that `typed` means: the one that equals it, else the first that begins with it, else the first
// that holds it, upper and lower case alike; what was typed itself when none does.
QString FontMeant(const QStringList &names, const QString &typed);

class FontBox : public PickBox {
    Q_OBJECT
public:
    using PickBox::PickBox;

    void showPopup() override;

protected:
    QString Meant(const QString &typed) const override;
    void focusInEvent(QFocusEvent *event) override;

private:
    // Lists and samples are made when the user first comes to the box: a window starts without them.
    void Prepare();

    bool prepared_ = false;
};

} // namespace mainwindow
