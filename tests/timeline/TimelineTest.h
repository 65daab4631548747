// What the tests of the timeline share: a window in memory with one surface.
#pragma once

#include "diagram/model/Surface.h"
#include "document/MemoryWindow.h"
#include "support/testing/ScriptedDesktop.h"
#include "tests/BritishLocale.h"
#include "timeline/TimelineNodes.h"

#include <gtest/gtest.h>

namespace timeline::testing {

class TimelineTest : public ::testing::Test {
protected:
    TimelineTest();
    ~TimelineTest() override;

    // A node as the user draws it.
    diagram::Node &UserNode(const QString &text = QString());
    // A month of the strip, or a hidden day in it, by its canonical date.
    diagram::Node &Month(const QString &date) { return *LocateTimelineNode(flow, date, true); }
    diagram::Node &Day(const QString &date) { return *LocateTimelineNode(flow, date, true, &UserNode()); }
    // The hidden node that gives the months their look, with that size.
    diagram::Node &Template(float width, float height);
    // What the surface stores.
    void Set(const QString &key, const QString &value);
    QString Get(const QString &key) const;
    // The texts of the months in sight, from left to right and from top to bottom.
    QStringList Strip() const;
    void Arrange(int align = -1);

    const tests::BritishLocale british;
    support::testing::ScriptedDesktop desktop;
    document::MemoryWindow window{desktop.Get(), document::EmptyPools{}};
    diagram::Surface &flow = window.AddFlow1()[0];
};

} // namespace timeline::testing
