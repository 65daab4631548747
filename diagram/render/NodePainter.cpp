#include "diagram/render/NodePainter.h"

#include "diagram/model/Node.h"
#include "diagram/render/EdgePainter.h"
#include "diagram/render/FarForms.h"
#include "diagram/render/Forms.h"
#include "diagram/render/NodeContent.h"
#include "diagram/shapes/Measures.h"

namespace diagram {

namespace {

constexpr QRgb kShadowColour = qRgba(0, 0, 0, 70);
constexpr double kLargestKept = 300; // device pixels of a side of a form that is kept as a picture
constexpr double kWidestKept = 20;   // the same of its line
constexpr double kFarthest = 1e6;    // device pixels, far beyond any screen

struct NodeForm {
    const NodeData &data;
    const ShapeRow &row;
    QRectF box;   // device
    double width; // of the border
    bool lined;
};

NodeForm FormOf(const Paint &paint, const Node &node) {
    const NodeData &data = node.Data();
    const ShapeRow *row = FindShape(data.shape);
    const double width = paint.frame.LineWidth(data.drawWidth);
    const QRectF box = paint.frame.SnapBox(paint.frame.Map(node.ShownBounds()), width);
    return {data, row ? *row : *FindShape(1), box, width, data.drawStyle != kTransparentLine};
}

void PaintShadow(Paint &paint, const NodeForm &form) {
    double offset = paint.frame.Length(kShadowOffset);
    if (paint.frame.snap) offset = std::max(1.0, std::round(offset));
    const QRectF box = form.box.translated(kShadowWays[form.data.shadow] * offset);
    paint.pencil.NoLine();
    paint.pencil.Fill(kShadowColour);
    DrawForm(paint, form.row, form.data.shapeOrientation, box);
}

// A plain rectangle is filled and framed in whole pixels.
bool PaintPlainRectangle(Paint &paint, const NodeForm &form) {
    const bool plain = paint.frame.snap && form.row.form == ShapeForm::Rectangle &&
                       form.row.edge == ShapeEdge::None && form.data.drawStyle == 0 &&
                       form.data.picture.IsNull();
    if (!plain) return false;
    paint.pencil.Smooth(false); // else the painter doesn't see that these are whole pixels
    if (!form.data.transparent) {
        const QRectF box(QPointF(std::floor(form.box.left()), std::floor(form.box.top())),
                         QPointF(std::floor(form.box.right()), std::floor(form.box.bottom())));
        paint.Painter().fillRect(box.toRect(), QColor::fromRgb(ToRgb(form.data.fillColor)));
    }
    FrameBox(paint.Painter(), form.box, int(form.width), ToRgb(form.data.borderColor));
    return true;
}

void SetFill(Paint &paint, const NodeForm &form) {
    if (form.data.transparent)
        paint.pencil.NoFill();
    else
        paint.pencil.Fill(ToRgb(form.data.fillColor));
}

// The line inside the outline: a line of twice the width, of which the outer half is cut away.
void PaintInsideBorder(Paint &paint, const NodeForm &form) {
    QPainter &painter = paint.Painter();
    paint.pencil.NoFill();
    if (form.row.form == ShapeForm::Rectangle || form.row.form == ShapeForm::Ellipse) {
        const double half = form.width / 2;
        paint.pencil.Line(ToRgb(form.data.borderColor), form.width);
        DrawForm(paint, form.row, form.data.shapeOrientation, form.box.adjusted(half, half, -half, -half));
        return;
    }
    painter.save();
    const QPainterPath outline = Outline(form.row.value, form.data.shapeOrientation, form.box);
    painter.setClipPath(IsFar(paint, form.box) ? PaintedPart(paint, outline) : outline, Qt::IntersectClip);
    paint.pencil.Line(ToRgb(form.data.borderColor), 2 * form.width);
    DrawForm(paint, form.row, form.data.shapeOrientation, form.box);
    painter.restore();
    paint.pencil.Forget();
}

void PaintDetail(Paint &paint, const NodeForm &form) {
    if (!form.row.detail || !form.lined) return;
    paint.pencil.Line(ToRgb(form.data.borderColor), form.width,
                      form.data.drawStyle == kInsideLine ? 0 : form.data.drawStyle);
    paint.pencil.NoFill();
    paint.pencil.Smooth(true);
    QPainterPath lines = Detail(form.row.value, form.data.shapeOrientation, form.box);
    for (int i = 0; paint.frame.snap && i < lines.elementCount(); ++i) {
        const QPointF at = paint.frame.SnapLine(QPointF(lines.elementAt(i)), form.width);
        if (!lines.elementAt(i).isCurveTo() && lines.elementAt(i).type != QPainterPath::CurveToDataElement)
            lines.setElementPositionAt(i, at.x(), at.y());
    }
    if (IsFar(paint, form.box))
        DrawFar(paint, lines);
    else
        paint.Painter().drawPath(lines);
}

void PaintBorder(Paint &paint, const NodeForm &form) {
    if (!form.lined || form.row.edge != ShapeEdge::None) return;
    if (form.data.drawStyle == kInsideLine) return PaintInsideBorder(paint, form);
    paint.pencil.Line(ToRgb(form.data.borderColor), form.width, form.data.drawStyle);
    paint.pencil.NoFill();
    DrawForm(paint, form.row, form.data.shapeOrientation, form.box);
}

// Fill and border in one call where nothing comes between them.
void DrawFormAtOnce(Paint &paint, const NodeForm &form, const QRectF &box) {
    SetFill(paint, form);
    if (form.lined)
        paint.pencil.Line(ToRgb(form.data.borderColor), form.width, form.data.drawStyle);
    else
        paint.pencil.NoLine();
    DrawForm(paint, form.row, form.data.shapeOrientation, box);
}

FormLook LookOf(const NodeForm &form) {
    FormLook look;
    look.shape = form.row.value;
    look.orientation = form.data.shapeOrientation;
    look.width = int(form.box.width());
    look.height = int(form.box.height());
    look.line = int(form.width);
    look.style = form.data.drawStyle;
    look.lineColour = ToRgb(form.data.borderColor);
    look.filled = !form.data.transparent;
    look.fill = look.filled ? ToRgb(form.data.fillColor) : 0;
    return look;
}

// What a line of that width may cover around the box, its corners included.
int Margin(const NodeForm &form) { return 3 * int(form.width) + 1; }

const QImage &PictureOf(Paint &paint, const NodeForm &form, const FormLook &look) {
    if (const QImage *kept = paint.caches.forms.Find(look)) return *kept;
    const int margin = Margin(form);
    QImage picture(look.width + 2 * margin, look.height + 2 * margin, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    Paint onPicture{Pencil(painter), paint.frame, paint.options, paint.scene,
                    paint.caches,    paint.paper, paint.area};
    const QPointF corner = form.box.topLeft();
    const QPointF within = corner - QPointF(std::floor(corner.x()), std::floor(corner.y()));
    DrawFormAtOnce(onPicture, form, QRectF(within + QPointF(margin, margin), form.box.size()));
    painter.end();
    return paint.caches.forms.Keep(look, std::move(picture));
}

// Whether it may be kept as a picture: boxes on whole pixels look alike wherever they lie.
bool IsKept(const Paint &paint, const NodeForm &form) {
    const QPointF corner = form.box.topLeft();
    return paint.frame.snap && form.row.form != ShapeForm::Rectangle && form.box.width() <= kLargestKept &&
           form.box.height() <= kLargestKept && form.width <= kWidestKept &&
           std::max(std::abs(corner.x()), std::abs(corner.y())) < kFarthest;
}

void PaintFormAtOnce(Paint &paint, const NodeForm &form) {
    if (!IsKept(paint, form)) return DrawFormAtOnce(paint, form, form.box);
    const QImage &picture = PictureOf(paint, form, LookOf(form));
    const int margin = Margin(form);
    const QPoint corner(int(std::floor(form.box.left())) - margin, int(std::floor(form.box.top())) - margin);
    paint.Painter().drawImage(corner, picture);
}

void PaintFormInSteps(Paint &paint, const Node &node, const NodeForm &form) {
    if (!form.data.transparent) {
        SetFill(paint, form);
        paint.pencil.NoLine();
        DrawForm(paint, form.row, form.data.shapeOrientation, form.box);
    }
    if (!form.data.picture.IsNull()) PaintNodePicture(paint, node);
    PaintBorder(paint, form);
    if (form.row.edge != ShapeEdge::None && form.lined) PaintEdge(paint, form.row.edge, form.data, form.box);
}

} // namespace

void PaintNodeForm(Paint &paint, const Node &node) {
    const NodeForm form = FormOf(paint, node);
    if (form.data.shadow && !form.data.transparent) PaintShadow(paint, form);
    if (!PaintPlainRectangle(paint, form)) {
        const bool atOnce = form.data.picture.IsNull() && form.row.edge == ShapeEdge::None &&
                            form.data.drawStyle != kInsideLine;
        if (atOnce)
            PaintFormAtOnce(paint, form);
        else
            PaintFormInSteps(paint, node, form);
    }
    PaintDetail(paint, form);
}

void PaintNode(Paint &paint, const Node &node) {
    PaintNodeForm(paint, node);
    PaintNodeText(paint, node);
}

} // namespace diagram
