#include "support/Error.h"
#include "tests/Errors.h"

#include <gtest/gtest.h>
#include <stdexcept>

using namespace support;

TEST(Error, PassOn_KeepsNumberAndDescriptionAndListsTheRoutinesInTheSource) {
    const Error error = tests::ErrorOf(
        [&] { PassOn("Outer", [] { PassOn("Inner", [] { throw Error(3024, "Engine", "Lost"); }); }); });
    EXPECT_EQ(error.Number(), 3024);
    EXPECT_EQ(error.Description(), "Lost");
    EXPECT_EQ(error.Source(), "Engine\r\nInner\r\nOuter");
}

namespace {
QString shownTitle, shownText;
} // namespace

TEST(Error, Raise_TellsTheNumbersTextAndWhatItIsAbout) {
    const auto raised = [](long number, const QString &about) {
        try {
            Raise(number, QStringLiteral("Here"), about);
        } catch (const Error &error) {
            EXPECT_EQ(error.Number(), number);
            EXPECT_EQ(error.Source(), QStringLiteral("Here"));
            return error.Description();
        }
    };
    EXPECT_EQ(raised(kErrFileNotFound, QString()), QStringLiteral("File not found"));
    EXPECT_EQ(raised(kErrDiskFull, QStringLiteral("/a/b")), QStringLiteral("Disk full: /a/b"));
    EXPECT_EQ(ErrorText(kErrInvalidPropertyValue), QStringLiteral("Invalid property value"));
    EXPECT_EQ(ErrorText(1), QString());
}

TEST(Error, Report_ShowsTitleAndTextAndEndsNormally) {
    SetReporter([](const QString &title, const QString &text) { shownTitle = title, shownText = text; });
    Report("frmMain", "cmdOK_Click", [] { PassOn("GetTag", [] { throw Error(13, "x", "Type mismatch"); }); });
    SetReporter(nullptr);
    EXPECT_EQ(shownTitle, "Error in frmMain: Sub cmdOK_Click");
    EXPECT_EQ(shownText, "Type mismatch\r\r(Error #13)");
}

TEST(Error, CurrentError_TranslatesForeignExceptions) {
    try {
        throw std::runtime_error("foreign");
    } catch (...) {
        EXPECT_EQ(CurrentError("here").Description(), "foreign");
    }
}
