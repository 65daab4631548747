// Writes pictures of plans on a timeline, as the screen shows them, to be looked at.
//   velmora-strips [FOLDER]     (build/gallery/strips when left out)
#include "diagram/model/Surface.h"
#include "diagram/render/Renderer.h"
#include "diagram/scene/Scene.h"
#include "document/clsfrmMain.h"
#include "document/MemoryWindow.h"
#include "document/Tags.h"
#include "support/headless/HeadlessDesktop.h"
#include "timeline/AddTimelineLink.h"
#include "timeline/AtDates.h"
#include "timeline/CalendarOfStrip.h"
#include "timeline/DateText.h"
#include "timeline/Folding.h"
#include "timeline/LineUp.h"
#include "timeline/TimelineNodes.h"

#include <cstdio>
#include <QDir>
#include <QGuiApplication>
#include <QPainter>

using namespace diagram;

namespace {

constexpr float kTwips = 15;
constexpr const char *kArrangements[] = {"left", "right", "top", "bottom", "center"};
constexpr support::Colour kFills[] = {0xF7E3CF, 0xDBEED3, 0xBCE9FC, 0xCAD6F9, 0xF3D9E2};

struct Plan {
    const char *name;
    QDate start;
    int nodes, days; // from one node to the next
    int arrangement;
    bool dark;
    bool folded = false; // all years but the second, or the third month; in lanes, at their dates
};

// What the delivered months look like.
void BuildMonthLook(Surface &surface, bool dark, bool rightwards) {
    Node &look = *timeline::LocateTimeLineTemplateNode(surface, true);
    look.SetShape(1);
    look.SetDrawWidth(1);
    look.SetBorderColor(dark ? 0x5A4A3C : 0xDCD0C5);
    look.SetFillColor(dark ? 0x3C3028 : 0xF7F2EE);
    look.SetForeColor(dark ? 0xDCD0C5 : 0x6A5444);
    look.SetFont(Font(QStringLiteral("Arial"), 9));
    look.SetAlignment(7);
    look.SetWidth(120 * kTwips);
    look.SetHeight(float(rightwards ? 32 : 64) * kTwips);
    document::SetTag(look, document::tags::kDateFormat, QStringLiteral("MMMM YYYY"));
}

// Rows beside the strip, each node about where its day stands.
Node &AddNode(Surface &surface, const Plan &plan, int i) {
    const bool rightwards = plan.arrangement >= 2;
    const float along = float(i * plan.days) * 120 * kTwips / 30.4F, across = float(i % 4) * 70;
    const float page = float(rightwards ? surface.Height() : surface.Width());
    const float places[] = {230 + across * 2, page / kTwips - 390 - across * 2, 130 + across,
                            page / kTwips - 210 - across,
                            i % 2 ? 60 + across / 2 : page / kTwips - 180 + across / 2};
    const float beside = places[plan.arrangement] * kTwips;
    Node &node = rightwards ? surface.Nodes().Add(along, beside, 130 * kTwips, 46 * kTwips)
                            : surface.Nodes().Add(beside, along * 64 / 120, 130 * kTwips, 40 * kTwips);
    node.SetText(QStringLiteral("Step %1").arg(i + 1));
    node.SetFillColor(kFills[i % 5]);
    node.SetBorderColor(kFills[i % 5]);
    return node;
}

void FoldAndLineUp(document::MapWindow &window, Surface &surface, const Plan &plan) {
    std::vector<QString> levels;
    for (const char *name : {"Product", "Market", "Sales"})
        levels.push_back(window.clsSettings().Levels().Create(QLatin1String(name), false, 0).Key);
    int count = 0;
    for (Node &node : surface.Nodes())
        if (node.Selectable())
            document::SetTag(node, document::tags::kLevel, levels[std::size_t(count++) % levels.size()]);
    timeline::SetKeepsNodesAtDates(surface, true);
    timeline::SetLanes(surface, timeline::Lanes::Level);
    timeline::LineUp(window, surface, timeline::RowOrder::Choose);
    const bool isLong = plan.nodes * plan.days > 1000;
    const int first = isLong ? 0 : 2, last = isLong ? 9 : 2;
    for (int i = first; i <= last; ++i) {
        const QDate day = isLong ? plan.start.addYears(i) : plan.start.addMonths(i);
        const StripPiece piece = isLong ? StripPiece::Year : StripPiece::Month;
        if (!isLong || i != 1) timeline::SetFolded(window, surface, timeline::PieceAround(piece, day), true);
    }
}

void Draw(document::MapWindow &window, Surface &surface, const Plan &plan) {
    surface.SetBackColor(plan.dark ? 0x281C14 : 0xFFFFFF);
    document::SetTag(surface, document::tags::kTimelineAlign, QString::number(plan.arrangement));
    document::SetTag(surface, document::tags::kMissing, QStringLiteral("True"));
    BuildMonthLook(surface, plan.dark, plan.arrangement >= 2);
    surface.SetSize(1200 * kTwips, 640 * kTwips);
    std::vector<timeline::NodeDate> dates;
    for (int i = 0; i < plan.nodes; ++i)
        dates.push_back({&AddNode(surface, plan, i),
                         timeline::FormatDate(plan.start.addDays(i * plan.days), timeline::kDayPattern)});
    timeline::AddTimelineLinks(window, surface, dates);
    timeline::SetShows(surface, timeline::CalendarPart::Weekends, plan.dark);
    if (plan.folded) FoldAndLineUp(window, surface, plan);
}

void Write(const QDir &folder, const Plan &plan, support::HeadlessDesktop &desktop) {
    document::MemoryWindow window(desktop.Get(), document::EmptyPools{});
    Surface &surface = window.AddFlow1()[0];
    Renderer renderer;
    surface.SetMeasure(&renderer.Measure());
    Draw(window, surface, plan);
    Scene scene(surface);
    for (const int percent : {20, 30, 100, 200}) {
        RenderOptions options;
        options.screen = true;
        options.xScale = options.yScale = percent / 100.0 / kTwips;
        const QRectF page = scene.Extent().adjusted(-300, -300, 300, 300);
        QImage image((page.size() * options.xScale).toSize(), QImage::Format_RGB32);
        QPainter painter(&image);
        renderer.Paint(painter, scene, page, options);
        image.save(folder.filePath(
            QStringLiteral("%1-%2%3%4-%5.png")
                .arg(QLatin1String(plan.name), QLatin1String(kArrangements[plan.arrangement]),
                     QLatin1String(plan.folded ? "-folded" : ""), QLatin1String(plan.dark ? "-dark" : ""))
                .arg(percent)));
    }
}

} // namespace

int main(int argc, char **argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    QLocale::setDefault(QLocale::c());
    const QDir folder(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral("build/gallery/strips"));
    if (!QDir().mkpath(folder.path())) return 1;
    support::HeadlessDesktop desktop(std::make_unique<support::MemoryRegistryStore>());
    support::SetDesktop(&desktop.Get());
    SetCalendarSource(timeline::CalendarOfStrip);
    for (const bool dark : {false, true})
        for (int arrangement = 0; arrangement < 5; ++arrangement)
            Write(folder, {"launch", QDate(2026, 9, 3), 25, 11, arrangement, dark}, desktop);
    Write(folder, {"decade", QDate(2024, 2, 3), 40, 91, 2, false}, desktop);
    for (const bool dark : {false, true}) {
        for (int arrangement = 0; arrangement < 5; ++arrangement)
            Write(folder, {"launch", QDate(2026, 9, 3), 25, 11, arrangement, dark, true}, desktop);
        Write(folder, {"decade", QDate(2024, 2, 3), 40, 91, 2, dark, true}, desktop);
    }
    std::printf("%s\n", qPrintable(folder.absolutePath()));
    return 0;
}
