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

TEST(Error, Raise_TellsTheNumbersTextAndWhatItIsAbout) {
    const Error plain = tests::ErrorOf([] { Raise(kErrFileNotFound, QStringLiteral("Here")); });
    EXPECT_EQ(plain.Number(), kErrFileNotFound);
    EXPECT_EQ(plain.Source(), QStringLiteral("Here"));
    EXPECT_EQ(plain.Description(), QStringLiteral("File not found"));
    const Error about =
        tests::ErrorOf([] { Raise(kErrDiskFull, QStringLiteral("Here"), QStringLiteral("/a/b")); });
    EXPECT_EQ(about.Description(), QStringLiteral("Disk full: /a/b"));
}

TEST(Error, ErrorText_IsEmptyForANumberWithoutARow) {
    EXPECT_EQ(ErrorText(kErrInvalidPropertyValue), QStringLiteral("Invalid property value"));
    EXPECT_EQ(ErrorText(1), QString());
}

TEST(Error, Report_ShowsTitleAndTextAndEndsNormally) {
    static QString shownTitle, shownText;
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
