#include "output/powerpoint/Drawing.h"

#include "diagram/render/Pencil.h"

#include <algorithm>
#include <cmath>
#include <QRegularExpression>

namespace powerpoint {

using package::Xml;

namespace {

constexpr double kLongest = 51206400; // that positions and sizes may have, EMU

qint64 Held(double length) { return Emu(std::clamp(length, -kLongest, kLongest)); }
qint64 HeldSize(double length) { return std::max<qint64>(Held(length), 0); }

QString Hex(QRgb colour) {
    return QStringLiteral("%1").arg(colour & 0xFFFFFF, 6, 16, QLatin1Char('0')).toUpper();
}

// Lengths of dashes and of the gaps behind them, in widths of the line; 0 ends the list.
struct Dashes {
    int style;
    int lengths[6];
};
constexpr Dashes kDashes[] = {{1, {4, 2}}, {2, {1, 2}}, {3, {4, 2, 1, 2}}, {4, {4, 2, 1, 2, 1, 2}}};

void WriteDashes(Xml &xml, int style) {
    for (const Dashes &dashes : kDashes) {
        if (dashes.style != style) continue;
        xml.Open("a:custDash");
        for (int i = 0; i < 6 && dashes.lengths[i]; i += 2)
            xml.Empty("a:ds", {{"d", dashes.lengths[i] * 100000}, {"sp", dashes.lengths[i + 1] * 100000}});
        xml.Close();
    }
}

} // namespace

void OpenPart(Xml &xml, const char *root) {
    xml.Open(root, {{"xmlns:a", "http://schemas.openxmlformats.org/drawingml/2006/main"},
                    {"xmlns:r", "http://schemas.openxmlformats.org/officeDocument/2006/relationships"},
                    {"xmlns:p", "http://schemas.openxmlformats.org/presentationml/2006/main"}});
}

void WriteTransform(Xml &xml, const QRectF &rectangle, const Flips &flips) {
    constexpr int kQuarter = 5400000;
    xml.Open("a:xfrm");
    if (flips.quarterTurn) xml.Add({"rot", kQuarter});
    if (flips.across) xml.Add({"flipH", 1});
    if (flips.down) xml.Add({"flipV", 1});
    xml.Empty("a:off", {{"x", Held(rectangle.x())}, {"y", Held(rectangle.y())}});
    xml.Empty("a:ext", {{"cx", HeldSize(rectangle.width())}, {"cy", HeldSize(rectangle.height())}});
    xml.Close();
}

void WritePreset(Xml &xml, const QString &shape, const std::vector<int> &adjusts) {
    xml.Open("a:prstGeom", {{"prst", shape}}).Open("a:avLst");
    for (std::size_t i = 0; i < adjusts.size(); ++i)
        xml.Empty("a:gd", {{"name", QStringLiteral("adj%1").arg(i + 1)},
                           {"fmla", QStringLiteral("val %1").arg(adjusts[i])}});
    xml.Close(2);
}

namespace {

void WritePoint(Xml &xml, const QPointF &point) {
    xml.Empty("a:pt", {{"x", Held(point.x())}, {"y", Held(point.y())}});
}

bool IsAt(const QPainterPath::Element &element, const QPointF &point) {
    return std::abs(element.x - point.x()) < 1 && std::abs(element.y - point.y()) < 1;
}

// The sub-path from `begin` up to, not including, `end`.
void WriteRun(Xml &xml, const QPainterPath &path, int begin, int end) {
    const QPointF start = path.elementAt(begin);
    const bool closes = end - begin > 2 && IsAt(path.elementAt(end - 1), start);
    xml.Open("a:moveTo");
    WritePoint(xml, start);
    xml.Close();
    for (int i = begin + 1; i < end; ++i) {
        const bool isCurve = path.elementAt(i).isCurveTo();
        xml.Open(isCurve ? "a:cubicBezTo" : "a:lnTo");
        for (int point = 0; point < (isCurve ? 3 : 1) && i + point < end; ++point)
            WritePoint(xml, path.elementAt(i + point));
        xml.Close();
        if (isCurve) i += 2;
    }
    if (closes) xml.Empty("a:close");
}

void WriteRuns(Xml &xml, const QPainterPath &path) {
    for (int begin = 0; begin < path.elementCount();) {
        int end = begin + 1;
        while (end < path.elementCount() && !path.elementAt(end).isMoveTo()) ++end;
        if (end - begin > 1) WriteRun(xml, path, begin, end);
        begin = end;
    }
}

void WritePath(Xml &xml, const QPainterPath &path, const QRectF &box, bool filled) {
    if (path.isEmpty()) return;
    const qint64 width = HeldSize(box.width()), height = HeldSize(box.height());
    if (filled)
        xml.Open("a:path", {{"w", width}, {"h", height}});
    else
        xml.Open("a:path", {{"w", width}, {"h", height}, {"fill", "none"}});
    WriteRuns(xml, path.translated(-box.topLeft()));
    xml.Close();
}

// Writes points as formulas of the shape's width and height, so that they stay in place when it is resized.
class Guides {
public:
    Guides(Xml &xml, const QRectF &box) : xml_(xml), box_(box) {}
    // The names of the two values of a point.
    std::pair<QString, QString> Add(const QPointF &point) {
        const QString x = QStringLiteral("x%1").arg(count_), y = QStringLiteral("y%1").arg(count_);
        ++count_;
        Write(x, point.x() - box_.left(), "w", box_.width());
        Write(y, point.y() - box_.top(), "h", box_.height());
        return {x, y};
    }

private:
    void Write(const QString &name, double at, const char *side, double length) {
        xml_.Empty("a:gd", {{"name", name},
                            {"fmla", QStringLiteral("*/ %1 %2 %3")
                                         .arg(Held(at))
                                         .arg(QLatin1String(side))
                                         .arg(std::max<qint64>(HeldSize(length), 1))}});
    }

    Xml &xml_;
    QRectF box_;
    int count_ = 0;
};

} // namespace

void WriteCustom(Xml &xml, const CustomForm &form) {
    xml.Open("a:custGeom").Empty("a:avLst").Open("a:gdLst");
    Guides guides(xml, form.box);
    std::vector<std::pair<QString, QString>> sites;
    for (const QPointF &site : form.sites) sites.push_back(guides.Add(site));
    const QRectF text = form.text.isEmpty() ? form.box : form.text;
    const auto leftTop = guides.Add(text.topLeft()), rightBottom = guides.Add(text.bottomRight());
    xml.Close().Empty("a:ahLst").Open("a:cxnLst");
    for (const auto &[x, y] : sites)
        xml.Open("a:cxn", {{"ang", 0}}).Empty("a:pos", {{"x", x}, {"y", y}}).Close();
    xml.Close().Empty(
        "a:rect",
        {{"l", leftTop.first}, {"t", leftTop.second}, {"r", rightBottom.first}, {"b", rightBottom.second}});
    xml.Open("a:pathLst");
    WritePath(xml, form.outline, form.box, form.filled);
    WritePath(xml, form.lines, form.box, false);
    xml.Close(2);
}

void WriteFill(Xml &xml, QRgb colour, int percent) {
    xml.Open("a:solidFill").Open("a:srgbClr", {{"val", Hex(colour)}});
    if (percent < 100) xml.Empty("a:alpha", {{"val", percent * 1000}});
    xml.Close(2);
}

void WriteNoFill(Xml &xml) { xml.Empty("a:noFill"); }

namespace {

void WriteEnd(Xml &xml, const char *element, const LineEnd &end) {
    if (end.kind) xml.Empty(element, {{"type", end.kind}, {"w", end.width}, {"len", end.length}});
}

} // namespace

void WriteLine(Xml &xml, const LineLook &line, const LineEnd &start, const LineEnd &end) {
    constexpr double kWidest = 20116800;
    xml.Open("a:ln", {{"w", Emu(std::clamp(line.width, 0.0, kWidest))}, {"cap", "flat"}});
    if (!line.drawn || line.style == diagram::kTransparentLine) {
        xml.Empty("a:noFill").Close();
        return;
    }
    WriteFill(xml, line.colour);
    WriteDashes(xml, line.style);
    xml.Empty("a:miter", {{"lim", 800000}});
    WriteEnd(xml, "a:headEnd", start);
    WriteEnd(xml, "a:tailEnd", end);
    xml.Close();
}

void WriteShadow(Xml &xml, QRgb colour, const QPointF &offset) {
    constexpr double kFullTurn = 360 * 60000.0;
    const double turn = std::atan2(offset.y(), offset.x()) / (2 * M_PI) * kFullTurn;
    xml.Open("a:effectLst");
    xml.Open("a:outerShdw", {{"blurRad", 0},
                             {"dist", Emu(std::hypot(offset.x(), offset.y()))},
                             {"dir", Emu(turn < 0 ? turn + kFullTurn : turn)},
                             {"algn", "ctr"},
                             {"rotWithShape", "0"}});
    xml.Open("a:srgbClr", {{"val", Hex(colour)}});
    xml.Empty("a:alpha", {{"val", qAlpha(colour) * 100000 / 255}});
    xml.Close(3);
}

QStringList LinesOf(const QString &text) {
    static const QRegularExpression ends(QStringLiteral("\r\n|[\r\n\u2028\u2029\v\f]"));
    return text.split(ends);
}

namespace {

constexpr const char *kAcross[] = {"l", "r", "ctr"};
constexpr const char *kDown[] = {"t", "ctr", "b"};
constexpr double kSmallestFont = 1, kLargestFont = 4000; // points

void WriteFont(Xml &xml, const TextLook &look) {
    const diagram::Font &font = look.font;
    const double size = std::clamp(font.Size() * look.scale, kSmallestFont, kLargestFont);
    xml.Open("a:rPr", {{"sz", qRound(size * 100)},
                       {"b", int(font.Bold())},
                       {"i", int(font.Italic())},
                       {"u", font.Underline() ? "sng" : "none"},
                       {"strike", font.Strike() ? "sngStrike" : "noStrike"}});
    WriteFill(xml, look.colour);
    for (const char *script : {"a:latin", "a:ea", "a:cs"}) xml.Empty(script, {{"typeface", font.Name()}});
    xml.Close();
}

void WriteParagraph(Xml &xml, const QString &line, const TextLook &look) {
    xml.Open("a:p");
    xml.Empty("a:pPr", {{"algn", kAcross[look.across]}, {"rtl", int(line.isRightToLeft())}});
    if (!package::XmlText(line).isEmpty()) {
        xml.Open("a:r");
        WriteFont(xml, look);
        xml.Leaf("a:t", line).Close();
    }
    xml.Close();
}

} // namespace

void WriteTextBody(Xml &xml, const QString &text, const TextLook &look) {
    xml.Open("p:txBody");
    xml.Open("a:bodyPr", {{"vertOverflow", look.shrink < 1 ? "clip" : "overflow"},
                          {"wrap", look.wraps ? "square" : "none"},
                          {"lIns", Emu(look.insets.left())},
                          {"tIns", Emu(look.insets.top())},
                          {"rIns", Emu(look.insets.right())},
                          {"bIns", Emu(look.insets.bottom())},
                          {"rtlCol", 0},
                          {"anchor", kDown[look.down]}});
    if (look.shrink < 1)
        xml.Empty("a:normAutofit", {{"fontScale", qRound(look.shrink * 100000)}});
    else
        xml.Empty("a:noAutofit");
    xml.Close().Empty("a:lstStyle");
    for (const QString &line : LinesOf(text)) WriteParagraph(xml, line, look);
    xml.Close();
}

void WritePlainBody(Xml &xml, const QString &text) {
    xml.Open("p:txBody").Empty("a:bodyPr").Empty("a:lstStyle");
    for (const QString &line : LinesOf(text)) {
        xml.Open("a:p");
        if (line.isRightToLeft()) xml.Empty("a:pPr", {{"rtl", 1}});
        if (!package::XmlText(line).isEmpty()) xml.Open("a:r").Leaf("a:t", line).Close();
        xml.Close();
    }
    xml.Close();
}

} // namespace powerpoint
