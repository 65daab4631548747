// Writes a text file of columns in the one form that CsvReader and spreadsheets both read: UTF-8 with a byte
// order mark, commas, texts in quotes with quotes in them doubled, numbers with a point, CR LF.
#pragma once

#include <cstdint>
#include <QIODevice>
#include <QString>
#include <QStringList>

namespace storage {

class CsvWriter {
public:
    // Writes the byte order mark and the names, joined by ", ". Every routine raises 61 "Disk full" when the
    // device takes no more.
    CsvWriter(QIODevice &file, const QStringList &names);

    // The fields of a record, from the first to the last, then its end.
    void Null();
    void Text(const QString &text); // with a mark, if it needs one
    void Long(std::int64_t number);
    void Single(float number);
    void Double(double number);
    void EndRecord();
    // Writes what is still held back. To be called once, at the end.
    void Finish();

private:
    void Separate();
    void Write();

    QIODevice &file_;
    QByteArray bytes_;
    bool first_ = true;
};

} // namespace storage
