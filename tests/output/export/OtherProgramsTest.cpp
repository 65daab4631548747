// Our reports as other programs read them. The programs are optional.
#include "support/AtomicFile.h"
#include "tests/output/export/ExportTest.h"

#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QUrl>

namespace output {
namespace {

#define NEEDS(program)                                                                                       \
    if (QStandardPaths::findExecutable(QStringLiteral(program)).isEmpty())                                   \
    GTEST_SKIP() << program " is not installed"

class ReportReaders : public output::testing::ExportTest {
protected:
    // Three slices with texts of many scripts and with what means something to the formats.
    void Fill() {
        const char *const texts[] = {"Plain & <script>alert(1)</script>",
                                     "{\\rtf1 \\par} \\'e9 \\u233?",
                                     "Füße, œuvre, Žluťoučký",
                                     "Ελληνικά и русский",
                                     "שלום עולם (1)",
                                     "مرحبا بالعالم",
                                     "日本語 中文 한국어",
                                     "हिन्दी ไทย",
                                     "😀 𝄞 e\u0301",
                                     "%LHS% </a> %20 &amp;"};
        window->TabStrip().SetCaption(QStringLiteral("One </a> & {2}"));
        diagram::Surface *surfaces[] = {&first, &AddSlice(QStringLiteral("One </a> & {2}")),
                                        &AddSlice(QString())};
        for (diagram::Surface *surface : surfaces)
            for (const char *text : texts) {
                const QString numbered = QStringLiteral("%1: ").arg(++count_) + QString::fromUtf8(text);
                expected << numbered;
                AddNode(*surface, numbered).SetEvent(QStringLiteral("two\nlines"));
            }
    }

    // What the program prints; the exit code is checked unless it is -1.
    QString Run(const QString &program, const QStringList &arguments, int code = 0) {
        constexpr int kLongest = 180000; // milliseconds
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char *name : {"HOME", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "XDG_DATA_HOME"})
            environment.insert(QLatin1String(name), home.path());
        for (const char *name : {"QT_QPA_PLATFORM", "DISPLAY", "LD_PRELOAD"})
            environment.remove(QLatin1String(name));
        process.setProcessEnvironment(environment);
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(program, arguments);
        EXPECT_TRUE(process.waitForFinished(kLongest) && process.exitStatus() == QProcess::NormalExit)
            << program.toStdString();
        const QString printed = QString::fromUtf8(process.readAll());
        EXPECT_TRUE(code < 0 || process.exitCode() == code) << printed.toStdString();
        return printed;
    }
    // The file that LibreOffice makes of ours.
    QByteArray Converted(const QString &name, const QString &filter, const QString &ending) {
        Run(QStringLiteral("soffice"),
            {QStringLiteral("-env:UserInstallation=") +
                 QUrl::fromLocalFile(home.filePath(QStringLiteral("office"))).toString(),
             QStringLiteral("--headless"), QStringLiteral("--convert-to"), filter, QStringLiteral("--outdir"),
             home.path(), Out(name)});
        return support::ReadWholeFile(home.filePath(name.section(u'.', 0, 0) + u'.' + ending));
    }
    void ExpectAllInOrder(const QString &text) {
        qsizetype at = 0;
        for (const QString &part : expected) {
            const qsizetype found = text.indexOf(QStringLiteral("Text: ") + part, at);
            ASSERT_GE(found, 0) << part.toStdString();
            at = found + part.size();
        }
    }

    QTemporaryDir home;
    QStringList expected;

private:
    int count_ = 0;
};

TEST_F(ReportReaders, LibreOfficeFindsEveryTextInOrder) {
    NEEDS("soffice");
    Fill();
    ASSERT_TRUE(Export(QStringLiteral("a.rtf"), {true, true, true, true, false}));
    const QString text = QString::fromUtf8(
        Converted(QStringLiteral("a.rtf"), QStringLiteral("txt:Text (encoded):UTF8"), QStringLiteral("txt")));
    ExpectAllInOrder(text);
    EXPECT_EQ(text.count(QStringLiteral("Other: two\nlines\nLevel: ")), 30) << text.left(500).toStdString();
    EXPECT_EQ(text.count(QStringLiteral("Map Picture (One </a> & {2}): ")), 2);
}

TEST_F(ReportReaders, LibreOfficeFindsPicturesPagesAndProperties) {
    NEEDS("soffice");
    AddNode(first, QStringLiteral("Idea"));
    AddNode(AddSlice(QStringLiteral("Two")), QStringLiteral("Second"));
    window->clsSettings().SetDatabase(QStringLiteral("/maps/Our {plan}.map"));
    ASSERT_TRUE(Export(QStringLiteral("a.rtf"), {true, false, true, true, false}));
    const QString flat =
        QString::fromUtf8(Converted(QStringLiteral("a.rtf"), QStringLiteral("fodt"), QStringLiteral("fodt")));
    EXPECT_EQ(flat.count(QStringLiteral("<draw:frame")), 2);
    EXPECT_TRUE(flat.contains(QStringLiteral("style:print-orientation=\"landscape\"")));
    EXPECT_TRUE(flat.contains(QStringLiteral("fo:break-before=\"page\"")));
    EXPECT_TRUE(flat.contains(QStringLiteral("<dc:title>Our {plan}</dc:title>")));
    EXPECT_TRUE(flat.contains(QStringLiteral("Everything is shown.")) ||
                flat.contains(QStringLiteral("Levels: ")));
    EXPECT_TRUE(flat.contains(QStringLiteral("<meta:creation-date>2024-05-17T10:30")));
}

TEST_F(ReportReaders, TidyFindsNothingToSayButOfTheLinksThatAreLeftOpen) {
    NEEDS("tidy");
    Fill();
    ASSERT_TRUE(Export(QStringLiteral("a.htm"), {true, true, true, true, false}));
    const QStringList check = {QStringLiteral("-quiet"), QStringLiteral("-errors"), QStringLiteral("-utf8")};
    for (const char *name : {"a.htm", "a_0.htm", "a_1.htm", "a_2.htm"})
        EXPECT_EQ(Run(QStringLiteral("tidy"), check + QStringList{Out(QLatin1String(name))}), QString());
    Make(QStringLiteral("closed.htm"), Read(QStringLiteral("a_-1.htm"))
                                           .replace(QStringLiteral("</p>"), QStringLiteral("</a></p>"))
                                           .toUtf8());
    EXPECT_EQ(Run(QStringLiteral("tidy"), check + QStringList{Out(QStringLiteral("closed.htm"))}), QString());
}

TEST_F(ReportReaders, ABrowserShowsEveryTextInOrderAndEveryLinkOnce) {
    NEEDS("chromium");
    Fill();
    ASSERT_TRUE(Export(QStringLiteral("a.htm"), {true, false, true, false, false}));
    const auto seen = [&](const char *name) {
        return Run(QStringLiteral("chromium"),
                   {QStringLiteral("--headless"), QStringLiteral("--no-sandbox"),
                    QStringLiteral("--disable-gpu"),
                    QStringLiteral("--user-data-dir=") + home.filePath(QStringLiteral("browser")),
                    QStringLiteral("--dump-dom"), QUrl::fromLocalFile(Out(QLatin1String(name))).toString()});
    };
    QString text;
    for (const char *name : {"a_0.htm", "a_1.htm", "a_2.htm"}) text += seen(name);
    EXPECT_FALSE(text.contains(QStringLiteral("<script")));
    text.remove(QRegularExpression(QStringLiteral("<[^>]*>")))
        .replace(QStringLiteral("&lt;"), QStringLiteral("<"))
        .replace(QStringLiteral("&gt;"), QStringLiteral(">"))
        .replace(QStringLiteral("&amp;"), QStringLiteral("&"));
    ExpectAllInOrder(text);
    const QString links = seen("a_-1.htm");
    EXPECT_EQ(links.count(QStringLiteral("<a ")), 3) << links.toStdString();
    EXPECT_EQ(links.count(QStringLiteral("</a></p>")), 3);
}

} // namespace
} // namespace output
