#include "settings/Settings.h"

#include "support/Error.h"
#include "support/Files.h"
#include "support/Val.h"

#include <QCoreApplication>
#include <QFile>
#include <QStringList>
#include <QXmlStreamReader>

namespace settings {

namespace {

constexpr char kRoot[] = "SETTINGS/";
constexpr char kFileName[] = "Settings.nml";

ProductTerms terms;
std::int32_t memoryLimit = kFirstMemoryLimit;

// One key of the file: where it lies and what takes its text.
struct SettingsKey {
    const char *path;
    void (*read)(ProductTerms &terms, const QString &text);
};

template <QString ProductTerms::*Member>
void ReadText(ProductTerms &into, const QString &text) {
    into.*Member = text;
}

bool BoolByNumber(const QString &text) { return support::Val(text) != 0; }

void ReadMemoryText(ProductTerms &into, const QString &text) {
    into.MEMORYTEXT = QString(text).replace(QLatin1String("/n"), QLatin1String("\r\n"));
}

void ReadMemory(ProductTerms &into, const QString &text) {
    into.MEMORY = support::CLng(support::Val(text));
    if (into.MEMORY > 0) memoryLimit = into.MEMORY;
}

template <ReportFont ProductTerms::*Style, bool ReportFont::*Member>
void ReadStyleFlag(ProductTerms &into, const QString &text) {
    into.*Style.*Member = BoolByNumber(text);
}

template <ReportFont ProductTerms::*Style>
void ReadStyleSize(ProductTerms &into, const QString &text) {
    (into.*Style).size = support::Val(text);
}

template <ReportFont ProductTerms::*Style>
void ReadStyleFont(ProductTerms &into, const QString &text) {
    (into.*Style).font = text;
}

// In the order of reading. EXPORT/HEADER/BOLD is strict on purpose, the only key that is: where it is absent,
// or no boolean, the reading ends with an error.
constexpr SettingsKey kKeys[] = {
    {"TITLE", ReadText<&ProductTerms::TITLE>},
    {"SLICE", ReadText<&ProductTerms::SLICE>},
    {"MAP", ReadText<&ProductTerms::MAP>},
    {"EXT", ReadText<&ProductTerms::EXT>},
    {"TEMPLATE", ReadText<&ProductTerms::TEMPLATE>},
    {"NODE", ReadText<&ProductTerms::NODE>},
    {"LINK", ReadText<&ProductTerms::LINK>},
    {"FLAT", ReadText<&ProductTerms::FLAT>},
    {"FLATEXT", ReadText<&ProductTerms::FLATEXT>},
    {"AUTHOR", [](ProductTerms &into, const QString &text) { into.AUTHOR = BoolByNumber(text); }},
    {"MEMORYTEXT", ReadMemoryText},
    {"MEMORY", ReadMemory},
    {"EXPORT/BOLD", ReadStyleFlag<&ProductTerms::EXPORT, &ReportFont::bold>},
    {"EXPORT/ITALIC", ReadStyleFlag<&ProductTerms::EXPORT, &ReportFont::italic>},
    {"EXPORT/UNDERLINE", ReadStyleFlag<&ProductTerms::EXPORT, &ReportFont::underline>},
    {"EXPORT/SIZE", ReadStyleSize<&ProductTerms::EXPORT>},
    {"EXPORT/FONT", ReadStyleFont<&ProductTerms::EXPORT>},
    {"EXPORT/HEADER/BOLD",
     [](ProductTerms &into, const QString &text) { into.EXPORT_HEADER.bold = support::CBool(text); }},
    {"EXPORT/HEADER/ITALIC", ReadStyleFlag<&ProductTerms::EXPORT_HEADER, &ReportFont::italic>},
    {"EXPORT/HEADER/UNDERLINE", ReadStyleFlag<&ProductTerms::EXPORT_HEADER, &ReportFont::underline>},
    {"EXPORT/HEADER/SIZE", ReadStyleSize<&ProductTerms::EXPORT_HEADER>},
    {"EXPORT/HEADER/FONT", ReadStyleFont<&ProductTerms::EXPORT_HEADER>},
    {"EXPORT/DATA/BOLD", ReadStyleFlag<&ProductTerms::EXPORT_DATA, &ReportFont::bold>},
    {"EXPORT/DATA/ITALIC", ReadStyleFlag<&ProductTerms::EXPORT_DATA, &ReportFont::italic>},
    {"EXPORT/DATA/UNDERLINE", ReadStyleFlag<&ProductTerms::EXPORT_DATA, &ReportFont::underline>},
    {"EXPORT/DATA/SIZE", ReadStyleSize<&ProductTerms::EXPORT_DATA>},
    {"EXPORT/DATA/FONT", ReadStyleFont<&ProductTerms::EXPORT_DATA>},
};

struct Placeholder {
    const char *name;
    QString ProductTerms::*term;
};
constexpr Placeholder kPlaceholders[] = {
    {"@MAP", &ProductTerms::MAP},     {"@BOOK", &ProductTerms::MAP},  {"@SLICE", &ProductTerms::SLICE},
    {"@SHEET", &ProductTerms::SLICE}, {"@NODE", &ProductTerms::NODE}, {"@LINK", &ProductTerms::LINK},
};

const Placeholder *PlaceholderAt(const QString &text, qsizetype at) {
    for (const Placeholder &row : kPlaceholders)
        if (QStringView(text).mid(at).startsWith(QLatin1String(row.name))) return &row;
    return nullptr;
}

// An element that is open while a document is read.
struct OpenElement {
    QString path;
    bool counts = true; // whether the texts in it do: not those of a path that was met before
};

} // namespace

const ProductTerms &Terms() { return terms; }

void SetTerms(const ProductTerms &newTerms) { terms = newTerms; }

std::int32_t MemoryLimit() { return memoryLimit; }

void SetMemoryLimit(std::int32_t limit) { memoryLimit = limit; }

bool SettingsDocument::load(const QString &path) {
    texts_.clear();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return false;
    QXmlStreamReader reader(&file);
    QHash<QString, QString> texts;
    QList<OpenElement> open;
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement()) {
            const QString parent = open.isEmpty() ? QString() : open.last().path + u'/';
            const QString element = parent + reader.qualifiedName().toString();
            open.append({element, !texts.contains(element)});
            if (open.last().counts) texts.insert(element, QStringLiteral(""));
        } else if (reader.isEndElement()) {
            open.removeLast();
        } else if (reader.isCharacters()) {
            for (const OpenElement &element : open)
                if (element.counts) texts[element.path] += reader.text();
        }
    }
    if (reader.hasError()) return false;
    for (QString &text : texts) text = text.trimmed();
    texts_ = texts;
    return true;
}

QString SettingsDocument::text(const QString &path) const { return texts_.value(path); }

QString GetXMLNodeText(const QString &key, const SettingsDocument &document) {
    const QString text = document.text(QLatin1String(kRoot) + key);
    return text.isNull() ? QStringLiteral("") : text;
}

QString PathOfSettings() { return support::AddBackslash(support::ProgramPath()) + QLatin1String(kFileName); }

void LoadSettings() {
    support::Report("Qz_Source", "LoadSettings", [] {
        SettingsDocument document;
        if (!document.load(PathOfSettings())) return;
        for (const SettingsKey &key : kKeys)
            key.read(terms, GetXMLNodeText(QLatin1String(key.path), document));
        QCoreApplication::setApplicationName(terms.TITLE);
    });
}

QString ReadTitle() {
    SettingsDocument document;
    document.load(PathOfSettings());
    return GetXMLNodeText(QStringLiteral("TITLE"), document);
}

QString ReplaceTerms(const QString &text) {
    QString result;
    for (qsizetype at = 0; at < text.size();) {
        if (const Placeholder *placeholder = PlaceholderAt(text, at)) {
            result += terms.*placeholder->term;
            at += static_cast<qsizetype>(qstrlen(placeholder->name));
        } else {
            result += text[at++];
        }
    }
    return result;
}

} // namespace settings
