#include "widgets/ProgramStyle.h"

#include "support/Contrast.h"

#include <gtest/gtest.h>
#include <QApplication>
#include <QCheckBox>
#include <QListWidget>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleOption>

namespace widgets::testing {

namespace {

constexpr double kSeen = 3; // the contrast from which a frame can be told from what is around it

QPalette Palette(bool dark) {
    const QColor window = dark ? QColor(45, 45, 48) : QColor(239, 239, 239);
    QPalette palette(window);
    palette.setColor(QPalette::Base, dark ? QColor(30, 30, 30) : QColor(Qt::white));
    palette.setColor(QPalette::Text, dark ? QColor(220, 220, 220) : QColor(Qt::black));
    return palette;
}

// The best contrast with `ground` that the pixels of `row` have, between the columns.
double BestContrast(const QImage &image, int row, int from, int to, const QColor &ground) {
    double best = 1;
    for (int x = from; x < to; ++x)
        best = std::max(best, support::Contrast(image.pixelColor(x, row), ground));
    return best;
}

// The worst contrast of the frame's four sides, each in its middle.
double FrameContrast(const QImage &image, const QRect &box, const QColor &ground) {
    const QPoint middle = box.center();
    double worst = 100;
    for (const QPoint &at : {QPoint(box.left(), middle.y()), QPoint(box.right(), middle.y()),
                             QPoint(middle.x(), box.top()), QPoint(middle.x(), box.bottom())})
        worst = std::min(worst, support::Contrast(image.pixelColor(at), ground));
    return worst;
}

// An empty box, painted alone.
QImage PaintedBox(const QStyle &style, QStyle::PrimitiveElement element, const QPalette &palette) {
    QImage image(20, 20, QImage::Format_ARGB32_Premultiplied);
    image.fill(palette.color(QPalette::Base));
    QStyleOptionButton option;
    option.rect = QRect(3, 3, 14, 14);
    option.palette = palette;
    option.state = QStyle::State_Enabled | QStyle::State_Active | QStyle::State_Off;
    QPainter painter(&image);
    style.drawPrimitive(element, &option, &painter);
    return image;
}

} // namespace

class Ticks : public ::testing::TestWithParam<bool> {
protected:
    void TearDown() override { QApplication::setPalette(QPalette()); }
    const QPalette palette = Palette(GetParam());
    ProgramStyle style;
};

TEST_P(Ticks, TheFrameIsSeenOnTheBoxAndOnTheWindow) {
    for (const auto element : {QStyle::PE_IndicatorCheckBox, QStyle::PE_IndicatorItemViewItemCheck}) {
        const QImage image = PaintedBox(style, element, palette);
        for (const auto ground : {QPalette::Base, QPalette::Window})
            EXPECT_GE(FrameContrast(image, QRect(3, 3, 14, 14), palette.color(ground)), kSeen);
    }
}

TEST_P(Ticks, ATickIsStillTold) {
    QStyleOptionButton option;
    option.rect = QRect(3, 3, 14, 14);
    option.palette = palette;
    option.state = QStyle::State_Enabled | QStyle::State_On;
    QImage image = PaintedBox(style, QStyle::PE_IndicatorCheckBox, palette);
    const QImage unticked = image;
    QPainter painter(&image);
    style.drawPrimitive(QStyle::PE_IndicatorCheckBox, &option, &painter);
    painter.end();
    EXPECT_NE(image, unticked);
}

TEST_P(Ticks, UntickedRowsOfAListShowTheirBoxes) {
    QListWidget list;
    list.setStyle(&style);
    list.setPalette(palette);
    auto *item = new QListWidgetItem(QStringLiteral("Level"), &list);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
    item->setCheckState(Qt::Unchecked);
    list.resize(120, 60);
    list.show();
    const QImage image = list.viewport()->grab().toImage();
    const QRect row = list.visualItemRect(item);
    EXPECT_GE(
        BestContrast(image, row.center().y(), row.left(), row.left() + 10, palette.color(QPalette::Base)),
        kSeen);
}

INSTANTIATE_TEST_SUITE_P(LightAndDark, Ticks, ::testing::Bool());

TEST(ProgramStyles, KeepTheFrameOfABoxThatHasTheFocus) {
    const ProgramStyle style;
    const QPalette palette = Palette(false);
    QStyleOptionButton option;
    option.rect = QRect(3, 3, 14, 14);
    option.palette = palette;
    option.state = QStyle::State_Enabled | QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange;
    QImage here(20, 20, QImage::Format_ARGB32_Premultiplied), there(here);
    here.fill(Qt::white);
    there.fill(Qt::white);
    QPainter first(&here), second(&there);
    style.drawPrimitive(QStyle::PE_IndicatorCheckBox, &option, &first);
    style.baseStyle()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &option, &second);
    EXPECT_EQ(here, there);
}

TEST(ProgramStyles, ButtonsOfDialogsShowNoPictures) {
    class WantsPictures : public QProxyStyle {
        int styleHint(StyleHint, const QStyleOption *, const QWidget *, QStyleHintReturn *) const override {
            return 1;
        }
    };
    ProgramStyle style;
    style.setBaseStyle(new WantsPictures);
    EXPECT_EQ(style.styleHint(QStyle::SH_DialogButtonBox_ButtonsHaveIcons), 0);
    EXPECT_EQ(style.styleHint(QStyle::SH_UnderlineShortcut), 1);
}

// Of the darkest or lightest pixel of a picture on a window of that colour.
double ContrastOf(const QIcon &icon, const QColor &window) {
    QImage image(10, 20, QImage::Format_ARGB32_Premultiplied);
    image.fill(window);
    QPainter painter(&image);
    icon.paint(&painter, image.rect());
    painter.end();
    double most = 1;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            most = std::max(most, support::Contrast(image.pixelColor(x, y), window));
    return most;
}

TEST(ProgramStyles, TheArrowsOfABarWithoutRoomAreSeenOnAnyPalette) {
    const ProgramStyle style;
    for (const bool dark : {false, true}) {
        const QPalette palette = Palette(dark);
        QApplication::setPalette(palette);
        for (const QStyle::StandardPixmap arrows :
             {QStyle::SP_ToolBarHorizontalExtensionButton, QStyle::SP_ToolBarVerticalExtensionButton})
            EXPECT_GE(ContrastOf(style.standardIcon(arrows), palette.color(QPalette::Window)), 4.5);
    }
    QApplication::setPalette(QPalette());
}

TEST(ProgramStyles, TheArrowsPointToWhereTheBarGoesOn) {
    const QIcon icon = ProgramStyle().standardIcon(QStyle::SP_ToolBarHorizontalExtensionButton);
    const QImage right = icon.pixmap(10, 20).toImage();
    EXPECT_NE(right, right.mirrored(true, false));
    EXPECT_EQ(right, right.mirrored(false, true));
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    const QImage left =
        ProgramStyle().standardIcon(QStyle::SP_ToolBarHorizontalExtensionButton).pixmap(10, 20).toImage();
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
    EXPECT_EQ(left, right.mirrored(true, false));
}

TEST(ProgramStyles, ThePictureForClearingAFieldIsTheStylesOwn) {
    const ProgramStyle style;
    const QIcon ours = style.standardIcon(QStyle::SP_LineEditClearButton);
    const QIcon theirs = style.baseStyle()->standardIcon(QStyle::SP_LineEditClearButton);
    ASSERT_FALSE(theirs.isNull());
    EXPECT_FALSE(ours.isNull());
    for (const double ratio : {1.0, 2.0}) {
        const QPixmap here = ours.pixmap(QSize(16, 16), ratio), there = theirs.pixmap(QSize(16, 16), ratio);
        EXPECT_EQ(here.toImage(), there.toImage());
        EXPECT_EQ(here.devicePixelRatio(), there.devicePixelRatio());
    }
}

} // namespace widgets::testing
