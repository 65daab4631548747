#include "output/mapimport/DoImportMap.h"

#include "diagram/format/SurfaceFile.h"
#include "diagram/model/Surface.h"
#include "document/BusyWindow.h"
#include "document/DoLoad.h"
#include "document/MemoryWindow.h"
#include "document/OpenMap.h"
#include "output/mapimport/Belongings.h"
#include "settings/Settings.h"
#include "support/AtomicFile.h"
#include "support/Error.h"
#include "support/Files.h"
#include "timeline/PrepFileForImport.h"

#include <QCoreApplication>
#include <QFile>

namespace output {

namespace {

using document::MapWindow;
using document::MemoryWindow;

// Reading a map of an early version needs its missing columns. They are added to a copy, since the file
// itself must not change.
class CopyOfOld {
public:
    explicit CopyOfOld(const QString &map) {
        if (!document::IsOldMap(map)) return;
        path_ = support::GetTempFile();
        support::CopyFileTo(map, path_);
        document::OpenMap(path_, false);
    }
    ~CopyOfOld() {
        if (!path_.isEmpty()) QFile::remove(path_);
    }
    CopyOfOld(const CopyOfOld &) = delete;
    CopyOfOld &operator=(const CopyOfOld &) = delete;

    const QString &Path() const { return path_; } // empty when none is needed

private:
    QString path_;
};

bool Load(MemoryWindow &other, const QString &map) {
    const CopyOfOld copy(map);
    const bool whole = document::LoadToRead(other, copy.Path().isEmpty() ? map : copy.Path());
    other.clsSettings().SetDatabase(map); // paths hold for its folder
    return whole;
}

// Slices behind those that the window has, taken away again unless they are kept.
class NewSlices {
public:
    explicit NewSlices(MapWindow &window)
        : window_(window), tab_(window.TabStrip().TheTab()), tabs_(window.TabStrip().TabCount()) {}
    ~NewSlices() {
        if (!kept_) support::Report("frmMain", "DoImportMap", [this] { TakeBack(); });
    }
    NewSlices(const NewSlices &) = delete;
    NewSlices &operator=(const NewSlices &) = delete;

    int FirstTab() const { return tabs_; }
    diagram::Surface &Add(const QString &caption) {
        diagram::Surface &surface = window_.AddFlow1().Load(window_.AddFlow1().UBound() + 1);
        ++added_;
        document::Tabs &tabs = window_.TabStrip();
        tabs.SetTabCount(tabs.TabCount() + 1);
        tabs.SetTheTab(tabs.TabCount() - 1);
        tabs.SetCaption(caption);
        return surface;
    }
    void Keep() { kept_ = true; }

private:
    void TakeBack() {
        window_.TabStrip().SetTheTab(tab_);
        for (; added_ > 0; --added_) window_.AddFlow1().Unload(window_.AddFlow1().UBound());
        window_.TabStrip().SetTabCount(tabs_);
    }

    MapWindow &window_;
    int tab_, tabs_;
    int added_ = 0;
    bool kept_ = false;
};

// `after` was made of `before`: their nodes have the same order, and other keys.
void NoteKeys(const diagram::Surface &before, const diagram::Surface &after, NewKeys &keys) {
    auto node = after.Nodes().begin();
    for (const diagram::Node &former : before.Nodes()) {
        if (!(node != after.Nodes().end())) return;
        keys.insert(former.Key(), (*node).Key());
        ++node;
    }
}

void BringSlice(MapWindow &window, MemoryWindow &other, diagram::Surface &from, diagram::Surface &to,
                NewKeys &keys) {
    diagram::LoadBytes(to, timeline::PrepBytesForImport(diagram::SaveBytes(from), window,
                                                        timeline::NamesOf(other.clsSettings())));
    to.SetPicture(from.Picture()); // the bytes have no background
    to.SetBackColor(from.BackColor());
    NoteKeys(from, to, keys);
}

// False when it was given up.
bool BringSlices(MapWindow &window, MemoryWindow &other, NewSlices &slices, NewKeys &keys, const GoOn &goOn) {
    int tab = 0; // where indexes have gaps the tabs have none
    for (const int index : other.AddFlow1().Indices()) {
        if (goOn && !goOn()) return false;
        const QString caption = other.TabStrip().TabCaption(tab++);
        window.DoStatus(QStringLiteral("Importing %1...").arg(caption));
        BringSlice(window, other, other.AddFlow1()[index], slices.Add(caption), keys);
    }
    keys.remove(QString());
    return true;
}

// False when it was given up. `missing` is what could not come along; nothing comes when memory runs short.
bool Bring(MapWindow &window, const QString &file, const GoOn &goOn, QStringList &missing) {
    const document::BusyWindow busy(window);
    window.DoStatus(QStringLiteral("Preparing for import..."));
    MemoryWindow other(window.Desktop(), document::EmptyPools());
    if (!Load(other, file)) {
        window.DoStatus(QString());
        return true;
    }
    NewSlices slices(window);
    NewKeys keys;
    if (!BringSlices(window, other, slices, keys, goOn)) {
        window.DoStatus(QString());
        return false;
    }
    missing = MissingNames(window, other);
    missing += BringHyperlinks(window, other, keys, slices.FirstTab());
    missing += BringAttachments(window, other, keys);
    slices.Keep();
    window.clsSettings().Dirty = true;
    window.DoStatus(QString());
    return true;
}

} // namespace

void TellWhatIsMissing(MapWindow &window, QStringList missing) {
    constexpr qsizetype kMost = 15; // lines
    if (missing.isEmpty()) return;
    if (const qsizetype more = missing.size() - kMost; more > 0) {
        missing = missing.mid(0, kMost);
        missing.append(QCoreApplication::translate("DoImportMap", "and %1 more").arg(more));
    }
    window.Desktop().messageBoxes.Show(
        QCoreApplication::translate("DoImportMap",
                                    "This could not be brought along. Nodes without their level or group "
                                    "have the first one that is ticked.\r\r%1")
            .arg(missing.join(u'\r')),
        support::Buttons::Ok, support::Icon::Information, settings::Terms().TITLE);
}

bool BringMap(MapWindow &window, const QString &File, const GoOn &goOn, QStringList &missing) {
    return support::PassOn("DoImportMap", [&] { return Bring(window, File, goOn, missing); });
}

void DoImportMap(MapWindow &window, const QString &File) {
    QStringList missing;
    BringMap(window, File, {}, missing);
    TellWhatIsMissing(window, missing);
}

} // namespace output
