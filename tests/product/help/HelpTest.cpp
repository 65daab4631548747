// The help of each edition, written and read back by another program's reader of PDF files.
#include "product/help/Help.h"
#include "product/help/PdfFile.h"
#include "support/Error.h"
#include "tests/Paths.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

namespace product {

namespace {

constexpr int kMilliseconds = 60000;

// What the program prints, mostly a reader of poppler-utils. Complaints about the file come along, so they
// spoil what is compared.
QString Said(const QString &reader, const QStringList &arguments) {
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(reader, arguments);
    if (!process.waitForStarted() || !process.waitForFinished(kMilliseconds) || process.exitCode() != 0) {
        ADD_FAILURE() << qPrintable(reader) << " (of poppler-utils): " << process.errorString().toStdString()
                      << process.readAll().toStdString();
        return {};
    }
    return QString::fromUtf8(process.readAllStandardOutput());
}

QByteArray BytesOf(const QString &path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

class Help : public testing::Test {
protected:
    void SetUp() override {
        task_.guide = tests::Source("docs/guide.md");
        task_.icon = tests::Source("mainwindow/icons/velmora.svg");
        task_.version = "9.8.7";
        task_.date = QDate(2031, 5, 6);
        task_.terms.TITLE = "Velmora";
    }
    void UseGuide(const QByteArray &markdown) {
        task_.guide = folder_.filePath("guide.md");
        QFile file(task_.guide);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(markdown);
    }
    QString Write() {
        const QString path = folder_.filePath("help.pdf");
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(HelpPdf(task_));
        return path;
    }
    // The lines of each page, without the blanks around them.
    QList<QStringList> Pages() {
        QList<QStringList> pages;
        const QStringList texts = Said("pdftotext", {"-layout", Write(), "-"}).split('\f');
        for (const QString &text : texts) {
            QStringList lines;
            for (const QString &line : text.split('\n')) lines << line.simplified();
            pages << lines;
        }
        pages.removeLast(); // behind the last page
        return pages;
    }
    QStringList Headings() const {
        QStringList headings;
        for (const QString &line : QString::fromUtf8(BytesOf(task_.guide)).split('\n'))
            if (line.startsWith("## ")) headings << line.mid(3);
        return headings;
    }

    HelpTask task_;
    QTemporaryDir folder_;
};

} // namespace

TEST_F(Help, HasEveryHeadingOfTheGuideInOrder) {
    const QList<QStringList> pages = Pages();
    QStringList all;
    for (const QStringList &page : pages.mid(1)) all += page;
    qsizetype at = -1;
    ASSERT_GE(Headings().size(), 15);
    for (const QString &heading : Headings()) {
        const qsizetype next = all.indexOf(heading, at + 1);
        EXPECT_GT(next, at) << qPrintable(heading);
        at = next;
    }
}

TEST_F(Help, ContentsTellThePageOfEachHeading) {
    const QList<QStringList> pages = Pages();
    const QString first = Headings().front();
    const auto text =
        std::ranges::find_if(pages, [&first](const QStringList &page) { return page.contains(first); });
    QStringList contents;
    for (auto page = pages.begin(); page != text; ++page) contents += *page;
    for (const QString &heading : Headings()) {
        const QRegularExpression line("^" + QRegularExpression::escape(heading) + "\\D*(\\d+)$");
        const qsizetype at = contents.indexOf(line);
        ASSERT_GE(at, 0) << qPrintable(heading);
        const int page = line.match(contents[at]).captured(1).toInt();
        ASSERT_TRUE(page > 1 && page <= pages.size()) << qPrintable(heading);
        EXPECT_TRUE(pages[page - 1].contains(heading)) << qPrintable(heading) << " isn't on page " << page;
    }
}

TEST_F(Help, PagesAreNumberedInTheFoot) {
    const QList<QStringList> pages = Pages();
    ASSERT_GT(pages.size(), 3);
    for (int page = 1; page < pages.size(); ++page)
        EXPECT_TRUE(pages[page].contains(QString("Using Velmora %1").arg(page + 1))) << page + 1;
}

TEST_F(Help, NoHeadingEndsAPage) {
    const QStringList headings = Headings();
    for (const QStringList &page : Pages().mid(1)) {
        QStringList filled = page;
        filled.removeAll(QString());
        ASSERT_GE(filled.size(), 2);
        EXPECT_FALSE(headings.contains(filled[filled.size() - 2])) << qPrintable(filled[filled.size() - 2]);
    }
}

TEST_F(Help, LinksLeadToPagesThatAreThere) {
    const QByteArray bytes = BytesOf(Write());
    static const QRegularExpression goal("/D \\[(\\d+) 0 R /XYZ");
    int links = 0;
    for (auto it = goal.globalMatch(QString::fromLatin1(bytes)); it.hasNext(); ++links) {
        const QByteArray object = "\n" + it.next().captured(1).toLatin1() + " 0 obj\n";
        const qsizetype at = bytes.indexOf(object);
        ASSERT_GE(at, 0);
        EXPECT_TRUE(bytes.mid(at, 60).contains("/Type /Page\n"));
    }
    EXPECT_EQ(links, 2 * Headings().size()); // the heading and the number of each line of the contents
    EXPECT_FALSE(bytes.contains("/URI (#"));
}

TEST_F(Help, HasABookmarkForEachHeading) {
    const QByteArray bytes = BytesOf(Write());
    EXPECT_TRUE(bytes.contains("/PageMode /UseOutlines"));
    for (const QString &heading : Headings()) EXPECT_TRUE(bytes.contains("/Title " + PdfText(heading)));
}

TEST_F(Help, LowerHeadingsHangBelowTheHigherOnes) {
    UseGuide("# T\n\n## One\n\nText.\n\n### Below\n\nText.\n\n## Two\n\nText.\n");
    const QByteArray bytes = BytesOf(Write());
    const auto number = [&](const char *title) {
        const qsizetype at = bytes.indexOf("/Title " + PdfText(title));
        const qsizetype begin = bytes.lastIndexOf(" 0 obj", at);
        return bytes.mid(bytes.lastIndexOf('\n', begin) + 1, begin - bytes.lastIndexOf('\n', begin) - 1);
    };
    const auto body = [&](const char *title) {
        const qsizetype at = bytes.indexOf("/Title " + PdfText(title));
        return bytes.mid(at, bytes.indexOf("endobj", at) - at);
    };
    EXPECT_TRUE(body("Below").contains("/Parent " + number("One") + " 0 R\n"));
    EXPECT_TRUE(body("One").contains("/Next " + number("Two") + " 0 R\n"));
    EXPECT_TRUE(body("Two").contains("/Prev " + number("One") + " 0 R\n"));
    EXPECT_FALSE(body("Two").contains("/First"));
    EXPECT_TRUE(Pages()[0].contains(QRegularExpression("^Below\\D*2$")));
}

TEST_F(Help, LinksOfTheGuideLeadInsideAndOutside) {
    UseGuide(
        "# T\n\n## One\n\nSee [two](#two) and [the web](https://www.velmora.example/).\n\n## Two\n\nText.\n");
    const QByteArray bytes = BytesOf(Write());
    EXPECT_TRUE(bytes.contains("/URI (https://www.velmora.example/)"));
    EXPECT_EQ(bytes.count("/S /GoTo"), 5);
}

TEST_F(Help, LinkThatLeadsNowhereIsAnError) {
    for (const char *address : {"#three", "architecture.md"}) {
        UseGuide(QByteArray("# T\n\n## One\n\nSee [it](") + address + ").\n");
        EXPECT_THROW(HelpPdf(task_), support::Error) << address;
    }
}

TEST_F(Help, MissingGuideOrPictureIsAnError) {
    UseGuide("# T\n\n![A picture](none.png)\n");
    EXPECT_THROW(HelpPdf(task_), support::Error);
    task_.guide = folder_.filePath("none.md");
    EXPECT_THROW(HelpPdf(task_), support::Error);
}

TEST_F(Help, EmptyGuideGivesATitlePage) {
    UseGuide("# Nothing to tell\n");
    const QList<QStringList> pages = Pages();
    ASSERT_EQ(pages.size(), 1);
    EXPECT_TRUE(pages[0].contains("Nothing to tell"));
}

TEST_F(Help, TableThatGoesOnShowsItsHeadAgain) {
    QByteArray guide = "# T\n\n## Rows\n\n| key | what it does |\n|---|---|\n";
    for (int i = 0; i < 90; ++i) guide += "| row" + QByteArray::number(i) + " | something |\n";
    UseGuide(guide);
    const QList<QStringList> pages = Pages();
    ASSERT_GE(pages.size(), 3);
    for (const QStringList &page : pages.mid(1)) EXPECT_TRUE(page.contains("key what it does"));
}

TEST_F(Help, ListsHaveTheirSigns) {
    UseGuide("# T\n\n- one\n- two\n\nthen\n\n1. first\n2. second\n");
    const QStringList page = Pages()[1];
    for (const char *line : {"• one", "• two", "1. first", "2. second"})
        EXPECT_TRUE(page.contains(line)) << line;
}

TEST_F(Help, LinesOfCodeStandCloseTogether) {
    UseGuide("# T\n\n```\none\ntwo\nthree\n```\n\nAfter.\n");
    const QString text = QStringList(Pages()[1]).join('\n');
    EXPECT_TRUE(text.contains("one\ntwo\nthree\n\nAfter.")) << text.toStdString();
}

TEST_F(Help, TextsAreFoundAsTheyAreWritten) {
    UseGuide("# T\n\nattach, fit, shift, button, office, waffle\n");
    EXPECT_TRUE(Pages()[1].contains("attach, fit, shift, button, office, waffle"));
}

TEST_F(Help, PicturesKeepEveryPixel) {
    UseGuide("# T\n\n![A picture](a.png)\n");
    QImage picture(600, 400, QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            picture.setPixel(x, y, qRgb(x % 251, y % 241, (x * y) % 239));
    ASSERT_TRUE(picture.save(folder_.filePath("a.png")));
    Said("pdfimages", {"-png", Write(), folder_.filePath("found")});
    const QStringList found = QDir(folder_.path()).entryList({"found*.png"});
    ASSERT_EQ(found.size(), 1);
    EXPECT_EQ(QImage(folder_.filePath(found[0])).convertToFormat(QImage::Format_RGB32), picture);
}

TEST_F(Help, TellsTitleVersionAndDate) {
    EXPECT_TRUE(Pages()[0].contains("Version 9.8.7"));
    const QString info = Said("pdfinfo", {"-isodates", Write()});
    for (const char *line :
         {"Title: +Using Velmora\n", "Creator: +Velmora 9.8.7\n", "CreationDate: +2031-05-06T12:00:00Z\n"})
        EXPECT_TRUE(info.contains(QRegularExpression(line))) << line << info.toStdString();
}

// Each is written by another process: the order in hashes differs from one process to the next.
TEST_F(Help, IsTheSameEachTime) {
    QByteArray first;
    for (const char *name : {"1.pdf", "2.pdf", "3.pdf"}) {
        const QString path = folder_.filePath(name);
        Said(VELMORA_HELP, {task_.guide, tests::Source("product/velmora/Settings.nml"), task_.icon, "1.0",
                            "2031-05-06", path});
        if (first.isEmpty()) first = BytesOf(path);
        EXPECT_FALSE(first.isEmpty());
        EXPECT_EQ(BytesOf(path), first) << name;
    }
}

TEST_F(Help, SpeaksTheWordsOfTheSecondEdition) {
    task_.terms.TITLE = "Storyline";
    task_.terms.SLICE = "Chapter";
    const QList<QStringList> pages = Pages();
    EXPECT_TRUE(pages[0].contains("Using Storyline"));
    EXPECT_TRUE(pages[0].contains(QRegularExpression("^Chapters\\D*\\d+$")));
}

} // namespace product
