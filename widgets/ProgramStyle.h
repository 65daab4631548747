// The style of the program's controls.
#pragma once

#include <QProxyStyle>

class QLineEdit;

namespace widgets {

// The platform's style with these differences:
// - Boxes to tick have a frame that can be seen on any palette, where the style is Fusion: this draws the
// frame
//   from the colour of the window alone, so that on a dark palette it is as dark as the box.
// - Buttons of dialogs show no pictures, as only some of a row would have one.
// - Placeholder texts are as dark or as light as it takes to read them.
// - standardIcon has icons of its own.
class ProgramStyle : public QProxyStyle {
    Q_OBJECT
public:
    // On the style that the application has now.
    ProgramStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget = nullptr) const override;
    void polish(QWidget *widget) override;
    void unpolish(QWidget *widget) override;
    using QProxyStyle::polish, QProxyStyle::unpolish;
    // The arrows of a bar that has more than it has room for have the colour of its texts, and the picture
    // for clearing a field is read when it is first painted.
    QIcon standardIcon(StandardPixmap icon, const QStyleOption *option = nullptr,
                       const QWidget *widget = nullptr) const override;
    // Watches fields for another palette.
    bool eventFilter(QObject *watched, QEvent *event) override;
    int styleHint(StyleHint hint, const QStyleOption *option = nullptr, const QWidget *widget = nullptr,
                  QStyleHintReturn *result = nullptr) const override;

private:
    bool framesBoxes_; // where the platform's style doesn't show them well
};

// The frame of a box on that palette: seen on the box and on the window alike.
QColor FrameOfTick(const QPalette &palette);

// Gives the placeholder text of a field a colour that can be read in the palette that it has now.
void MakePlaceholderReadable(QLineEdit &field);

} // namespace widgets
