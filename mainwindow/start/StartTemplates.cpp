#include "mainwindow/start/StartTemplates.h"

#include "mainwindow/icons/Icons.h"
#include "templates/BarDetails.h"
#include "templates/TemplateFiles.h"

#include <deque>
#include <optional>
#include <QPixmap>

namespace mainwindow {

namespace {

struct Folder {
    QString path;
    QStringList files; // those that are still to be looked at
};

std::deque<Folder> Folders() {
    std::deque<Folder> folders;
    for (const templates::Bar &bar : templates::ListBars()) {
        QStringList files = templates::FilesOfBar(bar.key);
        files.removeIf([](const QString &file) { return !templates::HasTemplateEnding(file); });
        if (!files.isEmpty()) folders.push_back({bar.key, files});
    }
    return folders;
}

QIcon IconOf(const templates::BarItem &item) {
    QPixmap own;
    if (own.loadFromData(item.icon)) return own;
    return Icon(QStringLiteral("template"));
}

std::optional<StartTemplate> Next(Folder &folder) {
    while (!folder.files.isEmpty()) {
        templates::BarFiller filler(folder.path, {folder.files.takeFirst()});
        const std::optional<templates::BarItem> item = filler.Next();
        if (item && !templates::IsExternal(*item))
            return StartTemplate{item->caption, item->key, IconOf(*item)};
    }
    return std::nullopt;
}

} // namespace

std::vector<StartTemplate> StartTemplates(int most) {
    std::vector<StartTemplate> found;
    for (std::deque<Folder> folders = Folders(); !folders.empty() && int(found.size()) < most;) {
        Folder folder = std::move(folders.front());
        folders.pop_front();
        std::optional<StartTemplate> next = Next(folder);
        if (!next) continue;
        found.push_back(*std::move(next));
        folders.push_back(std::move(folder));
    }
    return found;
}

} // namespace mainwindow
