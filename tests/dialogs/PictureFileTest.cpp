#include "dialogs/PictureFile.h"

#include <gtest/gtest.h>
#include <QDir>

namespace dialogs::testing {

TEST(PictureIn, GivesNoneForWhatIsMissingOrAFolder) {
    EXPECT_TRUE(PictureIn(QStringLiteral("/no/such/file.png")).IsNull());
    EXPECT_TRUE(PictureIn(QDir::tempPath()).IsNull());
}

TEST(IsNamedLikeAPicture, GoesByTheEnding) {
    for (const char *name : {"a.png", "b.JPG", "c.wmf", "d.emf", "e.svg"})
        EXPECT_TRUE(IsNamedLikeAPicture(QLatin1String(name))) << name;
    for (const char *name : {"a.map", "png", "b.png.txt", ""})
        EXPECT_FALSE(IsNamedLikeAPicture(QLatin1String(name))) << name;
}

} // namespace dialogs::testing
