// What the command line tells of the dates in a map.

#include "diagram/model/Surface.h"
#include "document/DoSave.h"
#include "document/MemoryWindow.h"
#include "support/testing/ScriptedDesktop.h"
#include "tests/cli/CliTest.h"
#include "timeline/TimelineNodes.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

struct InfoDates : cli::testing::CliTest {
    // A map with a node for each of the dates, and one without.
    void Save(std::initializer_list<const char *> dates) const {
        support::testing::ScriptedDesktop desktop;
        document::MemoryWindow window(desktop.Get(), document::EmptyPools{});
        diagram::Surface &flow = window.AddFlow1()[0];
        flow.Nodes().Add(300, 300, 900, 300);
        for (const char *date : dates)
            timeline::LocateTimelineNode(flow, QString::fromLatin1(date), true,
                                         &flow.Nodes().Add(300, 900, 900, 300));
        window.clsSettings().SetDatabase(map);
        ASSERT_TRUE(document::DoSave(window));
    }
    QString Info(const QStringList &more = {}) {
        EXPECT_EQ(Run(QStringList{QStringLiteral("info"), map} + more), cli::kGood) << err.toStdString();
        return out;
    }
    QJsonObject Slice() {
        const QString text = Info({QStringLiteral("--json")});
        return QJsonDocument::fromJson(text.toUtf8()).object()["slices"].toArray()[0].toObject();
    }

    QString map = Path("dated.map");
};

} // namespace

TEST_F(InfoDates, AreCountedWithTheFirstAndTheLast) {
    Save({"20 March 2004", "14 March 2003", "01 May 2003"});
    EXPECT_TRUE(Info().contains(QStringLiteral(" pictures, 3 dated from 2003-03-14 to 2004-03-20\n")));
    EXPECT_EQ(Slice()["dated"].toInt(), 3);
    EXPECT_EQ(Slice()["firstDate"].toString(), QStringLiteral("2003-03-14"));
    EXPECT_EQ(Slice()["lastDate"].toString(), QStringLiteral("2004-03-20"));
}

TEST_F(InfoDates, AreNotMentionedWhereThereAreNone) {
    Save({});
    EXPECT_TRUE(Info().contains(QStringLiteral(" pictures\n")));
    EXPECT_EQ(Slice()["dated"].toInt(), 0);
    EXPECT_TRUE(Slice()["firstDate"].toString().isEmpty());
}
