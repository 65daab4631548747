// The programs of each edition's folder, started there: they find each other and the delivered files beside
// themselves.
#include "settings/Settings.h"
#include "tests/Paths.h"

#include <gtest/gtest.h>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

namespace {

constexpr int kMilliseconds = 120000;
const QStringList kPrograms = QStringLiteral(VELMORA_PROGRAMS).split(',');

std::string FirstFolder() { return QFileInfo(tests::Program("velmora")).absolutePath().toStdString(); }

struct Outcome {
    int exitCode = -1;
    QByteArray output, errors;
};

// Whether a picture shows more than one colour.
bool ShowsSomething(const QString &path) {
    const QImage picture(path);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (picture.pixel(x, y) != picture.pixel(0, 0)) return true;
    return false;
}

class Programs : public testing::TestWithParam<std::string> {
protected:
    static QDir Folder() { return QDir(QString::fromStdString(GetParam())); }
    static QString Program(const QString &name) {
#ifdef Q_OS_WIN
        return Folder().filePath(name + ".exe");
#else
        return Folder().filePath(name);
#endif
    }
    static QString Startup() {
        const QDir folder(Folder().filePath("Startup"));
        const QStringList maps = folder.entryList(QDir::Files);
        return maps.isEmpty() ? QString() : folder.filePath(maps.first());
    }
    Outcome Start(const QString &name, const QStringList &arguments, const QByteArray &input = {},
                  const QStringList &environment = {}) const {
        QProcess process;
        process.setEnvironment(QProcess::systemEnvironment() + environment);
        process.setWorkingDirectory(folder_.path());
        process.start(Program(name), arguments);
        if (!process.waitForStarted()) return {};
        process.write(input);
        process.closeWriteChannel();
        if (!process.waitForFinished(kMilliseconds)) return {};
        return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
                process.readAllStandardOutput(), process.readAllStandardError()};
    }

    QTemporaryDir folder_;
};

} // namespace

TEST_P(Programs, AreAllThere) {
    for (const QString &name : kPrograms)
        EXPECT_TRUE(QFileInfo(Program(name)).isExecutable()) << qPrintable(Program(name));
}

TEST_P(Programs, HelpIsBesideThem) {
    QFile help(Folder().filePath("help.pdf"));
    ASSERT_TRUE(help.open(QIODevice::ReadOnly));
    EXPECT_TRUE(help.readAll().startsWith("%PDF-"));
}

TEST_P(Programs, EditorPaintsTheDeliveredMap) {
    const QString picture = folder_.filePath("window.png");
    const Outcome outcome = Start("velmora", {Startup()}, {},
                                  {"VELMORA_SCREENSHOT=" + picture, "VELMORA_NO_SPLASH=1",
                                   "HOME=" + folder_.path(), "XDG_CONFIG_HOME=" + folder_.path(),
                                   "XDG_DATA_HOME=" + folder_.path(), "XDG_STATE_HOME=" + folder_.path()});
    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors.constData();
    EXPECT_TRUE(ShowsSomething(picture));
}

TEST_P(Programs, CompanionConvertsAJetFile) {
    const Outcome outcome = Start("velmora-cli", {"convert", tests::Data("jet/plan.mdb"), "plan.map"});
    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors.constData();
    EXPECT_GT(QFileInfo(folder_.filePath("plan.map")).size(), 0);
}

TEST_P(Programs, CompanionPaintsTheDeliveredMap) {
    const Outcome outcome = Start("velmora-cli", {"picture", Startup(), "slice.png"});
    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors.constData();
    EXPECT_TRUE(ShowsSomething(folder_.filePath("slice.png")));
}

TEST_P(Programs, JetReaderReadsAJetFile) {
    const Outcome outcome = Start("velmora-jetread", {tests::Data("jet/plan.mdb"), "plan.db"});
    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors.constData();
    EXPECT_GT(QFileInfo(folder_.filePath("plan.db")).size(), 0);
}

// With nothing beside it.
TEST_P(Programs, CompanionLaysOut) {
    const Outcome outcome =
        Start("velmora-cli", {"layout", Startup(), "tidy.map", "--engine", "hierarchical"});
    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors.constData();
    EXPECT_GT(QFileInfo(folder_.filePath("tidy.map")).size(), 0);
}

INSTANTIATE_TEST_SUITE_P(FirstEdition, Programs, testing::Values(FirstFolder()));
INSTANTIATE_TEST_SUITE_P(SecondEdition, Programs, testing::Values(VELMORA_SECOND_EDITION));
