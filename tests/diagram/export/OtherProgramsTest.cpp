// Our vector files as other programs show them, beside our own picture. The programs are optional.
#include "diagram/export/Export.h"
#include "diagram/model/Picture.h"
#include "diagram/model/Surface.h"
#include "diagram/render/Renderer.h"
#include "tests/diagram/export/PictureDifference.h"
#include "tests/gallery/Sheets.h"

#include <gtest/gtest.h>
#include <QDir>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QUrl>

namespace diagram::testing {

namespace {

// What the programs make of it differs most in texts: fonts that stand in for others.
constexpr const char *kSheets[] = {"sample", "shapes", "texts", "pictures", "lines"};
// Of the measure. Without the texts of these sheets, or with other dashes, it is above it.
constexpr double kAlike = 0.06;

void Draw(Surface &surface, const char *name) {
    Renderer renderer;
    surface.SetMeasure(&renderer.Measure());
    for (const gallery::Sheet &sheet : gallery::Sheets())
        if (std::string(name) == sheet.name) sheet.draw(surface);
    surface.SetMeasure(nullptr);
}

class OtherPrograms : public ::testing::Test {
protected:
    // The sheets as files of this ending, NAME-ENDING.ENDING.
    void Write(const char *ending) {
        for (const char *name : kSheets) {
            Surface surface;
            Draw(surface, name);
            const QString stem = QLatin1String(name) + QLatin1Char('-') + QLatin1String(ending);
            ours.emplace_back(stem, ExportImage(surface));
            const QString path = folder.filePath(stem + QLatin1Char('.') + QLatin1String(ending));
            ExportPictureFile(surface, path);
            files << path;
        }
    }
    QString Shown(const QString &stem) const { return folder.filePath(stem + QStringLiteral(".png")); }

    // False, with a failed expectation, when it can't be run.
    bool Run(const QString &program, const QStringList &arguments) {
        constexpr int kLongest = 180000; // milliseconds
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char *name : {"XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "XDG_DATA_HOME"})
            environment.insert(QLatin1String(name), folder.path());
        for (const char *name : {"QT_QPA_PLATFORM", "DISPLAY", "LD_PRELOAD"})
            environment.remove(QLatin1String(name));
        process.setProcessEnvironment(environment);
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(program, arguments);
        const bool ended = process.waitForFinished(kLongest) && process.exitStatus() == QProcess::NormalExit;
        EXPECT_TRUE(ended) << program.toStdString() << ": " << process.readAll().toStdString();
        return ended;
    }
    void ExpectAlike() {
        ASSERT_FALSE(ours.empty());
        for (const auto &[stem, image] : ours) {
            const QImage theirs(Shown(stem));
            ASSERT_FALSE(theirs.isNull()) << stem.toStdString();
            const double difference = Difference(image, theirs);
            RecordProperty(stem.toStdString(), std::to_string(difference));
            if (qEnvironmentVariableIsSet("VELMORA_KEEP_PICTURES")) Keep(stem, image, theirs, difference);
            EXPECT_LT(difference, kAlike) << stem.toStdString();
        }
    }
    // For a look at them side by side.
    static void Keep(const QString &stem, const QImage &ours, const QImage &theirs, double difference) {
        const QDir kept(qEnvironmentVariable("VELMORA_KEEP_PICTURES"));
        const auto *info = ::testing::UnitTest::GetInstance()->current_test_info();
        const QString name = QLatin1String(info->name()) + QLatin1Char('-') + stem;
        theirs.save(kept.filePath(name + QStringLiteral("-theirs.png")));
        ours.save(kept.filePath(name + QStringLiteral("-ours.png")));
        std::printf("%s %.3f\n", qPrintable(name), difference);
    }

    QTemporaryDir folder;
    std::vector<std::pair<QString, QImage>> ours; // by the stem of their file
    QStringList files;
};

#define NEEDS(program)                                                                                       \
    if (QStandardPaths::findExecutable(QStringLiteral(program)).isEmpty())                                   \
    GTEST_SKIP() << program " is not installed"

} // namespace

TEST(PictureDifference, TellsOtherDrawingsApart) {
    Surface surface, other, plain, dashed;
    Draw(surface, "sample"), Draw(other, "texts"), Draw(plain, "texts"), Draw(dashed, "lines");
    for (Node &node : plain.Nodes()) node.SetText({});
    const QImage texts = ExportImage(other), lines = ExportImage(dashed);
    EXPECT_EQ(Difference(texts, texts), 0);
    EXPECT_GT(Difference(texts, ExportImage(surface)), 0.6);
    EXPECT_GT(Difference(texts, ExportImage(plain)), 2 * kAlike);
    for (Node &node : dashed.Nodes()) node.SetDrawStyle(0);
    EXPECT_GT(Difference(lines, ExportImage(dashed)), kAlike);
}

TEST_F(OtherPrograms, OurOwnPlayerShowsTheSame) {
    for (const char *ending : {"wmf", "emf"}) Write(ending);
    for (const auto &[stem, image] : ours) {
        const Picture picture = Picture::FromFile(folder.filePath(stem + '.' + stem.last(3)));
        EXPECT_TRUE(picture.IsDrawing());
        picture.ImageFor(picture.PixelSize()).save(Shown(stem));
    }
    ExpectAlike();
}

// It puts them on a page of A4, which is wanted twice as fine as shown.
TEST_F(OtherPrograms, LibreOfficeShowsMetafiles) {
    NEEDS("soffice");
    for (const char *ending : {"wmf", "emf"}) Write(ending);
    const QString filter =
        QStringLiteral("png:draw_png_Export:{\"PixelWidth\":{\"type\":\"long\",\"value\":\"1588\"},"
                       "\"PixelHeight\":{\"type\":\"long\",\"value\":\"2246\"}}");
    const QString profile = QUrl::fromLocalFile(folder.filePath("profile")).toString();
    const QStringList options = {QStringLiteral("-env:UserInstallation=") + profile,
                                 "--headless",
                                 "--convert-to",
                                 filter,
                                 "--outdir",
                                 folder.path()};
    if (Run(QStringLiteral("soffice"), options + files)) ExpectAlike();
}

TEST_F(OtherPrograms, InkscapeShowsMetafilesAndSvg) {
    NEEDS("inkscape");
    for (const char *ending : {"wmf", "emf", "svg"}) Write(ending);
    for (const QString &file : files) // it crashes on many at once
        if (!Run(QStringLiteral("inkscape"), {"--export-type=png", "--export-dpi=96", file})) return;
    ExpectAlike();
}

TEST_F(OtherPrograms, RsvgShowsSvg) {
    NEEDS("rsvg-convert");
    Write("svg");
    for (const auto &[stem, image] : ours)
        if (!Run(QStringLiteral("rsvg-convert"),
                 {folder.filePath(stem + QStringLiteral(".svg")), "-o", Shown(stem)}))
            return;
    ExpectAlike();
}

} // namespace diagram::testing
