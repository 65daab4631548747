// Fields in headers and footers: &[Page] and its like. Any other text stays as it is, "R&d plan" too.
#pragma once

#include <QDate>
#include <QString>

namespace print {

struct FieldValues {
    int page = 1, pages = 1;
    QString title, slice;
    QDate date;
    QString file;
};

// Names in any case; a field that there isn't stays text.
QString FillFields(const QString &text, const FieldValues &values);

// "&[Page], &[Pages], ...": what can be written.
QString FieldList();

} // namespace print
