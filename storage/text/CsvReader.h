// Reads a text file of columns, record by record.
//
// Commas, semicolons or tabs separate fields; a field that begins with a quotation mark ends at the next
// single one, and two stand for one in it; records end with CR LF, LF or CR, which may stand inside quotes. A
// library for this (libcsv) was looked at: it takes bytes of one encoding and one separator, so that telling
// the forms apart, UTF-16, the bounds and the places of errors would have stayed here all the same, which is
// most of it.
#pragma once

#include "storage/text/CsvForm.h"

#include <QStringView>
#include <vector>

namespace storage {

class CsvReader {
public:
    // The file must live as long as the reader, and can be read from any place. It is read in pieces.
    explicit CsvReader(QIODevice &file);

    const CsvForm &Form() const { return form_; }

    // Goes on to the next record; false behind the last one. Error 3274 "External table isn't in the expected
    // format." with the record's number for quotes that are never closed, for more than 4,096 fields or for
    // more than 64 million characters.
    bool Next();
    // The record's number, counted from 1 as spreadsheets do: empty ones count too.
    qint64 Row() const { return row_; }
    // True when all fields are empty.
    bool IsEmpty() const { return text_.empty(); }
    // Whether the record begins with a quotation mark, as CsvWriter writes texts; spreadsheets quote those
    // alone that need it.
    bool BeginsQuoted() const { return beginsQuoted_; }
    int FieldCount() const { return static_cast<int>(ends_.size()); }
    // Valid until the next record; empty for one that the record has not.
    QStringView Field(int column) const;
    // Share of the file that was read, 0 to 100.
    int Percent() const;

private:
    enum class Place { FieldStart, Plain, Quoted, QuoteInQuoted };
    bool Fill();
    bool Take(char16_t &character);
    bool HasEnded(char16_t character);
    void TakeInto(Place &place, char16_t character);
    void EndField();
    [[noreturn]] void RaiseFormat(const char *what) const;

    QIODevice &file_;
    CsvForm form_;
    CsvDecoder decoder_;
    std::u16string piece_; // decoded, read up to at_
    std::size_t at_ = 0;
    std::u16string text_;           // of the record's fields, one behind the other
    std::vector<std::size_t> ends_; // of each in it
    qint64 row_ = 0;
    bool beginsQuoted_ = false;
};

} // namespace storage
