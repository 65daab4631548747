#include "recovery/Records.h"

#include <gtest/gtest.h>
#include <vector>

namespace recovery {

namespace {

std::vector<QByteArray> ContentsOf(QByteArrayView bytes, bool *damaged = nullptr, bool *cut = nullptr) {
    std::vector<QByteArray> contents;
    RecordWalk walk(bytes);
    while (const auto record = walk.Next()) contents.push_back(record->content.toByteArray());
    if (damaged) *damaged = walk.IsDamaged();
    if (cut) *cut = walk.IsCut();
    return contents;
}

} // namespace

TEST(Records, ComeBackInOrder) {
    bool damaged = true, cut = true;
    const QByteArray bytes = Record(RecordKind::Head, "a") + Record(RecordKind::Part, {}) +
                             Record(RecordKind::Commit, QByteArray(3000, 'c'));
    EXPECT_EQ(ContentsOf(bytes, &damaged, &cut), (std::vector<QByteArray>{"a", {}, QByteArray(3000, 'c')}));
    EXPECT_FALSE(damaged || cut);
    EXPECT_TRUE(ContentsOf({}).empty());
}

TEST(Records, OfAFileThatIsCutAnywhereAllWholeOnesComeBack) {
    const QByteArray first = Record(RecordKind::Part, "first"), second = Record(RecordKind::Part, "second");
    const QByteArray bytes = first + second;
    for (qsizetype size = 0; size <= bytes.size(); ++size) {
        bool damaged = true, cut = false;
        const std::size_t whole = (size >= first.size()) + (size >= bytes.size());
        EXPECT_EQ(ContentsOf(QByteArrayView(bytes).first(size), &damaged, &cut).size(), whole);
        EXPECT_FALSE(damaged);
        EXPECT_EQ(cut, size != 0 && size != first.size() && size != bytes.size());
    }
}

TEST(Records, AnyDamagedByteCostsItsOwnRecordAlone) {
    const QByteArray before = Record(RecordKind::Part, "before"), hit = Record(RecordKind::Part, "hit"),
                     behind = Record(RecordKind::Part, "behind");
    for (qsizetype at = 0; at < hit.size(); ++at) {
        QByteArray broken = hit;
        broken[at] = char(~broken[at]);
        bool damaged = false;
        EXPECT_EQ(ContentsOf(before + broken + behind, &damaged),
                  (std::vector<QByteArray>{"before", "behind"}));
        EXPECT_TRUE(damaged);
    }
}

} // namespace recovery
