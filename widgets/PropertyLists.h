// The lists that the properties of nodes and links are chosen from.
#pragma once

#include <QIcon>
#include <QSize>
#include <QString>
#include <vector>

class QComboBox;

namespace widgets {

enum class ListOf {
    Shapes,
    Orientations,
    DrawStyles,
    DrawWidths, // 0 to 8
    Shadows,
    AutoSizes,
    Alignments,
    Margins, // 0 to 50
    PicturePositions,
    Arrows,
    ArrowSizes,
    LinkStyles,
    Routings, // the link styles, and behind them diagram::kAutomaticStyle
    JumpStyles
};

struct ListEntry {
    QString text;
    int value; // as it is stored
};
std::vector<ListEntry> EntriesOf(ListOf what);

// Puts the entries into the empty list: the text, the stored value as data, and a picture where one says more
// than the text. Nothing is painted before it is seen.
void FillList(QComboBox &list, ListOf what);

// Selects the entry of that value. One that the list doesn't have gets an entry of its own behind the others,
// so that it can be kept.
void ShowValue(QComboBox &list, double value);
// What the selected entry stands for; 0 for none.
double ValueOf(const QComboBox &list);

// An entry as the diagram's own renderer paints it, in the colours of the palette; a null icon for lists
// without pictures.
QIcon PictureOf(ListOf what, int value);
constexpr QSize kPictureSize(36, 20); // pixels

} // namespace widgets
