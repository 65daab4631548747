#include "support/FileRegistryStore.h"

#include "tests/EnvironmentVariable.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <QFile>
#include <QTemporaryDir>
#include <thread>
#include <vector>

#ifndef Q_OS_WIN
#include <sys/wait.h>
#include <unistd.h>
#endif

using namespace support;

namespace {

constexpr auto kUser = RegistryRoot::CurrentUser;
constexpr auto kMachine = RegistryRoot::LocalMachine;
const QString kPath = QStringLiteral("SOFTWARE\\Orbelle\\Velmora");

RegistryValue Text(const QString &text) { return {RegistryType::String, text}; }

struct Backend {
    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<RegistryStore> store;
};

Backend MakeMemory() { return {nullptr, std::make_unique<MemoryRegistryStore>()}; }

Backend MakeFile() {
    auto folder = std::make_unique<QTemporaryDir>();
    auto store = std::make_unique<FileRegistryStore>(folder->filePath("user/registry.ini"),
                                                     QStringList{folder->filePath("machine/registry.ini")});
    return {std::move(folder), std::move(store)};
}

// Both stores behave alike.
class RegistryStores : public ::testing::TestWithParam<Backend (*)()> {
protected:
    Backend backend_ = GetParam()();
    RegistryStore &store_ = *backend_.store;
};

class RegistryFiles : public ::testing::Test {
protected:
    QTemporaryDir folder_;
    QString userFile_ = folder_.filePath("registry.ini");
    FileRegistryStore store_{userFile_, {folder_.filePath("m1.ini"), folder_.filePath("m2.ini")}};

    QByteArray Content() const {
        QFile file(userFile_);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    void SetContent(const QByteArray &content) const {
        QFile file(userFile_);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Both, RegistryStores, ::testing::Values(&MakeMemory, &MakeFile));

TEST_P(RegistryStores, Read_GivesEachTypeAsWritten) {
    const std::vector<std::pair<QString, RegistryValue>> values = {
        {"text", Text("C:\\a b\\\"q\".map = ; [x]")},
        {"lines", Text("one\r\ntwo\tthree\x01")},
        {"script", Text(QString::fromUtf8("Grüße, 計画 🙂"))},
        {"empty", Text("")},
        {"expand", {RegistryType::ExpandableString, QString("%HOME%/x")}},
        {"bytes", {RegistryType::Binary, QByteArray("\0\x7f\xff", 3)}},
        {"no bytes", {RegistryType::Binary, QByteArray("")}},
        {"number", {RegistryType::Number, quint32(4294967295u)}},
        {"big", {RegistryType::BigEndianNumber, quint32(42)}},
        {"several", {RegistryType::MultipleStrings, QStringList{"a,b", "", "\"c\""}}},
        {"none", {RegistryType::MultipleStrings, QStringList()}},
        {"", Text("the default value")},
    };
    for (const auto &[name, value] : values) ASSERT_TRUE(store_.Write(kUser, kPath, name, value));
    for (const auto &[name, value] : values) {
        const std::optional<RegistryValue> read = store_.Read(kUser, kPath, name);
        ASSERT_TRUE(read) << name.toStdString();
        EXPECT_EQ(*read, value) << name.toStdString();
    }
    EXPECT_EQ(store_.Values(kUser, kPath).size(), static_cast<qsizetype>(values.size()));
}

TEST_P(RegistryStores, PathsAndNamesAreCaseBlindAndKeepTheFirstSpelling) {
    store_.Write(kUser, "SOFTWARE\\Tessor", "Order", Text("a"));
    store_.Write(kUser, "software\\TESSOR", "ORDER", Text("b"));
    EXPECT_EQ(store_.Read(kUser, "Software\\tessor\\", "order"), Text("b"));
    EXPECT_EQ(store_.Values(kUser, "SOFTWARE\\Tessor"), QStringList{"Order"});
    EXPECT_EQ(store_.Sections(kUser, "software"), QStringList{"Tessor"});
}

TEST_P(RegistryStores, RootsAreApart) {
    store_.Write(kUser, kPath, "x", Text("user"));
    EXPECT_FALSE(store_.Read(kMachine, kPath, "x"));
    EXPECT_FALSE(store_.Read(RegistryRoot::ClassesRoot, kPath, "x"));
    EXPECT_FALSE(store_.KeyExists(kMachine, kPath));
    ASSERT_TRUE(store_.Write(kMachine, kPath, "x", Text("machine")));
    EXPECT_EQ(store_.Read(kUser, kPath, "x"), Text("user"));
    EXPECT_EQ(store_.Read(kMachine, kPath, "x"), Text("machine"));
}

TEST_P(RegistryStores, CreateKey_MakesTheParentsToo) {
    ASSERT_TRUE(store_.CreateKey(kUser, "A\\B\\C"));
    EXPECT_TRUE(store_.KeyExists(kUser, "A"));
    EXPECT_TRUE(store_.KeyExists(kUser, "A\\B"));
    EXPECT_EQ(store_.Sections(kUser, "A"), QStringList{"B"});
    EXPECT_EQ(store_.Sections(kUser, "A\\B\\C"), QStringList());
}

TEST_P(RegistryStores, DeleteKey_TakesTheValuesButNotAKeyWithKeysBelow) {
    store_.Write(kUser, "A\\B", "x", Text("1"));
    EXPECT_FALSE(store_.DeleteKey(kUser, "A"));
    EXPECT_TRUE(store_.DeleteKey(kUser, "A\\B"));
    EXPECT_FALSE(store_.Read(kUser, "A\\B", "x"));
    EXPECT_FALSE(store_.DeleteKey(kUser, "A\\B"));
    EXPECT_TRUE(store_.DeleteKey(kUser, "A"));
}

TEST_P(RegistryStores, WriteAll_AddsToWhatTheKeyHolds) {
    store_.Write(kUser, kPath, "a", Text("old"));
    store_.Write(kUser, kPath, "b", Text("stays"));
    EXPECT_TRUE(store_.WriteAll(kUser, kPath, {{"A", Text("new")}, {"c", {RegistryType::Number, 7u}}}));
    EXPECT_EQ(store_.Read(kUser, kPath, "a"), Text("new"));
    EXPECT_EQ(store_.Read(kUser, kPath, "b"), Text("stays"));
    EXPECT_EQ(store_.Read(kUser, kPath, "c"), (RegistryValue{RegistryType::Number, 7u}));
    EXPECT_EQ(store_.Values(kUser, kPath), (QStringList{"a", "b", "c"}));
}

TEST_P(RegistryStores, DeleteValue_TakesOneValue) {
    store_.Write(kUser, "A", "x", Text("1"));
    store_.Write(kUser, "A", "y", Text("2"));
    EXPECT_TRUE(store_.DeleteValue(kUser, "a", "X"));
    EXPECT_FALSE(store_.DeleteValue(kUser, "a", "X"));
    EXPECT_EQ(store_.Values(kUser, "A"), QStringList{"y"});
}

TEST_F(RegistryFiles, AFileHasItsKeysInBracketsAndAValueALine) {
    store_.Write(kUser, kPath, "LastPath", Text("/home/ann"));
    store_.Write(kUser, kPath, "Left", {RegistryType::Number, quint32(120)});
    EXPECT_TRUE(Content().contains("[HKEY_CURRENT_USER\\SOFTWARE\\Orbelle\\Velmora]\n"
                                   "\"LastPath\"=string:\"/home/ann\"\n\"Left\"=number:120\n"))
        << Content().toStdString();
}

TEST_F(RegistryFiles, LinesThatCannotBeReadAreLeftOut) {
    SetContent("junk\n\"early\"=string:\"x\"\n[HKEY_CURRENT_USER\\A]\r\n\"good\"=string:\"1\"\r\n\"open="
               "string:\"2\"\n"
               "\"n\"=number:many\n\"t\"=colour:1\n\"e\"=string:\"\\q\"\n\"u\"=string:\"\\u12\"\n; "
               "note\n\n\xff\xfe\n"
               "\"cut\"=string:\"no end\n\"also good\"=number:7");
    EXPECT_EQ(store_.Values(kUser, "A"), (QStringList{"also good", "good"}));
    EXPECT_EQ(store_.Read(kUser, "A", "good"), Text("1"));
}

TEST_F(RegistryFiles, TheMachinesFilesAreReadInOrder) {
    FileRegistryStore second(userFile_, {folder_.filePath("m2.ini")});
    second.Write(kMachine, kPath, "only second", Text("2"));
    second.Write(kMachine, kPath, "both", Text("2"));
    store_.Write(kMachine, kPath, "both", Text("1"));
    EXPECT_EQ(store_.Read(kMachine, kPath, "only second"), Text("2"));
    EXPECT_EQ(store_.Read(kMachine, kPath, "both"), Text("1"));
    EXPECT_EQ(store_.Values(kMachine, kPath), (QStringList{"both", "only second"}));
}

TEST_F(RegistryFiles, Write_FailsWhereNoFileCanBe) {
    QFile blocker(folder_.filePath("file"));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    FileRegistryStore store(folder_.filePath("file/registry.ini"), {});
    EXPECT_FALSE(store.Write(kUser, kPath, "x", Text("1")));
    EXPECT_FALSE(store.Write(kMachine, kPath, "x", Text("1")));
    EXPECT_FALSE(store.Read(kUser, kPath, "x"));
}

TEST_F(RegistryFiles, ForPlatform_UsesTheUsersConfigurationFolder) {
    const tests::EnvironmentVariable configHome("XDG_CONFIG_HOME", folder_.path().toLocal8Bit());
    const QString file = FileRegistryStore::ForPlatform().UserFile();
    EXPECT_TRUE(file.endsWith("velmora/registry.ini"));
#ifdef Q_OS_LINUX
    EXPECT_EQ(file, folder_.filePath("velmora/registry.ini"));
#endif
}

TEST_F(RegistryFiles, ThreadsThatWriteAtOnceLoseNothing) {
    constexpr int kThreads = 4;
    constexpr int kValues = 20;
    std::vector<std::thread> threads;
    for (int thread = 0; thread < kThreads; ++thread)
        threads.emplace_back([&, thread] {
            FileRegistryStore own(userFile_, {});
            for (int i = 0; i < kValues; ++i)
                EXPECT_TRUE(
                    own.Write(kUser, kPath, QString("t%1v%2").arg(thread).arg(i), Text(QString::number(i))));
        });
    for (std::thread &thread : threads) thread.join();
    EXPECT_EQ(store_.Values(kUser, kPath).size(), kThreads * kValues);
}

#ifndef Q_OS_WIN
TEST_F(RegistryFiles, ProcessesThatWriteAtOnceLoseNothing) {
    constexpr int kProcesses = 3;
    constexpr int kValues = 20;
    std::vector<pid_t> children;
    for (int process = 0; process < kProcesses; ++process) {
        const pid_t child = fork();
        if (child == 0) {
            bool all = true;
            for (int i = 0; i < kValues; ++i)
                all = store_.Write(kUser, kPath, QString("p%1v%2").arg(process).arg(i), Text("x")) && all;
            _exit(all ? 0 : 1);
        }
        children.push_back(child);
    }
    for (const pid_t child : children) {
        int status = -1;
        waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
    }
    EXPECT_EQ(store_.Values(kUser, kPath).size(), kProcesses * kValues);
}
#endif
