#include "output/report/BuildReport.h"

#include <cmath>
#include <QLocale>
#include <QRegularExpression>

namespace output {

namespace {

const QSizeF kLetter(15840, 12240);

settings::ReportFont Usable(settings::ReportFont font) {
    constexpr double kUsualSize = 10;
    if (font.font.isEmpty()) font.font = QStringLiteral("Arial");
    font.size = std::nearbyint(font.size);
    if (!(font.size >= 1)) font.size = kUsualSize;
    return font;
}

QStringList LinesOf(const QString &text) {
    static const QRegularExpression lineEnd(QStringLiteral("\r\n|[\r\n\v\f\u0085\u2028\u2029]"));
    return text.split(lineEnd);
}

// A line that is a caption alone stays on one page with the line behind it.
void AddLine(ReportBlocks &blocks, const QString &text, ReportStyle style) {
    blocks.push_back(ReportLine{{{text, style}}, text.isRightToLeft(), style == ReportStyle::Caption});
}

// All lines of the value read in the direction in which it begins. A row of one line may stay with the next.
void AddRow(ReportBlocks &blocks, const QString &caption, const QString &value, bool staysWithNext) {
    const bool rightToLeft = value.isRightToLeft();
    const QStringList lines = LinesOf(value);
    ReportLine line{{{caption, ReportStyle::Caption}}, rightToLeft, staysWithNext && lines.size() == 1};
    for (const QString &text : lines) {
        line.runs.push_back({text, ReportStyle::Value});
        blocks.push_back(std::move(line));
        line = {{}, rightToLeft, false};
    }
}

void AddLinks(ReportBlocks &blocks, const QStringList &texts) {
    if (texts.isEmpty()) return;
    AddLine(blocks, QStringLiteral("Links To:"), ReportStyle::Caption);
    for (const QString &text : texts)
        for (const QString &line : LinesOf(text)) AddLine(blocks, line, ReportStyle::Value);
}

void AddDetails(ReportBlocks &blocks, const NodeOutput &node) {
    if (!node.event.isEmpty()) AddRow(blocks, QStringLiteral("Other: "), node.event, true);
    for (const QString &date : node.dates) AddRow(blocks, QStringLiteral("Date: "), date, true);
    AddLinks(blocks, node.linksTo);
    AddRow(blocks, QStringLiteral("Level: "), node.level, true);
    AddRow(blocks, QStringLiteral("Groups: "), node.groups, false);
}

} // namespace

ReportProperties PropertiesOf(const MapOutput &map) {
    ReportProperties properties;
    properties.title = map.title;
    properties.filter = FilterText(map.filter);
    properties.made = map.made;
    properties.caption = Usable(settings::Terms().EXPORT_HEADER);
    properties.value = Usable(settings::Terms().EXPORT_DATA);
    if (QLocale().measurementSystem() == QLocale::ImperialUSSystem) properties.paper = kLetter;
    return properties;
}

void AddNode(ReportBlocks &blocks, const NodeOutput &node, bool details) {
    AddRow(blocks, QStringLiteral("Text: "), node.text, details);
    if (details) AddDetails(blocks, node);
    for (const char *gap : {"", " ", " "}) AddLine(blocks, QLatin1String(gap), ReportStyle::Value);
}

void AddPicture(ReportBlocks &blocks, const SliceOutput &slice) {
    const QString name = QStringLiteral("%1 Picture (%2)").arg(settings::Terms().MAP, slice.caption);
    AddLine(blocks, name + QStringLiteral(": "), ReportStyle::Caption);
    ReportPicture picture{name, slice.PictureSize(), {}};
    picture.file = [slice = slice.surface](auto format, const auto &options) {
        return diagram::ExportPicture(*slice, format, options);
    };
    blocks.push_back(std::move(picture));
}

} // namespace output
