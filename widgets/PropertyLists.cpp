#include "widgets/PropertyLists.h"

#include "diagram/shapes/Arrows.h"
#include "diagram/shapes/LinkStyles.h"
#include "diagram/shapes/Shapes.h"
#include "diagram/shapes/Tables.h"
#include "support/Val.h"

#include <QComboBox>

namespace widgets {

namespace {

constexpr int kLargestDrawWidth = 8;
constexpr int kLargestMargin = 50;

void Add(QComboBox &list, ListOf what, const QString &text, int value) {
    const QIcon picture = PictureOf(what, value);
    if (picture.isNull())
        list.addItem(text, value);
    else
        list.addItem(picture, text, value);
}

template <auto Table>
void AddRows(QComboBox &list, ListOf what) {
    for (const auto &row : Table()) Add(list, what, QString::fromLatin1(row.name), row.value);
}

template <int Last>
void AddNumbers(QComboBox &list, ListOf what) {
    for (int number = 0; number <= Last; ++number) Add(list, what, QString::number(number), number);
}

struct ListRow {
    ListOf what;
    void (*fill)(QComboBox &list, ListOf what);
};
constexpr ListRow kLists[] = {
    {ListOf::Shapes, AddRows<&diagram::ShapeTable>},
    {ListOf::Orientations, AddRows<&diagram::OrientationTable>},
    {ListOf::DrawStyles, AddRows<&diagram::LineStyleTable>},
    {ListOf::DrawWidths, AddNumbers<kLargestDrawWidth>},
    {ListOf::Shadows, AddRows<&diagram::ShadowTable>},
    {ListOf::AutoSizes, AddRows<&diagram::AutoSizeTable>},
    {ListOf::Alignments, AddRows<&diagram::AlignmentTable>},
    {ListOf::Margins, AddNumbers<kLargestMargin>},
    {ListOf::PicturePositions, AddRows<&diagram::PicturePosTable>},
    {ListOf::Arrows, AddRows<&diagram::ArrowTable>},
    {ListOf::ArrowSizes, AddRows<&diagram::ArrowSizeTable>},
    {ListOf::LinkStyles, AddRows<&diagram::LinkStyleTable>},
    {ListOf::JumpStyles, AddRows<&diagram::JumpStyleTable>},
};

} // namespace

void FillList(QComboBox &list, ListOf what) {
    list.setIconSize(kPictureSize);
    for (const ListRow &row : kLists)
        if (row.what == what) row.fill(list, what);
}

void ShowValue(QComboBox &list, double value) {
    int index = list.findData(value);
    if (index < 0) {
        list.addItem(support::CStr(float(value)), value);
        index = list.count() - 1;
    }
    list.setCurrentIndex(index);
}

double ValueOf(const QComboBox &list) { return list.currentData().toDouble(); }

} // namespace widgets
