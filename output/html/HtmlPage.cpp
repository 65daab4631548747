#include "output/html/HtmlPage.h"

#include "diagram/geometry/Units.h"
#include "output/html/HtmlText.h"

#include <QStringList>

namespace output {

namespace {

using diagram::kTwipsPerPixel;

QString Declarations(const settings::ReportFont &font) {
    QString name = font.font;
    name.remove(QLatin1Char('"')).remove(QLatin1Char('\\')).remove(QLatin1Char('<'));
    return QStringLiteral("font: %1 %2 %3pt \"%4\", sans-serif; text-decoration: %5")
        .arg(font.italic ? QLatin1String("italic") : QLatin1String("normal"),
             font.bold ? QLatin1String("bold") : QLatin1String("normal"), QString::number(font.size), name,
             font.underline ? QLatin1String("underline") : QLatin1String("none"));
}

QString Style(const ReportProperties &properties) {
    return QStringLiteral(
               "body { margin: 1em; color: #000; background: #fff }\n"
               "p { margin: 0; line-height: 1.3; white-space: pre-wrap; overflow-wrap: anywhere }\n"
               ".c { %1 }\n"
               ".v { %2 }\n"
               "a { color: #00539f; text-decoration: underline }\n"
               "img { max-width: 100%; height: auto }\n"
               ".page { break-after: page; border: 0 }\n"
               "@page { size: landscape }\n"
               "@media print { body { margin: 0 } .k { break-after: avoid } "
               "img { max-height: 15cm; width: auto; break-inside: avoid } }\n")
        .arg(Declarations(properties.caption), Declarations(properties.value));
}

QString Head(const ReportProperties &properties) {
    return QStringLiteral("<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
                          "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
                          "<title>%1</title>\n"
                          "<meta name=\"generator\" content=\"Velmora\">\n"
                          "<meta name=\"description\" content=\"%2\">\n"
                          "<meta name=\"dcterms.created\" content=\"%3\">\n"
                          "<style>\n%4</style>\n</head>\n<body>\n")
        .arg(HtmlText(properties.title), HtmlText(properties.filter), properties.made.toString(Qt::ISODate),
             Style(properties));
}

QString Link(const ReportLink &link, const QString &inside) {
    QString tag = QStringLiteral("<a href=\"%1\"").arg(HtmlText(link.target));
    if (!link.name.isEmpty()) tag += QStringLiteral(" id=\"%1\"").arg(HtmlText(link.name));
    if (!link.frame.isEmpty()) tag += QStringLiteral(" target=\"%1\"").arg(HtmlText(link.frame));
    return tag + QLatin1Char('>') + inside + QStringLiteral("</a>");
}

QString Run(const ReportRun &run) {
    if (run.text.isEmpty()) return {};
    const QString text = QStringLiteral("<span class=\"%1\">%2</span>")
                             .arg(run.style == ReportStyle::Caption ? QLatin1String("c") : QLatin1String("v"),
                                  HtmlText(run.text));
    return run.link.target.isEmpty() ? text : Link(run.link, text);
}

class Writer {
public:
    explicit Writer(const QString &prefix) : prefix_(prefix) {}
    std::vector<PictureFile> Pictures() { return std::move(pictures_); }

    // A line without visible text gets a blank, which makes it as high as the others.
    QString operator()(const ReportLine &line) const {
        QString text;
        bool isBlank = true;
        for (const ReportRun &run : line.runs) {
            text += Run(run);
            isBlank &= run.text.trimmed().isEmpty();
        }
        if (isBlank) text = QStringLiteral("<span class=\"v\">&nbsp;</span>");
        return QStringLiteral("<p%1%2>%3</p>\n")
            .arg(line.staysWithNext ? QLatin1String(" class=\"k\"") : QLatin1String(),
                 line.rightToLeft ? QLatin1String(" dir=\"rtl\"") : QLatin1String(), text);
    }

    QString operator()(const ReportPicture &picture) {
        const QStringList names = PictureNames(prefix_, ++number_);
        pictures_.push_back({names[0], picture.file(diagram::PictureFormat::Svg, {})});
        pictures_.push_back({names[1], picture.file(diagram::PictureFormat::Png, {SideOf(picture.size)})});
        return QStringLiteral("<p><picture><source srcset=\"%1\" type=\"image/svg+xml\">"
                              "<img src=\"%2\" width=\"%3\" height=\"%4\" alt=\"%5\"></picture></p>\n")
            .arg(AddressOf(names[0]), AddressOf(names[1]), Pixels(picture.size.width()),
                 Pixels(picture.size.height()), HtmlText(picture.description));
    }

    QString operator()(const ReportPageBreak &) const { return QStringLiteral("<hr class=\"page\">\n"); }

private:
    static QString Pixels(double twips) { return QString::number(qRound(twips / kTwipsPerPixel)); }
    // Pixels of the longer side: 0, for the size at zoom 100, or kMost for a picture that is larger.
    static int SideOf(const QSizeF &size) {
        constexpr int kMost = 4000;
        return std::max(size.width(), size.height()) / kTwipsPerPixel > kMost ? kMost : 0;
    }

    QString prefix_;
    std::vector<PictureFile> pictures_;
    int number_ = 0;
};

} // namespace

QStringList PictureNames(const QString &prefix, int number) {
    const QString name = QStringLiteral("%1_%2.").arg(prefix).arg(number);
    return {name + QLatin1String("svg"), name + QLatin1String("png")};
}

HtmlPage WriteHtmlPage(const ReportProperties &properties, const ReportBlocks &blocks,
                       const QString &prefix) {
    Writer writer(prefix);
    QString page = Head(properties);
    for (const ReportBlock &block : blocks) page += std::visit(writer, block);
    page += QStringLiteral("</body>\n</html>\n");
    return {page.toUtf8(), writer.Pictures()};
}

} // namespace output
