// A long menu in columns, so that it fits the screen.
#pragma once

#include "widgets/ProgramStyle.h"

#include <QSize>

namespace mainwindow {

// How many entries stand below each other, and how high each is.
struct ColumnPlan {
    int rows;
    int height; // pixels
};
// Of `count` entries of that size on a screen of that size: columns of equal length, as few as take up at
// most a good half of the screen's height, but no more than fit its width. Where that isn't enough, lower
// entries, down to `leastHeight`.
ColumnPlan PlanColumns(int count, const QSize &entry, int leastHeight, const QSize &screen);

// The style of one menu: that of the program, but with columns instead of scrolling.
class ColumnStyle : public widgets::ProgramStyle {
    Q_OBJECT
public:
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *result) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
                           const QWidget *widget) const override;
};

} // namespace mainwindow
