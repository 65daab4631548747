#include "timeline/setup/Swatch.h"

#include <QPainter>
#include <QPixmap>

namespace timeline {

namespace {
constexpr QSize kField(40, 16); // pixels
}

Swatch::Swatch(support::Desktop &desktop, const QString &name, const QString &label, QWidget *parent)
    : QPushButton(parent), desktop_(desktop) {
    setObjectName(name);
    setAccessibleName(label);
    setAutoDefault(false);
    setIconSize(kField);
    SetValue(colour_);
    connect(this, &QPushButton::clicked, this, &Swatch::Choose);
}

void Swatch::SetValue(support::Colour colour) {
    colour_ = colour;
    QPixmap field(kField * devicePixelRatioF());
    field.setDevicePixelRatio(devicePixelRatioF());
    field.fill(support::ToQColor(colour));
    QPainter painter(&field);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(QRect(QPoint(), kField).adjusted(0, 0, -1, -1));
    painter.end();
    setIcon(field);
    setAccessibleDescription(support::ToQColor(colour).name());
}

void Swatch::Choose() {
    const support::Colour chosen = desktop_.dialogs.ShowColorDialog(this, true, colour_);
    if (chosen == support::kNoColour) return;
    SetValue(chosen);
    Q_EMIT Changed();
}

} // namespace timeline
