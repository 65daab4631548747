// A button that shows a colour and lets the user choose another.
#pragma once

#include "support/Desktop.h"

#include <QPushButton>

namespace widgets {

// How a colour is spoken of: by its name where it has a plain one, else by its three parts.
QString ColourName(support::Colour colour);

class SwatchButton : public QPushButton {
    Q_OBJECT
public:
    // The field of colour in the button is named `swatch`; `label` is what a screen reader says before the
    // colour.
    SwatchButton(support::Desktop &desktop, const QString &name, const QString &swatch, const QString &label,
                 QWidget *parent);

    support::Colour Value() const { return colour_; }
    void SetValue(support::Colour colour);
    // Opens the colour dialog, as a click does; a cancelled one leaves the colour.
    void Choose();

    QSize sizeHint() const override;

Q_SIGNALS:
    // The user chose another colour.
    void Changed();

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    support::Desktop &desktop_;
    QWidget *field_;
    QString label_;
    support::Colour colour_ = support::kWhite;
};

} // namespace widgets
