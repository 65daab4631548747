#include "templates/BarDetails.h"

#include "settings/DeliveredFiles.h"
#include "settings/Settings.h"
#include "support/Desktop.h"
#include "support/Files.h"
#include "templates/TemplateDb.h"
#include "templates/TemplateFiles.h"

#include <QCoreApplication>

namespace templates {

namespace {

const QString kEveryName = QStringLiteral("*.*");
constexpr int kMostTold = 8; // bad files that are named
const QString kIconEnding = QStringLiteral("ico");

QString Tr(const char *text) { return QCoreApplication::translate("templates", text); }

void Tell(const StatusRoutine &status, const QString &text) {
    if (status) status(text);
}

QStringList FoldersIn(const QString &folder) {
    QStringList names = support::GetFiles(folder + kEveryName, support::fileattributes::kDirectory);
    names.removeIf([&](const QString &name) {
        return name == QLatin1String(".") || name == QLatin1String("..") ||
               !support::DirExists(folder + name);
    });
    return names;
}

void AddBars(std::vector<Bar> &bars, const QString &caption, const QString &folder, const QStringList &names,
             bool own) {
    bars.push_back({caption, folder, own});
    for (const QString &name : names) bars.push_back({name, support::AddBackslash(folder + name), own});
}

// A template that another one has replaced, under its name with .bak behind it.
bool IsKeptCopy(const QString &file) {
    return file.endsWith(kKeptEnding, Qt::CaseInsensitive) &&
           HasTemplateEnding(file.chopped(kKeptEnding.size()));
}

QString Caption(const QString &file) {
    const QString title = support::FileTitle(file);
    const qsizetype point = title.lastIndexOf(QLatin1Char('.'));
    return point > 0 ? title.left(point) : title;
}

} // namespace

std::vector<Bar> ListBars(const StatusRoutine &status) {
    Tell(status, QStringLiteral("Loading Bar Items (Getting Dirs)..."));
    const QString beside = settings::TemplatesFolder(), own = settings::OwnTemplatesFolder();
    const QStringList folders = FoldersIn(beside);
    const bool hasOwn = support::DirExists(own) && !support::IsSameFile(beside, own);
    const QStringList ownFolders = hasOwn ? FoldersIn(own) : QStringList();
    Tell(status, QStringLiteral("Loading Bar Items (Getting Files)..."));
    std::vector<Bar> bars;
    AddBars(bars, QStringLiteral("Templates"), beside, folders, false);
    if (hasOwn) AddBars(bars, Tr("My Templates"), own, ownFolders, true);
    return bars;
}

QStringList FilesOfBar(const QString &folder) {
    return support::GetFiles(support::AddBackslash(folder) + kEveryName, support::fileattributes::kNormal);
}

BarFiller::BarFiller(const QString &Folder, const QStringList &Files, StatusRoutine status)
    : folder_(support::AddBackslash(Folder)), files_(Files), status_(std::move(status)) {}

std::optional<BarItem> BarFiller::Next() {
    const QString name = files_[next_++], file = folder_ + name;
    Tell(status_, QStringLiteral("Loading %1...").arg(name));
    if (HasTemplateEnding(file)) return Template(file);
    if (file.right(kIconEnding.size()).toLower() == kIconEnding || IsKeptCopy(file)) return std::nullopt;
    return BarItem{Caption(file), file, kExternalTag, {}};
}

std::optional<BarItem> BarFiller::Template(const QString &file) {
    try {
        bool flat = false;
        TestTemplateFile(file, flat);
        if (flat) return BarItem{Caption(file), file, kFlatTag, {}};
        const std::optional<QByteArray> icon = ReadImage(file);
        if (!icon) return std::nullopt;
        const bool good = IsIcon(*icon);
        if (!good) badIcons_ << file;
        return BarItem{Caption(file), file, {}, good ? *icon : QByteArray()};
    } catch (...) {
        const support::Error error = support::CurrentError({});
        badFiles_.push_back({file, error.Number(), error.Description()});
        return std::nullopt;
    }
}

BarDetails LoadBarDetails(const QString &Folder, const QStringList &Files, const StatusRoutine &status) {
    BarFiller filler(Folder, Files, status);
    BarDetails details;
    while (!filler.AtEnd())
        if (std::optional<BarItem> item = filler.Next()) details.items.push_back(std::move(*item));
    details.badFiles = filler.BadFiles();
    details.badIcons = filler.BadIcons();
    return details;
}

void TellOfBadFiles(const std::vector<BadFile> &badFiles, const QStringList &badIcons,
                    const QString &source) {
    if (!badIcons.isEmpty())
        support::CurrentDesktop().messageBoxes.Show(
            QStringLiteral("Invalid Picture Format...\r\nExpected Icon Format."), support::Buttons::Ok,
            support::Icon::None, settings::Terms().TITLE);
    if (badFiles.empty()) return;
    QStringList texts;
    for (const BadFile &bad : badFiles)
        texts << (bad.description.contains(bad.file) ? bad.description
                                                     : bad.file + QStringLiteral(": ") + bad.description);
    if (const qsizetype more = texts.size() - kMostTold; more > 0) {
        texts.erase(texts.begin() + kMostTold, texts.end());
        texts << Tr("and %1 more").arg(more);
    }
    support::ShowReport(QStringLiteral("frmMain"), source,
                        support::Error(badFiles.front().number, QStringLiteral("frmMain"),
                                       texts.join(QStringLiteral("\r\n"))));
}

bool IsExternal(const BarItem &item) {
    return item.tag == kExternalTag || (item.tag.isEmpty() && item.key.right(3) != QLatin1String("TEM"));
}

} // namespace templates
