// What the bars of templates list.
#pragma once

#include "support/Error.h"

#include <functional>
#include <optional>
#include <QByteArray>
#include <QString>
#include <QStringList>
#include <vector>

namespace templates {

// The tags of items. A template database has none.
inline const QString kFlatTag = QStringLiteral("Flat");
inline const QString kExternalTag = QStringLiteral("EXTERNAL");

struct Bar {
    QString caption;
    QString key;      // the folder, with a separator at its end
    bool own = false; // of the user: its templates can be renamed and deleted
};

struct BarItem {
    QString caption;
    QString key; // the file
    QString tag;
    // Of a template database: its icon file; empty where it has none that can be shown. Of the other kinds
    // empty: they are shown with the icon "FLAT", or with what support::FileIcons has for the file.
    QByteArray icon;
};

// A file that could not be looked at.
struct BadFile {
    QString file;
    long number = 0;
    QString description;
};

using StatusRoutine = std::function<void(const QString &status)>;

// The folder of templates beside the program as the first bar and one bar for each folder in it, in the order
// of GetFiles; then in the same way the user's own folder, as far as it is there. `status` is told what is
// being done.
std::vector<Bar> ListBars(const StatusRoutine &status = {});
// The names of the files of a bar, without their folder.
QStringList FilesOfBar(const QString &folder);

// Makes the items of one bar, a file at a time, so that a long folder can be filled piece by piece.
class BarFiller {
public:
    BarFiller(const QString &Folder, const QStringList &Files, StatusRoutine status = {});

    bool AtEnd() const { return next_ == files_.size(); }
    // Looks at the next file and gives its item; none for what isn't listed: icon files, copies that were
    // kept of replaced templates, databases that are no templates, bad files. Raises no error. Not at the
    // end.
    std::optional<BarItem> Next();

    // Files with the ending of templates that are none.
    const std::vector<BadFile> &BadFiles() const { return badFiles_; }
    // Templates whose icon can't be shown.
    const QStringList &BadIcons() const { return badIcons_; }

private:
    BarItem Item(const QString &file) const;
    std::optional<BarItem> Template(const QString &file);

    QString folder_;
    QStringList files_;
    StatusRoutine status_;
    qsizetype next_ = 0;
    std::vector<BadFile> badFiles_;
    QStringList badIcons_;
};

struct BarDetails {
    std::vector<BarItem> items;
    std::vector<BadFile> badFiles;
    QStringList badIcons;
};
// All of a bar at once.
BarDetails LoadBarDetails(const QString &Folder, const QStringList &Files, const StatusRoutine &status = {});

// Shows what went wrong while a bar was filled, in one box for the bad files and one for the bad icons.
// `source` is the routine that filled it.
void TellOfBadFiles(const std::vector<BadFile> &badFiles, const QStringList &badIcons, const QString &source);

// Whether a click on the item opens it with its application instead of loading it: an item with that tag, and
// a template database whose name doesn't end in upper-case "TEM".
bool IsExternal(const BarItem &item);

} // namespace templates
