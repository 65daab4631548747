// What cmake --install leaves: a folder that runs from anywhere, and the folders of a system; and one version
// in all of it.
#include "tests/Paths.h"

#include <gtest/gtest.h>
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QSvgRenderer>
#include <QTemporaryDir>
#include <QXmlStreamReader>

namespace {

constexpr int kMilliseconds = 120000;
const QString kBuild = QStringLiteral(VELMORA_BUILD "/");

QByteArray Said(const QString &program, const QStringList &arguments, const QStringList &environment = {}) {
    QProcess process;
    process.setEnvironment(QProcess::systemEnvironment() + environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished(kMilliseconds)) << qPrintable(program);
    const QByteArray said = process.readAll();
    EXPECT_EQ(process.exitCode(), 0) << said.toStdString();
    return said;
}

QByteArray BytesOf(const QString &path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    return file.readAll();
}

QString Captured(const QString &path, const char *expression) {
    return QRegularExpression(QLatin1String(expression)).match(BytesOf(path)).captured(1);
}

// Installed once for all tests.
class Installed : public testing::Test {
protected:
    static void SetUpTestSuite() {
        place_ = new QTemporaryDir;
        Said(VELMORA_CMAKE, {"--install", kBuild, "--prefix", place_->filePath("folder")});
        Said(VELMORA_CMAKE,
             {"--install", kBuild, "--prefix", place_->filePath("usr"), "--component", "system"});
    }
    static void TearDownTestSuite() {
        delete place_;
        place_ = nullptr;
    }
    static QStringList FilesBelow(const QString &folder) {
        QStringList files;
        const QDir root(folder);
        for (QDirIterator walk(folder, QDir::Files | QDir::System, QDirIterator::Subdirectories);
             walk.hasNext();)
            files << root.relativeFilePath(walk.next());
        return files;
    }
    static void ExpectProgramsIn(const QString &folder) {
        const QStringList files = FilesBelow(folder);
        for (const char *name : {"velmora", "velmora-cli", "velmora-jetread", "Settings.nml", "template.tpl",
                                 "Template.nd", "Template.tnd", "help.pdf", "Startup/Harbour Coffee.map",
                                 "Templates/Strategy/SWOT Analysis.TEM"})
            EXPECT_TRUE(files.contains(QLatin1String(name))) << name;
        // The program that measures layouts is for developers alone.
        EXPECT_TRUE(files.filter(QStringLiteral("velmora-layout")).isEmpty());
        // All templates that were built, in whatever folders they are.
        const QString built = QFileInfo(tests::Program("velmora")).path() + "/Templates";
        EXPECT_EQ(FilesBelow(folder + "/Templates").size(), FilesBelow(built).size());
    }
    static void ExpectDesktopIn(const QString &share) {
        const QStringList files = FilesBelow(share);
        for (const char *name :
             {"applications/velmora.desktop", "mime/packages/velmora.xml",
              "metainfo/example.velmora.velmora.metainfo.xml", "icons/hicolor/scalable/apps/velmora.svg",
              "icons/hicolor/48x48/apps/velmora.png", "icons/hicolor/256x256/apps/velmora.png",
              "icons/hicolor/scalable/mimetypes/application-vnd.velmora.map.svg",
              "icons/hicolor/scalable/mimetypes/application-vnd.velmora.template.svg"})
            EXPECT_TRUE(files.contains(QLatin1String(name))) << name;
    }

    static QTemporaryDir *place_;
};

QTemporaryDir *Installed::place_ = nullptr;

} // namespace

TEST_F(Installed, FolderHasAllOfIt) {
    ExpectProgramsIn(place_->filePath("folder"));
    ExpectDesktopIn(place_->filePath("folder/share"));
}

TEST_F(Installed, SystemHasTheProgramsInAFolderOfTheirOwn) {
    ExpectProgramsIn(place_->filePath("usr/lib/velmora"));
    ExpectDesktopIn(place_->filePath("usr/share"));
    const QStringList top = QDir(place_->filePath("usr")).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    EXPECT_EQ(top.join(' '), "bin lib share");
    const QStringList files = FilesBelow(place_->filePath("usr/share"));
    for (const char *name : {"doc/velmora/copyright", "doc/velmora/changelog.gz", "man/man1/velmora.1.gz",
                             "man/man1/velmora-cli.1.gz"})
        EXPECT_TRUE(files.contains(QLatin1String(name))) << name;
}

TEST_F(Installed, CommandsOfTheSystemFindTheirFiles) {
    const QString picture = place_->filePath("window.png");
    const QString home = place_->filePath("home");
    QDir().mkpath(home);
    Said(place_->filePath("usr/bin/velmora"),
         {place_->filePath("usr/lib/velmora/Startup/Harbour Coffee.map")},
         {"VELMORA_SCREENSHOT=" + picture, "VELMORA_NO_SPLASH=1", "HOME=" + home, "XDG_CONFIG_HOME=" + home,
          "XDG_DATA_HOME=" + home, "XDG_STATE_HOME=" + home});
    EXPECT_GT(QImage(picture).width(), 400);
    const QByteArray info = Said(place_->filePath("usr/bin/velmora-cli"),
                                 {"info", place_->filePath("usr/lib/velmora/template.tpl")});
    EXPECT_FALSE(info.isEmpty());
}

TEST_F(Installed, NothingNamesTheFolderItWasBuiltIn) {
    for (const char *name : {"folder/share", "usr/share"})
        for (const QString &file : FilesBelow(place_->filePath(name)))
            EXPECT_FALSE(
                BytesOf(place_->filePath(name) + '/' + file).contains(tests::Source(QString()).toUtf8()))
                << qPrintable(file);
}

TEST_F(Installed, IconsHaveTheirSizes) {
    for (const int side : {48, 256}) {
        const QString folder = QString("folder/share/icons/hicolor/%1x%1/").arg(side);
        for (const char *name : {"apps/velmora", "mimetypes/application-vnd.velmora.map",
                                 "mimetypes/application-vnd.velmora.template"}) {
            const QImage icon(place_->filePath(folder + QLatin1String(name) + ".png"));
            EXPECT_EQ(icon.size(), QSize(side, side)) << name;
            EXPECT_EQ(icon.pixelColor(0, 0).alpha(), 0) << name;
            EXPECT_EQ(icon.pixelColor(side / 2, side / 4).alpha(), 255) << name;
        }
    }
}

TEST_F(Installed, MenuEntryNamesThingsThatAreThere) {
    const QString entry = place_->filePath("usr/share/applications/velmora.desktop");
    EXPECT_EQ(Captured(entry, "\nExec=(.*)\n"), "velmora %f");
    EXPECT_TRUE(QFileInfo(place_->filePath("usr/bin/velmora")).isExecutable());
    const QString icon = Captured(entry, "\nIcon=(.*)\n");
    EXPECT_TRUE(
        QSvgRenderer(place_->filePath("usr/share/icons/hicolor/scalable/apps/" + icon + ".svg")).isValid());
    const QString type = Captured(entry, "\nMimeType=(.*);\n");
    EXPECT_TRUE(BytesOf(place_->filePath("usr/share/mime/packages/velmora.xml"))
                    .contains("type=\"" + type.toUtf8() + '"'));
}

// A delivered map has the bytes by which the file type tells one, and its ending is that of the edition.
TEST_F(Installed, MapsAreOfTheirType) {
    QXmlStreamReader xml(BytesOf(place_->filePath("usr/share/mime/packages/velmora.xml")));
    const QByteArray map = BytesOf(place_->filePath("folder/Startup/Harbour Coffee.map"));
    int matches = 0;
    QStringList globs;
    for (QString type; !xml.atEnd(); xml.readNext()) {
        if (!xml.isStartElement()) continue;
        if (xml.name() == QLatin1String("mime-type")) type = xml.attributes().value("type").toString();
        if (!type.endsWith(".map")) continue;
        if (xml.name() == QLatin1String("glob")) globs << xml.attributes().value("pattern").toString();
        if (xml.name() != QLatin1String("match")) continue;
        const QStringList range = xml.attributes().value("offset").toString().split(':');
        const QByteArray value = xml.attributes().value("value").toUtf8().replace("\\0", QByteArray(1, '\0'));
        const qsizetype at = map.indexOf(value, range.first().toInt());
        EXPECT_TRUE(at >= 0 && at <= range.last().toInt()) << value.toStdString();
        ++matches;
    }
    EXPECT_FALSE(xml.hasError()) << qPrintable(xml.errorString());
    EXPECT_EQ(matches, 3);
    EXPECT_EQ(globs.join(' '), "*.map");
}

TEST(Version, IsTheSameEverywhere) {
    const QStringList environment{"QT_QPA_PLATFORM="};
    EXPECT_EQ(Said(tests::Program("velmora"), {"--version"}, environment), "velmora " VELMORA_VERSION "\n");
    EXPECT_EQ(Said(tests::Program("velmora-cli"), {"--version"}), "velmora-cli " VELMORA_VERSION "\n");
    EXPECT_EQ(Captured(kBuild + "CPackConfig.cmake", "CPACK_PACKAGE_VERSION \"(.*)\""), VELMORA_VERSION);
    EXPECT_EQ(Captured(kBuild + "product/desktop/metainfo.xml", "<release version=\"([^\"]*)\""),
              VELMORA_VERSION);
    EXPECT_EQ(Captured(kBuild + "product/desktop/changelog", "^velmora \\((.*)\\)"), VELMORA_VERSION);
    EXPECT_TRUE(BytesOf(tests::Program("help.pdf")).contains(QByteArray("\xfe\xff", 2) + [] {
        QByteArray bytes;
        for (const char c : QByteArray("Velmora " VELMORA_VERSION)) bytes += '\0', bytes += c;
        return bytes;
    }()));
}
