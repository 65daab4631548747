// A report as lines, pictures and page breaks, independent of the form in which it is written.
#pragma once

#include "diagram/export/Export.h"
#include "settings/Settings.h"

#include <functional>
#include <QDateTime>
#include <QSizeF>
#include <QString>
#include <variant>
#include <vector>

namespace output {

// Which of the product's two report fonts a run has.
enum class ReportStyle { Caption, Value };

struct ReportLink {
    QString name;
    QString target; // an address, with what addresses may not hold already encoded; empty for no link
    QString frame;  // that shows the target; empty for the page's own
};

// Text as the user wrote it, without line ends; the writers take care of whatever means something to them.
struct ReportRun {
    QString text;
    ReportStyle style = ReportStyle::Value;
    ReportLink link{};
};

// A line of the report.
struct ReportLine {
    std::vector<ReportRun> runs;
    bool rightToLeft = false;
    bool staysWithNext = false; // no page ends between it and the next block
};

struct ReportPicture {
    QString description; // for those who can't see it
    QSizeF size;         // in twips, as it is to be seen
    // The file of the picture, made when a writer asks for it.
    std::function<QByteArray(diagram::PictureFormat format, const diagram::ExportOptions &options)> file;
};

struct ReportPageBreak {};

using ReportBlock = std::variant<ReportLine, ReportPicture, ReportPageBreak>;
using ReportBlocks = std::vector<ReportBlock>;

// What holds for all of a report.
struct ReportProperties {
    QString title;
    QString filter; // what is told of the filter
    QDateTime made;
    settings::ReportFont caption, value; // with a name and a size in whole points
    QSizeF paper{16838, 11906};          // twips; wider than high
    double margin = 1134;                // twips, on each side

    const settings::ReportFont &FontOf(ReportStyle style) const {
        return style == ReportStyle::Caption ? caption : value;
    }
};

} // namespace output
