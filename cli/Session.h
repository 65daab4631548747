// What a command works in: a desktop without windows, and a window of plain memory that holds the map.
#pragma once

#include "document/MemoryWindow.h"
#include "output/model/FilterChoice.h"
#include "support/headless/HeadlessDesktop.h"

#include <QTextStream>

namespace cli {

// Shows nothing and answers yes. The one question of a load is whether a slice looks right that has a
// companion file beside the map (document::CompanionFile); after yes the slice stays as the map has it.
class ConsoleBoxes : public support::MessageBoxes {
public:
    support::Answer Show(const QString &, support::Buttons buttons, support::Icon, const QString &,
                         support::EnterPresses) override {
        return buttons == support::Buttons::YesNo ? support::Answer::Yes : support::Answer::Ok;
    }
    QString InputBox(const QString &, const QString &, const QString &) override { return {}; }
};

// Never short of memory: a command runs in a process of its own, so it can't endanger a map that is open.
class PlentyOfMemory : public support::MemoryProbe {
public:
    support::MemoryReading Read() override { return {100, std::nullopt}; }
};

// While it lives, its desktop is the current one, and temporary files come into a folder of its own, which
// goes with it. The user's settings and recent files stay as they are. One at a time.
class Session {
public:
    Session();
    ~Session();
    Session(const Session &) = delete;
    Session &operator=(const Session &) = delete;

    // Loads the map into the window and gives that; raises the error of a load that fails. The file stays as
    // it is: a map of an early version, which a load brings up to date, is loaded from a copy.
    document::MemoryWindow &Open(const QString &path);
    // Saves the map under its path, or under another, and tells of a former file that was kept.
    void Save(QTextStream &out);
    void SaveAs(const QString &path, QTextStream &out);
    // A path in the temporary folder at which no file stands yet.
    QString ScratchFile();
    // Empty until a map is opened.
    document::MemoryWindow &Window() { return window_; }

private:
    class ScratchFolder;
    QString CopyOf(const QString &path);
    std::unique_ptr<ScratchFolder> scratch_;
    support::HeadlessDesktop headless_;
    ConsoleBoxes boxes_;
    PlentyOfMemory memory_;
    support::Desktop desktop_;
    document::MemoryWindow window_;
    int files_ = 0;
};

// Filters the window's slices by what the command line chose, and tells which levels and groups of its view
// the map no longer has.
void ShowOnly(document::MapWindow &window, const output::FilterChoice &choice, QTextStream &out);

// Makes the slice's visible area as large as its content: the strip of months is laid out along its edges.
void GiveSize(diagram::Surface &slice);

// The slice of that number, counted from 1; its tab becomes the current one. Error 9 when the map has no such
// slice.
diagram::Surface &SliceOf(document::MapWindow &window, int number);

} // namespace cli
