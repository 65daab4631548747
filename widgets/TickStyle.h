// The style of the program's controls.
#pragma once

#include <QProxyStyle>

class QLineEdit;

namespace widgets {

// The platform's style, with frames around boxes to tick that can be seen on any palette. Where that style
// draws the frame from the colour of the window alone, it is as dark as the box on a dark palette; other
// styles are left as they are. Buttons of dialogs show no pictures: only some of a row would have one. Texts
// that stand in for what is to be typed are as dark or as light as it takes to read them.
class TickStyle : public QProxyStyle {
    Q_OBJECT
public:
    // Of the style that the application has by then.
    TickStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget = nullptr) const override;
    void polish(QWidget *widget) override;
    void unpolish(QWidget *widget) override;
    using QProxyStyle::polish, QProxyStyle::unpolish;
    // The arrows of a bar that has more than it has room for have the colour of its texts, and the picture
    // for clearing a field is read when it is first painted.
    QIcon standardIcon(StandardPixmap icon, const QStyleOption *option = nullptr,
                       const QWidget *widget = nullptr) const override;
    bool eventFilter(QObject *watched, QEvent *event) override; // of fields: their colours may differ now
    int styleHint(StyleHint hint, const QStyleOption *option = nullptr, const QWidget *widget = nullptr,
                  QStyleHintReturn *result = nullptr) const override;

private:
    bool mends_; // the frames
};

// The frame of a box on that palette: seen on the box and on the window alike.
QColor FrameOfTick(const QPalette &palette);

// How far the luminances of two opaque colours are apart, 1 to 21, as WCAG 2 defines it.
double Contrast(const QColor &a, const QColor &b);
// `text` where it can be read on `ground`, at a contrast of 4.5, else moved towards `ink` as far as it takes.
QColor Readable(const QColor &text, const QColor &ground, const QColor &ink);
// Of what a field shows while nothing is typed, in the colours that it has now.
void MakePlaceholderReadable(QLineEdit &field);

} // namespace widgets
