// Gestures beside a strip of months whose nodes stay at their dates.
#include "document/MemoryWindow.h"
#include "document/Tags.h"
#include "gallery/gestures/Film.h"
#include "gallery/gestures/Scenes.h"
#include "support/Desktop.h"
#include "timeline/AddTimelineLink.h"
#include "timeline/AtDates.h"
#include "timeline/CalendarOfStrip.h"
#include "timeline/DateText.h"
#include "timeline/DaysOfStrip.h"
#include "timeline/TimelineNodes.h"

namespace gallery {

using namespace diagram;

namespace {

// Along the top of the film, from March 2027 on.
class Months {
public:
    explicit Months(Film &film)
        : film_(film), window_(support::CurrentDesktop(), document::EmptyPools{}), days_(window_) {
        SetCalendarSource(timeline::CalendarOfStrip, timeline::IsBar);
        Surface &surface = film.surface;
        document::SetTag(surface, document::tags::kTimelineAlign, QStringLiteral("2"));
        document::SetTag(surface, document::tags::kMissing, QStringLiteral("True"));
        Node &look = *timeline::LocateTimeLineTemplateNode(surface, true);
        look.SetShape(1);
        look.SetBorderColor(0xDCD0C5);
        look.SetFillColor(0xF7F2EE);
        look.SetForeColor(0x6A5444);
        look.SetWidth(186 * 15);
        look.SetHeight(30 * 15);
        timeline::SetKeepsNodesAtDates(surface, true);
        film.View().SetDays(days_);
    }
    ~Months() {
        film_.View().SetDays(DayStrip::None());
        SetCalendarSource(nullptr);
    }
    Months(const Months &) = delete;
    Months &operator=(const Months &) = delete;

    Node &Add(int top, const char *text, const QDate &first, const std::optional<QDate> &last) {
        Node &node = film_.Add(60, top, 110, 44, text);
        timeline::AddTimelineLinks(window_, film_.surface,
                                   {{&node, timeline::FormatDate(first, timeline::kDayPattern), last}});
        return node;
    }

private:
    Film &film_;
    document::MemoryWindow window_;
    timeline::DaysOfStrip days_;
};

void Date(Film &film) {
    Months months(film);
    Node &fair = months.Add(150, "Fair", QDate(2027, 3, 20), {});
    months.Add(230, "Prototype", QDate(2027, 3, 4), QDate(2027, 4, 9));
    film.ShootDrag(film.Body(fair), film.Body(fair) + QPoint(132, 4));
    film.ShootRelease("on its new day");
}

void DateOfAnEnd(Film &film) {
    Months months(film);
    timeline::SetPushesFollowing(film.surface, true);
    Node &first = months.Add(130, "Prototype", QDate(2027, 3, 4), QDate(2027, 3, 27));
    Node &second = months.Add(210, "Test", QDate(2027, 4, 1), QDate(2027, 4, 22));
    film.Join(first, second);
    first.SetSelected(true);
    film.ShootDrag(film.Handle(first, 3), film.Handle(first, 3) + QPoint(76, 0));
    film.ShootRelease("what follows went on");
    film.ShootDrag(film.Handle(first, 7), film.Handle(first, 7) + QPoint(60, 0));
    film.Hand().KeyPress(Qt::Key_Escape);
    film.Shoot("Escape: as it was");
}

constexpr Scene kScenes[] = {{"50-date", Date, true}, {"51-date-of-an-end", DateOfAnEnd, true}};

} // namespace

std::span<const Scene> DateScenes() { return kScenes; }

} // namespace gallery
