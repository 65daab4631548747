// Writes a picture of each delivered template, and contact sheets of all of them, to be looked at.
//   velmora-templates [FOLDER [EDITION [FILTER]]]
// FOLDER is build/gallery/templates and EDITION product/velmora when left out.
// FILTER is a wildcard for the names. Templates that have something to be mended are told with it.
#include "diagram/export/Export.h"
#include "diagram/model/Surface.h"
#include "document/MemoryWindow.h"
#include "product/MapText.h"
#include "product/TemplateText.h"
#include "support/Files.h"
#include "support/headless/HeadlessDesktop.h"
#include "support/RegistryStore.h"
#include "templates/DrawnIcon.h"
#include "tests/product/Faults.h"
#include "timeline/CalendarOfStrip.h"

#include <cstdio>
#include <QDirIterator>
#include <QGuiApplication>
#include <QLocale>
#include <QPainter>
#include <QTemporaryDir>

namespace {

constexpr QSize kThumb(560, 400); // pixels
constexpr int kColumns = 3, kRows = 4, kCaption = 20, kGap = 10;
constexpr int kIconSizes[] = {16, 24, 32, 48, 64};

struct Page {
    QString name;
    QImage picture;
    std::vector<QImage> icons;
};

QImage ContactSheet(const std::vector<Page> &pages, std::size_t first) {
    const QSize cell = kThumb + QSize(kGap, kCaption + kGap);
    QImage sheet(kColumns * cell.width(), kRows * cell.height(), QImage::Format_RGB32);
    sheet.fill(QColor(0xd0, 0xd4, 0xd8));
    QPainter painter(&sheet);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    for (int i = 0; i < kColumns * kRows && first + std::size_t(i) < pages.size(); ++i) {
        const Page &page = pages[first + std::size_t(i)];
        const QPoint at(i % kColumns * cell.width() + kGap / 2, i / kColumns * cell.height() + kGap / 2);
        painter.drawText(QRect(at, QSize(kThumb.width(), kCaption)), Qt::AlignVCenter, page.name);
        const QImage small = page.picture.scaled(kThumb, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        painter.drawImage(at + QPoint(0, kCaption), small);
    }
    return sheet;
}

QImage IconSheet(const std::vector<Page> &pages) {
    constexpr int kRow = kIconSizes[std::size(kIconSizes) - 1] + kGap;
    QImage sheet(300, int(pages.size()) * kRow, QImage::Format_RGB32);
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    for (std::size_t row = 0; row < pages.size(); ++row) {
        int x = kGap;
        for (const QImage &icon : pages[row].icons) {
            painter.drawImage(x, int(row) * kRow + kGap / 2, icon);
            x += icon.width() + kGap;
        }
    }
    return sheet;
}

Page Draw(const QDir &edition, const QString &text, const QDir &folder) {
    document::MemoryWindow window(support::CurrentDesktop());
    diagram::Surface &surface = window.AddFlow1()[0];
    product::BuildDrawing(window, surface, text, edition);
    const QFileInfo file(text);
    Page page{file.dir().dirName() + " - " + file.completeBaseName(), diagram::ExportImage(surface), {}};
    for (const int size : kIconSizes) page.icons.push_back(templates::DrawnIcon(surface, size));
    page.picture.save(folder.filePath(page.name + ".png"));
    for (const QString &fault : tests::FaultsOf(surface))
        std::printf("%s: %s\n", qPrintable(page.name), qPrintable(fault));
    return page;
}

QStringList TextsOf(const QDir &edition, const QString &filter) {
    QStringList texts;
    QDirIterator files(edition.filePath("Templates"), {filter + ".json"}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) texts << files.next();
    texts.sort();
    return texts;
}

// The pools and default nodes of the edition, as the drawings need them.
void BuildProgramFolder(const QDir &edition, const QDir &folder) {
    product::BuildTemplate(edition.filePath("template.json"), folder.filePath("template.tpl"));
    product::BuildDefaultNode(edition.filePath("Template.nd.json"), folder.filePath("Template.nd"));
    support::SetProgramPath(folder.path());
}

} // namespace

int main(int argc, char **argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    QLocale::setDefault(QLocale::c());
    const auto argument = [&](int index, const char *usual) {
        return QString::fromLocal8Bit(argc > index ? argv[index] : usual);
    };
    const QDir folder(argument(1, "build/gallery/templates"));
    const QDir edition(QDir(argument(2, "product/velmora")).absolutePath());
    if (!QDir().mkpath(folder.path())) return 1;
    const QTemporaryDir programFolder;
    support::HeadlessDesktop desktop(std::make_unique<support::MemoryRegistryStore>());
    diagram::SetCalendarSource(timeline::CalendarOfStrip, timeline::IsBar);
    std::vector<Page> pages;
    try {
        BuildProgramFolder(edition, QDir(programFolder.path()));
        for (const QString &text : TextsOf(edition, argument(3, "*")))
            pages.push_back(Draw(edition, text, folder));
    } catch (const support::Error &error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    IconSheet(pages).save(folder.filePath("icons.png"));
    for (std::size_t first = 0; first < pages.size(); first += kColumns * kRows)
        ContactSheet(pages, first)
            .save(folder.filePath(QStringLiteral("sheet%1.png").arg(first / (kColumns * kRows) + 1)));
    return 0;
}
