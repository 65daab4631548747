// A button that shows a colour and lets the user choose another.
#pragma once

#include "support/Desktop.h"

#include <QPushButton>

namespace timeline {

class Swatch : public QPushButton {
    Q_OBJECT
public:
    // `label` is what a screen reader says.
    Swatch(support::Desktop &desktop, const QString &name, const QString &label, QWidget *parent);

    support::Colour Value() const { return colour_; }
    void SetValue(support::Colour colour);

Q_SIGNALS:
    // The user chose another colour.
    void Changed();

private:
    void Choose();

    support::Desktop &desktop_;
    support::Colour colour_ = support::kWhite;
};

} // namespace timeline
