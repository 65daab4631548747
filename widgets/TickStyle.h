// The style of the program's controls.
#pragma once

#include <QProxyStyle>

namespace widgets {

// The platform's style, with frames around boxes to tick that can be seen on any palette. Where that style
// draws the frame from the colour of the window alone, it is as dark as the box on a dark palette; other
// styles are left as they are. Buttons of dialogs show no pictures: only some of a row would have one.
class TickStyle : public QProxyStyle {
    Q_OBJECT
public:
    // Of the style that the application has by then.
    TickStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget = nullptr) const override;
    int styleHint(StyleHint hint, const QStyleOption *option = nullptr, const QWidget *widget = nullptr,
                  QStyleHintReturn *result = nullptr) const override;

private:
    bool mends_; // the frames
};

// The frame of a box on that palette: seen on the box and on the window alike.
QColor FrameOfTick(const QPalette &palette);

} // namespace widgets
