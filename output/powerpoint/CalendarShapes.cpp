#include "output/powerpoint/CalendarShapes.h"

#include "diagram/geometry/Units.h"
#include "diagram/model/Surface.h"
#include "diagram/render/CalendarInk.h"
#include "diagram/render/CalendarRows.h"
#include "diagram/render/Paint.h"
#include "diagram/scene/Scene.h"
#include "output/powerpoint/NodeShapes.h"

namespace powerpoint {

namespace {

using diagram::Calendar;
using diagram::CalendarInk;
using diagram::CalendarRows;

constexpr double kPixel = diagram::kTwipsPerPixel; // outputs are laid out as at zoom 100
constexpr double kPoints = 8;                      // of captions
constexpr int kLeft = 0, kMiddle = 2;              // TextLook::across

// A plain rectangle, a text alone, or both.
struct Piece {
    QRectF box = {}; // twips
    std::optional<QRgb> fill = {};
    QString caption = {};
    QRgb ink = 0;
    bool bold = false;
    int across = kMiddle; // of the caption
    QString name = {};
};

void WritePiece(ShapeContext &context, const Piece &piece) {
    package::Xml &xml = context.xml;
    xml.Open("p:sp").Open("p:nvSpPr");
    WriteIdentity(context, "p:cNvPr", context.nextId++, piece.caption.isEmpty() ? piece.name : piece.caption);
    xml.Empty("p:cNvSpPr").Empty("p:nvPr").Close();
    xml.Open("p:spPr");
    WriteTransform(xml, context.frame.Map(piece.box));
    WritePreset(xml, QStringLiteral("rect"));
    if (piece.fill)
        WriteFill(xml, *piece.fill);
    else
        WriteNoFill(xml);
    LineLook none;
    none.drawn = false;
    WriteLine(xml, none);
    xml.Close();
    TextLook look;
    look.font = diagram::Font(context.scene.TheCalendar().fontName, kPoints, piece.bold);
    look.colour = piece.ink;
    look.scale = context.frame.FontScale();
    look.across = piece.across;
    look.wraps = false;
    WriteTextBody(xml, piece.caption, look);
    xml.Close();
}

class CalendarShapes {
public:
    CalendarShapes(ShapeContext &context, const Calendar &calendar, const QRectF &area)
        : context_(context),
          calendar_(calendar),
          area_(area),
          rows_(calendar, 1 / kPixel),
          ink_(diagram::ToRgb(context.scene.Model().BackColor()), diagram::ToRgb(calendar.ink)) {}

    void Write() const {
        for (const Calendar::Span &day : calendar_.weekends)
            WriteBar(day.from, day.to, Page(), ink_.Weekend(), QStringLiteral("Weekend"));
        if (calendar_.bands) {
            for (const Calendar::Span &quarter : calendar_.quarters)
                WriteSpan(quarter, rows_.Quarters(), ink_.Quarter(), ink_.QuarterText(), false);
            for (const Calendar::Span &year : calendar_.years)
                WriteSpan(year, rows_.Years(), ink_.Year(), ink_.YearText(), true);
        }
        for (const Calendar::Lane &lane : calendar_.lanes) WriteLane(lane);
        if (calendar_.todayEverywhere && calendar_.today) {
            const double at = calendar_.rightwards ? calendar_.today->x1() : calendar_.today->y1();
            WriteBar(at, at + kPixel, Page(), diagram::kTodayInk, QStringLiteral("Today"));
        }
    }

private:
    CalendarRows::Row Page() const {
        return calendar_.rightwards ? CalendarRows::Row{area_.top(), area_.bottom()}
                                    : CalendarRows::Row{area_.left(), area_.right()};
    }

    void WriteBar(double from, double to, const CalendarRows::Row &row, QRgb fill,
                  const QString &name) const {
        const QRectF box = rows_.PlaceOf(from, to, row) & area_;
        if (!box.isEmpty()) WritePiece(context_, {.box = box, .fill = fill, .name = name});
    }

    // Ends a pixel early, so that the paper shows between it and the next one.
    void WriteSpan(const Calendar::Span &span, const CalendarRows::Row &row, QRgb fill, QRgb ink,
                   bool bold) const {
        const QRectF box = rows_.PlaceOf(span.from, std::max(span.from, span.to - kPixel), row);
        const diagram::TextBlock &caption =
            context_.texts.Find(span.caption, diagram::Font(calendar_.fontName, kPoints, bold), 0, 0);
        const bool fits = (calendar_.rightwards ? caption.width : caption.height) <= span.Length();
        WritePiece(context_, {.box = box,
                              .fill = fill,
                              .caption = fits ? span.caption : QString(),
                              .ink = ink,
                              .bold = bold,
                              .name = span.caption});
    }

    // The line between this lane and the next, and the lane's caption on it at the strip's beginning.
    void WriteLane(const Calendar::Lane &lane) const {
        const QRectF &strip = calendar_.strip;
        const bool before = lane.to < (calendar_.rightwards ? strip.center().y() : strip.center().x());
        const double edge = before ? lane.to + kGap : lane.from - kGap - kHigh;
        const double begin = calendar_.rightwards ? strip.left() : strip.top();
        const double end = calendar_.rightwards ? strip.right() : strip.bottom();
        const double line = before ? edge + kHigh : edge;
        WriteBar(begin, end, {line, line + kPixel}, ink_.LaneLine(), lane.caption);
        const QRectF box =
            calendar_.rightwards ? QRectF(begin, edge, kLong, kHigh) : QRectF(edge, begin, kLong, kHigh);
        WritePiece(context_, {.box = box,
                              .caption = lane.caption,
                              .ink = ink_.LaneText(),
                              .across = kLeft,
                              .name = lane.caption});
    }

    static constexpr double kGap = 45, kHigh = 225, kLong = 1800; // twips
    ShapeContext &context_;
    const Calendar &calendar_;
    const QRectF area_;
    CalendarRows rows_;
    CalendarInk ink_;
};

} // namespace

void WriteCalendar(ShapeContext &context, const Calendar &calendar, const QRectF &area) {
    if (!calendar.IsEmpty()) CalendarShapes(context, calendar, area).Write();
}

void WriteFold(ShapeContext &context, const Calendar &calendar, const Calendar::Fold &fold,
               const diagram::Node &month) {
    const QRgb ground =
        diagram::ToRgb(month.Transparent() ? context.scene.Model().BackColor() : month.FillColor());
    const CalendarInk ink(ground, diagram::ToRgb(calendar.ink));
    WritePiece(context, {.box = month.Bounds(),
                         .fill = ink.Fold(),
                         .caption = fold.count,
                         .ink = ink.Text(),
                         .bold = true,
                         .name = fold.name});
}

} // namespace powerpoint
