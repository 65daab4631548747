#include "widgets/SwatchButton.h"

#include <QPainter>

namespace widgets {

namespace {

constexpr QSize kButton(64, 26); // pixels
constexpr int kRim = 5;          // of the button around the colour

struct NamedColour {
    support::Colour colour;
    const char *name;
};
constexpr NamedColour kNames[] = {
    {support::Rgb(0, 0, 0), QT_TRANSLATE_NOOP("widgets::SwatchButton", "black")},
    {support::Rgb(255, 255, 255), QT_TRANSLATE_NOOP("widgets::SwatchButton", "white")},
    {support::Rgb(255, 0, 0), QT_TRANSLATE_NOOP("widgets::SwatchButton", "red")},
    {support::Rgb(0, 255, 0), QT_TRANSLATE_NOOP("widgets::SwatchButton", "light green")},
    {support::Rgb(0, 0, 255), QT_TRANSLATE_NOOP("widgets::SwatchButton", "blue")},
    {support::Rgb(255, 255, 0), QT_TRANSLATE_NOOP("widgets::SwatchButton", "yellow")},
    {support::Rgb(0, 255, 255), QT_TRANSLATE_NOOP("widgets::SwatchButton", "cyan")},
    {support::Rgb(255, 0, 255), QT_TRANSLATE_NOOP("widgets::SwatchButton", "magenta")},
    {support::Rgb(128, 0, 0), QT_TRANSLATE_NOOP("widgets::SwatchButton", "dark red")},
    {support::Rgb(0, 128, 0), QT_TRANSLATE_NOOP("widgets::SwatchButton", "green")},
    {support::Rgb(0, 0, 128), QT_TRANSLATE_NOOP("widgets::SwatchButton", "dark blue")},
    {support::Rgb(128, 128, 0), QT_TRANSLATE_NOOP("widgets::SwatchButton", "olive")},
    {support::Rgb(0, 128, 128), QT_TRANSLATE_NOOP("widgets::SwatchButton", "teal")},
    {support::Rgb(128, 0, 128), QT_TRANSLATE_NOOP("widgets::SwatchButton", "purple")},
    {support::Rgb(128, 128, 128), QT_TRANSLATE_NOOP("widgets::SwatchButton", "grey")},
    {support::Rgb(192, 192, 192), QT_TRANSLATE_NOOP("widgets::SwatchButton", "light grey")},
};

// Lies over the button, which takes its clicks.
class ColourField : public QWidget {
public:
    ColourField(const support::Colour &colour, QWidget *parent) : QWidget(parent), colour_(colour) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

protected:
    void paintEvent(QPaintEvent *) override {
        QPainter painter(this);
        if (!isEnabled()) painter.setOpacity(0.4);
        painter.setPen(palette().color(QPalette::Mid));
        painter.setBrush(support::ToQColor(colour_));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }

private:
    const support::Colour &colour_;
};

} // namespace

QString ColourName(support::Colour colour) {
    const QColor shown = support::ToQColor(colour);
    for (const NamedColour &row : kNames)
        if (support::ToQColor(row.colour) == shown) return SwatchButton::tr(row.name);
    return SwatchButton::tr("red %1, green %2, blue %3")
        .arg(shown.red())
        .arg(shown.green())
        .arg(shown.blue());
}

SwatchButton::SwatchButton(support::Desktop &desktop, const QString &name, const QString &swatch,
                           const QString &label, QWidget *parent)
    : QPushButton(parent), desktop_(desktop), field_(new ColourField(colour_, this)), label_(label) {
    setObjectName(name);
    field_->setObjectName(swatch);
    setAutoDefault(false);
    SetValue(colour_);
    connect(this, &QPushButton::clicked, this, &SwatchButton::Choose);
}

void SwatchButton::SetValue(support::Colour colour) {
    colour_ = colour;
    const QString name = ColourName(colour);
    setAccessibleName(QStringLiteral("%1: %2").arg(label_, name));
    setToolTip(name);
    field_->update();
}

QSize SwatchButton::sizeHint() const { return kButton.expandedTo({0, fontMetrics().height() + 2 * kRim}); }

void SwatchButton::resizeEvent(QResizeEvent *event) {
    QPushButton::resizeEvent(event);
    field_->setGeometry(rect().adjusted(kRim, kRim, -kRim, -kRim));
}

void SwatchButton::Choose() {
    const support::Colour chosen = desktop_.dialogs.ShowColorDialog(this, true, colour_);
    if (chosen == support::kNoColour) return;
    SetValue(chosen);
    Q_EMIT Changed();
}

} // namespace widgets
