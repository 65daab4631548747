// What is wrong with a map that opens.
#include "cli/Commands.h"
#include "cli/Session.h"
#include "document/MapSchema.h"
#include "storage/Database.h"
#include "support/Error.h"

namespace cli {

namespace {

// Rows that a load passes over or reads otherwise than they were meant, and the query that counts them.
struct Finding {
    const char *what;
    const char *query;
};

constexpr Finding kFindings[] = {
    {"nodes on a slice that does not exist",
     "SELECT COUNT(*) FROM [Nodes] WHERE [Slice] IS NULL OR [Slice] NOT IN (SELECT [Index] FROM [Slices])"},
    {"links on a slice that does not exist",
     "SELECT COUNT(*) FROM [Links] WHERE [Slice] IS NULL OR [Slice] NOT IN (SELECT [Index] FROM [Slices])"},
    {"bend points of a link that does not exist",
     "SELECT COUNT(*) FROM [LinkPoints] WHERE [Link] IS NULL OR [Link] NOT IN (SELECT [Key] FROM [Links])"},
    {"nodes without a key", "SELECT COUNT(*) FROM [Nodes] WHERE [Key] IS NULL OR [Key]=''"},
    {"node keys that stand more than once",
     "SELECT COUNT(*) FROM (SELECT [Key] FROM [Nodes] WHERE [Key]<>'' GROUP BY [Key] HAVING COUNT(*)>1)"},
    {"nodes in a font that does not exist",
     "SELECT COUNT(*) FROM [Nodes] WHERE [Font] NOT IN (SELECT [Key] FROM [Fonts])"},
    {"links in a font that does not exist",
     "SELECT COUNT(*) FROM [Links] WHERE [Font] NOT IN (SELECT [Key] FROM [Fonts])"},
    {"nodes with a picture that does not exist",
     "SELECT COUNT(*) FROM [Nodes] WHERE [Picture]<>'' AND [Picture] NOT IN (SELECT [Key] FROM [Pictures])"},
    {"slices with a picture that does not exist",
     "SELECT COUNT(*) FROM [Slices] WHERE [Picture]<>'' AND [Picture] NOT IN (SELECT [Key] FROM [Pictures])"},
    {"hyperlinks to a node that does not exist",
     "SELECT COUNT(*) FROM [Hyperlinks] WHERE COALESCE([Filename], '')='' AND [Node]<>'' AND [Node] NOT IN "
     "(SELECT [Key] FROM [Nodes])"},
    {"hyperlinks of a node that does not exist",
     "SELECT COUNT(*) FROM [Hyperlinks] WHERE [NodeKey] NOT IN (SELECT [Key] FROM [Nodes])"},
    {"attachments of a node that does not exist",
     "SELECT COUNT(*) FROM [Attachments] WHERE [NodeKey] NOT IN (SELECT [Key] FROM [Nodes])"},
};

bool IsNumber(storage::FieldType type) {
    using storage::FieldType;
    return type != FieldType::Text && type != FieldType::Memo && type != FieldType::LongBinary &&
           type != FieldType::Date;
}

// Counts the cells of the table that hold a text where a number belongs.
QString QueryForTexts(const document::TableLayout &table) {
    QStringList terms{QStringLiteral("0")};
    for (int i = 0; i < static_cast<int>(table.columns.size()); ++i)
        if (IsNumber(table.columns[static_cast<std::size_t>(i)].type))
            terms.append(
                QStringLiteral("SUM(typeof(%1) IN ('text', 'blob'))").arg(document::Bracketed(table, i)));
    return QStringLiteral("SELECT %1 FROM [%2]")
        .arg(terms.join(QStringLiteral(" + ")), document::NameOf(table));
}

int CountOf(storage::Database &database, const QString &query) {
    return database.OpenRecordset(query).Long(0);
}

QStringList FindingsIn(const QString &path) {
    storage::Database database = storage::OpenDatabase(path);
    QStringList lines;
    const auto note = [&](int count, const QString &what) {
        if (count > 0) lines.append(QStringLiteral("%1 %2").arg(count).arg(what));
    };
    for (const Finding &finding : kFindings)
        note(CountOf(database, QString::fromLatin1(finding.query)), QString::fromLatin1(finding.what));
    for (const document::TableLayout *table : document::schema::Tables())
        note(CountOf(database, QueryForTexts(*table)),
             QStringLiteral("texts in %1 where a number belongs").arg(document::NameOf(*table)));
    return lines;
}

void Show(const QStringList &findings, QTextStream &out) {
    for (const QString &line : findings) out << line << "\n";
}

// Of a map that does not load the tables may tell more than the error, if they can be read at all.
void ShowIfReadable(const QString &path, QTextStream &out) {
    try {
        Show(FindingsIn(path), out);
    } catch (const support::Error &) {
        // The error of the load is the one to tell.
    }
}

} // namespace

int Check(QStringList arguments, QTextStream &out) {
    ExpectFiles(arguments, 1);
    const QString path = arguments.first();
    Session session;
    try {
        session.Open(path);
    } catch (const support::Error &) {
        ShowIfReadable(path, out);
        throw;
    }
    const QStringList findings = FindingsIn(path);
    Show(findings, out);
    if (findings.isEmpty()) out << "nothing wrong\n";
    return findings.isEmpty() ? kGood : kFailed;
}

} // namespace cli
