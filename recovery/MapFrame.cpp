#include "recovery/MapFrame.h"

#include "document/clsfrmMain.h"
#include "document/MapWindow.h"

#include <algorithm>
#include <tuple>

namespace recovery {

namespace {

auto ValuesOf(const document::cGroup &of) { return std::tie(of.Key, of.Selected, of.GroupName); }
auto ValuesOf(const document::cLevel &of) { return std::tie(of.Key, of.Color, of.Selected, of.LevelName); }
auto ValuesOf(const document::cHyperlink &of) {
    return std::tie(of.Key, of.DestNode, of.SliceKey, of.Slice, of.Map, of.Node);
}
auto ValuesOf(const document::cAttachment &of) { return std::tie(of.Key, of.Node, of.Embed, of.Filename); }

auto ValuesOf(const document::ViewTick &of) { return std::tie(of.Key, of.Name); }

template <typename T>
bool AreSame(const std::vector<T> &a, const std::vector<T> &b) {
    return std::ranges::equal(a, b, [](const T &x, const T &y) { return ValuesOf(x) == ValuesOf(y); });
}

bool AreSame(const document::FilterViews &a, const document::FilterViews &b) {
    return std::ranges::equal(a, b, [](const document::FilterView &x, const document::FilterView &y) {
        return x.Name == y.Name && AreSame(x.Levels, y.Levels) && AreSame(x.Groups, y.Groups);
    });
}

template <typename T>
std::vector<T> Copied(const document::Pool<T> &pool) {
    std::vector<T> items;
    items.reserve(std::size_t(pool.count()));
    for (const T &item : pool) items.push_back(item);
    return items;
}

} // namespace

bool operator==(const MapFrame &a, const MapFrame &b) {
    return std::tie(a.path, a.caption, a.seen, a.own, a.slices) ==
               std::tie(b.path, b.caption, b.seen, b.own, b.slices) &&
           AreSame(a.groups, b.groups) && AreSame(a.levels, b.levels) &&
           AreSame(a.hyperlinks, b.hyperlinks) && AreSame(a.attachments, b.attachments) &&
           AreSame(a.views, b.views);
}

MapFrame FrameOf(document::MapWindow &window, const QString &caption, std::vector<SlicePlace> slices) {
    document::clsfrmMain &settings = window.clsSettings();
    MapFrame frame;
    frame.path = settings.Database();
    frame.caption = caption;
    frame.seen = settings.OwnFiles().Seen(frame.path);
    frame.own = settings.OwnFiles().IsOwn(frame.path);
    frame.slices = std::move(slices);
    frame.groups = Copied(settings.Groups());
    frame.levels = Copied(settings.Levels());
    frame.hyperlinks = Copied(settings.Hyperlinks());
    frame.attachments = Copied(settings.Attachments());
    frame.views = settings.Views;
    return frame;
}

} // namespace recovery
