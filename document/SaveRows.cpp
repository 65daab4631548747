#include "document/SaveRows.h"

#include "diagram/model/Actions.h"
#include "diagram/model/Stacking.h"
#include "diagram/model/Surface.h"
#include "document/BusyWindow.h"
#include "document/clsfrmMain.h"
#include "document/ItemColumns.h"
#include "document/SurfaceArray.h"
#include "document/Tags.h"
#include "document/ViewRows.h"
#include "storage/Fields.h"
#include "support/clsGUID.h"
#include "support/Error.h"
#include "support/Val.h"

#include <QLocale>

namespace document {

RowWriter::RowWriter(storage::Database &database, MapWindow &window)
    : database_(database),
      window_(window),
      settings_(window.clsSettings()),
      fonts_(database),
      pictures_(database),
      slice_(database.Prepare(InsertInto(schema::kSlices))),
      node_(database.Prepare(InsertInto(schema::kNodes))),
      link_(database.Prepare(InsertInto(schema::kLinks))),
      point_(database.Prepare(InsertInto(schema::kLinkPoints))),
      routed_(database) {}

namespace {

// Minutes and seconds run together, as they do in every map.
QString TimeText(support::Clock &clock) {
    return QLocale::c().toString(clock.Now(), QStringLiteral("dd MMM yyyy HH:mmss"));
}

} // namespace

void RowWriter::WriteSettings() {
    using namespace schema::setting;
    const QString user = window_.Desktop().identity.UserName() + QLatin1Char(' ');
    const QString time = TimeText(window_.Desktop().clock);
    if (database_.OpenRecordset(SelectAll(schema::kSettings)).EndOfFile()) {
        database_.Execute(InsertInto(schema::kSettings), storage::kFailOnError, {user, time, user, time});
        return;
    }
    database_.Execute(QStringLiteral("UPDATE [%1] SET %2=?, %3=?")
                          .arg(NameOf(schema::kSettings), Bracketed(schema::kSettings, kModified),
                               Bracketed(schema::kSettings, kModifyTime)),
                      storage::kFailOnError, {user, time});
}

namespace {

// Only the three zooms of the menu are stored; any other is stored as 0.
int StoredZoom(int zoom) { return zoom == 75 || zoom == 100 || zoom == 150 ? zoom : 0; }

bool IsMissingOn(const diagram::Surface &surface) {
    const QString missing = GetTag(surface, tags::kMissing);
    return !missing.isEmpty() && support::CBool(missing);
}

} // namespace

void RowWriter::WriteSlice(diagram::Surface &surface, const QString &caption) {
    using namespace schema::slice;
    const int zoom = StoredZoom(surface.xZoom());
    slice_.BindLong(kIndex, surface.Index());
    slice_.BindText(kText, caption);
    slice_.BindLong(kBackColor, surface.BackColor());
    slice_.BindText(kPicture, pictures_.Save(surface.Picture()));
    slice_.BindBoolean(kGridLines, surface.GridLines());
    slice_.BindLong(kTimeline, support::CInt(support::Val(GetTag(surface, tags::kTimelineAlign))));
    slice_.BindBoolean(kIncMissing, IsMissingOn(surface));
    slice_.BindLong(kxZoom, zoom);
    slice_.BindLong(kyZoom, zoom);
    slice_.Run();
    NoteItems(surface);
    const diagram::Uncounted keys(surface.Actions());
    WriteNodes(surface);
    WriteLinks(surface);
}

void RowWriter::NoteItems(diagram::Surface &surface) {
    positions_.assign(surface.NextId(), 0);
    nodeKeys_.assign(surface.NextId(), std::string());
    int position = 0;
    for (const diagram::Item *item : surface.Stacking().Order()) positions_[item->Id()] = position++;
}

void RowWriter::WriteNodes(diagram::Surface &surface) {
    window_.DoStatus(QStringLiteral("Saving Nodes..."));
    Progress progress(window_, static_cast<std::size_t>(surface.Nodes().Count()));
    std::size_t count = 0;
    for (diagram::Node &node : surface.Nodes()) {
        progress.Show(++count);
        if (node.Key().isEmpty()) node.SetKey(support::GetGUID());
        WriteNode(node, surface.Index());
    }
    // An empty key marks a link that is not written yet.
    for (const auto &link : surface.Links()) link->SetKey(QString());
}

void RowWriter::WriteNode(const diagram::Node &node, int slice) {
    using namespace schema::node;
    WriteCells<kNodeColumns>(node_, node.Data());
    nodeKeys_[node.Id()] = node.Key().toStdString();
    node_.BindUtf8(kKey, nodeKeys_[node.Id()]);
    node_.BindLong(kSlice, slice);
    node_.BindUtf8(kFont, fonts_.Save(node.Font()));
    node_.BindText(kPicture, pictures_.Save(node.Picture()));
    node_.BindText(kTag, node.Tag());
    node_.BindUtf8(kGroup, GroupNames(GetTag(node, tags::kGroup)));
    node_.BindDouble(kLevel, LevelNumber(GetTag(node, tags::kLevel)));
    node_.BindLong(kzOrder, positions_[node.Id()]);
    node_.Run();
}

const std::string &RowWriter::GroupNames(const QString &keys) {
    auto known = groupNames_.find(keys);
    if (known == groupNames_.end())
        known = groupNames_.insert(keys, settings_.Groups().GroupNameForKey(keys).toStdString());
    return *known;
}

// A level is stored as the number that its name begins with.
double RowWriter::LevelNumber(const QString &key) {
    auto known = levelNumbers_.find(key);
    if (known == levelNumbers_.end())
        known = levelNumbers_.insert(key, support::Val(settings_.Levels().LevelNameForKey(key)));
    return *known;
}

void RowWriter::WriteLinks(diagram::Surface &surface) {
    window_.DoStatus(QStringLiteral("Saving Links..."));
    Progress progress(window_, static_cast<std::size_t>(surface.Nodes().Count()));
    std::size_t count = 0;
    for (const diagram::Node &node : surface.Nodes()) {
        progress.Show(++count);
        for (diagram::Link *link : node.Links())
            if (link->Key().isEmpty()) WriteLink(*link, surface.Index());
    }
}

void RowWriter::WriteLink(diagram::Link &link, int slice) {
    using namespace schema::link;
    link.SetKey(support::GetGUID());
    const std::string key = link.Key().toStdString();
    WriteCells<kLinkColumns>(link_, link.Data());
    link_.BindUtf8(kKey, key);
    link_.BindUtf8(kKeySource, nodeKeys_[link.Source().Id()]);
    link_.BindUtf8(kKeyDest, nodeKeys_[link.Destination().Id()]);
    link_.BindLong(kSlice, slice);
    link_.BindUtf8(kFont, fonts_.Save(link.Font()));
    link_.BindLong(kZorder, positions_[link.Id()]);
    link_.Run();
    WritePoints(link, key);
    routed_.Write(link, key);
}

void RowWriter::WritePoints(const diagram::Link &link, std::string_view key) {
    using namespace schema::point;
    int index = 0;
    for (const diagram::Point &place : link.Route()) {
        point_.BindLong(kIndex, index++);
        point_.BindUtf8(kLink, key);
        point_.BindDouble(kX, place.x);
        point_.BindDouble(kY, place.y);
        point_.Run();
    }
}

void RowWriter::WriteGroups() {
    for (const cGroup &group : settings_.Groups())
        database_.Execute(InsertInto(schema::kGroups), storage::kFailOnError,
                          {group.GroupName, group.Selected});
}

void RowWriter::WriteLevels() {
    for (const cLevel &level : settings_.Levels())
        database_.Execute(InsertInto(schema::kLevels), storage::kFailOnError,
                          {level.LevelName, level.Selected, level.Color});
}

void RowWriter::WriteViews() { document::WriteViews(database_, settings_); }

void RowWriter::WriteHyperlinks() {
    for (const cHyperlink &hyperlink : settings_.Hyperlinks())
        database_.Execute(InsertInto(schema::kHyperlinks), storage::kFailOnError,
                          {hyperlink.Node, hyperlink.Map, int(hyperlink.Slice), hyperlink.DestNode});
}

void RowWriter::WriteAttachments() {
    using namespace schema::attachment;
    const auto name = [](int column) { return NameOf(schema::kAttachments, column); };
    storage::Recordset rows = database_.OpenRecordset(SelectAll(schema::kAttachments));
    for (const cAttachment &attachment : settings_.Attachments()) {
        window_.DoStatus(QStringLiteral("Saving Attachments (%1)...").arg(attachment.Filename));
        rows.AddNew();
        rows.Set(name(kKey), attachment.Key);
        rows.Set(name(kNodeKey), attachment.Node);
        rows.Set(name(kFilename), attachment.Filename);
        rows.Set(name(kEmbed), attachment.Embed);
        if (attachment.Embed && !attachment.Filename.isEmpty()) // no file was chosen
            WriteEmbedded(attachment, rows, name(kData));
        rows.Update();
    }
}

void RowWriter::WriteEmbedded(const cAttachment &attachment, storage::Recordset &rows, const QString &field) {
    try {
        storage::ReadFileIntoField(attachment.Filename, rows, field);
    } catch (const support::Error &error) {
        const std::optional<QByteArray> bytes = formerAttachments_.BytesOf(attachment);
        if (!bytes)
            throw support::Error(error.Number(), error.Source(),
                                 QStringLiteral("%1\r\n\r\nIt is attached to the node '%2'.")
                                     .arg(error.Description(), TextOfNode(attachment.Node)));
        rows.Set(field, *bytes);
    }
}

// The beginning of the node's text in one line; its key where it has no text or no longer exists.
QString RowWriter::TextOfNode(const QString &key) const {
    constexpr int kLongest = 60;
    QString text;
    for (const int index : window_.AddFlow1().Indices())
        if (const diagram::Node *node = window_.AddFlow1()[index].Nodes().Find(key))
            text = node->Text().simplified().left(kLongest);
    return text.isEmpty() ? key : text;
}

} // namespace document
