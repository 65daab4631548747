// Our slides as another program shows them, beside our own picture. The program is optional.
#include "diagram/export/Export.h"
#include "diagram/render/Renderer.h"
#include "tests/diagram/export/PictureDifference.h"
#include "tests/gallery/Sheets.h"
#include "tests/output/powerpoint/PptxTest.h"

#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

namespace powerpoint::testing {

namespace {

constexpr double kAlike = 0.06; // of the measure: as for our other files
constexpr int kWidth = 1600;    // pixels of a slide

class OtherPrograms : public PptxTest {
protected:
    // A presentation of the sheet alone.
    void Write(const char *sheet, const char *ending, bool asShapes) {
        diagram::Surface &surface = Slice();
        surface.Nodes().Clear();
        diagram::Renderer renderer;
        surface.SetMeasure(&renderer.Measure());
        for (const gallery::Sheet &row : gallery::Sheets())
            if (std::string(row.name) == sheet) row.draw(surface);
        if (asShapes) LeaveOutWhatDiffers(surface, renderer);
        surface.SetMeasure(nullptr);
        const QString stem = QLatin1String(sheet) + (asShapes ? "-shapes-" : "-picture-") + ending;
        files << MapFile(stem + '.' + ending);
        ASSERT_TRUE(CreatePowerpoint(files.back(), *window, {kLayoutBlank, true, asShapes}));
        const QSizeF slide = QLatin1String(ending) == QLatin1String("ppt") ? kStandardSlide : kWideSlide;
        const QRectF place = PlacePicture({QPointF(), slide}, diagram::PictureSize(surface));
        ours.push_back({stem, diagram::ExportImage(surface), place, slide});
    }
    // Texts that don't fit are made smaller on slides, instead of cut off. LibreOffice gives a route of its
    // own to a connector whose two ends lie level.
    static void LeaveOutWhatDiffers(diagram::Surface &surface, diagram::Renderer &renderer) {
        for (diagram::Node &node : surface.Nodes())
            if (!renderer.TextFits(node)) node.SetText(QStringLiteral("short"));
        for (const auto &link : surface.Links()) {
            const auto &route = link->Route();
            const QPointF whole = diagram::ToQPointF(route.back()) - diagram::ToQPointF(route.front());
            const bool level = std::min(std::abs(whole.x()), std::abs(whole.y())) < 1;
            if (level && route.size() > 2) link->SetHidden(true);
        }
    }
    // False, with a failed expectation, when it can't be run.
    bool Convert() {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char *name : {"XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "XDG_DATA_HOME"})
            environment.insert(QLatin1String(name), MapFile(QString()));
        for (const char *name : {"QT_QPA_PLATFORM", "DISPLAY", "LD_PRELOAD"})
            environment.remove(QLatin1String(name));
        process.setProcessEnvironment(environment);
        const QString profile = QUrl::fromLocalFile(MapFile(QStringLiteral("profile"))).toString();
        const QString filter =
            QStringLiteral("png:impress_png_Export:{\"PixelWidth\":{\"type\":\"long\",\"value\":\"%1\"}}")
                .arg(kWidth);
        process.start(QStringLiteral("soffice"),
                      QStringList{"-env:UserInstallation=" + profile, "--headless", "--convert-to", filter,
                                  "--outdir", MapFile(QString())} +
                          files);
        const bool ended = process.waitForFinished(300000) && process.exitStatus() == QProcess::NormalExit;
        EXPECT_TRUE(ended) << process.readAll().toStdString();
        return ended;
    }
    void ExpectAlike() {
        for (const Own &own : ours) {
            const QImage whole(MapFile(own.stem + ".png"));
            ASSERT_FALSE(whole.isNull()) << qPrintable(own.stem);
            const double scale = whole.width() / own.slide.width();
            const QImage theirs =
                whole.copy(QRectF(own.place.topLeft() * scale, own.place.size() * scale).toAlignedRect());
            const double difference = diagram::testing::Difference(own.image, theirs);
            RecordProperty(own.stem.toStdString(), std::to_string(difference));
            if (qEnvironmentVariableIsSet("VELMORA_KEEP_PICTURES")) Keep(own, theirs, difference);
            EXPECT_LT(difference, kAlike) << qPrintable(own.stem);
        }
    }

    QStringList files;

private:
    struct Own {
        QString stem;
        QImage image;
        QRectF place;
        QSizeF slide;
    };
    // For a look at them side by side.
    static void Keep(const Own &own, const QImage &theirs, double difference) {
        const QDir kept(qEnvironmentVariable("VELMORA_KEEP_PICTURES"));
        theirs.save(kept.filePath(own.stem + "-theirs.png"));
        own.image.save(kept.filePath(own.stem + "-ours.png"));
        std::printf("%s %.3f\n", qPrintable(own.stem), difference);
    }
    std::vector<Own> ours;
};

bool IsThere(const char *program) {
    return !QStandardPaths::findExecutable(QLatin1String(program)).isEmpty();
}

} // namespace

TEST_F(OtherPrograms, LibreOfficeShowsPictures) {
    if (!IsThere("soffice")) GTEST_SKIP() << "soffice is not installed";
    for (const char *sheet : {"sample", "shapes"}) Write(sheet, "pptx", false);
    if (Convert()) ExpectAlike();
}

TEST_F(OtherPrograms, LibreOfficeShowsShapes) {
    if (!IsThere("soffice")) GTEST_SKIP() << "soffice is not installed";
    for (const char *sheet : {"sample", "shapes", "texts", "pictures", "lines"}) Write(sheet, "pptx", true);
    if (Convert()) ExpectAlike();
}

TEST_F(OtherPrograms, LibreOfficeShowsTheBinaryForm) {
    if (!IsThere("soffice")) GTEST_SKIP() << "soffice is not installed";
    for (const char *sheet : {"sample", "shapes", "texts"}) Write(sheet, "ppt", false);
    if (Convert()) ExpectAlike();
}

} // namespace powerpoint::testing
