#include "tests/timeline/TimelineTest.h"

#include "diagram/model/ScreenValues.h"
#include "document/Tags.h"
#include "settings/Settings.h"
#include "timeline/Arrange.h"

#include <algorithm>

namespace timeline::testing {

TimelineTest::TimelineTest() {
    settings::ProductTerms terms;
    terms.TITLE = QStringLiteral("Velmora");
    terms.NODE = QStringLiteral("Node");
    terms.MAP = QStringLiteral("Map");
    settings::SetTerms(terms);
    flow.Screen().SetSize(12000, 9000);
}

TimelineTest::~TimelineTest() { settings::SetTerms({}); }

diagram::Node &TimelineTest::UserNode(const QString &text) {
    diagram::Node &node = flow.Nodes().Add(300, 300, 1500, 900);
    node.SetText(text);
    return node;
}

diagram::Node &TimelineTest::Template(float width, float height) {
    diagram::Node &node = *LocateTimeLineTemplateNode(flow, true);
    node.SetWidth(width);
    node.SetHeight(height);
    return node;
}

void TimelineTest::Set(const QString &key, const QString &value) { document::SetTag(flow, key, value); }
QString TimelineTest::Get(const QString &key) const { return document::GetTag(flow, key); }

QStringList TimelineTest::Strip() const {
    std::vector<diagram::Node *> months = LocateTimelineNodes(flow);
    std::erase_if(months, [](const diagram::Node *month) { return month->Hidden(); });
    std::sort(months.begin(), months.end(), [](const diagram::Node *a, const diagram::Node *b) {
        return std::pair(a->Left(), a->Top()) < std::pair(b->Left(), b->Top());
    });
    QStringList texts;
    for (const diagram::Node *month : months) texts << month->Text();
    return texts;
}

void TimelineTest::Arrange(int align) { ArrangeTimeLineNodes(window, flow, align); }

} // namespace timeline::testing
