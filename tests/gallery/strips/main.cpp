// Writes pictures of plans on a timeline, as the screen shows them, to be looked at.
//   velmora-strips [FOLDER]     (build/gallery/strips when left out)
#include "diagram/geometry/Units.h"
#include "diagram/model/ScreenValues.h"
#include "diagram/model/Surface.h"
#include "diagram/render/Renderer.h"
#include "diagram/scene/Scene.h"
#include "document/clsfrmMain.h"
#include "document/MemoryWindow.h"
#include "document/Tags.h"
#include "support/headless/HeadlessDesktop.h"
#include "tests/gallery/strips/Plans.h"
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

constexpr float kTwips = float(diagram::kTwipsPerPixel);
constexpr const char *kArrangements[] = {"left", "right", "top", "bottom", "center"};
constexpr support::Colour kFills[] = {0xF7E3CF, 0xDBEED3, 0xBCE9FC, 0xCAD6F9, 0xF3D9E2};
constexpr float kNodeWidth = 120, kNodeHeight = 40; // pixels

struct Plan {
    const char *name = "launch";
    QDate start{2026, 9, 3};
    const std::vector<gallery::PlanStep> &steps = gallery::LaunchSteps();
    int arrangement = 2; // by kArrangements
    bool dark = false, lanes = false;
    bool bars = false;   // nodes last as long as their steps
    bool folded = false; // all years but the second, or the third month
    bool Rightwards() const { return arrangement >= 2; }
};

Plan Decade(bool dark, bool lanes, bool folded) {
    return {.name = "decade",
            .start = QDate(2024, 2, 3),
            .steps = gallery::DecadeSteps(),
            .dark = dark,
            .lanes = lanes,
            .folded = folded};
}

// On light and on dark ground: in every arrangement without lanes, with them and folded; bars along and down.
std::vector<Plan> AllPlans() {
    std::vector<Plan> plans;
    for (const bool dark : {false, true}) {
        for (int arrangement = 0; arrangement < 5; ++arrangement) {
            plans.push_back({.arrangement = arrangement, .dark = dark});
            plans.push_back({.arrangement = arrangement, .dark = dark, .lanes = true});
            plans.push_back({.arrangement = arrangement, .dark = dark, .lanes = true, .folded = true});
        }
        for (const bool lanes : {false, true}) plans.push_back(Decade(dark, lanes, false));
        plans.push_back(Decade(dark, true, true));
        for (const int arrangement : {0, 2})
            plans.push_back({.name = "bars",
                             .steps = gallery::BarSteps(),
                             .arrangement = arrangement,
                             .dark = dark,
                             .lanes = true,
                             .bars = true});
    }
    return plans;
}

// What the delivered months look like.
void BuildMonthLook(Surface &surface, const Plan &plan) {
    Node &look = *timeline::LocateTimeLineTemplateNode(surface, true);
    look.SetShape(1);
    look.SetDrawWidth(1);
    look.SetBorderColor(plan.dark ? 0x5A4A3C : 0xDCD0C5);
    look.SetFillColor(plan.dark ? 0x3C3028 : 0xF7F2EE);
    look.SetForeColor(plan.dark ? 0xDCD0C5 : 0x6A5444);
    look.SetFont(Font(QStringLiteral("Arial"), 9));
    look.SetAlignment(7);
    look.SetWidth(120 * kTwips);
    look.SetHeight(float(plan.Rightwards() ? 32 : 64) * kTwips);
    document::SetTag(look, document::tags::kDateFormat, QStringLiteral("MMMM YYYY"));
}

std::vector<QString> AddStreams(document::MapWindow &window) {
    std::vector<QString> keys;
    for (int i = 0; i < gallery::kStreams; ++i)
        keys.push_back(window.clsSettings()
                           .Levels()
                           .Create(QString::fromUtf8(gallery::kStreamNames[i]), true, kFills[i])
                           .Key);
    return keys;
}

// Beside the strip; where exactly, the dates say.
Node &AddNode(Surface &surface, const Plan &plan, const gallery::PlanStep &step, const QString &stream) {
    const float along = float(step.day) * 4, page = float(plan.Rightwards() ? 800 : 1300);
    const float spread = 60.0F * float(step.stream);
    const float places[] = {230 + spread, page - 390 - spread, 130 + spread, page - 210 - spread,
                            step.stream % 2 ? 120 + spread : page - 180 - spread};
    const float beside = places[plan.arrangement];
    Node &node = surface.Nodes().Add((plan.Rightwards() ? along : beside) * kTwips,
                                     (plan.Rightwards() ? beside : along) * kTwips, kNodeWidth * kTwips,
                                     kNodeHeight * kTwips);
    node.SetText(QString::fromUtf8(step.text));
    node.SetShape(2);
    node.SetFont(Font(QStringLiteral("Arial"), 9));
    node.SetFillColor(kFills[step.stream]);
    node.SetBorderColor(0x6A5444);
    document::SetTag(node, document::tags::kLevel, stream);
    return node;
}

void AddDependency(Node &from, Node &to, bool dark) {
    Link &link = from.Links().Add(to);
    link.SetLineColor(dark ? 0xB4A090 : 0x6A5444);
    link.SetArrowDest(5);
    link.SetArrowSizeDest(1);
}

void FoldSome(document::MapWindow &window, Surface &surface, const Plan &plan) {
    const bool isLong = plan.steps.back().day > 1000;
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
    BuildMonthLook(surface, plan);
    surface.Screen().SetSize(1300 * kTwips, 800 * kTwips);
    const std::vector<QString> streams = AddStreams(window);
    std::vector<timeline::NodeDate> dates;
    for (const gallery::PlanStep &step : plan.steps) {
        const QDate first = plan.start.addDays(step.day);
        dates.push_back({&AddNode(surface, plan, step, streams[std::size_t(step.stream)]),
                         timeline::FormatDate(first, timeline::kDayPattern)});
        if (plan.bars && step.lasts > 0) dates.back().last = first.addDays(step.lasts - 1);
    }
    for (std::size_t i = 0; i < dates.size(); ++i)
        if (const int after = plan.steps[i].after; after >= 0)
            AddDependency(*dates[std::size_t(after)].node, *dates[i].node, plan.dark);
    timeline::SetKeepsNodesAtDates(surface, plan.bars || plan.folded);
    timeline::AddTimelineLinks(window, surface, dates);
    timeline::SetShows(surface, timeline::CalendarPart::Weekends, plan.dark);
    timeline::SetLanes(surface, plan.lanes ? timeline::Lanes::Level : timeline::Lanes::None);
    timeline::LineUp(window, surface, timeline::RowOrder::Choose);
    if (plan.folded) FoldSome(window, surface, plan);
}

QString FileOf(const Plan &plan, int percent) {
    return QStringLiteral("%1-%2%3%4%5-%6.png")
        .arg(QLatin1String(plan.name), QLatin1String(kArrangements[plan.arrangement]),
             QLatin1String(plan.lanes ? "-lanes" : ""), QLatin1String(plan.folded ? "-folded" : ""),
             QLatin1String(plan.dark ? "-dark" : ""))
        .arg(percent);
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
        image.save(folder.filePath(FileOf(plan, percent)));
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
    SetCalendarSource(timeline::CalendarOfStrip, timeline::IsBar);
    for (const Plan &plan : AllPlans()) Write(folder, plan, desktop);
    for (const auto &[name, language] :
         {std::pair("german", QLocale::German), std::pair("french", QLocale::French)}) {
        QLocale::setDefault(QLocale(language));
        Write(folder, {.name = name, .lanes = true}, desktop);
    }
    std::printf("%s\n", qPrintable(folder.absolutePath()));
    return 0;
}
