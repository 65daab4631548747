#include "output/print/Fields.h"

#include <QLocale>
#include <QRegularExpression>
#include <QStringList>

namespace print {

namespace {

struct Field {
    const char *name;
    QString (*value)(const FieldValues &);
};
constexpr Field kFields[] = {
    {"Page", [](const FieldValues &v) { return QLocale().toString(v.page); }},
    {"Pages", [](const FieldValues &v) { return QLocale().toString(v.pages); }},
    {"Title", [](const FieldValues &v) { return v.title; }},
    {"Slice", [](const FieldValues &v) { return v.slice; }},
    {"Date", [](const FieldValues &v) { return QLocale().toString(v.date, QLocale::ShortFormat); }},
    {"File", [](const FieldValues &v) { return v.file; }},
};

QString ValueOf(const QRegularExpressionMatch &match, const FieldValues &values) {
    for (const Field &field : kFields)
        if (match.capturedView(1).compare(QLatin1String(field.name), Qt::CaseInsensitive) == 0)
            return field.value(values);
    return match.captured();
}

} // namespace

QString FillFields(const QString &text, const FieldValues &values) {
    static const QRegularExpression form(QStringLiteral("&\\[([A-Za-z]+)\\]"));
    QString filled;
    qsizetype at = 0;
    for (auto matches = form.globalMatch(text); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        filled += QStringView(text).mid(at, match.capturedStart() - at);
        filled += ValueOf(match, values);
        at = match.capturedEnd();
    }
    filled += QStringView(text).mid(at);
    return filled;
}

QString FieldList() {
    QStringList names;
    for (const Field &field : kFields) names << QStringLiteral("&[%1]").arg(QLatin1String(field.name));
    return names.join(QStringLiteral(", "));
}

} // namespace print
