#include "app/Start.h"

#include "app/frmPrompt.h"
#include "document/LastPath.h"
#include "document/MapSchema.h"
#include "mainwindow/forms/frmSplash.h"
#include "mainwindow/frmMain.h"
#include "mainwindow/start/LostMapOffers.h"
#include "mainwindow/start/RecoveryBar.h"
#include "mainwindow/start/StartOffer.h"
#include "mainwindow/start/WindowJournal.h"
#include "recovery/JournalFile.h"
#include "settings/GetSet.h"
#include "settings/Settings.h"
#include "support/Files.h"
#include "support/OtherDoor.h"
#include "support/testing/ScriptedDesktop.h"
#include "tests/EnvironmentVariable.h"

#include <gtest/gtest.h>
#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

namespace app {

using mainwindow::frmMain;

namespace {

class Start : public ::testing::Test {
protected:
    Start() {
        support::SetProgramPath(program.path());
        Write(QStringLiteral("Settings.nml"), "<SETTINGS><TITLE>Velmora</TITLE><MAP>Map</MAP><EXT>map</EXT>"
                                              "<EXPORT><HEADER><BOLD>1</BOLD></HEADER></EXPORT></SETTINGS>");
        document::WriteTemplate(program.filePath(QStringLiteral("template.tpl")), {}, {});
        QDir(program.path()).mkdir(QStringLiteral("Startup"));
    }
    ~Start() override {
        for (frmMain *form : frmMain::Forms()) delete form;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        support::SetProgramPath(QString());
        settings::SetTerms({});
    }

    void Write(const QString &name, const QByteArray &text) {
        QFile file(program.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    QString Map(const QString &name) {
        const QString path = program.filePath(name);
        document::CreateEmptyMap(path);
        return path;
    }
    frmMain *Run(const QString &commandLine = QString()) {
        StartOptions options;
        options.commandLine = commandLine;
        return Main(desktop.Get(), options);
    }
    // The offer of the start page waits for a timer that fires before one that is started after it.
    void LetTheOfferBeDecided() {
        QTimer after;
        after.setSingleShot(true);
        after.start(0);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !after.isActive(); }));
    }
    // Expects the prompt, presses a button of the real form, with the box ticked or not.
    void ExpectPrompt(const QString &file, bool yes, bool notAgain = false) {
        desktop.ExpectForm<StartupOffer>([=](StartupOffer &argument) {
            frmPrompt form(argument, nullptr);
            EXPECT_EQ(form.lbl()->text(), QStringLiteral("Would you like to open %1?").arg(file));
            form.chkNotAgain()->setChecked(notAgain);
            (yes ? form.cmdYes() : form.cmdNo())->click();
            return form.result() == QDialog::Accepted;
        });
    }

    QTemporaryDir program;
    support::testing::ScriptedDesktop desktop;
};

const QString kUntitled = QStringLiteral("Untitled - Velmora");

} // namespace

TEST(PathInCommandLine, TakesOneQuoteOffEitherEnd) {
    EXPECT_EQ(PathInCommandLine(QStringLiteral("\"C:\\my maps\\a.map\"")),
              QStringLiteral("C:\\my maps\\a.map"));
    EXPECT_EQ(PathInCommandLine(QStringLiteral("/my maps/a.map")), QStringLiteral("/my maps/a.map"));
    EXPECT_EQ(PathInCommandLine(QStringLiteral("\"\"a\"")), QStringLiteral("\"a"));
    EXPECT_EQ(PathInCommandLine(QStringLiteral("\"")), QString());
    EXPECT_EQ(PathInCommandLine(QString()), QString());
}

TEST_F(Start, AnEmptyWindowHasTheStartPageAndAMapOfTheCommandLineNot) {
    frmMain *empty = Run();
    ASSERT_TRUE(empty);
    EXPECT_TRUE(QTest::qWaitFor([&] { return empty->Start().Page() != nullptr; }));
    delete empty;
    frmMain *opened = Run(Map(QStringLiteral("plan.map")));
    ASSERT_TRUE(opened);
    opened->Start().Offer();
    LetTheOfferBeDecided();
    EXPECT_EQ(opened->Start().Page(), nullptr);
}

TEST_F(Start, AStartupMapTakesThePlaceOfTheStartPage) {
    Map(QStringLiteral("Startup/first.map"));
    ExpectPrompt(QStringLiteral("first.map"), true);
    frmMain *opened = Run();
    ASSERT_TRUE(opened);
    opened->Start().Offer();
    LetTheOfferBeDecided();
    EXPECT_EQ(opened->Start().Page(), nullptr);
    delete opened;
    ExpectPrompt(QStringLiteral("first.map"), false);
    frmMain *refused = Run();
    ASSERT_TRUE(refused);
    EXPECT_TRUE(QTest::qWaitFor([&] { return refused->Start().Page() != nullptr; }));
}

TEST_F(Start, ShowsTheFirstWindowAndTakesTheSplashAway) {
    const QDateTime before = desktop.clock.now;
    frmMain *window = Run();
    ASSERT_TRUE(window);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->windowTitle(), kUntitled);
    EXPECT_EQ(mainwindow::frmSplash::Current(), nullptr);
    EXPECT_GE(before.msecsTo(desktop.clock.now), 1000);
    EXPECT_GE(desktop.random.lastSeed, 0);
    EXPECT_EQ(settings::MemoryLimit(), 1048576);
}

namespace {

// Notes at each wait whether the splash alone is on the screen.
class LookingClock : public support::testing::FakeClock {
public:
    void Wait(int milliseconds) override {
        FakeClock::Wait(milliseconds);
        ++waits;
        const mainwindow::frmSplash *splash = mainwindow::frmSplash::Current();
        splashAlone = splashAlone && splash && splash->isVisible() && frmMain::Forms().size() == 1 &&
                      !frmMain::Forms().front()->isVisible();
    }
    int waits = 0;
    bool splashAlone = true;
};

} // namespace

TEST_F(Start, TheSplashStaysUntilTheSecondBehindTheOneInWhichItCame) {
    struct Case {
        QTime came;
        int waited; // milliseconds, in whole steps of the wait
    };
    for (const auto &[came, waited] :
         {Case{QTime(10, 30, 7, 0), 1000}, {QTime(10, 30, 7, 700), 300}, {QTime(10, 30, 7, 990), 20}}) {
        LookingClock clock;
        clock.now.setTime(came);
        support::Desktop doors = support::WithDoor(desktop.Get(), clock);
        frmMain *window = Main(doors, {});
        ASSERT_TRUE(window);
        EXPECT_EQ(came.msecsTo(clock.now.time()), waited) << came.msec();
        EXPECT_GT(clock.waits, 0);
        EXPECT_TRUE(clock.splashAlone);
        EXPECT_TRUE(window->isVisible());
        EXPECT_EQ(mainwindow::frmSplash::Current(), nullptr);
        delete window;
    }
}

TEST_F(Start, TheSplashDoesNotWaitForADayWhenItCameBeforeMidnight) {
    LookingClock clock;
    clock.now.setTime(QTime(23, 59, 59, 500));
    support::Desktop doors = support::WithDoor(desktop.Get(), clock);
    frmMain *window = Main(doors, {});
    ASSERT_TRUE(window);
    EXPECT_EQ(clock.now, QDateTime(QDate(2024, 5, 18), QTime(0, 0)));
    delete window;
}

TEST_F(Start, WithoutTheSplashNothingIsWaitedFor) {
    const QDateTime before = desktop.clock.now;
    StartOptions options;
    options.showSplash = false;
    ASSERT_TRUE(Main(desktop.Get(), options));
    EXPECT_EQ(before, desktop.clock.now);
}

TEST_F(Start, SweepsWhatFormerRunsLeftInTheTemporaryFolder) {
    const QTemporaryDir temp;
    const tests::EnvironmentVariable temporary("TMPDIR", QFile::encodeName(temp.path()));
    const auto write = [&](const QString &name) {
        QFile file(temp.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.setFileTime(desktop.clock.now.addDays(-8), QFileDevice::FileModificationTime);
    };
    for (const char *folder : {"velmora-attachments-killed", "velmora-copies-abcdef"}) {
        ASSERT_TRUE(QDir(temp.path()).mkdir(QLatin1String(folder)));
        QFile::setPermissions(temp.filePath(QLatin1String(folder)),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    write(QStringLiteral("velmora-attachments-killed/.lock"));
    write(QStringLiteral("velmora-attachments-killed/notes.txt"));
    write(QStringLiteral("velmora-copies-abcdef/0123-old.map"));
    Run();
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return !QFile::exists(temp.filePath(QStringLiteral("velmora-attachments-killed"))) &&
               QDir(temp.filePath(QStringLiteral("velmora-copies-abcdef"))).isEmpty();
    }));
}

TEST_F(Start, AMissingTemplateIsToldAndEndsTheStart) {
    QFile::remove(program.filePath(QStringLiteral("template.tpl")));
    desktop.ExpectMessageContaining(QStringLiteral("template.tpl"));
    EXPECT_EQ(Run(), nullptr);
    EXPECT_EQ(desktop.Messages().back().title, QStringLiteral("Error in Qz_Source: Sub Main"));
    EXPECT_TRUE(frmMain::Forms().empty());
    EXPECT_EQ(mainwindow::frmSplash::Current(), nullptr);
}

TEST_F(Start, MissingSettingsLeaveTheTermsEmptyAndAreNotReported) {
    QFile::remove(program.filePath(QStringLiteral("Settings.nml")));
    frmMain *window = Run();
    ASSERT_TRUE(window);
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Untitled - "));
    EXPECT_TRUE(desktop.Messages().empty());
}

TEST_F(Start, OpensThePathOfTheCommandLineWithBlanksAndWithQuotes) {
    const QString map = Map(QStringLiteral("my plan.map"));
    EXPECT_EQ(Run(map)->clsSettings().Database(), map);
    delete frmMain::Forms().front();
    EXPECT_EQ(Run(u'"' + map + u'"')->clsSettings().Database(), map);
}

TEST_F(Start, TwoPathsAreOneThatDoesNotExistAndIsDropped) {
    const QString both = Map(QStringLiteral("a.map")) + u' ' + Map(QStringLiteral("b.map"));
    EXPECT_EQ(Run(both)->windowTitle(), kUntitled);
    EXPECT_TRUE(desktop.Messages().empty());
}

TEST_F(Start, AFileThatIsNoMapIsReportedAndTheProcessGoesOn) {
    Write(QStringLiteral("broken.map"), "no database");
    desktop.ExpectMessageContaining(QStringLiteral("(Error #3343)"));
    frmMain *window = Run(program.filePath(QStringLiteral("broken.map")));
    ASSERT_TRUE(window);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(desktop.Messages().back().title, QStringLiteral("Error in Qz_Source: Sub ProcessCommand"));
}

TEST_F(Start, OffersTheFirstMapOfTheStartupFolder) {
    const QString first = Map(QStringLiteral("Startup/a.map"));
    Map(QStringLiteral("Startup/b.map"));
    Write(QStringLiteral("Startup/0.txt"), "no map");
    ExpectPrompt(QStringLiteral("a.map"), true);
    frmMain *window = Run();
    EXPECT_EQ(window->clsSettings().Database(), first);
    EXPECT_TRUE(settings::GetStartupEnabled());
    EXPECT_TRUE(window->MenuValue(QStringLiteral("mnuViewStartup")));
}

TEST_F(Start, NoOpensNothing) {
    Map(QStringLiteral("Startup/a.map"));
    ExpectPrompt(QStringLiteral("a.map"), false);
    EXPECT_EQ(Run()->windowTitle(), kUntitled);
    EXPECT_TRUE(settings::GetStartupEnabled());
}

TEST_F(Start, NotAgainWithYesOpensTheMapAndTurnsThePromptOff) {
    const QString map = Map(QStringLiteral("Startup/a.map"));
    ExpectPrompt(QStringLiteral("a.map"), true, true);
    frmMain *window = Run();
    EXPECT_EQ(window->clsSettings().Database(), map);
    EXPECT_FALSE(settings::GetStartupEnabled());
    EXPECT_FALSE(window->MenuValue(QStringLiteral("mnuViewStartup")));
    delete window;
    EXPECT_EQ(Run()->windowTitle(), kUntitled); // the next start asks nothing
}

TEST_F(Start, NotAgainWithNoTurnsThePromptOffToo) {
    Map(QStringLiteral("Startup/a.map"));
    ExpectPrompt(QStringLiteral("a.map"), false, true);
    EXPECT_EQ(Run()->windowTitle(), kUntitled);
    EXPECT_FALSE(settings::GetStartupEnabled());
}

TEST_F(Start, ACommandLineSkipsThePrompt) {
    Map(QStringLiteral("Startup/a.map"));
    EXPECT_EQ(Run(QStringLiteral("/no/such.map"))->windowTitle(), kUntitled);
}

TEST_F(Start, OffersWhatAFormerRunHasLeftUnsaved) {
    const tests::EnvironmentVariable state("XDG_STATE_HOME", program.path().toLocal8Bit());
    {
        recovery::JournalFile journal(program.filePath(QStringLiteral("Velmora/recovery")));
        recovery::Step step{true, {}, {QDateTime::currentDateTime(), 1, recovery::MapFrame()}};
        journal.Write(step);
    }
    EXPECT_EQ(Run()->LostMaps().Bar(), nullptr); // keeps no journals, so it offers none
    delete frmMain::Forms().front();
    StartOptions options;
    options.keepJournals = true;
    frmMain *window = Main(desktop.Get(), options);
    ASSERT_TRUE(window && window->LostMaps().Bar());
    EXPECT_TRUE(window->LostMaps().Bar()->isVisible());
    EXPECT_EQ(window->LostMaps().Bar()->Count(), 1);
    EXPECT_TRUE(window->Journal());
    delete window;
    mainwindow::WindowJournal::SetFolder(QString());
}

TEST_F(Start, AnEmptyStartupFolderOrNoneMeansNoPrompt) {
    EXPECT_TRUE(StartupMap().isEmpty());
    EXPECT_TRUE(Run());
    delete frmMain::Forms().front();
    QDir(program.path()).rmdir(QStringLiteral("Startup"));
    EXPECT_TRUE(Run());
}

} // namespace app
