// What a command works in: a desktop without windows and a window of plain memory.
#pragma once

#include "document/MemoryWindow.h"
#include "output/model/FilterChoice.h"
#include "support/headless/HeadlessDesktop.h"

#include <QTextStream>

namespace cli {

// A map that lies beside a developer's companion files is shown as it is.
class ConsoleBoxes : public support::MessageBoxes {
public:
    support::Answer Show(const QString &, support::Buttons buttons, support::Icon, const QString &,
                         support::EnterPresses) override {
        return buttons == support::Buttons::YesNo ? support::Answer::Yes : support::Answer::Ok;
    }
    QString InputBox(const QString &, const QString &, const QString &) override { return {}; }
};

// Memory is never short: a command of its own process endangers no open map.
class PlentyOfMemory : public support::MemoryProbe {
public:
    support::MemoryReading Read() override { return {100, std::nullopt}; }
};

// Leaves no trace in the user's settings and recent files. Its temporary files go with it.
class Session {
public:
    Session();
    ~Session();
    Session(const Session &) = delete;
    Session &operator=(const Session &) = delete;

    // The window with the map read. An error of the load is raised. The file stays as it is: a map of an
    // early version, which opening brings up to date, is opened as a copy.
    document::MemoryWindow &Open(const QString &path);
    // A path that no file stands at and that goes with the session.
    QString ScratchFile();
    // The window as it is: empty at first.
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

// Shows what the command line chose, and tells of what its view ticks and the map has no more.
void ShowOnly(document::MapWindow &window, const output::FilterChoice &choice, QTextStream &out);

// The page that the content needs: the strip of months is laid out along the edges of what is seen.
void GiveSize(diagram::Surface &slice);

// A slice, counted from 1, whose tab becomes the current one. Error 9 for one that isn't there.
diagram::Surface &SliceOf(document::MapWindow &window, int number);

} // namespace cli
