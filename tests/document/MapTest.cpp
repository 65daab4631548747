#include "tests/document/MapTest.h"

#include "diagram/model/Surface.h"
#include "document/LastPath.h"
#include "document/Tags.h"
#include "storage/Database.h"
#include "support/AtomicFile.h"
#include "support/Error.h"
#include "support/Files.h"
#include "tests/TestTerms.h"

#include <QBuffer>
#include <QCryptographicHash>

namespace document::testing {

MapTest::MapTest() {
    support::SetProgramPath(program_.path());
    settings::SetTerms(tests::TestTerms());
    SetLastPath(QString());
    support::AtomicFile file(ProgramFile(QStringLiteral("template.tpl")));
    file.Write(TemplateBytes());
    file.Commit();
}

const QByteArray &MapTest::TemplateBytes() {
    static const QByteArray bytes = [] {
        const LevelRow levels[] = {{QStringLiteral("1"), true, 0x111111},
                                   {QStringLiteral("2"), false, 0x222222},
                                   {QStringLiteral("12"), true, 0x333333},
                                   {QStringLiteral("12 Important"), false, 0x444444}};
        const GroupRow groups[] = {{QStringLiteral("Sales"), true}, {QStringLiteral("O'Brien"), false}};
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("template.tpl"));
        WriteTemplate(path, levels, groups);
        return support::ReadWholeFile(path);
    }();
    return bytes;
}

MapTest::~MapTest() {
    support::SetProgramPath(QString());
    settings::SetTerms({});
    SetLastPath(QString());
    SetWritesCompanions(false);
}

std::unique_ptr<MemoryWindow> MapTest::Loaded(const QString &path) {
    auto window = NewWindow();
    window->clsSettings().SetDatabase(path);
    DoLoad(*window);
    return window;
}

void MapTest::SaveAs(MapWindow &window, const QString &path) {
    window.clsSettings().SetDatabase(path);
    ASSERT_TRUE(DoSave(window));
}

QString MapTest::EmptyMap(const QString &name) {
    CreateEmptyMap(MapFile(name));
    return MapFile(name);
}

QString MapTest::Map(const QStringList &statements) {
    const QString path = EmptyMap(QStringLiteral("a.map"));
    storage::Database database = storage::OpenDatabase(path);
    database.BeginTrans();
    for (const QString &sql : statements) database.Execute(sql);
    database.CommitTrans();
    return path;
}

void MapTest::Run(const QString &path, const QString &sql) { storage::OpenDatabase(path).Execute(sql); }

QVariant MapTest::Cell(const QString &path, const QString &sql) {
    storage::Database database = storage::OpenDatabase(path);
    storage::Recordset rows = database.OpenRecordset(sql);
    return rows.EndOfFile() ? QVariant() : rows.Value(rows.FieldName(0));
}

namespace {

QString Hash(const diagram::Picture &picture) {
    if (picture.IsNull()) return QStringLiteral("none");
    return QString::fromLatin1(QCryptographicHash::hash(picture.Bytes(), QCryptographicHash::Sha1).toHex());
}

QString FontText(const diagram::Font &font) {
    return QStringLiteral("%1 %2 %3%4%5%6")
        .arg(font.Name())
        .arg(font.Size())
        .arg(font.Bold())
        .arg(font.Italic())
        .arg(font.Underline())
        .arg(font.Strike());
}

// The tag without the keys of one run.
QString LastingTag(const diagram::Node &node) {
    return TagWithEntry(TagWithEntry(node.Tag(), tags::kGroup, QString()), tags::kLevel, QString());
}

QString NodeText(MapWindow &window, const diagram::Node &n) {
    clsfrmMain &settings = window.clsSettings();
    QStringList parts{QStringLiteral("node"),
                      n.Key(),
                      n.Text(),
                      n.Event(),
                      FontText(n.Font()),
                      Hash(n.Picture()),
                      LastingTag(n),
                      settings.Groups().GroupNameForKey(GetTag(n, tags::kGroup)),
                      settings.Levels().LevelNameForKey(GetTag(n, tags::kLevel))};
    for (const double value :
         {double(n.Left()), double(n.Top()), double(n.Width()), double(n.Height()), double(n.DrawWidth())})
        parts.append(QString::number(value, 'g', 9));
    for (const int value : {n.Shape(), n.ShapeOrientation(), n.DrawStyle(), n.xTextMargin(), n.yTextMargin(),
                            n.Alignment(), n.Shadow(), n.PicturePos(), n.BorderColor(), n.FillColor(),
                            n.ForeColor(), int(n.Hidden()), int(n.Selectable()), int(n.Marked()),
                            n.AutoSize(), int(n.Transparent()), n.ZOrder(), int(n.Selected())})
        parts.append(QString::number(value));
    return parts.join(QLatin1Char(';'));
}

QString LinkText(const diagram::Link &l) {
    QStringList parts{QStringLiteral("link"), l.Source().Key(),
                      l.Destination().Key(),  l.Text(),
                      FontText(l.Font()),     QString::number(double(l.DrawWidth()), 'g', 9)};
    for (const int value :
         {l.Style(), l.ArrowSource(), l.ArrowDest(), l.ArrowMiddle(), l.ArrowSizeSource(), l.ArrowSizeDest(),
          l.ArrowSizeMiddle(), l.DrawStyle(), l.JumpStyle(), l.ForeColor(), l.LineColor(), int(l.Hidden()),
          int(l.Selectable()), int(l.Marked()), int(l.Oriented()), l.Zorder()})
        parts.append(QString::number(value));
    for (const diagram::Point &point : l.Route())
        parts.append(
            QStringLiteral("(%1 %2)").arg(double(point.x), 0, 'g', 9).arg(double(point.y), 0, 'g', 9));
    return parts.join(QLatin1Char(';'));
}

void DescribeSurface(MapWindow &window, diagram::Surface &surface, QStringList &lines) {
    lines.append(QStringLiteral("slice %1 back %2 grid %3 zoom %4 %5 tag %6 picture %7")
                     .arg(surface.Index())
                     .arg(surface.BackColor())
                     .arg(surface.GridLines())
                     .arg(surface.xZoom())
                     .arg(surface.yZoom())
                     .arg(surface.Tag(), Hash(surface.Picture())));
    QStringList items;
    for (const diagram::Node &node : surface.Nodes()) items.append(NodeText(window, node));
    for (const auto &link : surface.Links()) items.append(LinkText(*link));
    items.sort(); // a load adds nodes in the order of stacking
    lines += items;
}

} // namespace

QStringList Describe(MapWindow &window) {
    QStringList lines;
    clsfrmMain &settings = window.clsSettings();
    for (int i = 0; i < window.TabStrip().TabCount(); ++i)
        lines.append(QStringLiteral("tab %1").arg(window.TabStrip().TabCaption(i)));
    for (const int index : window.AddFlow1().Indices())
        DescribeSurface(window, window.AddFlow1()[index], lines);
    for (const cLevel &level : settings.Levels())
        lines.append(
            QStringLiteral("level %1 %2 %3").arg(level.LevelName).arg(level.Selected).arg(level.Color));
    for (const cGroup &group : settings.Groups())
        lines.append(QStringLiteral("group %1 %2").arg(group.GroupName).arg(group.Selected));
    for (const cHyperlink &link : settings.Hyperlinks())
        lines.append(QStringLiteral("hyperlink %1 %2 %3 %4")
                         .arg(link.Node, link.Map)
                         .arg(link.Slice)
                         .arg(link.DestNode));
    for (const cAttachment &attachment : settings.Attachments())
        lines.append(
            QStringLiteral("attachment %1 %2 %3")
                .arg(attachment.Node)
                .arg(attachment.Embed)
                .arg(attachment.Embed ? support::FileTitle(attachment.Filename) : attachment.Filename));
    return lines;
}

void ExpectSameLines(const QStringList &actual, const QStringList &expected) {
    for (qsizetype i = 0; i < std::min(actual.size(), expected.size()); ++i)
        ASSERT_EQ(actual[i].toStdString(), expected[i].toStdString());
    EXPECT_EQ(actual.size(), expected.size());
}

diagram::Picture OneColour(QRgb colour, int side) {
    QImage image(side, side, QImage::Format_ARGB32);
    image.fill(colour);
    return diagram::Picture::FromImage(image);
}

namespace {

QString Insert(const TableLayout &table, const QString &columns, const QString &values,
               const QString &extraColumns, const QString &extraValues) {
    const QString comma = extraColumns.isEmpty() ? QString() : QStringLiteral(", ");
    return QStringLiteral("INSERT INTO [%1] (%2) VALUES (%3)")
        .arg(NameOf(table), columns + comma + extraColumns, values + comma + extraValues);
}

} // namespace

QString InsertNode(const QString &key, int slice, const QString &columns, const QString &values) {
    return Insert(schema::kNodes, QStringLiteral("[Key], [Slice]"),
                  QStringLiteral("'%1', %2").arg(key).arg(slice), columns, values);
}

QString InsertLink(const QString &key, const QString &source, const QString &destination, int slice,
                   const QString &columns, const QString &values) {
    return Insert(schema::kLinks, QStringLiteral("[Key], [KeySource], [KeyDest], [Slice]"),
                  QStringLiteral("'%1', '%2', '%3', %4").arg(key, source, destination).arg(slice), columns,
                  values);
}

QString InsertSlice(int index, const QString &text) {
    return QStringLiteral(
               "INSERT INTO [Slices] ([Index], [Text], [xZoom], [yZoom]) VALUES (%1, '%2', 100, 100)")
        .arg(index)
        .arg(text);
}

} // namespace document::testing
