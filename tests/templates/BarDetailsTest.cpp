#include "templates/BarDetails.h"

#include "settings/DeliveredFiles.h"
#include "settings/Settings.h"
#include "storage/Database.h"
#include "support/AtomicFile.h"
#include "support/Files.h"
#include "templates/TemplateDb.h"
#include "tests/templates/TemplatesTest.h"

#include <sys/stat.h>

namespace templates::testing {

namespace {

class Bars : public TemplatesTest {
protected:
    void SetUp() override {
        status = [this](const QString &text) { statuses << text; };
    }
    static QStringList Captions(const std::vector<Bar> &bars) {
        QStringList captions;
        for (const Bar &bar : bars) captions << bar.caption;
        return captions;
    }
    BarDetails Load() { return LoadBarDetails(folder(), FilesOfBar(folder()), status); }
    QString folder() const { return InTemplates(QString()); }
    // "kind caption" an item.
    static QStringList Items(const BarDetails &details) {
        QStringList items;
        for (const BarItem &item : details.items) items << item.tag + u' ' + item.caption;
        return items;
    }

    QStringList statuses;
    StatusRoutine status;
};

} // namespace

TEST_F(Bars, AFolderWithoutSubFoldersIsTheOneBarTemplates) {
    Template(QStringLiteral("A.TEM"));
    const std::vector<Bar> bars = ListBars(status);
    ASSERT_EQ(Captions(bars), QStringList({"Templates"}));
    EXPECT_EQ(bars[0].key, support::AddBackslash(ProgramFile(QStringLiteral("Templates"))));
    EXPECT_FALSE(bars[0].own);
    EXPECT_EQ(statuses,
              QStringList({"Loading Bar Items (Getting Dirs)...", "Loading Bar Items (Getting Files)..."}));
}

TEST_F(Bars, AMissingFolderIsAnEmptyBar) {
    QDir(folder()).removeRecursively();
    EXPECT_EQ(Captions(ListBars()), QStringList({"Templates"}));
    EXPECT_EQ(FilesOfBar(folder()), QStringList());
}

TEST_F(Bars, EachSubFolderIsABarInTheOrderOfTheFolder) {
    for (const char *name : {"strategy", "People 'A'", "Планы"})
        QDir(folder()).mkdir(QString::fromUtf8(name));
    QDir(folder()).mkpath(QStringLiteral("People 'A'/deeper"));
    Template(QStringLiteral("A.TEM"));
    const std::vector<Bar> bars = ListBars();
    EXPECT_EQ(Captions(bars), QStringList({"Templates", "People 'A'", "strategy", "Планы"}));
    EXPECT_EQ(bars[1].key, support::AddBackslash(folder() + QStringLiteral("People 'A'")));
}

TEST_F(Bars, TheUsersOwnFolderFollowsWhereItIsThere) {
    const QString own = settings::OwnTemplatesFolder();
    EXPECT_EQ(ListBars().size(), 1u);
    QDir().mkpath(own + QStringLiteral("Drafts"));
    const std::vector<Bar> bars = ListBars();
    ASSERT_EQ(Captions(bars), QStringList({"Templates", "My Templates", "Drafts"}));
    EXPECT_EQ(bars[1].key, own);
    EXPECT_FALSE(bars[0].own);
    EXPECT_TRUE(bars[1].own);
    EXPECT_TRUE(bars[2].own);
}

TEST_F(Bars, ALinkThatLeadsRoundInACircleEndsNothing) {
    QFile::link(folder(), folder() + QStringLiteral("round"));
    QFile::link(folder() + QStringLiteral("self"), folder() + QStringLiteral("self"));
    QFile::link(folder() + QStringLiteral("loop.TEM"), folder() + QStringLiteral("loop.TEM"));
    EXPECT_EQ(Captions(ListBars()), QStringList({"Templates", "round"}));
    EXPECT_TRUE(Load().items.empty());
}

TEST_F(Bars, AFolderWithoutRightsIsAnEmptyBar) {
    if (::geteuid() == 0) GTEST_SKIP() << "an administrator may read every folder";
    QDir(folder()).mkdir(QStringLiteral("shut"));
    QFile::setPermissions(folder() + QStringLiteral("shut"), QFile::Permissions());
    EXPECT_EQ(ListBars().size(), 2u);
    EXPECT_EQ(FilesOfBar(folder() + QStringLiteral("shut")), QStringList());
}

TEST_F(Bars, EachKindOfFileHasItsItem) {
    FlatTemplate(QStringLiteral("flat.TEM"));
    Template(QStringLiteral("base.TEM"));
    Write(InTemplates(QStringLiteral("paper.pdf")), "%PDF");
    Write(InTemplates(QStringLiteral("read me")), "no point in the name");
    Write(InTemplates(QStringLiteral("icon.ICO")), Icon());
    const BarDetails details = Load();
    EXPECT_EQ(Items(details), QStringList({" base", "Flat flat", "EXTERNAL paper", "EXTERNAL read me"}));
    EXPECT_EQ(details.items[0].icon, Icon());
    EXPECT_EQ(details.items[0].key, InTemplates(QStringLiteral("base.TEM")));
    EXPECT_TRUE(details.items[1].icon.isEmpty());
    EXPECT_TRUE(details.badFiles.empty());
    EXPECT_TRUE(details.badIcons.isEmpty());
    EXPECT_EQ(statuses.front(), QStringLiteral("Loading base.TEM..."));
    EXPECT_EQ(statuses.size(), 5);
}

TEST_F(Bars, IconFilesAndKeptCopiesAreNotListed) {
    Write(InTemplates(QStringLiteral("icon.ico")), Icon());
    Template(QStringLiteral("A.TEM")), Template(QStringLiteral("A.TEM"));
    Write(InTemplates(QStringLiteral("notes.bak")), "not a template's");
    EXPECT_EQ(Items(Load()), QStringList({" A", "EXTERNAL notes"}));
}

TEST_F(Bars, NamesWithBlanksQuotesAndOtherLettersAreKept) {
    for (const char *name : {"a b 'c' \"d\".TEM", "План 1.2.TEM", "日本.TEM"})
        Template(QString::fromUtf8(name));
    EXPECT_EQ(Items(Load()), QStringList({" a b 'c' \"d\"", " План 1.2", " 日本"}));
}

TEST_F(Bars, ADatabaseWithoutTheTableIsDroppedSilently) {
    support::CopyFileTo(EmptyMap(QStringLiteral("plan.map")), InTemplates(QStringLiteral("map.TEM")));
    Template(QStringLiteral("A.TEM"));
    const BarDetails details = Load();
    EXPECT_EQ(Items(details), QStringList({" A"}));
    EXPECT_TRUE(details.badFiles.empty());
}

TEST_F(Bars, AFileThatIsNeitherIsToldAndTheRestGoesOn) {
    Write(InTemplates(QStringLiteral("B bad.TEM")), "neither surface file nor database");
    Write(InTemplates(QStringLiteral("C cut.TEM")),
          support::ReadWholeFile(FlatTemplate(QStringLiteral("A.TEM"))).left(40));
    Template(QStringLiteral("Z.TEM"));
    const BarDetails details = Load();
    EXPECT_EQ(Items(details), QStringList({"Flat A", " Z"}));
    ASSERT_EQ(details.badFiles.size(), 2u);
    EXPECT_EQ(details.badFiles[0].file, InTemplates(QStringLiteral("B bad.TEM")));
    EXPECT_EQ(details.badFiles[0].number, storage::kErrUnrecognizedFormat);
    desktop.ExpectMessageContaining(details.badFiles[0].file);
    TellOfBadFiles(details.badFiles, {}, QStringLiteral("tmrBar_Timer"));
    EXPECT_EQ(desktop.Messages().back().title, QStringLiteral("Error in frmMain: Sub tmrBar_Timer"));
    EXPECT_TRUE(desktop.Messages().back().text.contains(details.badFiles[1].file));
}

TEST_F(Bars, AnErrorThatNamesNoFileIsToldWithIt) {
    QString file = InTemplates(QStringLiteral("empty.TEM"));
    CreateTemplateDB(file);
    desktop.ExpectMessageContaining(file + QStringLiteral(": No current record."));
    TellOfBadFiles(Load().badFiles, {}, QStringLiteral("tmrBar_Timer"));
}

TEST_F(Bars, ManyBadFilesAreOneBoxThatFitsTheScreen) {
    for (int i = 0; i < 40; ++i) Write(InTemplates(QStringLiteral("bad%1.TEM").arg(i)), "bad");
    const BarDetails details = Load();
    ASSERT_EQ(details.badFiles.size(), 40u);
    desktop.ExpectMessageContaining(QStringLiteral("and 32 more"));
    TellOfBadFiles(details.badFiles, {}, QStringLiteral("tmrBar_Timer"));
    EXPECT_LT(desktop.Messages().back().text.count(QLatin1Char('\n')), 20);
}

TEST_F(Bars, AnIconThatIsNoneIsToldAndTheItemStaysWithoutIt) {
    TemplateOf(QStringLiteral("A.TEM"), "map", "no icon");
    Template(QStringLiteral("B.TEM"));
    const BarDetails details = Load();
    EXPECT_EQ(Items(details), QStringList({" A", " B"}));
    EXPECT_TRUE(details.items[0].icon.isEmpty());
    EXPECT_FALSE(details.items[1].icon.isEmpty());
    EXPECT_EQ(details.badIcons, QStringList({InTemplates(QStringLiteral("A.TEM"))}));
    desktop.ExpectMessage(QStringLiteral("Invalid Picture Format...\r\nExpected Icon Format."));
    TellOfBadFiles({}, details.badIcons, QStringLiteral("tmrBar_Timer"));
}

TEST_F(Bars, NothingIsToldWhereAllIsWell) { TellOfBadFiles({}, {}, QStringLiteral("tmrBar_Timer")); }

TEST_F(Bars, AVanishedFileIsToldAndTheRestGoesOn) {
    Template(QStringLiteral("B.TEM"));
    const BarDetails details = LoadBarDetails(folder(), {QStringLiteral("A.TEM"), QStringLiteral("B.TEM")});
    EXPECT_EQ(Items(details), QStringList({" B"}));
    EXPECT_EQ(details.badFiles.size(), 1u);
}

TEST_F(Bars, APipeOfATemplatesNameIsNotWaitedFor) {
    ASSERT_EQ(::mkfifo(InTemplates(QStringLiteral("pipe.TEM")).toLocal8Bit().constData(), 0600), 0);
    EXPECT_EQ(FilesOfBar(folder()), QStringList());
}

TEST_F(Bars, AFillerTakesOneFileAtATime) {
    for (const char *name : {"A.TEM", "B.TEM"}) Template(QLatin1String(name));
    BarFiller filler(folder(), {QStringLiteral("A.TEM"), QStringLiteral("x.ico"), QStringLiteral("B.TEM")});
    EXPECT_FALSE(filler.AtEnd());
    EXPECT_EQ(filler.Next()->caption, QStringLiteral("A"));
    EXPECT_FALSE(filler.Next());
    EXPECT_EQ(filler.Next()->caption, QStringLiteral("B"));
    EXPECT_TRUE(filler.AtEnd());
}

TEST_F(Bars, AnIconThatWasSavedAgainIsReadAnew) {
    Template(QStringLiteral("A.TEM"));
    Load();
    TemplateOf(QStringLiteral("A.TEM"), "map", Icon(qRgb(0, 0, 200)));
    EXPECT_EQ(Load().items.at(0).icon, Icon(qRgb(0, 0, 200)));
}

TEST_F(Bars, OnlyUpperCaseDatabasesAreLoadedByAClick) {
    EXPECT_FALSE(IsExternal({{}, QStringLiteral("/t/A.TEM"), {}, {}}));
    EXPECT_TRUE(IsExternal({{}, QStringLiteral("/t/A.tem"), {}, {}}));
    EXPECT_TRUE(IsExternal({{}, QStringLiteral("/t/A.stt"), {}, {}}));
    EXPECT_FALSE(IsExternal({{}, QStringLiteral("/t/A.tem"), kFlatTag, {}}))
        << "a surface file is loaded anyway";
    EXPECT_TRUE(IsExternal({{}, QStringLiteral("/t/A.TEM"), kExternalTag, {}}));
}

TEST_F(Bars, NewTemplatesGoBesideTheProgramElseToTheUsersOwn) {
    EXPECT_EQ(settings::FolderForTemplates(), folder());
    QDir(folder()).removeRecursively();
    EXPECT_EQ(settings::FolderForTemplates(), folder());
    EXPECT_TRUE(support::DirExists(folder())) << "made where it was missing";
    QFile::setPermissions(folder(), QFile::ReadOwner | QFile::ExeOwner);
    EXPECT_EQ(settings::FolderForTemplates(), settings::OwnTemplatesFolder());
    EXPECT_TRUE(support::DirExists(settings::OwnTemplatesFolder()));
}

} // namespace templates::testing
