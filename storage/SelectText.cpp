#include "storage/SelectText.h"

#include "storage/text/FieldTypes.h"

#include <QRegularExpression>

namespace storage {

namespace {
const QString kRowId = QStringLiteral("_rowid_");

QString BareName(const QString &name) {
    return name.startsWith(QLatin1Char('[')) || name.startsWith(QLatin1Char('"'))
               ? name.mid(1, name.size() - 2)
               : name;
}
} // namespace

QString SelectText::WithRowId() const {
    return QStringLiteral("SELECT %1, %2 FROM %3 %4").arg(columns, kRowId, QuotedName(table), rest);
}

QString SelectText::OfOneRow() const {
    return QStringLiteral("SELECT %1 FROM %3 WHERE %2=?").arg(columns, kRowId, QuotedName(table));
}

std::optional<SelectText> SplitSelect(const QString &sql) {
    static const QRegularExpression form(
        QStringLiteral("^\\s*SELECT\\s+(?!DISTINCT\\b|ALL\\b)((?:\\*|\\[[^\\]]+\\]|\"[^\"]+\"|[\\w.]+)"
                       "(?:\\s*,\\s*(?:\\*|\\[[^\\]]+\\]|\"[^\"]+\"|[\\w.]+))*)"
                       "\\s+FROM\\s+(\\[[^\\]]+\\]|\"[^\"]+\"|\\w+)\\s*;?\\s*((?:WHERE|ORDER)\\b.*)?$"),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression folded(
        QStringLiteral(
            "'[^']*'|\"[^\"]*\"|\\[[^\\]]*\\]|(\\bGROUP\\s+BY\\b|\\bUNION\\b|\\bEXCEPT\\b|\\bINTERSECT\\b)"),
        QRegularExpression::CaseInsensitiveOption);
    const auto match = form.match(sql);
    if (!match.hasMatch()) return std::nullopt;
    auto words = folded.globalMatch(match.captured(3));
    while (words.hasNext()) {
        if (!words.next().captured(1).isEmpty()) return std::nullopt;
    }
    return SelectText{match.captured(1), BareName(match.captured(2)), match.captured(3)};
}

} // namespace storage
