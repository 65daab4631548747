#include "tests/output/csv/CsvTest.h"

#include "diagram/model/Surface.h"
#include "document/clsfrmMain.h"
#include "document/Tags.h"
#include "storage/text/CsvReader.h"
#include "storage/text/TextMark.h"
#include "support/AtomicFile.h"
#include "timeline/TimelineNodes.h"

#include <QFile>

namespace output::testing {

using document::GetTag;
using document::TagWithEntry;

QString Table::Cell(int row, const QString &name) const {
    return rows.at(row).value(names.indexOf(name.toLower()));
}

void Table::Set(int row, const QString &name, const QString &value) {
    rows[row][names.indexOf(name.toLower())] = value;
}

void Table::RemoveColumn(const QString &name) {
    const qsizetype at = names.indexOf(name.toLower());
    names.removeAt(at);
    for (QStringList &row : rows) row.removeAt(at);
}

CsvTest::CsvTest() { window->TabStrip().SetCaption(QStringLiteral("One")); }

diagram::Node &CsvTest::AddNode(const QString &text, float left) {
    diagram::Node &node = flow->Nodes().Add(left, 0, 900, 600);
    node.SetText(text);
    return node;
}

void CsvTest::Save() { SaveAs(*window, MapFile(QStringLiteral("plan.map"))); }

Table CsvTest::Read() const {
    QFile device(file);
    EXPECT_TRUE(device.open(QIODevice::ReadOnly));
    storage::CsvReader reader(device);
    Table table;
    while (reader.Next()) {
        QStringList fields;
        for (int i = 0; i < reader.FieldCount(); ++i) fields.append(reader.Field(i).toString());
        if (reader.Row() > 1)
            table.rows.append(fields);
        else
            for (const QString &name : fields) table.names.append(name.trimmed().toLower());
    }
    return table;
}

void CsvTest::Write(const Table &table, QChar separator) const {
    QString text = table.names.join(separator) + QStringLiteral("\r\n");
    for (QStringList row : table.rows) {
        for (QString &cell : row)
            cell = QStringLiteral("\"%1\"").arg(cell.replace(u'"', QStringLiteral("\"\"")));
        text += row.join(separator) + QStringLiteral("\r\n");
    }
    WriteBytes(text.toUtf8());
}

void CsvTest::WriteBytes(const QByteArray &bytes) const {
    support::AtomicFile target(file);
    target.Write(bytes);
    target.Commit();
}

QByteArray CsvTest::Bytes() const { return support::ReadWholeFile(file); }

namespace {

// The end of a link: by text and place, as keys are new ones after an import.
QString End(const diagram::Node &node) {
    return QStringLiteral("%1@%2,%3").arg(node.Text()).arg(double(node.Left())).arg(double(node.Top()));
}

QString Line(document::clsfrmMain &settings, const diagram::Node &n) {
    QStringList parts{
        QStringLiteral("node"), n.Text(),
        settings.Groups().GroupNameForKey(GetTag(n, document::tags::kGroup)),
        settings.Levels().LevelNameForKey(GetTag(n, document::tags::kLevel)),
        TagWithEntry(TagWithEntry(n.Tag(), document::tags::kGroup, {}), document::tags::kLevel, {})};
    for (const float value : {n.Left(), n.Top(), n.Width(), n.Height(), n.DrawWidth()})
        parts.append(QString::number(double(value), 'g', 9));
    for (const int value : {n.Shape(), n.ShapeOrientation(), n.DrawStyle(), n.xTextMargin(), n.yTextMargin(),
                            n.Shadow(), n.PicturePos(), n.BorderColor(), n.FillColor(), n.ForeColor(),
                            int(n.Hidden()), int(n.Selectable()), int(n.Marked())})
        parts.append(QString::number(value));
    return parts.join(u';');
}

QString Line(const diagram::Link &l) {
    QStringList parts{QStringLiteral("link"), End(l.Source()), End(l.Destination()), l.Text(),
                      QString::number(double(l.DrawWidth()), 'g', 9)};
    for (const int value :
         {l.Style(), l.ArrowSource(), l.ArrowDest(), l.ArrowMiddle(), l.ArrowSizeSource(), l.ArrowSizeDest(),
          l.ArrowSizeMiddle(), l.DrawStyle(), l.JumpStyle(), l.ForeColor(), l.LineColor(), int(l.Hidden()),
          int(l.Selectable()), int(l.Marked()), int(l.Oriented())})
        parts.append(QString::number(value));
    return parts.join(u';');
}

} // namespace

QStringList Carried(document::MapWindow &window, diagram::Surface &surface) {
    QStringList lines;
    for (const diagram::Node &node : surface.Nodes())
        if (node.Text() != timeline::kTemplateNodeText) lines.append(Line(window.clsSettings(), node));
    for (const auto &link : surface.Links()) lines.append(Line(*link));
    lines.sort();
    return lines;
}

} // namespace output::testing
