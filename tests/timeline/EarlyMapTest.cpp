// The timeline of a map of an early version.
#include "diagram/model/ScreenValues.h"
#include "document/DoLoad.h"
#include "document/DoSave.h"
#include "document/MapSchema.h"
#include "document/Tags.h"
#include "support/Files.h"
#include "tests/document/ProgramFolder.h"
#include "tests/Paths.h"
#include "tests/timeline/TimelineTest.h"
#include "timeline/AddTimelineLink.h"
#include "timeline/Arrange.h"
#include "timeline/Strip.h"

#include <QFile>

namespace timeline::testing {

namespace {

const QStringList kMonths = {QStringLiteral("Jan-04"), QStringLiteral("Feb-04"), QStringLiteral("Mar-04"),
                             QStringLiteral("Apr-04")};

class EarlyMap : public TimelineTest {
protected:
    EarlyMap() {
        const QString copy = folder.File(QStringLiteral("plan.mdb"));
        QFile::copy(tests::Data(QStringLiteral("jet/plan.mdb")), copy);
        Load(copy);
        window.AddFlow1()[kSlice].Screen().SetSize(15000, 9000);
    }
    void Load(const QString &path) {
        window.clsSettings().SetDatabase(path);
        document::DoLoad(window);
    }
    diagram::Surface &Roadmap() { return window.AddFlow1()[kSlice]; }
    void LayOut(int arrangement) {
        document::SetTag(Roadmap(), document::tags::kTimelineAlign, QString::number(arrangement));
        ArrangeTimeLineNodes(window, Roadmap(), kStoredArrangement);
    }
    int Arrangement() { return document::GetTag(Roadmap(), document::tags::kTimelineAlign).toInt(); }
    // The months in sight in the order of the strip, which have no gap between them.
    QStringList Months() {
        const bool rightwards = RunsRightwards(Arrangement());
        std::map<float, const diagram::Node *> inOrder;
        for (const diagram::Node *month : LocateTimelineNodes(Roadmap()))
            if (!month->Hidden()) inOrder[rightwards ? month->Left() : month->Top()] = month;
        QStringList texts;
        float end = 0;
        for (const auto &[start, month] : inOrder) {
            EXPECT_EQ(start, end) << month->Text().toStdString();
            end = start + (rightwards ? month->Width() : month->Height());
            texts << month->Text();
        }
        return texts;
    }
    // Each dated node's link ends in the middle of its day's edge.
    void ExpectPinned() {
        const bool rightwards = RunsRightwards(Arrangement());
        int dated = 0;
        for (const auto &link : Roadmap().Links()) {
            if (!NodeIsTimeline(link->Destination())) continue;
            ++dated;
            const QRectF day = link->Destination().Bounds();
            const diagram::Point end = link->Points().Item(link->Points().Count() - 1);
            if (rightwards) {
                EXPECT_FLOAT_EQ(end.x, float(day.center().x()));
                EXPECT_TRUE(end.y == float(day.top()) || end.y == float(day.bottom()));
            } else {
                EXPECT_FLOAT_EQ(end.y, float(day.center().y()));
                EXPECT_TRUE(end.x == float(day.left()) || end.x == float(day.right()));
            }
        }
        EXPECT_EQ(dated, 6);
    }
    int HiddenLinks() {
        int hidden = 0;
        for (const auto &link : Roadmap().Links()) hidden += link->Hidden();
        return hidden;
    }

    static constexpr int kSlice = 2;
    document::testing::ProgramFolder folder;
};

} // namespace

TEST_F(EarlyMap, ShowsItsMonthsInOrderWithItsLinksPinned) {
    EXPECT_EQ(Months(), kMonths);
    ExpectPinned();
}

TEST_F(EarlyMap, IsLaidOutInEachArrangement) {
    for (int arrangement = 0; arrangement <= 4; ++arrangement) {
        LayOut(arrangement);
        EXPECT_EQ(Months(), kMonths) << arrangement;
        ExpectPinned();
    }
}

TEST_F(EarlyMap, ComesBackAfterHiding) {
    ShowHideTimelineNodes(Roadmap(), false);
    EXPECT_TRUE(Months().isEmpty());
    EXPECT_EQ(HiddenLinks(), 6);
    ShowHideTimelineNodes(Roadmap(), true);
    EXPECT_EQ(Months(), kMonths);
    EXPECT_EQ(HiddenLinks(), 0);
    ExpectPinned();
}

TEST_F(EarlyMap, ClosesUpOverAHiddenMonthAndShowsItAgain) {
    LocateTimelineNode(Roadmap(), QStringLiteral("February 2004"), false)->SetHidden(true);
    ArrangeTimeLineNodes(window, Roadmap(), kStoredArrangement);
    EXPECT_EQ(Months(),
              QStringList({QStringLiteral("Jan-04"), QStringLiteral("Mar-04"), QStringLiteral("Apr-04")}));
    ExpectPinned();
    DoUnHideTimelineNodes(window, Roadmap());
    EXPECT_EQ(Months(), kMonths);
    ExpectPinned();
}

TEST_F(EarlyMap, StretchesAndShrinks) {
    diagram::Node &look = *LocateTimeLineTemplateNode(Roadmap(), false);
    for (const float factor : {1.1F, 1.1F, 0.9F}) {
        look.SetWidth(look.Width() * factor);
        UpdateTimeLineNodes(window, Roadmap(), true);
        EXPECT_EQ(LocateTimelineNodes(Roadmap()).front()->Width(), look.Width());
        ExpectPinned();
    }
}

TEST_F(EarlyMap, SurvivesSavingAndLoading) {
    for (int arrangement = 0; arrangement <= 4; ++arrangement) {
        LayOut(arrangement);
        window.clsSettings().SetDatabase(folder.File(QStringLiteral("plan%1.map").arg(arrangement)));
        ASSERT_TRUE(document::DoSave(window));
        const QString saved = window.clsSettings().Database();
        Load(saved);
        EXPECT_EQ(Arrangement(), arrangement);
        EXPECT_EQ(document::GetTag(Roadmap(), document::tags::kMissing), QStringLiteral("True"));
        EXPECT_EQ(Months(), kMonths);
        ExpectPinned();
        Roadmap().Screen().SetSize(15000, 9000);
    }
}

TEST_F(EarlyMap, TakesAnotherDate) {
    for (diagram::Node &node : Roadmap().Nodes())
        if (node.Text() == QStringLiteral("Dry dock")) {
            EXPECT_EQ(DateOfNode(node), QStringLiteral("23 January 2004"));
            AddTimelineLink(window, Roadmap(), node, QStringLiteral("10 June 2004"));
            break;
        }
    EXPECT_EQ(Months(), kMonths + QStringList({QStringLiteral("May-04"), QStringLiteral("Jun-04")}));
    ExpectPinned();
}

} // namespace timeline::testing
