#include "mainwindow/BusyRetry.h"

#include "support/Error.h"

#include <gtest/gtest.h>

namespace mainwindow {

namespace {

// A statement that fails that many times before it runs.
std::function<void()> Failing(int &calls, int times, long number = kErrBusy) {
    return [&calls, times, number] {
        if (++calls <= times) throw support::Error(number, QStringLiteral("Surface"), QStringLiteral("Busy"));
    };
}

} // namespace

TEST(RunWhileBusy, RunsAStatementAgainUntilItSucceeds) {
    int first = 0, second = 0;
    const std::function<void()> statements[] = {Failing(first, 4), Failing(second, 5)};
    EXPECT_TRUE(RunWhileBusy(statements));
    EXPECT_EQ(first, 5);
    EXPECT_EQ(second, 6);
}

TEST(RunWhileBusy, GivesUpAtTheTenthTryOfAllStatementsTogether) {
    int first = 0, second = 0, third = 0;
    const std::function<void()> statements[] = {Failing(first, 4), Failing(second, 100), Failing(third, 0)};
    EXPECT_FALSE(RunWhileBusy(statements));
    EXPECT_EQ(first, 5);
    EXPECT_EQ(second, 6);
    EXPECT_EQ(third, 0);
}

TEST(RunWhileBusy, RaisesAnyOtherError) {
    int calls = 0;
    const std::function<void()> statements[] = {Failing(calls, 1, 9)};
    EXPECT_THROW(RunWhileBusy(statements), support::Error);
    EXPECT_EQ(calls, 1);
}

} // namespace mainwindow
