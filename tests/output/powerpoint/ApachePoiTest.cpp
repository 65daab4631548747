// Our slides as Apache POI reads them. It is optional, and Debian's package of it lacks what its classes for
// the slides of Office Open XML need: of those files the package is read.
#include "tests/output/powerpoint/PptxTest.h"
#include "tests/Paths.h"

#include <QProcess>
#include <QStandardPaths>

namespace powerpoint::testing {

namespace {

class ApachePoi : public PptxTest {
protected:
    // What is missing here; empty where all is there.
    QString Missing() {
        for (const char *jar : {"poi", "poi-ooxml", "poi-scratchpad", "poi-ooxml-schemas", "xmlbeans",
                                "commons-collections4", "commons-compress", "commons-math3"}) {
            const QString path = QStringLiteral("/usr/share/java/%1.jar").arg(QLatin1String(jar));
            if (!QFile::exists(path)) return path;
            jars_ << path;
        }
        if (QStandardPaths::findExecutable(QStringLiteral("java")).isEmpty()) return QStringLiteral("java");
        return Java({"--list-modules"}).contains(QLatin1String("jdk.compiler"))
                   ? QString()
                   : QStringLiteral("a compiler");
    }
    QStringList Told(const QString &name) {
        const QString told = Java(
            {"-Djava.awt.headless=true", "-cp", jars_.join(u':'),
             tests::Source(QStringLiteral("tests/output/powerpoint/ReadPresentation.java")), MapFile(name)});
        return told.split(u'\n', Qt::SkipEmptyParts);
    }
    void Write(const QString &name) {
        ASSERT_TRUE(CreatePowerpoint(MapFile(name), *window, {kLayoutTitle, false, false}));
    }

private:
    QString Java(const QStringList &arguments) {
        QProcess process;
        process.start(QStringLiteral("java"), arguments);
        EXPECT_TRUE(process.waitForFinished(300000));
        EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
        return QString::fromUtf8(process.readAllStandardOutput());
    }
    QStringList jars_;
};

int CountOf(const QStringList &lines, const char *end) {
    return int(
        std::ranges::count_if(lines, [&](const QString &line) { return line.endsWith(QLatin1String(end)); }));
}

} // namespace

TEST_F(ApachePoi, ReadsBothForms) {
    if (const QString missing = Missing(); !missing.isEmpty())
        GTEST_SKIP() << missing.toStdString() << " is not installed";
    AddNode(0, 0, QStringLiteral("Idea"));
    window->TabStrip().SetCaption(QStringLiteral("First"));
    AddSlice(QStringLiteral("Second"));
    Write(QStringLiteral("a.pptx"));
    const QStringList pptx = Told(QStringLiteral("a.pptx"));
    EXPECT_EQ(CountOf(pptx, "presentationml.slide+xml"), 2) << pptx.join(u'\n').toStdString();
    EXPECT_EQ(CountOf(pptx, "presentationml.notesSlide+xml"), 2);
    EXPECT_GE(CountOf(pptx, "image/svg+xml"), 1);
    EXPECT_EQ(CountOf(pptx, "image/svg+xml"), CountOf(pptx, "image/png"));
    EXPECT_FALSE(pptx.filter(QStringLiteral("title ")).isEmpty());
    Write(QStringLiteral("a.ppt"));
    const QStringList ppt = Told(QStringLiteral("a.ppt"));
    EXPECT_TRUE(ppt.contains(QStringLiteral("slide First, 2 shapes"))) << ppt.join(u'\n').toStdString();
    EXPECT_TRUE(ppt.contains(QStringLiteral("slide Second, 2 shapes")));
    EXPECT_TRUE(ppt.contains(QStringLiteral("picture EMF")));
}

} // namespace powerpoint::testing
