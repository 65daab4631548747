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
    bool bars = false; // in lanes, instead of days
};

// What a plan with bars holds: the row of the lane, the days from the start and how many it lasts, 0 for a
// day.
struct Task {
    const char *text;
    int lane, from, lasts;
    int after; // which task it waits for, -1 for none
};
constexpr Task kTasks[] = {
    {"Interviews", 0, 3, 18, -1},     {"Survey", 0, 24, 14, 0},    {"Report", 0, 40, 10, 1},
    {"Concept", 1, 30, 25, 1},        {"Prototype", 1, 58, 30, 3}, {"Go or no go", 1, 92, 0, 4},
    {"Build", 1, 95, 60, 5},          {"Test", 1, 140, 40, 6},     {"Fixes", 1, 182, 20, 7},
    {"Name and brand", 2, 45, 30, 2}, {"Site", 2, 100, 45, 9},     {"Campaign", 2, 170, 50, 10},
    {"Launch", 2, 224, 0, 11},        {"Fair", 2, 120, 6, -1},
};
constexpr const char *kLanes[] = {"Research", "Product", "Market"};

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

void AddTasks(document::MapWindow &window, Surface &surface, const Plan &plan) {
    std::vector<timeline::NodeDate> dates;
    std::vector<QString> keys;
    for (const char *name : kLanes)
        keys.push_back(window.clsSettings().Levels().Create(QString::fromLatin1(name), false, 0).Key);
    for (const Task &task : kTasks) {
        Node &node = surface.Nodes().Add(1000, 3000, 110 * kTwips, 36 * kTwips);
        node.SetText(QString::fromLatin1(task.text));
        node.SetFillColor(kFills[task.lane]);
        node.SetBorderColor(kFills[task.lane]);
        document::SetTag(node, document::tags::kLevel, keys[std::size_t(task.lane)]);
        if (task.after >= 0) dates[std::size_t(task.after)].node->Links().Add(node).SetStyle(6);
        const QDate first = plan.start.addDays(task.from);
        dates.push_back({&node, timeline::FormatDate(first, timeline::kDayPattern)});
        if (task.lasts > 0) dates.back().last = first.addDays(task.lasts - 1);
    }
    timeline::SetLanes(surface, timeline::Lanes::Level);
    timeline::SetKeepsNodesAtDates(surface, true);
    timeline::AddTimelineLinks(window, surface, dates);
    timeline::LineUp(window, surface, timeline::RowOrder::Choose);
}

void AddDays(document::MapWindow &window, Surface &surface, const Plan &plan) {
    std::vector<timeline::NodeDate> dates;
    for (int i = 0; i < plan.nodes; ++i)
        dates.push_back({&AddNode(surface, plan, i),
                         timeline::FormatDate(plan.start.addDays(i * plan.days), timeline::kDayPattern)});
    timeline::AddTimelineLinks(window, surface, dates);
}

void Draw(document::MapWindow &window, Surface &surface, const Plan &plan) {
    surface.SetBackColor(plan.dark ? 0x281C14 : 0xFFFFFF);
    document::SetTag(surface, document::tags::kTimelineAlign, QString::number(plan.arrangement));
    document::SetTag(surface, document::tags::kMissing, QStringLiteral("True"));
    BuildMonthLook(surface, plan.dark, plan.arrangement >= 2);
    surface.SetSize(1200 * kTwips, 640 * kTwips);
    plan.bars ? AddTasks(window, surface, plan) : AddDays(window, surface, plan);
    timeline::SetShows(surface, timeline::CalendarPart::Weekends, plan.dark);
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
        image.save(
            folder.filePath(QStringLiteral("%1-%2%3-%4.png")
                                .arg(QLatin1String(plan.name), QLatin1String(kArrangements[plan.arrangement]),
                                     QLatin1String(plan.dark ? "-dark" : ""))
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
    for (const bool dark : {false, true})
        for (const int arrangement : {0, 2})
            Write(folder, {"bars", QDate(2026, 9, 3), 0, 0, arrangement, dark, true}, desktop);
    Write(folder, {"decade", QDate(2024, 2, 3), 40, 91, 2, false}, desktop);
    std::printf("%s\n", qPrintable(folder.absolutePath()));
    return 0;
}
