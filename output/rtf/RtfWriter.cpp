#include "output/rtf/RtfWriter.h"

#include "diagram/geometry/Units.h"
#include "output/rtf/RtfText.h"

namespace output {

namespace {

constexpr ReportStyle kStyles[] = {ReportStyle::Caption, ReportStyle::Value};

QByteArray Number(const char *word, double value) { return word + QByteArray::number(qRound64(value)); }

// The words for a font, each beginning with `family`: "" or, for writing from right to left, "a".
QByteArray FontWords(const settings::ReportFont &font, ReportStyle style, const QByteArray &family) {
    QByteArray words = '\\' + family + Number("f", int(style)) + '\\' + family + Number("fs", font.size * 2);
    if (font.bold) words += '\\' + family + 'b';
    if (font.italic) words += '\\' + family + 'i';
    if (font.underline) words += '\\' + family + "ul";
    return words;
}

QByteArray FontName(QString name) { return RtfText(name.remove(u';')); }

QByteArray Time(const QDateTime &time) {
    const QDate date = time.date();
    return Number("\\yr", date.year()) + Number("\\mo", date.month()) + Number("\\dy", date.day()) +
           Number("\\hr", time.time().hour()) + Number("\\min", time.time().minute());
}

// Lines of a length that every editor shows.
QByteArray Hex(const QByteArray &bytes) {
    constexpr qsizetype kBytesOfLine = 64;
    QByteArray lines;
    lines.reserve(bytes.size() * 2 + bytes.size() / kBytesOfLine * 2 + 2);
    for (qsizetype at = 0; at < bytes.size(); at += kBytesOfLine)
        lines += bytes.mid(at, kBytesOfLine).toHex() + "\r\n";
    return lines;
}

// Rich text has the metafile without the header that makes it placeable.
QByteArray WithoutPlace(const QByteArray &wmf) {
    constexpr qsizetype kHeader = 22;
    return wmf.startsWith("\xD7\xCD\xC6\x9A") ? wmf.mid(kHeader) : wmf;
}

QByteArray Picture(const char *kind, const QSizeF &size, const QString &description, const QByteArray &file) {
    constexpr double kHundredthsOfMillimetre = 2540 / diagram::kTwipsPerInch; // of a twip
    return QByteArray("{\\pict{\\*\\picprop{\\sp{\\sn wzDescription}{\\sv ") + RtfText(description) + "}}}" +
           kind + Number("\\picw", size.width() * kHundredthsOfMillimetre) +
           Number("\\pich", size.height() * kHundredthsOfMillimetre) + Number("\\picwgoal", size.width()) +
           Number("\\pichgoal", size.height()) + "\r\n" + Hex(file) + "}";
}

} // namespace

QByteArray RtfWriter::Begin() const {
    return "{\\rtf1\\ansi\\ansicpg1252\\uc1\\deff1" + FontTable() + Info() + Page();
}

QByteArray RtfWriter::FontTable() const {
    QByteArray table = "{\\fonttbl";
    for (const ReportStyle style : kStyles)
        table += Number("{\\f", int(style)) + "\\fnil\\fcharset0 " +
                 FontName(properties_.FontOf(style).font) + ";}";
    return table + "}\r\n";
}

QByteArray RtfWriter::Info() const {
    return "{\\*\\generator Velmora;}{\\info{\\title " + RtfText(properties_.title) + "}{\\creatim" +
           Time(properties_.made) + "}{\\doccomm " + RtfText(properties_.filter) + "}}\r\n";
}

QByteArray RtfWriter::Page() const {
    const QByteArray width = QByteArray::number(qRound(properties_.paper.width()));
    const QByteArray height = QByteArray::number(qRound(properties_.paper.height()));
    QByteArray page = "\\paperw" + width + "\\paperh" + height + "\\landscape";
    for (const char *side : {"\\margl", "\\margr", "\\margt", "\\margb"})
        page += Number(side, properties_.margin);
    return page + "\\viewkind1\r\n\\sectd\\lndscpsxn\\pgwsxn" + width + "\\pghsxn" + height + "\r\n";
}

QByteArray RtfWriter::Body(const ReportBlocks &blocks) const {
    QByteArray body;
    for (const ReportBlock &block : blocks)
        body += std::visit([this](const auto &one) { return Block(one); }, block);
    return body;
}

QByteArray RtfWriter::End() const { return "}\r\n"; }

// The font words at the beginning give an empty line its height.
QByteArray RtfWriter::Block(const ReportLine &line) const {
    QByteArray text = line.rightToLeft ? "\\pard\\plain\\rtlpar\\qr" : "\\pard\\plain\\ltrpar\\ql";
    if (line.staysWithNext) text += "\\keepn";
    const ReportStyle style = line.runs.empty() ? ReportStyle::Value : line.runs.back().style;
    text += FontWords(properties_.FontOf(style), style, {}) + ' ';
    for (const ReportRun &run : line.runs) text += Run(run, line.rightToLeft);
    return text + "\\par\r\n";
}

QByteArray RtfWriter::Block(const ReportPicture &picture) const {
    const QSizeF size = Fitted(picture.size);
    const auto file = [&](diagram::PictureFormat format) { return picture.file(format, {}); };
    return "\\pard\\plain\\ltrpar\\ql {\\*\\shppict" +
           Picture("\\emfblip", size, picture.description, file(diagram::PictureFormat::Emf)) +
           "}{\\nonshppict" +
           Picture("\\wmetafile8", size, picture.description,
                   WithoutPlace(file(diagram::PictureFormat::Wmf))) +
           "}\\par\r\n";
}

QByteArray RtfWriter::Block(const ReportPageBreak &) const { return "\\pard\\plain\\page\r\n"; }

QByteArray RtfWriter::Run(const ReportRun &run, bool rightToLeft) const {
    QByteArray text;
    for (const RtfStretch &stretch : StretchesOf(run.text, rightToLeft))
        text += Stretch(stretch.text, run.style, stretch.rightToLeft);
    if (run.link.target.isEmpty()) return text;
    return "{\\field{\\*\\fldinst HYPERLINK \"" + RtfText(run.link.target) + "\"}{\\fldrslt " + text + "}}";
}

// Readers take the words behind the last direction that is named.
QByteArray RtfWriter::Stretch(const QString &text, ReportStyle style, bool rightToLeft) const {
    const settings::ReportFont &font = properties_.FontOf(style);
    const QByteArray left = "\\ltrch\\fcs0 " + FontWords(font, style, {});
    const QByteArray right = "\\rtlch\\fcs1 " + FontWords(font, style, "a");
    return "{\\plain" + (rightToLeft ? left + right : right + left) + ' ' + RtfText(text) + '}';
}

// Leaves room on the page for the caption above the picture and the line behind it.
QSizeF RtfWriter::Fitted(const QSizeF &size) const {
    constexpr double kCaptionLines = 4;
    const double caption = properties_.caption.size * diagram::kTwipsPerPoint * kCaptionLines;
    const QSizeF room(properties_.paper.width() - 2 * properties_.margin,
                      properties_.paper.height() - 2 * properties_.margin - caption);
    const bool fits = size.width() <= room.width() && size.height() <= room.height();
    return fits ? size : size.scaled(room, Qt::KeepAspectRatio);
}

} // namespace output
