// How pages are set up, as the user chose it and as it lasts from one run to the next.
#pragma once

#include <QMarginsF>
#include <QSizeF>
#include <QString>
#include <QStringList>
#include <vector>

namespace print {

constexpr int kPortrait = 1, kLandscape = 2;

enum class Slices { This, All, Chosen };

// Pages from 1; 0 leaves that side open.
struct PageRange {
    int from = 0, to = 0;
    bool Holds(int page) const { return page >= from && (to == 0 || page <= to); }
    friend bool operator==(const PageRange &, const PageRange &) = default;
};

struct PageSetup {
    QString Footer, Header;
    int Orientation = kPortrait;
    bool FitToPage = true;
    QString paper;                     // a key of PaperKeys; any other text counts as A4
    QMarginsF margins{15, 15, 15, 15}; // millimetres of the sheet as it is held
    bool marks = false;                // pages overlap and have marks for gluing
    bool keepWhole = false;            // breaks between pages give way to nodes
    bool grid = false;                 // printed where the slice shows it
    Slices slices = Slices::This;
    // Of this map alone, so no later run has them.
    std::vector<int> chosen; // positions of tabs, for Slices::Chosen
    PageRange range;
};

constexpr double kWidestMargin = 100; // millimetres

// The sizes of paper that can be chosen, by the names that never change, and as users know them.
QStringList PaperKeys();
QString PaperName(const QString &key);
QSizeF PaperSize(const QString &key); // upright, millimetres
// What the user's country has in its printers.
QString UsualPaper();

// From and to the stored settings. What is not stored stays as it is, and so does what makes no sense.
void LoadSetup(PageSetup &setup);
void SaveSetup(const PageSetup &setup);

// "2", "2-4", "-3", "5-", and an empty text for all pages. False for any other, and `range` stays as it is.
bool ReadRange(const QString &text, PageRange &range);
QString RangeText(const PageRange &range);

} // namespace print
