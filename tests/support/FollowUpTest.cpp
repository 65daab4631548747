#include "support/FollowUp.h"

#include <gtest/gtest.h>
#include <QStringList>

namespace support {

TEST(FollowReport, RunsBehindItsOwnErrorAlone) {
    QStringList said;
    static QStringList *shown = nullptr;
    shown = &said;
    SetReporter([](const QString &, const QString &text) { shown->append(text.section('\r', 0, 0)); });
    const Error one(1, QString(), QStringLiteral("one")), two(2, QString(), QStringLiteral("two"));
    FollowReport(one, [&] { said.append(QStringLiteral("followed")); });
    ShowReport(QString(), QString(), one.PassedThrough(QStringLiteral("Somewhere")));
    ShowReport(QString(), QString(), one);
    FollowReport(one, [&] { said.append(QStringLiteral("never")); });
    ShowReport(QString(), QString(), two);
    ShowReport(QString(), QString(), one);
    SetReporter(nullptr);
    EXPECT_EQ(said, (QStringList{"one", "followed", "one", "two", "one"}));
}

} // namespace support
