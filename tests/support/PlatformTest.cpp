#include "support/Platform.h"

#include "tests/support/FolderTest.h"

#include <gtest/gtest.h>
#include <QFileInfo>

using namespace support;

namespace {

using PlatformFiles = support::testing::FolderTest;

} // namespace

TEST(Platform, ACompanionStandsBesideTheRunningProgramUnderTheSystemsEnding) {
    const QFileInfo own(platform::ExecutablePath());
    const QFileInfo companion(platform::CompanionProgram(own.completeBaseName()));
    EXPECT_EQ(companion.canonicalFilePath(), own.canonicalFilePath());
    EXPECT_FALSE(QFileInfo::exists(platform::CompanionProgram(QStringLiteral("velmora-nobody"))));
}

TEST_F(PlatformFiles, Lock_IsRefusedWhileItIsHeld) {
    auto held = platform::Lock(PathOf("x.lock"), 0);
    ASSERT_TRUE(held);
    EXPECT_FALSE(platform::Lock(PathOf("x.lock"), 0));
    held.reset();
    EXPECT_TRUE(platform::Lock(PathOf("x.lock"), 0));
}

TEST_F(PlatformFiles, MayWriteInto_IsFalseForAFileAndForWhatIsNotThere) {
    Make("file");
    EXPECT_TRUE(platform::MayWriteInto(folder_.path()));
    EXPECT_FALSE(platform::MayWriteInto(PathOf("none")));
    EXPECT_FALSE(platform::MayWriteInto(PathOf("file")));
}
