#include "settings/NewLinks.h"

#include "support/Files.h"
#include "support/testing/ScriptedDesktop.h"

#include <gtest/gtest.h>
#include <QFile>
#include <QTemporaryDir>

using namespace settings;

namespace {

class NewLinks : public ::testing::Test {
protected:
    NewLinks() { support::SetProgramPath(folder_.path()); }
    ~NewLinks() override { support::SetProgramPath(QString()); }
    void Deliver(const QByteArray &keys) const {
        QFile file(folder_.filePath("Settings.nml"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("<SETTINGS>" + keys + "</SETTINGS>");
    }

    support::testing::ScriptedDesktop desktop_;
    QTemporaryDir folder_;
};

} // namespace

TEST_F(NewLinks, LinkRouting_IsEmptyInAProductThatSaysNothing) {
    EXPECT_EQ(LinkRouting(), "");
    Deliver("<TITLE>Velmora</TITLE>");
    EXPECT_EQ(LinkRouting(), "");
}

TEST_F(NewLinks, LinkRouting_IsTheProductsUntilTheUserSavesAnother) {
    Deliver("<LINKROUTING> Automatic </LINKROUTING>");
    EXPECT_EQ(LinkRouting(), kAutomaticRouting);
    SaveLinkRouting("4");
    EXPECT_EQ(LinkRouting(), "4");
}
