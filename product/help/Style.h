// How the pages look: measures in device pixels of 1/1200 inch.
#pragma once

#include <QColor>
#include <QFont>

namespace product::style {

inline constexpr int kResolution = 1200;
constexpr double Points(double points) { return points * kResolution / 72.0; }
constexpr double Millimetres(double millimetres) { return millimetres * kResolution / 25.4; }

inline constexpr double kSideMargin = Millimetres(26);
inline constexpr double kTopMargin = Millimetres(22);
inline constexpr double kBottomMargin = Millimetres(28);
inline constexpr double kFootFromBottom = Millimetres(15);

inline constexpr double kTextSize = 11; // points, like all sizes
inline constexpr double kTitleSize = 30;
inline constexpr double kSmallSize = 9.5;
inline constexpr double kCodeShare = 0.88;  // of the size of the text around
inline constexpr double kLineHeight = 1.12; // of what the font asks for
inline constexpr double kPictureDots = 140; // an inch, at least: a picture is not shown larger

inline const QColor kInk(0x22, 0x26, 0x2d);
inline const QColor kHeading(0x1f, 0x4f, 0xae);
inline const QColor kQuiet(0x6a, 0x71, 0x7d);
inline const QColor kRule(0xcf, 0xd5, 0xdf);
inline const QColor kTableHead(0xee, 0xf3, 0xfb);

// Of a heading of level 1 and more, in points.
double HeadingSize(int level);
QFont TextFont(double points);
QFont CodeFont(double points);

} // namespace product::style
