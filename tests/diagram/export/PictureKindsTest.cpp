#include "diagram/export/PictureKinds.h"

#include <gtest/gtest.h>

namespace diagram {

TEST(PictureKinds, AFileIsKnownByItsEnding) {
    ASSERT_NE(KindOfFile(QStringLiteral("a.b.SVG")), nullptr);
    EXPECT_EQ(KindOfFile(QStringLiteral("a.b.SVG"))->format, PictureFormat::Svg);
    EXPECT_EQ(KindOfFile(QStringLiteral("asvg")), nullptr);
    EXPECT_EQ(KindOfFile(QString()), nullptr);
}

TEST(PictureKinds, EachRowHasAnEndingAndATypeOfItsOwn) {
    const QStringList endings = PictureEndings();
    EXPECT_EQ(endings.size(), std::ssize(kPictureKinds));
    EXPECT_EQ(QStringList(endings).removeDuplicates(), 0);
    QStringList types;
    for (const PictureKind &kind : kPictureKinds) types << QLatin1String(kind.types[0]);
    EXPECT_EQ(types.removeDuplicates(), 0);
    EXPECT_FALSE(types.contains(QString()));
}

TEST(PictureKinds, TheWindowOffersThemByTheirPlacesFromOneOn) {
    const auto offered = OfferedPictures();
    ASSERT_FALSE(offered.empty());
    for (std::size_t i = 0; i < offered.size(); ++i) EXPECT_EQ(offered[i]->place, int(i) + 1);
    EXPECT_STREQ(offered.front()->caption, "Windows Meta File") << "the first of old";
}

} // namespace diagram
