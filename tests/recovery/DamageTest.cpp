#include "recovery/Records.h"
#include "support/AtomicFile.h"
#include "tests/recovery/JournalTest.h"

namespace recovery {

using namespace testing;

namespace {
constexpr qsizetype kEnd = 65536; // bytes at the end of the file, at each of which it is cut off
}

class Damage : public JournalTest {
protected:
    // A journal of many steps, each a node with its number as text.
    QByteArray ManySteps(int steps) {
        auto kept = NewKept();
        for (int i = 0; i < steps; ++i) {
            kept->AddNode(QString::number(i) + QString(400, u'.'));
            kept->journal.Finish();
        }
        return JournalBytes();
    }
    struct Mark {
        qsizetype end;
        RecordKind kind;
    };
    static std::vector<Mark> Marks(QByteArrayView bytes) {
        std::vector<Mark> marks;
        RecordWalk walk(bytes);
        while (const auto record = walk.Next()) marks.push_back({record->end, record->kind});
        return marks;
    }
};

TEST_F(Damage, CutOffAtAnyByteOfItsEndItYieldsAllWholeRecordsBefore) {
    const QByteArray bytes = ManySteps(110);
    const std::vector<Mark> marks = Marks(bytes);
    ASSERT_GT(bytes.size(), kEnd);
    // From the last end of a record before the part that is cut: what stands before is whole in any case.
    qsizetype from = 0;
    for (const Mark &mark : marks)
        if (mark.end <= bytes.size() - kEnd) from = mark.end;
    std::size_t whole = 0;
    std::vector<qsizetype> ends;
    for (const Mark &mark : marks)
        if (mark.end > from) ends.push_back(mark.end - from);
    const QByteArrayView tail = QByteArrayView(bytes).sliced(from);
    for (qsizetype cut = 0; cut <= tail.size(); ++cut) {
        while (whole < ends.size() && ends[whole] <= cut) ++whole;
        ASSERT_EQ(Marks(tail.first(cut)).size(), whole) << cut;
    }
}

TEST_F(Damage, TheMapOfAFileThatIsCutHasWhatTheWholeRecordsTell) {
    const QByteArray bytes = ManySteps(40);
    int nodes = 0;
    for (const Mark &mark : Marks(bytes)) {
        if (mark.kind == RecordKind::Part) ++nodes;
        for (const qsizetype cut : {mark.end - 1, mark.end, mark.end + 1}) {
            if (cut > bytes.size()) continue;
            const int expected = mark.kind == RecordKind::Part && cut < mark.end ? nodes - 1 : nodes;
            EXPECT_EQ(Texts(ReadJournal(QByteArrayView(bytes).first(cut))).size(), expected);
        }
    }
    EXPECT_EQ(nodes, 40);
    EXPECT_FALSE(ReadJournal(QByteArrayView(bytes).first(bytes.size() - 1)).damaged);
}

TEST_F(Damage, InTheMiddleCostsThatAloneAndIsTold) {
    QByteArray bytes = ManySteps(10);
    const std::vector<Mark> marks = Marks(bytes);
    // The records are a head, then a part and a commit by turns: this is the middle of a part.
    const qsizetype at = (marks[6].end + marks[7].end) / 2;
    ASSERT_EQ(marks[7].kind, RecordKind::Part);
    bytes[at] = char(~bytes[at]);
    const KeptMap map = ReadJournal(bytes);
    EXPECT_TRUE(map.damaged);
    EXPECT_TRUE(map.begun);
    EXPECT_EQ(Texts(map).size(), 9);
    EXPECT_EQ(map.changes, 10);
}

TEST_F(Damage, OfAPlaceLosesNoSlice) {
    QByteArray bytes = ManySteps(3);
    const std::vector<Mark> marks = Marks(bytes);
    ASSERT_EQ(marks[2].kind, RecordKind::Commit); // the only one that tells which slices there are
    bytes[marks[2].end - 1] = char(~bytes[marks[2].end - 1]);
    const QString folder = Root() + u'/' + QDir(Root()).entryList(QDir::Dirs | QDir::NoDotAndDotDot).value(0);
    QFile file(JournalPath(folder));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    file.close();
    const std::vector<LostMap> lost = Lost();
    ASSERT_EQ(lost.size(), 1u);
    EXPECT_TRUE(lost.front().damaged);
    auto window = NewWindow();
    Restore(*window, ReadLostMap(lost.front()), folder);
    EXPECT_EQ(Texts(*window).size(), 3);
    EXPECT_EQ(window->TabStrip().TabCaption(0), QStringLiteral("Map 1"));
}

TEST_F(Damage, ALinkWhoseNodeIsLostGoesToo) {
    auto kept = NewKept();
    diagram::Node &a = kept->AddNode(QStringLiteral("a"));
    kept->journal.Finish();
    diagram::Node &b = kept->AddNode(QStringLiteral("b"));
    kept->journal.Finish();
    a.Links().Add(b);
    kept->journal.Finish();
    QByteArray bytes = JournalBytes();
    const std::vector<Mark> marks = Marks(bytes);
    bytes[marks[3].end - 1] = char(~bytes[marks[3].end - 1]);
    const KeptMap map = ReadJournal(bytes);
    EXPECT_EQ(Texts(map), QStringList{QStringLiteral("a")});
    EXPECT_TRUE(map.slices.begin()->second.links.empty());
    EXPECT_TRUE(map.damaged);
}

TEST_F(Damage, WhatIsNoJournalIsNotOffered) {
    QDir().mkpath(Root() + QStringLiteral("/x"));
    QFile file(JournalPath(Root() + QStringLiteral("/x")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("something else");
    file.close();
    EXPECT_TRUE(Lost().empty());
    EXPECT_TRUE(file.exists());
}

TEST_F(Damage, AJournalOfALaterVersionIsKeptAndNotOffered) {
    QDir().mkpath(Root() + QStringLiteral("/x"));
    QFile file(JournalPath(Root() + QStringLiteral("/x")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(Record(RecordKind::Head, QByteArray("\x7f\0", 2)) +
               Record(RecordKind::Commit, Bytes(Commit())));
    file.close();
    EXPECT_TRUE(Lost().empty());
    EXPECT_TRUE(file.exists());
}

} // namespace recovery
