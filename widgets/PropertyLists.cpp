#include "widgets/PropertyLists.h"

#include "diagram/model/AutomaticStyle.h"
#include "diagram/shapes/Arrows.h"
#include "diagram/shapes/LinkStyles.h"
#include "diagram/shapes/Shapes.h"
#include "diagram/shapes/Tables.h"
#include "support/Val.h"

#include <QComboBox>
#include <QCoreApplication>

namespace widgets {

namespace {

constexpr int kLargestDrawWidth = 8;
constexpr int kLargestMargin = 50;

using Entries = std::vector<ListEntry>;

template <auto Table>
Entries Rows() {
    Entries entries;
    for (const auto &row : Table()) entries.push_back({QString::fromLatin1(row.name), row.value});
    return entries;
}

template <int Last>
Entries Numbers() {
    Entries entries;
    for (int number = 0; number <= Last; ++number) entries.push_back({QString::number(number), number});
    return entries;
}

Entries Routings() {
    Entries entries = Rows<&diagram::LinkStyleTable>();
    entries.push_back({QCoreApplication::translate("widgets::PropertyLists", "Automatic orthogonal"),
                       diagram::kAutomaticStyle});
    return entries;
}

struct ListRow {
    ListOf what;
    Entries (*entries)();
};
constexpr ListRow kLists[] = {
    {ListOf::Shapes, Rows<&diagram::ShapeTable>},
    {ListOf::Orientations, Rows<&diagram::OrientationTable>},
    {ListOf::DrawStyles, Rows<&diagram::LineStyleTable>},
    {ListOf::DrawWidths, Numbers<kLargestDrawWidth>},
    {ListOf::Shadows, Rows<&diagram::ShadowTable>},
    {ListOf::AutoSizes, Rows<&diagram::AutoSizeTable>},
    {ListOf::Alignments, Rows<&diagram::AlignmentTable>},
    {ListOf::Margins, Numbers<kLargestMargin>},
    {ListOf::PicturePositions, Rows<&diagram::PicturePosTable>},
    {ListOf::Arrows, Rows<&diagram::ArrowTable>},
    {ListOf::ArrowSizes, Rows<&diagram::ArrowSizeTable>},
    {ListOf::LinkStyles, Rows<&diagram::LinkStyleTable>},
    {ListOf::Routings, Routings},
    {ListOf::JumpStyles, Rows<&diagram::JumpStyleTable>},
};

} // namespace

std::vector<ListEntry> EntriesOf(ListOf what) {
    for (const ListRow &row : kLists)
        if (row.what == what) return row.entries();
    return {};
}

void FillList(QComboBox &list, ListOf what) {
    list.setIconSize(kPictureSize);
    for (const ListEntry &entry : EntriesOf(what)) {
        const QIcon picture = PictureOf(what, entry.value);
        if (picture.isNull())
            list.addItem(entry.text, entry.value);
        else
            list.addItem(picture, entry.text, entry.value);
    }
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
