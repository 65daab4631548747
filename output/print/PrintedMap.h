// What is printed: copies of the slices as they stand, so that pages outlive the map and its window, and
// nothing that a preview does reaches them.
#pragma once

#include "diagram/scene/Scene.h"
#include "output/print/PageSetup.h"

#include <memory>
#include <QDateTime>
#include <QString>
#include <QStringList>
#include <vector>

namespace document {
class MapWindow;
}

namespace print {

constexpr int kPlainZoom = 100; // per cent: a slice on paper as large as it is

// The content, the look of the grid and the size of what is seen; at the plain zoom, without events and
// history.
std::unique_ptr<diagram::Surface> CopyOf(const diagram::Surface &surface);

struct PrintedSlice {
    std::unique_ptr<diagram::Surface> surface;
    std::unique_ptr<diagram::Scene> scene; // of that surface, which must live longer
    QString caption;

    PrintedSlice(std::unique_ptr<diagram::Surface> copy, QString name);
    ~PrintedSlice();
    PrintedSlice(PrintedSlice &&) = default;
    PrintedSlice &operator=(PrintedSlice &&) = delete;
};

struct PrintedMap {
    QString title; // the name of the file without its ending; the word for a map where there is none
    QString file;  // the name of the file; empty for a map that was not saved yet
    QDateTime made;
    std::vector<PrintedSlice> slices; // in the order of the tabs
    int current = 0;                  // position of the one that counts as this one
};

// Whether the slice with that position is printed, where `current` is the one that counts as this one.
bool IsPrinted(const PageSetup &setup, int slice, int current);
// The slices that are printed; those that aren't are empty. The time is that of the window's clock.
PrintedMap CopyMap(document::MapWindow &window, const PageSetup &setup, int current);

// By what a slice is known again after slices were renamed, moved or deleted, or another map was opened.
struct SliceMark {
    QString key, caption; // of its tab
    int tabs = 0;         // of its window
    QString file;         // of the map
    QStringList nodes;    // keys of some
};
SliceMark MarkOf(document::MapWindow &window, int tab);
// The tab at which the slice stands now; -1 once it is gone.
int TabOf(document::MapWindow &window, const SliceMark &mark);

} // namespace print
