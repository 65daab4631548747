#include "support/cOpenFile.h"

#include "support/testing/ScriptedDesktop.h"

#include <gtest/gtest.h>
#include <QCoreApplication>

using namespace support;

namespace {

class OpenFile : public ::testing::Test {
protected:
    void ExpectTold(const QString &text) {
        ASSERT_FALSE(desktop.Messages().empty());
        EXPECT_EQ(desktop.Messages().back().text, text);
        EXPECT_EQ(desktop.Messages().back().icon, Icon::Exclamation);
        EXPECT_EQ(desktop.Messages().back().title, QCoreApplication::applicationName());
        EXPECT_EQ(desktop.Messages().back().buttons, Buttons::Ok);
    }
    support::testing::ScriptedDesktop desktop;
    cOpenFile opener{desktop.Get()};
};

} // namespace

TEST_F(OpenFile, FilesAndAddressesGoThroughTheirOwnDoors) {
    desktop.ExpectLaunch("notes.txt");
    EXPECT_TRUE(opener.LaunchFile("notes.txt"));
    desktop.ExpectAddress("https://example.org/");
    EXPECT_TRUE(opener.LaunchAddress("https://example.org/"));
    EXPECT_TRUE(desktop.Messages().empty());
}

TEST_F(OpenFile, WhatNothingOpensIsToldBetweenApostrophes) {
    const QString text = "Cannot Launch Program! \r\nCan not find the following file\r\n'%1'";
    desktop.ExpectLaunch("gone.txt", false);
    desktop.ExpectMessage(text.arg("gone.txt"));
    EXPECT_FALSE(opener.LaunchFile("gone.txt"));
    ExpectTold(text.arg("gone.txt"));
    desktop.ExpectAddress("https://example.org/", false);
    desktop.ExpectMessage(text.arg("https://example.org/"));
    EXPECT_FALSE(opener.LaunchAddress("https://example.org/"));
}

TEST_F(OpenFile, AMailHasAnAddressASubjectAndPerhapsACopy) {
    desktop.ExpectAddress("mailto:a@example.org?Subject=Two words");
    EXPECT_TRUE(opener.OpenEmail("a@example.org", "Two words"));
    desktop.ExpectAddress("mailto:a@example.org?Subject=&CC=b@example.org");
    EXPECT_TRUE(opener.OpenEmail("a@example.org", "", "b@example.org"));
}

TEST_F(OpenFile, ASubjectAddsNoFieldsToItsMail) {
    desktop.ExpectAddress("mailto:a@example.org?Subject=R%26D%23 50%25%0D%0ABCC: x");
    EXPECT_TRUE(opener.OpenEmail("a@example.org", "R&D# 50%\r\nBCC: x"));
}

TEST_F(OpenFile, AMailThatNothingOpensIsTold) {
    const QString text = "Cannot launch mail program! \r\nPlease ensure that a program that is capable of "
                         "using the mailto extension is installed.";
    desktop.ExpectAddress("mailto:a@example.org?Subject=s", false);
    desktop.ExpectMessage(text);
    EXPECT_FALSE(opener.OpenEmail("a@example.org", "s"));
    ExpectTold(text);
}
