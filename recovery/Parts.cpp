#include "recovery/Parts.h"

namespace recovery {

using diagram::ByteReader;
using diagram::ByteWriter;

namespace {

enum PartFlags : std::uint8_t { kWhole = 1, kSurface = 2 };

void Put(ByteWriter &out, bool value) { out.Put(std::uint8_t(value)); }

void Put(ByteWriter &out, const SlicePlace &slice) {
    out.Put(slice.id);
    out.Put(std::int32_t(slice.index));
    out.PutText(slice.caption);
    out.PutText(slice.tabKey);
}
void Put(ByteWriter &out, const document::cGroup &group) {
    out.PutText(group.Key);
    Put(out, group.Selected);
    out.PutText(group.GroupName);
}
void Put(ByteWriter &out, const document::cLevel &level) {
    out.PutText(level.Key);
    out.Put(std::uint32_t(level.Color));
    Put(out, level.Selected);
    out.PutText(level.LevelName);
}
void Put(ByteWriter &out, const document::cHyperlink &hyperlink) {
    for (const QString *text :
         {&hyperlink.Key, &hyperlink.DestNode, &hyperlink.SliceKey, &hyperlink.Map, &hyperlink.Node})
        out.PutText(*text);
    out.Put(hyperlink.Slice);
}
void Put(ByteWriter &out, const document::cAttachment &attachment) {
    for (const QString *text : {&attachment.Key, &attachment.Node, &attachment.Filename}) out.PutText(*text);
    Put(out, attachment.Embed);
}

void Put(ByteWriter &out, const document::ViewTick &tick) {
    out.PutText(tick.Key);
    out.PutText(tick.Name);
}
void Put(ByteWriter &out, const document::FilterView &view);

// With all values at once: a group or level that is made without a key draws a random one, which only the
// window's thread may do.
template <typename T>
T Get(ByteReader &in);

template <>
SlicePlace Get(ByteReader &in) {
    return {in.Get<SliceId>(), in.Get<std::int32_t>(), in.GetText(), in.GetText()};
}
template <>
document::cGroup Get(ByteReader &in) {
    return {in.GetText(), in.GetBool(), in.GetText()};
}
template <>
document::cLevel Get(ByteReader &in) {
    const QString key = in.GetText();
    const auto colour = support::Colour(in.Get<std::uint32_t>());
    return {key, colour, in.GetBool(), in.GetText()};
}
template <>
document::cHyperlink Get(ByteReader &in) {
    document::cHyperlink hyperlink;
    for (QString *text :
         {&hyperlink.Key, &hyperlink.DestNode, &hyperlink.SliceKey, &hyperlink.Map, &hyperlink.Node})
        *text = in.GetText();
    hyperlink.Slice = in.Get<std::int16_t>();
    return hyperlink;
}
template <>
document::cAttachment Get(ByteReader &in) {
    document::cAttachment attachment;
    for (QString *text : {&attachment.Key, &attachment.Node, &attachment.Filename}) *text = in.GetText();
    attachment.Embed = in.GetBool();
    return attachment;
}

template <>
document::ViewTick Get(ByteReader &in) {
    const QString key = in.GetText();
    return {key, in.GetText()};
}

template <typename T>
void PutAll(ByteWriter &out, const std::vector<T> &items) {
    out.PutCount(qsizetype(items.size()));
    for (const T &item : items) Put(out, item);
}
template <typename T>
void GetAll(ByteReader &in, std::vector<T> &items) {
    for (qsizetype left = in.GetCount(1); left > 0; --left) items.push_back(Get<T>(in));
}

void Put(ByteWriter &out, const document::FilterView &view) {
    out.PutText(view.Name);
    PutAll(out, view.Levels);
    PutAll(out, view.Groups);
}
template <>
document::FilterView Get(ByteReader &in) {
    document::FilterView view;
    view.Name = in.GetText();
    GetAll(in, view.Levels);
    GetAll(in, view.Groups);
    return view;
}

void PutFrame(ByteWriter &out, const MapFrame &frame) {
    out.PutText(frame.path);
    out.PutText(frame.caption);
    Put(out, frame.seen.has_value());
    out.Put(std::int64_t(frame.seen ? frame.seen->size : 0));
    out.Put(std::int64_t(frame.seen ? frame.seen->modified.toMSecsSinceEpoch() : 0));
    Put(out, frame.own);
    PutAll(out, frame.slices);
    PutAll(out, frame.groups);
    PutAll(out, frame.levels);
    PutAll(out, frame.hyperlinks);
    PutAll(out, frame.attachments);
    PutAll(out, frame.views);
}

MapFrame GetFrame(ByteReader &in) {
    MapFrame frame;
    frame.path = in.GetText();
    frame.caption = in.GetText();
    const bool seen = in.GetBool();
    const auto size = in.Get<std::int64_t>();
    const auto modified = in.Get<std::int64_t>();
    if (seen) frame.seen = {size, QDateTime::fromMSecsSinceEpoch(modified)};
    frame.own = in.GetBool();
    GetAll(in, frame.slices);
    GetAll(in, frame.groups);
    GetAll(in, frame.levels);
    GetAll(in, frame.hyperlinks);
    GetAll(in, frame.attachments);
    if (!in.AtEnd()) GetAll(in, frame.views); // journals of earlier versions have none
    return frame;
}

} // namespace

QByteArray PartWriter::Write(const SlicePart &part) {
    const std::uint32_t fonts = values_.FontCount(), pictures = values_.PictureCount();
    if (part.surface) values_.PutValues(*part.surface);
    values_.PutItems(part.nodes);
    values_.PutItems(part.links);
    values_.Body().PutCount(qsizetype(part.gone.size()));
    for (const diagram::ItemId id : part.gone) values_.Body().Put(id);
    ByteWriter head;
    head.Put(part.slice);
    head.Put(std::uint8_t((part.whole ? kWhole : 0) | (part.surface ? kSurface : 0)));
    head.Put(fonts);
    values_.PutFonts(head, fonts);
    head.Put(pictures);
    values_.PutPictures(head, pictures);
    return head.Bytes() + values_.TakeBody();
}

SlicePart PartReader::Read(QByteArrayView content) {
    values_.SetBody(content);
    ByteReader &in = values_.Body();
    SlicePart part;
    part.slice = in.Get<SliceId>();
    const auto flags = in.Get<std::uint8_t>();
    part.whole = flags & kWhole;
    values_.ReadFonts(in.Get<std::uint32_t>());
    values_.ReadPictures(in.Get<std::uint32_t>());
    if (flags & kSurface) values_.GetValues(part.surface.emplace());
    values_.GetItems(part.nodes);
    values_.GetItems(part.links);
    for (qsizetype left = in.GetCount(sizeof(diagram::ItemId)); left > 0; --left)
        part.gone.push_back(in.Get<diagram::ItemId>());
    return part;
}

QByteArray Bytes(const Commit &commit) {
    ByteWriter out;
    out.Put(std::int64_t(commit.time.toMSecsSinceEpoch()));
    out.Put(std::int32_t(commit.changes));
    Put(out, commit.frame.has_value());
    if (commit.frame) PutFrame(out, *commit.frame);
    return out.Bytes();
}

Commit ReadCommit(QByteArrayView content) {
    ByteReader in(content);
    Commit commit;
    commit.time = QDateTime::fromMSecsSinceEpoch(in.Get<std::int64_t>());
    commit.changes = in.Get<std::int32_t>();
    if (in.GetBool()) commit.frame = GetFrame(in);
    return commit;
}

QByteArray Bytes(const FileNames &files) {
    ByteWriter out;
    out.PutCount(files.size());
    for (auto it = files.begin(); it != files.end(); ++it) out.PutText(it.key()), out.PutText(it.value());
    return out.Bytes();
}

FileNames ReadFileNames(QByteArrayView content) {
    ByteReader in(content);
    FileNames files;
    for (qsizetype left = in.GetCount(1); left > 0; --left) {
        const QString key = in.GetText();
        files.insert(key, in.GetText());
    }
    return files;
}

} // namespace recovery
