// The product's settings: what makes one executable serve several editions. Read once, from Settings.nml in
// the program's folder.
#pragma once

#include <cstdint>
#include <QHash>
#include <QString>

namespace settings {

// A text style of the reports.
struct ReportFont {
    bool bold = false;
    bool italic = false;
    bool underline = false;
    double size = 0; // points
    QString font;
};

// Every value of Settings.nml, under the key that it has there.
struct ProductTerms {
    QString TITLE;
    QString SLICE;
    QString MAP;
    QString EXT; // of map files, without a point
    QString TEMPLATE;
    QString NODE;
    QString LINK;
    QString FLAT;
    QString FLATEXT;
    bool AUTHOR = false;
    QString MEMORYTEXT; // "/n" already turned into carriage return and line feed
    std::int32_t MEMORY = 0;
    ReportFont EXPORT;
    ReportFont EXPORT_HEADER;
    ReportFont EXPORT_DATA;
};

// The process-wide terms: empty until LoadSettings or SetTerms.
const ProductTerms &Terms();
void SetTerms(const ProductTerms &terms);

inline constexpr std::int32_t kFirstMemoryLimit = 1048576;
// kFirstMemoryLimit at first, then the last MEMORY above 0 that was read.
std::int32_t MemoryLimit();
void SetMemoryLimit(std::int32_t limit);

// The elements of a settings file: the texts below the root, by path.
class SettingsDocument {
public:
    // False for a file that is missing or isn't well-formed; the document is empty then.
    bool load(const QString &path);
    // The text of the first element with that path ("SETTINGS/EXPORT/FONT"), those of its children included,
    // without the white space at both ends; a null text when there is none.
    QString text(const QString &path) const;

private:
    QHash<QString, QString> texts_;
};

// The text of the element "SETTINGS/" + key, or an empty text.
QString GetXMLNodeText(const QString &key, const SettingsDocument &document);

// Full path of Settings.nml, in the program's folder, whether or not it is there.
QString PathOfSettings();

// Reads all keys of Settings.nml into the process-wide terms and makes TITLE the
// application's name. A file that is missing or broken changes nothing and isn't reported. A key that cannot
// be converted is reported in a message box; it and the keys behind it keep what they held.
void LoadSettings();

// TITLE alone, read anew; for the moment before LoadSettings.
QString ReadTitle();

// `text` with @MAP and @BOOK replaced by MAP, @SLICE and @SHEET by SLICE, @NODE by NODE and @LINK by LINK.
// What a term brings in isn't replaced again.
QString ReplaceTerms(const QString &text);

} // namespace settings
