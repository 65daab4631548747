#include "gallery/Sheets.h"

#include "diagram/model/ScreenValues.h"
#include "diagram/model/Surface.h"
#include "diagram/shapes/Shapes.h"
#include "diagram/shapes/Tables.h"

#include <QImage>
#include <QPainter>

using namespace diagram;

namespace gallery {

namespace {

constexpr support::Colour kColours[] = {support::Rgb(255, 255, 255), support::Rgb(253, 233, 217),
                                        support::Rgb(220, 230, 241), support::Rgb(235, 241, 222),
                                        support::Rgb(228, 223, 236), support::Rgb(255, 242, 204)};

// 48 x 32 pixels, times `scale`.
Picture Landscape(int scale = 1) {
    QImage image(QSize(48, 32) * scale, QImage::Format_ARGB32);
    image.fill(QColor(170, 210, 250));
    QPainter painter(&image);
    painter.scale(scale, scale);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(250, 200, 40));
    painter.drawEllipse(QPointF(36, 9), 5, 5);
    painter.setBrush(QColor(80, 150, 80));
    const QPointF hill[] = {{0, 32}, {16, 10}, {28, 24}, {34, 18}, {48, 32}};
    painter.drawPolygon(hill, 5);
    painter.end();
    return Picture::FromImage(image);
}

void DrawShapes(Surface &surface) {
    int row = 0;
    for (const ShapeRow &shape : ShapeTable()) {
        for (int orientation = 0; orientation < 4; ++orientation) {
            Node &node = AddAt(surface, orientation + 4.3 * (row % 3), row / 3, shape.name);
            node.SetShape(shape.value);
            node.SetShapeOrientation(orientation);
            node.SetFillColor(kColours[row % 6]);
        }
        ++row;
    }
}

void DrawTall(Surface &surface) {
    int column = 0;
    for (const ShapeRow &shape : ShapeTable()) {
        Node &node = AddAt(surface, 0.8 * (column % 15), 2.2 * (column / 15), shape.name);
        node.SetBounds(node.Left(), node.Top(), 900, 1650);
        node.SetShape(shape.value);
        node.SetDrawWidth(2);
        node.SetShadow(1 + column % 4);
        node.SetFillColor(kColours[column % 6]);
        ++column;
    }
}

void DrawLineStyles(Surface &surface) {
    for (const NamedValue &style : LineStyleTable())
        for (int width = 0; width < 5; ++width)
            for (int form = 0; form < 3; ++form) {
                constexpr int kForms[] = {1, 0, 3};
                Node &node = AddAt(surface, width + 5.3 * form, style.value, style.name);
                node.SetShape(kForms[form]);
                node.SetDrawStyle(style.value);
                node.SetDrawWidth(float(width == 4 ? 8 : width));
                node.SetBorderColor(support::Rgb(0, 70, 150));
            }
}

void DrawShadowsAndEdges(Surface &surface) {
    for (const NamedValue &shadow : ShadowTable())
        for (int form = 0; form < 4; ++form) {
            constexpr int kForms[] = {1, 0, 2, 56};
            Node &node = AddAt(surface, shadow.value, form, shadow.name);
            node.SetShape(kForms[form]);
            node.SetShadow(shadow.value);
            node.SetFillColor(kColours[1 + form]);
        }
    for (int shape = 9; shape <= 12; ++shape)
        for (int width = 0; width < 3; ++width) {
            Node &node = AddAt(surface, shape - 9, 4.3 + width, FindShape(shape)->name);
            node.SetShape(shape);
            node.SetFillColor(support::Rgb(212, 208, 200));
            node.SetDrawWidth(float(width));
        }
}

void DrawTexts(Surface &surface) {
    const char *const kText = "First line\r\nand a longer second one that is wrapped";
    for (const NamedValue &place : AlignmentTable()) {
        Node &node = AddAt(surface, place.value % 3, 1.6 * (place.value / 3), kText);
        node.SetBounds(node.Left(), node.Top(), 1650, 1300);
        node.SetAlignment(place.value);
        node.SetxTextMargin(4);
        node.SetyTextMargin(4);
    }
    struct Face {
        const char *name;
        double size;
        bool bold, italic, underline, strike;
    };
    constexpr Face kFaces[] = {{"Arial", 8, false, false, false, false},
                               {"Arial", 8, true, false, false, false},
                               {"Arial", 10, false, true, false, false},
                               {"Arial", 10, false, false, true, false},
                               {"Arial", 10, false, false, false, true},
                               {"MS Sans Serif", 8, false, false, false, false},
                               {"Times New Roman", 12, false, false, false, false},
                               {"Courier New", 9, false, false, false, false},
                               {"No Such Font", 9, false, false, false, false},
                               {"DejaVu Sans", 18, true, true, true, false}};
    int row = 0;
    for (const Face &face : kFaces) {
        Node &node = AddAt(surface, 3.4 + row % 2 * 1.3, row / 2 * 0.9, "Quick brown fox 0123");
        node.SetBounds(node.Left(), node.Top(), 2100, 750);
        node.SetFont(
            Font(QLatin1String(face.name), face.size, face.bold, face.italic, face.underline, face.strike));
        ++row;
    }
    const char *const kScripts[] = {
        "\u0645\u0631\u062D\u0628\u0627 \u0628\u0627\u0644\u0639\u0627\u0644\u0645 2024",
        "\u05E9\u05DC\u05D5\u05DD \u05E2\u05D5\u05DC\u05DD abc",
        "\u4F60\u597D\u4E16\u754C",
        "\u0E2A\u0E27\u0E31\u0E2A\u0E14\u0E35",
        "\u0417\u0434\u0440\u0430\u0432\u0441\u0442\u0432\u0443\u0439 \u043C\u0438\u0440",
        "na\u00EFve caf\u00E9 \u2014 \u201Cquotes\u201D",
        "Averyverylongwordthatfitsinnolineatallandmustbebroken somewhere",
        ("Too much text for so small a box, it is cut off at the bottom of the box and does not run over "
         "others")};
    row = 0;
    for (const char *text : kScripts) AddAt(surface, row++ * 0.95, 5, text);
}

void DrawPictures(Surface &surface) {
    const Picture picture = Landscape();
    for (const NamedValue &place : PicturePosTable()) {
        Node &node = AddAt(surface, place.value % 5, 1.5 * (place.value / 5), place.name);
        node.SetBounds(node.Left(), node.Top(), 1500, 1200);
        node.SetPicture(picture);
        node.SetPicturePos(place.value);
        node.SetAlignment(8);
    }
    for (int alignment = 0; alignment < 9; ++alignment) {
        Node &node = AddAt(surface, alignment % 5, 3 + 1.5 * (alignment / 5), "beside");
        node.SetBounds(node.Left(), node.Top(), 1500, 1200);
        node.SetPicture(picture);
        node.SetPicturePos(9);
        node.SetAlignment(alignment);
    }
    for (int shape : {1, 0, 3, 56})
        for (const NamedValue &size : AutoSizeTable()) {
            Node &node = AddAt(surface, 5.5 + size.value * 1.2,
                               shape == 1   ? 0
                               : shape == 0 ? 1.3
                               : shape == 3 ? 2.6
                                            : 3.9,
                               "Text of the node");
            node.SetShape(shape);
            node.SetPicture(picture);
            node.SetAutoSize(size.value);
        }
    Node &small = AddAt(surface, 5.5, 5.2);
    small.SetBounds(small.Left(), small.Top(), 450, 300);
    small.SetShape(0);
    small.SetPicture(picture);
    Node &clear = AddAt(surface, 6.7, 5.2, "transparent");
    clear.SetTransparent(true);
}

template <int kStyle>
void DrawGrid(Surface &surface) {
    surface.SetGridLines(true);
    surface.Screen().SetGridStyle(kStyle);
    surface.SetBackColor(support::Rgb(250, 250, 245));
    surface.SetPicture(Landscape(8));
    Node &a = AddAt(surface, 0, 1, "selected");
    Node &b = AddAt(surface, 2, 2, "the focus");
    Node &c = AddAt(surface, 4, 1, "marked");
    AddAt(surface, 4, 2, "hidden").SetHidden(true);
    Link &link = a.Links().Add(b);
    link.SetStyle(4);
    link.SetText(QStringLiteral("a label"));
    Link &marked = b.Links().Add(c);
    marked.SetMarked(true);
    c.SetMarked(true);
    a.SetSelected(true);
    link.SetSelected(true);
    b.SetSelected(true);
}

void DrawSample(Surface &surface) {
    surface.SetGridLines(true);
    constexpr int kForms[] = {1, 0, 3, 53, 56, 75, 2, 9};
    std::vector<Node *> nodes;
    for (int i = 0; i < 16; ++i) {
        Node &node = AddAt(surface, i % 4 * 1.6, i / 4 * 1.7, "Node");
        node.SetText(QStringLiteral("Node %1 of this").arg(i));
        node.SetShape(kForms[i % 8]);
        node.SetFillColor(kColours[i % 6]);
        node.SetShadow(i % 5);
        nodes.push_back(&node);
    }
    for (std::size_t i = 0; i + 1 < nodes.size(); ++i) {
        Link &link = nodes[i]->Links().Add(*nodes[i + 1]);
        constexpr int kStyles[] = {0, 5, 1, 4, 2};
        link.SetStyle(kStyles[i % 5]);
        link.SetArrowDest(int(3 + i));
        link.SetDrawWidth(float(1 + i % 3));
    }
}

} // namespace

Node &AddAt(Surface &surface, double column, double row, const char *text) {
    Node &node = surface.Nodes().Add(float(150 + column * 1800), float(150 + row * 1050), 1500, 750);
    node.SetText(QString::fromUtf8(text));
    return node;
}

std::span<const Sheet> Sheets() {
    static constexpr Sheet kSheets[] = {{"shapes", DrawShapes, false},
                                        {"shapes-tall", DrawTall, false},
                                        {"lines", DrawLineStyles, false},
                                        {"shadows-edges", DrawShadowsAndEdges, false},
                                        {"texts", DrawTexts, false},
                                        {"pictures", DrawPictures, false},
                                        {"arrows", DrawArrows, false},
                                        {"link-styles", DrawLinkStyles, false},
                                        {"link-lines", DrawLinkLines, false},
                                        {"jumps", DrawJumps, false},
                                        {"routes", DrawRoutes, false},
                                        {"routes-beside", DrawRoutesBeside, false},
                                        {"routes-map", DrawRoutesOfMap, false},
                                        {"grid-dots", DrawGrid<0>, false},
                                        {"grid-crosses", DrawGrid<1>, false},
                                        {"grid-lines", DrawGrid<2>, false},
                                        {"sample", DrawSample, true}};
    return kSheets;
}

} // namespace gallery
