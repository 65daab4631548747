// Named views: keeping and ticking them, saving and loading them.
#include "document/FilterViews.h"

#include "diagram/model/Surface.h"
#include "document/RepairMap.h"
#include "storage/Fields.h"
#include "tests/document/MapTest.h"

#include <QLocale>

using namespace document;
using namespace document::testing;

namespace {

const QString kPlan = QStringLiteral("Plan"), kAll = QStringLiteral("All");
const QString kTable = QStringLiteral("FilterViews");

class FilterViewsTest : public MapTest {
protected:
    FilterViewsTest() {
        settings.Levels().Clear();
        settings.Groups().Clear();
        settings.Levels().Create(QStringLiteral("Goal"), true, 0);
        settings.Levels().Create(QStringLiteral("Step, later"), false, 0);
        settings.Groups().Create(QStringLiteral("Sales"), false);
        settings.Groups().Create(QStringLiteral("It's \"staff\""), true);
        settings.Dirty = false;
        MarkSaved(*window);
    }
    cLevel &Level(int index) { return settings.Levels().Item(index); }
    cGroup &Group(int index) { return settings.Groups().Item(index); }
    QString SavedAs(const char *name) {
        SaveAs(*window, MapFile(QString::fromLatin1(name)));
        return MapFile(QString::fromLatin1(name));
    }
    static bool HasTable(const QString &path) {
        return storage::TableExistsDB(storage::OpenDatabase(path), kTable);
    }
    static QStringList Names(const clsfrmMain &of) {
        QStringList names;
        for (const FilterView &view : of.Views) names.append(view.Name);
        return names;
    }

    std::unique_ptr<MemoryWindow> window = NewWindow();
    clsfrmMain &settings = window->clsSettings();
};

} // namespace

TEST_F(FilterViewsTest, AViewTicksWhatWasTickedWhenItWasKept) {
    KeepView(settings, kPlan);
    EXPECT_TRUE(settings.Dirty);
    const FilterView &view = *FindView(settings, QStringLiteral(" plan "));
    EXPECT_TRUE(IsTicked(settings, view));
    Level(1).Selected = false;
    Level(2).Selected = Group(1).Selected = true;
    EXPECT_FALSE(IsTicked(settings, view));
    settings.Dirty = false;
    EXPECT_EQ(TickView(settings, view), QStringList());
    EXPECT_TRUE(IsTicked(settings, view));
    EXPECT_TRUE(Level(1).Selected);
    EXPECT_FALSE(Level(2).Selected);
    EXPECT_FALSE(Group(1).Selected);
    EXPECT_FALSE(settings.Dirty) << "ticks are no unsaved work";
}

TEST_F(FilterViewsTest, ANameIsTakenOnceWhateverItsCase) {
    KeepView(settings, kPlan);
    Level(2).Selected = true;
    KeepView(settings, QStringLiteral("  PLAN "));
    ASSERT_EQ(settings.Views.size(), 1U);
    EXPECT_EQ(settings.Views[0].Name, QStringLiteral("PLAN"));
    EXPECT_EQ(LevelNames(settings, settings.Views[0]),
              (QStringList{QStringLiteral("Goal"), QStringLiteral("Step, later")}));
    settings.Dirty = false;
    KeepView(settings, QStringLiteral("  "));
    EXPECT_EQ(settings.Views.size(), 1U);
    EXPECT_FALSE(settings.Dirty);
    EXPECT_EQ(FindView(settings, QString()), nullptr);
}

TEST_F(FilterViewsTest, ARenamedViewKeepsItsPlaceAndNeverTakesTheNameOfAnother) {
    KeepView(settings, kPlan);
    KeepView(settings, kAll);
    settings.Dirty = false;
    EXPECT_FALSE(RenameView(settings, kPlan, QStringLiteral("all")));
    EXPECT_FALSE(RenameView(settings, kPlan, QStringLiteral(" ")));
    EXPECT_FALSE(RenameView(settings, QStringLiteral("None"), QStringLiteral("New")));
    EXPECT_TRUE(RenameView(settings, kPlan, kPlan));
    EXPECT_FALSE(settings.Dirty);
    EXPECT_TRUE(RenameView(settings, kPlan, QStringLiteral("plan")));
    EXPECT_TRUE(settings.Dirty);
    EXPECT_EQ(Names(settings), (QStringList{QStringLiteral("plan"), kAll}));
}

TEST_F(FilterViewsTest, ADeletedViewIsGoneAndLeavesTheTicks) {
    KeepView(settings, kPlan);
    KeepView(settings, kAll);
    settings.Dirty = false;
    DeleteView(settings, QStringLiteral("none"));
    EXPECT_FALSE(settings.Dirty);
    DeleteView(settings, kPlan);
    EXPECT_TRUE(settings.Dirty);
    EXPECT_EQ(Names(settings), QStringList{kAll});
    EXPECT_TRUE(Level(1).Selected);
}

TEST_F(FilterViewsTest, AViewFollowsALevelsNewNameAndTellsOfTheLevelThatIsGone) {
    KeepView(settings, kPlan);
    Level(1).LevelName = QStringLiteral("Aim");
    EXPECT_EQ(LevelNames(settings, settings.Views[0]), QStringList{QStringLiteral("Aim")});
    settings.Groups().Remove(2);
    Level(1).Selected = false;
    EXPECT_EQ(TickView(settings, settings.Views[0]), QStringList{QStringLiteral("It's \"staff\"")});
    EXPECT_TRUE(Level(1).Selected) << "the rest is ticked";
    settings.Groups().Create(QStringLiteral("It's \"staff\""), false);
    EXPECT_EQ(TickView(settings, settings.Views[0]), QStringList()) << "one of the same name takes the place";
    EXPECT_TRUE(Group(2).Selected);
}

TEST_F(FilterViewsTest, KeepingRenamingAndDeletingAreUnsavedWorkUntilTheyAreTakenBack) {
    EXPECT_FALSE(HasUnsavedWork(*window));
    KeepView(settings, kPlan);
    EXPECT_TRUE(HasUnsavedWork(*window));
    MarkSaved(*window);
    RenameView(settings, kPlan, kAll);
    EXPECT_TRUE(HasUnsavedWork(*window));
    RenameView(settings, kAll, kPlan);
    EXPECT_FALSE(HasUnsavedWork(*window));
    Level(2).Selected = true;
    EXPECT_FALSE(HasUnsavedWork(*window)) << "what is ticked now is not what the view ticks";
    KeepView(settings, kPlan);
    EXPECT_TRUE(HasUnsavedWork(*window));
}

TEST_F(FilterViewsTest, NoneOneAndTwoViewsComeBackFromTheFileInTheirOrder) {
    EXPECT_FALSE(HasTable(SavedAs("none.map"))) << "a map without views has no tables but those of old";
    EXPECT_EQ(Loaded(MapFile(QStringLiteral("none.map")))->clsSettings().Views.size(), 0U);
    KeepView(settings, QStringLiteral("Ünder \"way\", it's"));
    EXPECT_EQ(Loaded(SavedAs("one.map"))->clsSettings().Views.size(), 1U);
    Level(1).Selected = Group(2).Selected = false;
    KeepView(settings, kAll);
    const auto two = Loaded(SavedAs("two.map"));
    clsfrmMain &read = two->clsSettings();
    EXPECT_EQ(Names(read), Names(settings));
    EXPECT_EQ(LevelNames(read, read.Views[0]), QStringList{QStringLiteral("Goal")});
    EXPECT_EQ(GroupNames(read, read.Views[0]), QStringList{QStringLiteral("It's \"staff\"")});
    EXPECT_TRUE(IsTicked(read, read.Views[1])) << "a view may tick nothing";
    EXPECT_EQ(read.Views[0].Levels[0].Key, read.Levels().Item(1).Key);
    EXPECT_FALSE(HasUnsavedWork(*two));
    DeleteView(settings, kAll);
    DeleteView(settings, QStringLiteral("Ünder \"way\", it's"));
    EXPECT_FALSE(HasTable(SavedAs("two.map")));
}

TEST_F(FilterViewsTest, InOtherLanguagesNamesAreFoundAndComeBackFromTheFile) {
    const QLocale former;
    Level(1).LevelName = QStringLiteral("目標");
    Group(1).GroupName = QStringLiteral("Προϊόν");
    Group(1).Selected = true;
    for (const QLocale::Language language : {QLocale::German, QLocale::Turkish, QLocale::Japanese}) {
        SCOPED_TRACE(int(language));
        QLocale::setDefault(QLocale(language));
        settings.Views.clear();
        KeepView(settings, QStringLiteral("FILIALE"));
        KeepView(settings, QStringLiteral("ÜBERSICHT Łódź"));
        KeepView(settings, QStringLiteral("übersicht łódź"));
        KeepView(settings, QStringLiteral("すべて"));
        const auto read = Loaded(SavedAs("script.map"));
        EXPECT_EQ(Names(read->clsSettings()),
                  (QStringList{QStringLiteral("FILIALE"), QStringLiteral("übersicht łódź"),
                               QStringLiteral("すべて")}));
        const FilterView *view = FindView(read->clsSettings(), QStringLiteral("filiale"));
        ASSERT_TRUE(view) << "whatever the language makes of an i";
        read->clsSettings().Levels().Item(1).Selected = read->clsSettings().Groups().Item(1).Selected = false;
        EXPECT_EQ(TickView(read->clsSettings(), *view), QStringList());
        EXPECT_EQ(LevelNames(read->clsSettings(), *view), QStringList{QStringLiteral("目標")});
        EXPECT_TRUE(read->clsSettings().Groups().Item(1).Selected);
        EXPECT_TRUE(FindView(read->clsSettings(), QStringLiteral(" すべて")));
    }
    QLocale::setDefault(former);
}

// Older readers ask for the tables that they know, by name.
TEST_F(FilterViewsTest, TheTablesOfOldAreTheSameWithViewsAndWithout) {
    const QString plain = SavedAs("plain.map");
    KeepView(settings, kPlan);
    const QString path = SavedAs("views.map");
    const storage::Database with = storage::OpenDatabase(path), without = storage::OpenDatabase(plain);
    for (const TableLayout *table : schema::Tables()) {
        const auto fields = with.Table(NameOf(*table)).fields, old = without.Table(NameOf(*table)).fields;
        ASSERT_EQ(fields.size(), old.size()) << table->name;
        for (std::size_t i = 0; i < fields.size(); ++i) EXPECT_EQ(fields[i].name, old[i].name);
    }
    EXPECT_EQ(with.TableDefs().size(), without.TableDefs().size() + 1);
}

TEST_F(FilterViewsTest, ALevelThatTheFileLacksIsKeptByItsName) {
    KeepView(settings, kPlan);
    settings.Levels().Remove(1);
    const auto read = Loaded(SavedAs("a.map"));
    EXPECT_EQ(TickView(read->clsSettings(), read->clsSettings().Views[0]),
              QStringList{QStringLiteral("Goal")});
}

TEST_F(FilterViewsTest, ATableOfThatNameFromElsewhereIsPassedOver) {
    const QString path = SavedAs("a.map");
    Run(path, QStringLiteral("CREATE TABLE [FilterViews] ([Other] TEXT)"));
    EXPECT_EQ(Loaded(path)->clsSettings().Views.size(), 0U);
    const QString odd = SavedAs("b.map");
    Run(odd, QStringLiteral("CREATE TABLE [filterviews] ([Group], [VIEW], [Level]);"
                            "INSERT INTO [FilterViews] ([View], [Level]) VALUES (NULL, 'Goal');"
                            "INSERT INTO [FilterViews] ([View], [Level]) VALUES (' Odd ', 7);"));
    const auto read = Loaded(odd);
    ASSERT_EQ(Names(read->clsSettings()), QStringList{QStringLiteral("Odd")});
    EXPECT_EQ(LevelNames(read->clsSettings(), read->clsSettings().Views[0]),
              QStringList{QStringLiteral("7")});
}

TEST_F(FilterViewsTest, AMapThatIsReadIntoTheWindowTakesTheFormerViewsAway) {
    const QString path = SavedAs("none.map");
    KeepView(settings, kPlan);
    settings.SetDatabase(path);
    DoLoad(*window);
    EXPECT_TRUE(settings.Views.empty());
}

TEST_F(FilterViewsTest, ARepairKeepsTheViewsAndACheckFindsNothingWrongWithThem) {
    KeepView(settings, kPlan);
    const QString target = MapFile(QStringLiteral("repaired.map"));
    EXPECT_TRUE(RepairMap(SavedAs("a.map"), target).IsClean());
    const auto read = Loaded(target);
    ASSERT_EQ(Names(read->clsSettings()), QStringList{kPlan});
    EXPECT_EQ(GroupNames(read->clsSettings(), read->clsSettings().Views[0]),
              QStringList{QStringLiteral("It's \"staff\"")});
    DeleteView(settings, kPlan);
    const QString plain = MapFile(QStringLiteral("plain.map"));
    EXPECT_TRUE(RepairMap(SavedAs("b.map"), plain).IsClean());
    EXPECT_FALSE(HasTable(plain));
}
