#include "output/print/PrintSlices.h"

#include "diagram/model/Node.h"
#include "output/print/Fields.h"
#include "output/print/GlueMarks.h"

#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPainter>

namespace print {

namespace {

constexpr int kTextHeight = 180; // of headers and footers, twips

std::vector<QRectF> BoxesOf(const diagram::Surface &surface) {
    std::vector<QRectF> boxes;
    for (const diagram::Node &node : surface.Nodes())
        if (!node.Hidden()) boxes.emplace_back(node.Left(), node.Top(), node.Width(), node.Height());
    return boxes;
}

// All that is painted. The scene's extent is wider than that by a little, which alone would make empty pages.
QRectF ExtentOf(PrintedSlice &slice) {
    constexpr double kWider = 30; // twips, on each side
    const QRectF extent = slice.scene->Extent();
    if (extent.isEmpty()) return extent;
    return extent.adjusted(kWider, kWider, -kWider, -kWider) | slice.surface->Extent();
}

PageLayout LayOut(PrintedSlice &slice, const PageSetup &setup) {
    PageRules rules;
    rules.paper = PaperSize(setup.paper);
    rules.margins = setup.margins;
    rules.orientation = setup.Orientation;
    rules.fit = setup.FitToPage;
    rules.xZoom = slice.surface->xZoom(), rules.yZoom = slice.surface->yZoom();
    rules.header = !setup.Header.trimmed().isEmpty();
    rules.footer = !setup.Footer.trimmed().isEmpty();
    rules.marks = setup.marks, rules.keepWhole = setup.keepWhole;
    const bool needsBoxes = rules.keepWhole && !rules.fit;
    return LayOutPages(rules, ExtentOf(slice), needsBoxes ? BoxesOf(*slice.surface) : std::vector<QRectF>());
}

class Saved {
public:
    explicit Saved(QPainter &painter) : painter_(painter) { painter_.save(); }
    ~Saved() { painter_.restore(); }
    Saved(const Saved &) = delete;
    Saved &operator=(const Saved &) = delete;

private:
    QPainter &painter_;
};

QRectF Scaled(const QRectF &r, double scale) {
    return {r.topLeft() * scale, QSizeF(r.width() * scale, r.height() * scale)};
}

} // namespace

Sheets LayOutSlices(PrintedMap &map, const PageSetup &setup) {
    Sheets sheets;
    for (int i = 0; i < int(map.slices.size()); ++i) {
        sheets.layouts.emplace_back();
        if (!IsPrinted(setup, i, map.current)) continue;
        sheets.layouts.back() = LayOut(map.slices[std::size_t(i)], setup);
        for (int page = 0; page < sheets.layouts.back().Pages(); ++page)
            if (setup.range.Holds(++sheets.all)) sheets.sheets.push_back({i, page, sheets.all});
    }
    return sheets;
}

void PrintSlices::Paint(QPainter &painter, int sheet, double scale, bool vector) {
    const Sheet &at = sheets_.sheets[std::size_t(sheet)];
    const PageLayout &layout = sheets_.layouts[std::size_t(at.slice)];
    const Saved whole(painter);
    PaintSurface(painter, at, layout, scale, vector);
    painter.scale(scale, scale);
    if (layout.overlaps) PaintGlueMarks(painter, layout, at.page);
    PaintTexts(painter, at, layout);
}

void PrintSlices::PaintSurface(QPainter &painter, const Sheet &sheet, const PageLayout &layout, double scale,
                               bool vector) {
    const Saved inner(painter);
    PrintedSlice &slice = map_.slices[std::size_t(sheet.slice)];
    painter.setClipRect(Scaled(layout.body, scale), Qt::IntersectClip);
    painter.translate(layout.body.topLeft() * scale);
    diagram::RenderOptions options;
    options.vector = vector;
    options.grid = setup_.grid;
    options.xScale = layout.xScale * scale;
    options.yScale = layout.yScale * scale;
    renderer_.Paint(painter, *slice.scene, layout.Shown(sheet.page), options);
}

// The painter is scaled to twips: in them a text is laid out alike on every device.
void PrintSlices::PaintTexts(QPainter &painter, const Sheet &sheet, const PageLayout &layout) {
    const FieldValues values{sheet.number,     sheets_.all,
                             map_.title,       map_.slices[std::size_t(sheet.slice)].caption,
                             map_.made.date(), map_.file};
    painter.scale(diagram::kMillimetresPerTwip, diagram::kMillimetresPerTwip);
    QFont font(QStringLiteral("sans-serif"));
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(kTextHeight);
    painter.setFont(font);
    painter.setPen(Qt::black);
    const double width = layout.body.width() / diagram::kMillimetresPerTwip;
    const auto draw = [&](const QString &text, double top) {
        if (text.trimmed().isEmpty()) return;
        const QRectF line(layout.body.left() / diagram::kMillimetresPerTwip,
                          top / diagram::kMillimetresPerTwip, width,
                          kLineOfText / diagram::kMillimetresPerTwip);
        const QString filled = FillFields(text, values).simplified();
        painter.drawText(line, Qt::AlignCenter | Qt::TextSingleLine,
                         QFontMetricsF(font).elidedText(filled, Qt::ElideRight, width));
    };
    draw(setup_.Header, layout.body.top() - kLineOfText);
    draw(setup_.Footer, layout.body.bottom());
}

int PrintSlices::PaintAll(QPagedPaintDevice &device, const std::vector<int> &order,
                          const std::function<void()> &newPage, const std::function<bool(int)> &goOn) {
    QPainter painter;
    int painted = 0;
    for (const int sheet : order) {
        if (!goOn(painted)) break;
        if (painted > 0)
            newPage();
        else if (!painter.begin(&device))
            break;
        painter.setRenderHint(QPainter::Antialiasing);
        Paint(painter, sheet, device.logicalDpiX() / kMillimetresPerInch, true);
        ++painted;
    }
    return painted;
}

} // namespace print
