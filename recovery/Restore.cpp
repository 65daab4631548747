#include "recovery/Restore.h"

#include "diagram/format/SurfaceFile.h"
#include "diagram/model/Actions.h"
#include "diagram/model/Routing.h"
#include "document/BusyWindow.h"
#include "document/clsfrmMain.h"
#include "document/DoLoad.h"
#include "document/MapWindow.h"
#include "document/SurfaceArray.h"
#include "recovery/Folders.h"
#include "support/AtomicFile.h"
#include "support/Error.h"
#include "support/Files.h"

#include <algorithm>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace recovery {

namespace {

QString HashOf(const QString &path) {
    QFile file(path);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    if (!file.open(QIODevice::ReadOnly) || !hash.addData(&file)) return {};
    return QString::fromLatin1(hash.result().toHex());
}

class Restorer {
public:
    Restorer(document::MapWindow &window, KeptMap map, QString folder)
        : window_(window),
          settings_(window.clsSettings()),
          map_(std::move(map)),
          folder_(std::move(folder)) {}

    void Run() {
        const document::BusyWindow busy(window_);
        PlaceUnknownSlices();
        MakeSlices();
        FillPools();
        FillAttachments();
        FillHyperlinks();
        NameFile();
        ShowAll();
    }

private:
    // Where the frame of the journal is damaged, nothing says where the slices were: each gets a tab.
    void PlaceUnknownSlices() {
        if (!map_.frame.slices.empty()) return;
        for (const auto &[id, slice] : map_.slices) {
            const int index = int(map_.frame.slices.size());
            map_.frame.slices.push_back({id, index, QStringLiteral("Map %1").arg(index + 1), {}});
        }
    }

    void MakeSlices() {
        document::SurfaceArray &surfaces = window_.AddFlow1();
        document::Tabs &tabs = window_.TabStrip();
        while (surfaces.UBound() > 0) surfaces.Unload(surfaces.UBound());
        tabs.SetTabCount(1);
        const std::vector<SlicePlace> &places = map_.frame.slices;
        if (places.empty() || places.front().index != 0) surfaces[0].Reset();
        int tab = 0;
        for (const SlicePlace &place : places) {
            if (place.index > 0) {
                surfaces.Load(place.index);
                tabs.SetTabCount(tabs.TabCount() + 1);
                tab = std::min(place.index, tabs.TabCount() - 1);
            }
            tabs.SetTheTab(tab);
            tabs.SetCaption(place.caption);
            Fill(surfaces[place.index], map_.slices[place.id]);
            window_.ClickTab();
        }
    }

    void Fill(diagram::Surface &surface, KeptSlice &slice) {
        surface.Reset();
        surface.Overwrite(std::move(slice.surface));
        surface.SetLoading(true);
        const auto ids = FreshIds(slice, surface.NextId());
        for (auto &[id, data] : slice.nodes) surface.Restore(ids.at(id), std::move(data));
        for (auto &[id, data] : slice.links) AddLink(surface, id, std::move(data), ids);
        surface.SetLoading(false);
        surface.Routes().Keep();
        surface.Actions().Forget();
    }

    using Ids = std::map<diagram::ItemId, diagram::ItemId>;

    // New identities from `first` on, in the order of the kept ones.
    static Ids FreshIds(const KeptSlice &slice, diagram::ItemId first) {
        Ids ids;
        for (const auto &[id, data] : slice.nodes) ids[id];
        for (const auto &[id, data] : slice.links) ids[id];
        for (auto &[kept, fresh] : ids) fresh = first++;
        return ids;
    }

    // Bends that aren't marked as the user's are assigned like those of a loaded map, so that the router
    // judges later whether they are its own.
    void AddLink(diagram::Surface &surface, diagram::ItemId id, diagram::LinkData data, const Ids &ids) {
        data.source = ids.at(data.source);
        data.destination = ids.at(data.destination);
        const bool isKnown = data.ownBends || data.points.size() < 2;
        const bool adds = data.addPointsMode, moves = data.movePointsMode;
        std::vector<diagram::Point> points = data.points;
        diagram::Link &link = surface.Restore(ids.at(id), std::move(data));
        if (isKnown) return;
        link.SetAddPointsMode(true);
        link.SetMovePointsMode(true);
        link.Points().Assign(std::move(points));
        link.SetAddPointsMode(adds);
        link.SetMovePointsMode(moves);
    }

    void FillPools() {
        settings_.Groups().Clear();
        for (const document::cGroup &group : map_.frame.groups) settings_.Groups().Take(group);
        settings_.Levels().Clear();
        for (const document::cLevel &level : map_.frame.levels) settings_.Levels().Take(level);
        settings_.Views = map_.frame.views;
    }

    void FillAttachments() {
        settings_.Attachments().Clear();
        settings_.AttachmentFolder().Clear();
        for (document::cAttachment &kept : map_.frame.attachments) {
            document::cAttachment &attachment = settings_.Attachments().add(kept.Key);
            attachment = kept;
            if (kept.Embed) attachment.Filename = Unpacked(kept);
        }
    }

    // The path of the embedded file: its old one if the file is still the same, else that of a copy in the
    // window's own folder.
    QString Unpacked(const document::cAttachment &attachment) {
        const QString name = map_.files.value(attachment.Key);
        const QString copy = CopyPath(folder_, name);
        if (name.isEmpty() || !QFile::exists(copy) || HashOf(attachment.Filename) == name)
            return attachment.Filename;
        const QString target = settings_.AttachmentFolder().NewPath(attachment.Filename);
        support::CopyFileTo(copy, target);
        return target;
    }

    // Keys of tabs were made anew, so those in hyperlinks are translated.
    void FillHyperlinks() {
        settings_.Hyperlinks().Clear();
        for (document::cHyperlink &kept : map_.frame.hyperlinks) {
            document::cHyperlink &hyperlink = settings_.Hyperlinks().add(kept.Key);
            hyperlink = kept;
            const auto &places = map_.frame.slices;
            const auto found = std::ranges::find(places, kept.SliceKey, &SlicePlace::tabKey);
            if (!kept.SliceKey.isEmpty() && found != places.end())
                hyperlink.SliceKey = window_.TabStrip().TabKey(int(found - places.begin()));
        }
    }

    void NameFile() {
        settings_.SetDatabase(map_.frame.path);
        if (map_.frame.seen)
            settings_.OwnFiles().TakeUp(settings_.Database(), *map_.frame.seen, map_.frame.own);
        if (!settings_.Database().isEmpty())
            window_.SetWindowCaption(document::CaptionFor(settings_.Database()));
        else if (!map_.frame.caption.isEmpty())
            window_.SetWindowCaption(map_.frame.caption);
    }

    void ShowAll() {
        window_.LoadCombos();
        window_.DoResize();
        window_.TabStrip().SetTheTab(0);
        window_.ClickTab();
        settings_.Dirty = true;
        settings_.SavedState.reset();
        window_.RefreshMainControls();
    }

    document::MapWindow &window_;
    document::clsfrmMain &settings_;
    KeptMap map_;
    QString folder_;
};

} // namespace

void Restore(document::MapWindow &window, KeptMap map, const QString &folder) {
    support::PassOn("Restore", [&] { Restorer(window, std::move(map), folder).Run(); });
}

} // namespace recovery
