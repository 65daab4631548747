// Random attachments and hyperlinks on several nodes, applied, saved and opened.
#include "dialogs/AttachmentEdit.h"
#include "dialogs/HyperlinkEdit.h"
#include "support/FileNames.h"
#include "tests/dialogs/AttachTest.h"
#include "tests/document/Slices.h"

#include <QCryptographicHash>
#include <QRandomGenerator>

namespace dialogs::testing {

class RoundTrip : public AttachTest {
protected:
    RoundTrip() {
        for (int further = 0; further < 2; ++further) document::testing::AddSlice(*window);
    }
    int Below(int end) { return int(random.bounded(end)); }
    QByteArray SomeBytes() {
        QByteArray bytes(Below(3000), '\0');
        for (char &byte : bytes) byte = char(Below(256));
        return bytes;
    }
    QString SomeName() {
        static const QStringList names{"notes.txt", "O'Brien.txt",
                                       "a b.pdf",   "two\nlines.txt",
                                       "\"q\".txt", QString::fromUtf8("\xe5\x9c\xb0\xe5\x9b\xbe.png"),
                                       "no ending"};
        return names[Below(int(names.size()))];
    }
    AttachmentEdit SomeRow() {
        const bool embed = Below(2);
        if (Below(6) == 0) return {"", "", embed};
        const QString file = Saved(QStringLiteral("%1/%2").arg(++files).arg(SomeName()), SomeBytes());
        return {"", file, embed};
    }
    // What a row says, as it must read after all saves: of an embedded file its title, made fit for a file,
    // and the sum of its bytes.
    static QString Line(const QString &file, bool embed) {
        if (!embed || file.isEmpty()) return QStringLiteral("%1 %2").arg(embed).arg(file);
        const QByteArray sum =
            QCryptographicHash::hash(support::ReadWholeFile(file), QCryptographicHash::Md5).toHex();
        return QStringLiteral("1 %1 %2").arg(support::SafeFileName(support::FileTitle(file)),
                                             QString::fromLatin1(sum));
    }
    // The rows that the node has, and perhaps fewer, others and more.
    std::vector<AttachmentEdit> Edited(const diagram::Node &node, QStringList &expected) {
        std::vector<AttachmentEdit> rows = AttachmentsOf(*window, node);
        if (!rows.empty() && Below(3) == 0) rows.erase(rows.begin() + Below(int(rows.size())));
        for (int more = Below(4); more > 0; --more) rows.push_back(SomeRow());
        for (const AttachmentEdit &row : rows) expected << Line(row.Filename, row.Embed);
        return rows;
    }
    HyperlinkEdit SomeLink() {
        const QString map = Below(2) ? QString() : QStringLiteral("/maps/%1.map").arg(SomeName());
        const std::optional<int> slice = Below(5) ? std::optional(1 + Below(3)) : std::nullopt;
        return {Below(4) > 0, map, slice};
    }
    static QString Line(const HyperlinkEdit &edit) {
        return edit.chkHyperlink && edit.Slice ? QStringLiteral("Yes %1 %2").arg(edit.Map).arg(*edit.Slice)
                                               : QStringLiteral("No");
    }
    QString LinkLine(const diagram::Node &node) {
        const std::vector<document::cHyperlink> links = HyperlinksOf(*window, node);
        const QString tag = document::GetTag(node, document::tags::kHyper);
        if (links.empty()) return tag;
        EXPECT_EQ(links.size(), 1u);
        return QStringLiteral("%1 %2 %3").arg(tag, links[0].Map).arg(links[0].Slice);
    }
    // Every node's lines, and those that it must have.
    void Check(const QHash<QString, QStringList> &expected) {
        for (const char *key : {"a", "b", "c"}) {
            QStringList lines{LinkLine(Node(key))};
            for (const AttachmentEdit &row : AttachmentsOf(*window, Node(key)))
                lines << Line(row.Filename, row.Embed);
            EXPECT_EQ(lines.join('|').toStdString(), expected[QLatin1String(key)].join('|').toStdString())
                << key;
        }
    }
    void EditAll(QHash<QString, QStringList> &expected) {
        for (const char *key : {"a", "b", "c"}) {
            const HyperlinkEdit link = SomeLink();
            QStringList lines{Line(link)};
            const std::vector<AttachmentEdit> rows = Edited(Node(key), lines);
            ASSERT_EQ(WhyAttachmentsAreRefused(*window, Node(key), rows), "");
            ApplyHyperlink(*window, Node(key), link);
            ApplyAttachments(*window, Node(key), rows);
            expected[QLatin1String(key)] = lines;
        }
    }
    QRandomGenerator random{20041114};
    int files = 0;
};

TEST_F(RoundTrip, WhatIsAppliedIsWhatIsOpened) {
    for (int round = 0; round < 12; ++round) {
        SCOPED_TRACE(round);
        QHash<QString, QStringList> expected;
        EditAll(expected);
        Check(expected);
        SaveAndOpen(QStringLiteral("plan%1.map").arg(round % 2));
        Check(expected);
        EXPECT_FALSE(document::HasUnsavedWork(*window));
        if (HasFailure()) return;
    }
    EXPECT_GT(files, 10);
}

} // namespace dialogs::testing
