#include "output/export/Pages.h"

#include "output/export/NewFiles.h"
#include "output/export/ReportNames.h"
#include "output/html/HtmlPage.h"
#include "output/html/HtmlText.h"
#include "support/AtomicFile.h"
#include "support/Error.h"
#include "support/Files.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace output {

namespace {

constexpr int kLeftPage = -1;
constexpr char kRightFrame[] = "RHS";

QString Tr(const char *text) { return QCoreApplication::translate("output", text); }

// A slice with the names of its files, without their folder.
struct PlannedPage {
    const SliceOutput *slice;
    QString name, prefix;
};

std::vector<PlannedPage> PlanOf(support::Desktop &desktop, const ReportTask &task) {
    std::vector<PlannedPage> plan;
    for (const SliceOutput &slice : task.slices) {
        const QString name = task.options.all ? PageName(task.Filename, slice.index) : task.Filename;
        plan.push_back({&slice, support::FileTitle(name), PicturePrefix(desktop, slice.index)});
    }
    return plan;
}

// The files of the plan that are there already, without the one that the user named: the file dialog has
// asked about that.
QStringList FilesThere(const ReportTask &task, const std::vector<PlannedPage> &plan) {
    QStringList names;
    if (task.options.all) names << support::FileTitle(PageName(task.Filename, kLeftPage));
    for (const PlannedPage &page : plan) {
        names << page.name;
        if (task.options.map) names << PictureNames(page.prefix, 1);
    }
    const QFileInfo file(task.Filename);
    names.removeAll(file.fileName());
    names.removeIf([&](const QString &name) { return !support::FileExists(file.dir().filePath(name)); });
    return names;
}

bool MayReplace(document::MapWindow &window, QStringList names) {
    constexpr int kMostNames = 10;
    if (names.isEmpty()) return true;
    const qsizetype others = names.size() - kMostNames;
    if (others > 0) names = names.mid(0, kMostNames) << Tr("and %1 more").arg(others);
    const QString question =
        Tr("These files are there already:") + "\r\r" + names.join(u'\r') + "\r\r" + Tr("Replace them?");
    window.SetMousePointer(document::pointer::kNormal);
    const support::Answer answer =
        window.Desktop().messageBoxes.Show(question, support::Buttons::YesNo, support::Icon::Question,
                                           settings::Terms().TITLE, support::EnterPresses::No);
    window.SetMousePointer(document::pointer::kHourglass);
    return answer == support::Answer::Yes;
}

bool ExportSlice(NewFiles &files, const ReportTask &task, const PlannedPage &page, ReportProgress &progress) {
    return support::PassOn("ExportSlice", [&] {
        ReportBlocks blocks;
        if (!BuildSlice(blocks, *page.slice, task.options, progress)) return false;
        ReportProperties properties = task.properties;
        if (!page.slice->caption.isEmpty()) properties.title += QStringLiteral(" - ") + page.slice->caption;
        const HtmlPage html = WriteHtmlPage(properties, blocks, page.prefix);
        for (const PictureFile &picture : html.pictures) files.Add(picture.name, picture.bytes);
        files.Add(page.name, html.page);
        return progress.GoOn();
    });
}

ReportLine LinkTo(const PlannedPage &page, int number) {
    QString caption = page.slice->caption.simplified();
    if (caption.isEmpty()) caption = QString::number(number);
    ReportLink link{QStringLiteral("lk%1").arg(number), AddressOf(page.name), QLatin1String(kRightFrame)};
    return {{{caption, ReportStyle::Value, link}}, caption.isRightToLeft()};
}

// The page of links to the slices. Its links lack their </a> on purpose: readers of these pages rely on it.
// So nothing may stand between the lines that browsers would take for a part of a link.
QByteArray LeftPage(const ReportTask &task, const std::vector<PlannedPage> &plan) {
    ReportBlocks blocks;
    for (const PlannedPage &page : plan) blocks.push_back(LinkTo(page, int(blocks.size()) + 1));
    QString page = QString::fromUtf8(WriteHtmlPage(task.properties, blocks, QString()).page);
    page.remove(QLatin1String("</a>"), Qt::CaseInsensitive);
    return page.replace(QLatin1String("</p>\n"), QLatin1String("</p>"))
        .replace(QLatin1String("</body>\n</html>\n"), QLatin1String("</body></html>"))
        .toUtf8();
}

QByteArray Frameset(const ReportTask &task) {
    const auto address = [&](int number) {
        return AddressOf(support::FileTitle(PageName(task.Filename, number)));
    };
    const QString frameset = support::AddBackslash(support::ProgramPath()) + QStringLiteral("Default.htm");
    QString page = QString::fromUtf8(support::ReadWholeFile(frameset));
    page.replace(QLatin1String("%RHS%"), address(0)).replace(QLatin1String("%LHS%"), address(kLeftPage));
    return page.toUtf8();
}

void AddIndex(NewFiles &files, const ReportTask &task, const std::vector<PlannedPage> &plan) {
    const QString left = PageName(task.Filename, kLeftPage);
    support::ClearReadOnly(left);
    files.Add(support::FileTitle(left), LeftPage(task, plan));
    files.Add(support::FileTitle(task.Filename), Frameset(task));
}

} // namespace

bool WritePages(document::MapWindow &window, const ReportTask &task, ReportProgress &progress) {
    const support::AtomicFile mayBeWritten(task.Filename); // raises before all the work if it may not
    const std::vector<PlannedPage> plan = PlanOf(window.Desktop(), task);
    if (task.options.all) Frameset(task); // raises now if the delivered frameset is missing
    if (!MayReplace(window, FilesThere(task, plan))) return false;
    NewFiles files(QFileInfo(task.Filename).absolutePath());
    for (const PlannedPage &page : plan) {
        progress.Slice(page.slice->caption, int(&page - plan.data()), int(plan.size()));
        if (!ExportSlice(files, task, page, progress)) return false;
    }
    if (task.options.all) AddIndex(files, task, plan);
    files.Commit();
    return true;
}

} // namespace output
