// What is drawn beside the timeline, switched in the View menu.
#include "tests/mainwindow/DatesTest.h"

#include "timeline/CalendarOfStrip.h"

namespace mainwindow::testing {

using timeline::CalendarPart;

TEST_F(Strips, EachEntryBesideTheTimelineSwitchesItsPartAsOneStep) {
    const std::pair<const char *, CalendarPart> entries[] = {
        {"mnuViewBands", CalendarPart::Bands},
        {"mnuViewWeekends", CalendarPart::Weekends},
        {"mnuViewTodayEverywhere", CalendarPart::TodayEverywhere}};
    diagram::Surface &surface = window.CurrentSurface();
    for (const auto &[key, part] : entries) {
        QAction &entry = *window.findChild<QAction *>(QLatin1String(key));
        const bool before = timeline::Shows(surface, part);
        EXPECT_EQ(before, part == CalendarPart::Bands) << key;
        window.ClickTab();
        EXPECT_EQ(entry.isChecked(), before) << key;
        window.clsSettings().Dirty = false;
        entry.trigger();
        EXPECT_EQ(timeline::Shows(surface, part), !before) << key;
        EXPECT_TRUE(window.clsSettings().Dirty) << key;
        Press(window, QStringLiteral("Ctrl+Z"));
        EXPECT_EQ(timeline::Shows(surface, part), before) << key;
        window.ClickTab();
        EXPECT_EQ(entry.isChecked(), before) << key;
    }
}

} // namespace mainwindow::testing
