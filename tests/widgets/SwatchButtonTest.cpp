#include "widgets/SwatchButton.h"

#include "support/testing/ScriptedDesktop.h"

#include <gtest/gtest.h>
#include <QImage>
#include <QSignalSpy>

namespace widgets::testing {

class Swatches : public ::testing::Test {
protected:
    support::testing::ScriptedDesktop desktop;
    SwatchButton swatch{desktop.Get(), QStringLiteral("cmdChangeFill"), QStringLiteral("picFillColor"),
                        QStringLiteral("Fill Color"), nullptr};
};

TEST_F(Swatches, ShowTheirColourAndSayIt) {
    swatch.SetValue(support::Rgb(0, 0, 128));
    swatch.resize(swatch.sizeHint());
    EXPECT_EQ(swatch.grab().toImage().pixelColor(swatch.rect().center()), QColor(0, 0, 128));
    EXPECT_EQ(swatch.accessibleName(), QStringLiteral("Fill Color: dark blue"));
    swatch.SetValue(support::Rgb(1, 2, 3));
    EXPECT_EQ(swatch.accessibleName(), QStringLiteral("Fill Color: red 1, green 2, blue 3"));
}

TEST_F(Swatches, CarryTheNamesOfButtonAndField) {
    EXPECT_EQ(swatch.objectName(), QStringLiteral("cmdChangeFill"));
    EXPECT_NE(swatch.findChild<QWidget *>(QStringLiteral("picFillColor")), nullptr);
}

TEST_F(Swatches, AClickAsksForAColour) {
    QSignalSpy changed(&swatch, &SwatchButton::Changed);
    swatch.SetValue(0x123456);
    desktop.ExpectColour(0x654321);
    swatch.click();
    EXPECT_EQ(swatch.Value(), 0x654321);
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(desktop.dialogs.startColours, std::vector<support::Colour>{0x123456});
}

TEST_F(Swatches, ACancelledChoiceLeavesTheColour) {
    QSignalSpy changed(&swatch, &SwatchButton::Changed);
    swatch.SetValue(0x123456);
    desktop.ExpectColour(support::kNoColour);
    swatch.click();
    EXPECT_EQ(swatch.Value(), 0x123456);
    EXPECT_EQ(changed.count(), 0);
}

} // namespace widgets::testing
