#include "output/print/Unprintable.h"

#include <gtest/gtest.h>

namespace print {

TEST(Unprintable, WideEnoughMarginsAreNotWorthAWord) {
    EXPECT_EQ(TextOfSides({15, 15, 15, 15}, {}), QString());
    EXPECT_EQ(TextOfSides({4, 4, 4, 4}, {4, 4, 4, 4}), QString());
    EXPECT_EQ(TextOfSides({4, 4, 4, 4}, {4.05, 4.05, 4.05, 4.05}), QString());
}

TEST(Unprintable, EachSideThatIsTooNarrowIsNamedWithWhatThePrinterNeeds) {
    EXPECT_EQ(TextOfSides({15, 2, 15, 15}, {4, 4, 4, 4}),
              QStringLiteral("The printer needs wider margins: top 4.0 mm."));
    EXPECT_EQ(TextOfSides({0, 0, 0, 0}, {1, 2, 3.01, 4.23}),
              QStringLiteral(
                  "The printer needs wider margins: left 1.0 mm, top 2.0 mm, right 3.1 mm, bottom 4.3 mm."));
}

} // namespace print
