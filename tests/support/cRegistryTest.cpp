#include "support/cRegistry.h"

#include "support/Error.h"
#include "support/testing/ScriptedDesktop.h"
#include "tests/EnvironmentVariable.h"
#include "tests/Errors.h"

#include <gtest/gtest.h>
#include <QCoreApplication>

using namespace support;

namespace {

// A registry that nobody may write.
class SealedStore : public MemoryRegistryStore {
public:
    bool CreateKey(RegistryRoot, const QString &) override { return false; }
    bool Write(RegistryRoot, const QString &, const QString &, const RegistryValue &) override {
        return false;
    }
};

cRegistry At(RegistryStore &store, const QString &section, const QString &name) {
    cRegistry registry(store);
    registry.SectionKey = section;
    registry.ValueKey = name;
    return registry;
}

template <typename Body>
void ExpectFailure(const QString &description, Body body) {
    const Error error = tests::ErrorOf([&] { body(); });
    EXPECT_EQ(error.Number(), 26001);
    EXPECT_EQ(error.Source(), QCoreApplication::applicationName() + ".cRegistry");
    EXPECT_EQ(error.Description(), description);
}

QString ClassText(RegistryStore &store, const QString &path) {
    const auto value = store.Read(RegistryRoot::LocalMachine, "SOFTWARE\\Classes\\" + path, "");
    return value ? value->data.toString() : QString("(none)");
}

} // namespace

TEST(cRegistry, Value_OfAnAbsentValueIsTheDefaultOrAnEmptyVariant) {
    MemoryRegistryStore store;
    cRegistry registry = At(store, "A", "x");
    EXPECT_FALSE(registry.Value().isValid());
    registry.Default = 17;
    EXPECT_EQ(registry.Value().toInt(), 17);
    store.CreateKey(RegistryRoot::CurrentUser, "A");
    EXPECT_EQ(registry.Value().toInt(), 17);
}

TEST(cRegistry, Value_IsReadByTheStoredTypeNotByValueType) {
    MemoryRegistryStore store;
    cRegistry registry = At(store, "A", "x");
    registry.ValueType = RegistryType::Number;
    registry.SetValue(-1);
    registry.ValueType = RegistryType::String;
    EXPECT_EQ(registry.Value(), QVariant(-1));
    EXPECT_EQ(store.Read(RegistryRoot::CurrentUser, "A", "x")->data.toUInt(), 4294967295u);
}

TEST(cRegistry, Value_CutsTextsAtTheTerminatorAndGivesBytesAsBytes) {
    MemoryRegistryStore store;
    store.Write(RegistryRoot::CurrentUser, "A", "s", {RegistryType::String, QString("ab") + QChar(0) + "cd"});
    store.Write(RegistryRoot::CurrentUser, "A", "m",
                {RegistryType::MultipleStrings, QStringList{"one", "two"}});
    store.Write(RegistryRoot::CurrentUser, "A", "b", {RegistryType::Binary, QByteArray("\0\1", 2)});
    store.Write(RegistryRoot::CurrentUser, "A", "n", {RegistryType::BigEndianNumber, quint32(258)});
    EXPECT_EQ(At(store, "A", "s").Value(), QVariant("ab"));
    EXPECT_EQ(At(store, "A", "m").Value(), QVariant("one"));
    EXPECT_EQ(At(store, "A", "b").Value(), QVariant(QByteArray("\0\1", 2)));
    EXPECT_EQ(At(store, "A", "n").Value(), QVariant(258));
}

TEST(cRegistry, SetValue_WithTwoPercentSignsIsExpandableAndExpandsOnReading) {
    const tests::EnvironmentVariable folder("VELMORA_TEST_FOLDER", "/plans");
    MemoryRegistryStore store;
    cRegistry registry = At(store, "A", "x");
    registry.SetValue("%VELMORA_TEST_FOLDER%/a %NOT_SET_ANYWHERE%");
    EXPECT_EQ(store.Read(RegistryRoot::CurrentUser, "A", "x")->type, RegistryType::ExpandableString);
    EXPECT_EQ(registry.Value(), QVariant("/plans/a %NOT_SET_ANYWHERE%"));
    registry.SetValue("100% sure");
    EXPECT_EQ(store.Read(RegistryRoot::CurrentUser, "A", "x")->type, RegistryType::String);
    EXPECT_EQ(registry.Value(), QVariant("100% sure"));
}

TEST(cRegistry, SetValue_OfANumberTypeWantsANumber) {
    MemoryRegistryStore store;
    cRegistry registry = At(store, "A", "x");
    registry.ValueType = RegistryType::BigEndianNumber;
    registry.SetValue("12");
    EXPECT_EQ(registry.Value(), QVariant(12));
    EXPECT_EQ(tests::NumberOf([&] { registry.SetValue("twelve"); }), 13);
    EXPECT_EQ(registry.Value(), QVariant(12));
}

TEST(cRegistry, SetValues_WritesEachUnderItsNameByValueType) {
    MemoryRegistryStore store;
    cRegistry registry = At(store, "A", "unused");
    registry.ValueType = RegistryType::Number;
    registry.SetValues({{"x", 1}, {"y", "2"}});
    EXPECT_EQ(At(store, "A", "x").Value(), QVariant(1));
    EXPECT_EQ(At(store, "A", "y").Value(), QVariant(2));
    EXPECT_FALSE(registry.Value().isValid());
    SealedStore sealed;
    ExpectFailure(
        "Failed to set registry value Key: 'HKEY_CURRENT_USER',Section: 'A',Key: 'x,y' to value: '1,2'", [&] {
            At(sealed, "A", "").SetValues({{"x", 1}, {"y", 2}});
        });
}

TEST(cRegistry, Failures_AreError26001WithTheRootAndTheSection) {
    SealedStore store;
    cRegistry registry = At(store, "Soft\\X", "name");
    ExpectFailure("Failed to create registry Key: 'HKEY_CURRENT_USER'", [&] { registry.CreateKey(); });
    ExpectFailure("Failed to delete registry Key: 'HKEY_CURRENT_USER',Section: 'Soft\\X'",
                  [&] { registry.DeleteKey(); });
    ExpectFailure("Failed to open key 'HKEY_CURRENT_USER',Section: 'Soft\\X' for delete access",
                  [&] { registry.DeleteValue(); });
    ExpectFailure(
        "Failed to set registry value Key: 'HKEY_CURRENT_USER',Section: 'Soft\\X',Key: 'name' to value: '%1'",
        [&] { registry.SetValue("%1"); });
    MemoryRegistryStore open;
    open.CreateKey(RegistryRoot::CurrentUser, "Soft\\X");
    cRegistry other = At(open, "Soft\\X", "name");
    ExpectFailure("Failed to delete registry Key: 'HKEY_CURRENT_USER',Section: 'Soft\\X',Key: 'name'",
                  [&] { other.DeleteValue(); });
}

TEST(cRegistry, Keys_AreCreatedFoundEnumeratedAndDeleted) {
    support::testing::ScriptedDesktop desktop;
    cRegistry registry;
    registry.SectionKey = "A\\B";
    EXPECT_FALSE(registry.KeyExists());
    registry.CreateKey();
    EXPECT_TRUE(registry.KeyExists());
    registry.ValueKey = "x";
    registry.SetValue("1");
    QStringList names;
    long count = -1;
    EXPECT_TRUE(registry.EnumerateValues(names, count));
    EXPECT_EQ(names, QStringList{"x"});
    EXPECT_EQ(count, 1);
    registry.DeleteValue();
    registry.EnumerateValues(names, count);
    EXPECT_EQ(count, 0);
    registry.SectionKey = "A";
    EXPECT_TRUE(registry.EnumerateSections(names, count));
    EXPECT_EQ(names, QStringList{"B"});
    registry.SectionKey = "A\\B";
    registry.DeleteKey();
    EXPECT_FALSE(registry.KeyExists());
    EXPECT_FALSE(registry.EnumerateSections(names, count));
    EXPECT_EQ(count, 0);
}

TEST(cRegistry, CreateEXEAssociation_WritesTheFileTypeWithQuotesOnce) {
    MemoryRegistryStore store;
    cRegistry registry = At(store, "Kept", "kept");
    registry.CreateEXEAssociation("  \"C:\\P F\\v.exe\" ", "Velmora.Map", "Velmora map", "map");
    EXPECT_EQ(ClassText(store, ".map"), "Velmora.Map");
    EXPECT_EQ(ClassText(store, "Velmora.Map"), "Velmora map");
    EXPECT_EQ(ClassText(store, "Velmora.Map\\shell\\open"), "&Open");
    EXPECT_EQ(ClassText(store, "Velmora.Map\\shell\\open\\command"), "\"C:\\P F\\v.exe\" \"%1\"");
    EXPECT_EQ(ClassText(store, "Velmora.Map\\shell\\print"), "(none)");
    EXPECT_EQ(registry.SectionKey, "Kept");
}

TEST(cRegistry, CreateEXEAssociation_AddsTheVerbsThatAreWanted) {
    MemoryRegistryStore store;
    AssociationOptions options;
    options.openText = "&Edit";
    options.print = options.add = options.createNew = true;
    cRegistry(store).CreateEXEAssociation("C:\\v.exe", "V", "d", "map", options);
    EXPECT_EQ(ClassText(store, "V\\shell\\open"), "&Edit");
    EXPECT_EQ(ClassText(store, "V\\shell\\print"), "&Print");
    EXPECT_EQ(ClassText(store, "V\\shell\\print\\command"), "\"C:\\v.exe\" /p \"%1\"");
    EXPECT_EQ(ClassText(store, "V\\shell\\add"), "&Install V");
    EXPECT_EQ(ClassText(store, "V\\shell\\add\\command"), "\"C:\\v.exe\" /a \"%1\"");
    EXPECT_EQ(ClassText(store, "V\\shell\\new"), "&New");
    EXPECT_EQ(ClassText(store, "V\\shell\\new\\command"), "\"C:\\v.exe\" /n \"%1\"");
}

TEST(cRegistry, CreateAdditionalEXEAssociations_AddsVerbsOfTheCallers) {
    MemoryRegistryStore store;
    cRegistry(store).CreateAdditionalEXEAssociations("C:\\v.exe", "V",
                                                     {{"show", "&Show", "/s"}, {"look", "&Look", ""}});
    EXPECT_EQ(ClassText(store, "V\\shell\\show"), "&Show");
    EXPECT_EQ(ClassText(store, "V\\shell\\show\\command"), "\"C:\\v.exe\" /s \"%1\"");
    EXPECT_EQ(ClassText(store, "V\\shell\\look\\command"), "\"C:\\v.exe\" \"%1\"");
}
