#include "widgets/PropertyLists.h"

#include "diagram/model/AutomaticStyle.h"

#include <gtest/gtest.h>
#include <QApplication>
#include <QComboBox>
#include <QPalette>
#include <set>

namespace widgets::testing {

namespace {

struct ListCase {
    ListOf what;
    int count;
    int entry; // one of them: its position, text and value
    const char *text;
    int value;
    bool pictured;
};
constexpr ListCase kCases[] = {
    {ListOf::Shapes, 44, 43, nullptr, 77, true},
    {ListOf::Orientations, 4, 3, "Angle 270", 3, true},
    {ListOf::DrawStyles, 7, 6, "Inside Solid", 6, true},
    {ListOf::DrawWidths, 9, 8, "8", 8, true},
    {ListOf::Shadows, 5, 4, "Left Bottom Shadow", 4, true},
    {ListOf::AutoSizes, 4, 2, "Adjust Node Size to Picture ", 2, false},
    {ListOf::Alignments, 9, 7, "Center Justify - Middle", 7, false},
    {ListOf::Margins, 51, 50, "50", 50, false},
    {ListOf::PicturePositions, 10, 9, "Relative to Text", 9, false},
    {ListOf::Arrows, 33, 32, nullptr, 32, true},
    {ListOf::ArrowSizes, 3, 2, "Big", 2, true},
    {ListOf::LinkStyles, 15, 14, nullptr, 14, true},
    {ListOf::Routings, 16, 15, "Automatic orthogonal", diagram::kAutomaticStyle, true},
    {ListOf::JumpStyles, 3, 0, nullptr, 0, true},
};

QImage Painted(ListOf what, int value, const QSize &size = kPictureSize, QIcon::Mode mode = QIcon::Normal) {
    return PictureOf(what, value).pixmap(size, mode).toImage();
}

bool IsEmpty(const QImage &image) {
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y)) > 0) return false;
    return true;
}

// The mean lightness of what is drawn, by how much it covers.
double Lightness(const QImage &image) {
    double sum = 0, weight = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const QColor colour = image.pixelColor(x, y);
            sum += double(colour.lightness()) * colour.alphaF();
            weight += colour.alphaF();
        }
    return sum / weight;
}

} // namespace

TEST(PropertyLists, OfferEveryStoredValueWithItsText) {
    for (const ListCase &row : kCases) {
        QComboBox list;
        FillList(list, row.what);
        ASSERT_EQ(list.count(), row.count) << int(row.what);
        EXPECT_EQ(list.itemData(row.entry).toInt(), row.value) << int(row.what);
        if (row.text) {
            EXPECT_EQ(list.itemText(row.entry), QLatin1String(row.text));
        }
        EXPECT_EQ(!list.itemIcon(row.entry).isNull(), row.pictured) << int(row.what);
    }
}

TEST(PropertyLists, ShowTheValueAndGiveItBack) {
    QComboBox list;
    FillList(list, ListOf::Shapes);
    ShowValue(list, 50);
    EXPECT_EQ(list.currentIndex(), 16);
    EXPECT_EQ(ValueOf(list), 50);
    EXPECT_EQ(list.count(), 44);
}

TEST(PropertyLists, AValueThatTheListDoesNotHaveGetsAnEntryOfItsOwn) {
    QComboBox list;
    FillList(list, ListOf::DrawWidths);
    for (const double width : {9.0, 1.5}) {
        ShowValue(list, width);
        EXPECT_EQ(ValueOf(list), width);
    }
    EXPECT_EQ(list.count(), 11);
    EXPECT_EQ(list.itemText(9), QStringLiteral("9"));
    EXPECT_EQ(list.itemText(10), QStringLiteral("1.5"));
    ShowValue(list, 9);
    EXPECT_EQ(list.count(), 11);
}

TEST(PropertyLists, NoEntryStandsForNothing) { EXPECT_EQ(ValueOf(QComboBox()), 0); }

// Some entries look alike: five shapes come under two names.
TEST(PropertyPictures, AreThoseOfTheEntries) {
    struct Distinct {
        ListOf what;
        std::size_t atLeast;
    };
    for (const Distinct &row :
         {Distinct{ListOf::Shapes, 39}, Distinct{ListOf::Arrows, 33}, Distinct{ListOf::LinkStyles, 15},
          Distinct{ListOf::Routings, 16}, Distinct{ListOf::DrawStyles, 6}, Distinct{ListOf::Shadows, 5},
          Distinct{ListOf::Orientations, 4}, Distinct{ListOf::ArrowSizes, 3},
          Distinct{ListOf::JumpStyles, 3}}) {
        QComboBox list;
        FillList(list, row.what);
        std::set<QByteArray> pictures;
        for (int i = 0; i < list.count(); ++i) {
            const QImage image = Painted(row.what, list.itemData(i).toInt());
            pictures.insert(
                QByteArray(reinterpret_cast<const char *>(image.constBits()), image.sizeInBytes()));
        }
        EXPECT_GE(pictures.size(), row.atLeast) << int(row.what);
    }
}

TEST(PropertyPictures, ShowSomethingUnlessTheEntryIsNothing) {
    EXPECT_FALSE(IsEmpty(Painted(ListOf::Shapes, 1)));
    EXPECT_FALSE(IsEmpty(Painted(ListOf::DrawStyles, 1)));
    EXPECT_TRUE(IsEmpty(Painted(ListOf::DrawStyles, 5))); // "Transparent"
}

TEST(PropertyPictures, AreAsSharpAsTheScreen) {
    EXPECT_EQ(Painted(ListOf::Shapes, 2, kPictureSize * 2).size(), kPictureSize * 2);
    EXPECT_NE(Painted(ListOf::Shapes, 2, kPictureSize * 2),
              Painted(ListOf::Shapes, 2)
                  .scaled(kPictureSize * 2, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                  .convertToFormat(Painted(ListOf::Shapes, 2, kPictureSize * 2).format()));
}

TEST(PropertyPictures, FollowThePalette) {
    const QPalette former = QApplication::palette();
    const QIcon icon = PictureOf(ListOf::Arrows, 5);
    const double onLight = Lightness(icon.pixmap(kPictureSize).toImage());
    QPalette dark = former;
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    dark.setColor(QPalette::Text, QColor(240, 240, 240));
    QApplication::setPalette(dark);
    const double onDark = Lightness(icon.pixmap(kPictureSize).toImage());
    QApplication::setPalette(former);
    EXPECT_LT(onLight, 100);
    EXPECT_GT(onDark, 180);
}

} // namespace widgets::testing
