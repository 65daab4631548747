#include "mainwindow/icons/Icons.h"

#include "diagram/shapes/Shapes.h"
#include "mainwindow/icons/IconDrawing.h"
#include "mainwindow/icons/ReadyIcons.h"
#include "widgets/PaintedIconEngine.h"

#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <QResource>

// The resources of a static library are linked in by this call; it has to stand outside of any namespace.
static void InitIconResources() { Q_INIT_RESOURCE(icons); }

namespace mainwindow {

namespace {

bool IsDark(const QPalette &palette) {
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

QString PathOf(const QString &name) {
    static const bool initialised = (InitIconResources(), true);
    Q_UNUSED(initialised)
    return QStringLiteral(":/icons/%1.svg").arg(name);
}

// An icon in a square, in the colours for a light or a dark theme.
class DrawnIconEngine : public widgets::PaintedIconEngine {
protected:
    virtual void Draw(QPainter &painter, const QRectF &box, bool dark) = 0;

    void Paint(QPainter &painter, const QSize &size, QIcon::Mode mode) override {
        PrepareForIcon(painter, mode == QIcon::Disabled);
        const qreal side = qMin(size.width(), size.height());
        Draw(painter, QRectF((size.width() - side) / 2, (size.height() - side) / 2, side, side),
             IsDark(QGuiApplication::palette()));
    }
};

// The drawing must exist.
class SvgIconEngine : public DrawnIconEngine {
public:
    SvgIconEngine(QString name, bool ownColours) : name_(std::move(name)), ownColours_(ownColours) {}
    QIconEngine *clone() const override { return new SvgIconEngine(*this); }

protected:
    QPixmap Make(const QSize &size, QIcon::Mode mode) override {
        const IconLook look{size.width(), IsDark(QGuiApplication::palette()), mode == QIcon::Disabled};
        const QImage ready = size.width() == size.height() ? FindReadyIcon(name_, look) : QImage();
        return ready.isNull() ? DrawnIconEngine::Make(size, mode) : QPixmap::fromImage(ready);
    }

    void Draw(QPainter &painter, const QRectF &box, bool dark) override {
        QFile file(PathOf(name_));
        if (file.open(QIODevice::ReadOnly)) DrawIcon(painter, file.readAll(), box, dark && !ownColours_);
    }

private:
    QString name_;
    bool ownColours_;
};

// Whether the outer and the inner line along an edge are light at left and top; at right and bottom they are
// the opposite. A raised or sunken edge has both alike, so that they look like one.
struct EdgeLook {
    diagram::ShapeEdge edge;
    bool outerLight, innerLight;
};
constexpr EdgeLook kEdgeLooks[] = {
    {diagram::ShapeEdge::Bump, true, false},
    {diagram::ShapeEdge::Etched, false, true},
    {diagram::ShapeEdge::Raised, true, true},
    {diagram::ShapeEdge::Sunken, false, false},
};

void DrawFrame(QPainter &painter, const QRectF &box, bool lightAtTop) {
    const QColor light(Qt::white), dark(0x70, 0x78, 0x88);
    painter.setPen(QPen(lightAtTop ? light : dark, painter.pen().widthF(), Qt::SolidLine, Qt::SquareCap));
    painter.drawLines(QVector<QLineF>{{box.bottomLeft(), box.topLeft()}, {box.topLeft(), box.topRight()}});
    painter.setPen(QPen(lightAtTop ? dark : light, painter.pen().widthF(), Qt::SolidLine, Qt::SquareCap));
    painter.drawLines(
        QVector<QLineF>{{box.bottomLeft(), box.bottomRight()}, {box.bottomRight(), box.topRight()}});
}

class ShapeIconEngine : public DrawnIconEngine {
public:
    explicit ShapeIconEngine(int shape) : shape_(shape) {}
    QIconEngine *clone() const override { return new ShapeIconEngine(*this); }

protected:
    void Draw(QPainter &painter, const QRectF &box, bool dark) override {
        const qreal unit = box.width() / 24;
        const QRectF field = box.adjusted(2.5 * unit, 4.5 * unit, -2.5 * unit, -4.5 * unit);
        painter.setPen(
            QPen(QColor(dark ? 0xdcdcdc : 0x303030), 1.4 * unit, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.setBrush(QColor(dark ? 0x34507e : 0xcfe0ff));
        painter.drawPath(diagram::Outline(shape_, 0, field));
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(painter.pen().color(), unit)); // lines that lie close stay apart
        painter.drawPath(diagram::Detail(shape_, 0, field));
        DrawEdge(painter, field, 1.5 * unit);
    }

private:
    void DrawEdge(QPainter &painter, const QRectF &field, qreal width) const {
        const diagram::ShapeRow *row = diagram::FindShape(shape_);
        for (const EdgeLook &look : kEdgeLooks) {
            if (!row || row->edge != look.edge) continue;
            painter.setPen(QPen(Qt::white, width));
            DrawFrame(painter, field.adjusted(width, width, -width, -width), look.outerLight);
            DrawFrame(painter, field.adjusted(2 * width, 2 * width, -2 * width, -2 * width), look.innerLight);
        }
    }

    int shape_;
};

} // namespace

QIcon Icon(const QString &name) {
    if (name.isEmpty() || !QResource(PathOf(name)).isValid()) return {};
    return QIcon(new SvgIconEngine(name, false));
}

QIcon ShapeIcon(int shape) { return QIcon(new ShapeIconEngine(shape)); }

QIcon ProgramIcon() { return QIcon(new SvgIconEngine(QStringLiteral("velmora"), true)); }

} // namespace mainwindow
