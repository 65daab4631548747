// Lays out each diagram of tests/data/graphs in every way, side by side on one sheet: as it is written down,
// by us in layers, by dot, then in all other ways. All are routed by us. The sheet "sample" has the slices of
// the delivered sample: as they were drawn by hand, with the routes that they have there, by us in layers,
// and by dot.
//   velmora-layouts [FOLDER [NAME...]]     (build/gallery/layouts and all of them when left out)
#include "diagram/layout/Layouts.h"
#include "diagram/model/Routing.h"
#include "diagram/model/Surface.h"
#include "diagram/render/Renderer.h"
#include "diagram/scene/Scene.h"
#include "tests/gallery/layouts/Sample.h"
#include "tests/yardstick/Dot.h"
#include "tests/yardstick/GraphFile.h"

#include <cstdio>
#include <functional>
#include <QDir>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>

using namespace diagram;

namespace {

constexpr QSize kPanel(1000, 700); // pixels
constexpr int kHead = 28, kPanelsAcross = 3;
const QString kSample = QStringLiteral("sample");

void PaintInto(QPainter &painter, const QRect &place, Surface &surface) {
    constexpr double kPixelsOfTwip = 1.0 / 15;
    Scene scene(surface);
    const QRectF page = scene.Extent().adjusted(-150, -150, 150, 150);
    const double scale =
        std::min({kPixelsOfTwip * 1.2, place.width() / page.width(), place.height() / page.height()});
    RenderOptions options;
    options.xScale = options.yScale = scale;
    QImage image((page.size() * scale).toSize(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter onto(&image);
    Renderer().Paint(onto, scene, page, options);
    onto.end();
    painter.drawImage(place.topLeft(), image);
}

using LayOut = void (*)(Surface &surface, const LayoutOrder &order);

void AsWritten(Surface &, const LayoutOrder &) {}

void ByDot(Surface &surface, const LayoutOrder &order) {
    const LayoutSubject subject = SubjectOf(surface, order.scope);
    PlaceNodes(surface, subject, yardstick::DrawByDot(subject.graph, order.options).centres);
}

template <int kRow>
void ByRow(Surface &surface, const LayoutOrder &order) {
    LayoutTable()[kRow].layOut(surface, order);
}

struct Panel {
    const char *name;
    LayOut layOut;
};
constexpr Panel kPanels[] = {{"as written", AsWritten}, {"hierarchical", ByRow<0>}, {"dot", ByDot},
                             {"tree", ByRow<1>},        {"radial", ByRow<2>},       {"organic", ByRow<3>},
                             {"circular", ByRow<4>},    {"levels", ByRow<5>}};

void PaintPanel(QPainter &painter, const QRect &place, Surface &surface, const QString &title,
                const Panel &row) {
    Renderer renderer;
    surface.SetMeasure(&renderer.Measure());
    LayoutOrder order;
    order.lane = yardstick::GraphFile::LevelOf;
    QElapsedTimer time;
    time.start();
    row.layOut(surface, order);
    surface.Routes().Recalculate();
    painter.setPen(Qt::black);
    painter.drawText(
        QRect(place.topLeft(), QSize(place.width(), kHead)).adjusted(6, 0, 0, 0), Qt::AlignVCenter,
        QStringLiteral("%1: %2   (%3 ms)").arg(title, QLatin1String(row.name)).arg(time.elapsed()));
    painter.setPen(Qt::lightGray);
    painter.drawRect(place);
    PaintInto(painter, place.adjusted(4, kHead, -4, -4), surface);
    surface.SetMeasure(nullptr);
}

using PaintAt = std::function<void(QPainter &painter, const QRect &place, int panel)>;

void WriteSheet(const QDir &folder, const QString &name, int panels, const PaintAt &paint) {
    const int rows = (panels + kPanelsAcross - 1) / kPanelsAcross;
    QImage sheet(kPanel.width() * kPanelsAcross, kPanel.height() * rows, QImage::Format_RGB32);
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    for (int i = 0; i < panels; ++i) {
        const QPoint corner(i % kPanelsAcross * kPanel.width(), i / kPanelsAcross * kPanel.height());
        paint(painter, QRect(corner, kPanel), i);
    }
    const QString path = folder.filePath(name + QStringLiteral(".png"));
    sheet.save(path);
    std::printf("%s\n", qPrintable(path));
}

void WriteGraph(const QDir &folder, const QString &name) {
    WriteSheet(folder, name, int(std::size(kPanels)), [&](QPainter &painter, const QRect &place, int panel) {
        Surface surface;
        const yardstick::GraphFile file = yardstick::GraphFile::Read(name, surface);
        PaintPanel(painter, place, surface, file.title, kPanels[panel]);
    });
}

void WriteSample(const QDir &folder) {
    constexpr Panel kOfSample[kPanelsAcross] = {
        {"as drawn by hand", AsWritten}, {"hierarchical", ByRow<0>}, {"dot", ByDot}};
    const gallery::Sample sample;
    WriteSheet(folder, kSample, sample.Count() * kPanelsAcross,
               [&](QPainter &painter, const QRect &place, int panel) {
                   sample.With(panel / kPanelsAcross, [&](Surface &surface, const QString &title) {
                       PaintPanel(painter, place, surface, title, kOfSample[panel % kPanelsAcross]);
                   });
               });
}

} // namespace

int main(int argc, char **argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const QDir folder(arguments.value(1, QStringLiteral("build/gallery/layouts")));
    if (!QDir().mkpath(folder.path())) return 1;
    for (const QString &name : arguments.size() > 2 ? arguments.mid(2) : yardstick::GraphNames() << kSample)
        name == kSample ? WriteSample(folder) : WriteGraph(folder, name);
    return 0;
}
