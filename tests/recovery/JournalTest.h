// What the tests of the journal share: a window of plain memory with a journal, and what it left.
#pragma once

#include "recovery/Journal.h"
#include "recovery/LostMaps.h"
#include "recovery/Restore.h"
#include "tests/diagram/model/RandomSurface.h"
#include "tests/document/MapTest.h"

namespace recovery::testing {

// A window with its journal. What is typed, and whether it is busy, are told here.
class KeptWindow : public JournalSource {
public:
    KeptWindow(std::unique_ptr<document::MemoryWindow> window, const QString &root);

    document::MapWindow &Window() override { return *window_; }
    QString Caption() override { return window_->caption; }
    bool HasUnsavedWork() override { return unsaved; }
    std::optional<TypedText> Typed() override { return typed; }
    bool IsBusy() override { return busy; }
    void JournalFailed(const QString &why) override { failures.append(why); }

    document::MemoryWindow &Memory() { return *window_; }
    diagram::Surface &Slice(int index) { return window_->AddFlow1()[index]; }
    // A node with that text, as an edit of the user's.
    diagram::Node &AddNode(const QString &text, int slice = 0);

    bool unsaved = true, busy = false;
    std::optional<TypedText> typed;
    QStringList failures;

private:
    std::unique_ptr<document::MemoryWindow> window_;

public:
    Journal journal; // goes first
};

class JournalTest : public document::testing::MapTest {
protected:
    QString Root() const { return MapFile(QStringLiteral("state")); }
    std::unique_ptr<KeptWindow> NewKept() { return std::make_unique<KeptWindow>(NewWindow(), Root()); }
    // The maps that a start now would offer.
    std::vector<LostMap> Lost() const { return FindLostMaps(Root()); }
    // The one that it would offer, read.
    KeptMap OnlyLost() const;
    // The only lost map in a new window.
    std::unique_ptr<document::MemoryWindow> Restored();
    // How many folders of journals there are.
    int Folders() const;
    // The bytes of the only journal.
    QByteArray JournalBytes() const;
};

// The texts of all nodes of all slices, sorted.
QStringList Texts(document::MapWindow &window);
QStringList Texts(const KeptMap &map);
// Everything of the window as text, with nothing selected, keys of levels, groups and items included.
QString Whole(document::MapWindow &window);

} // namespace recovery::testing
