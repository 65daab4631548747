// How a text file of columns is written, told by what stands in it.
#pragma once

#include <memory>
#include <QIODevice>
#include <string>

namespace storage {

enum class CsvEncoding { Utf8, Utf16Le, Utf16Be, Windows1252 };

struct CsvForm {
    CsvEncoding encoding = CsvEncoding::Utf8;
    qint64 start = 0; // bytes of the byte order mark
    char16_t separator = u',';
};

// Looks through the whole file, which can be read again from any place. The encoding is that of the byte
// order mark; without one UTF-16 where every other byte of the beginning is 0, else UTF-8 unless there are
// bytes that it has not. The separator is the comma, the semicolon or the tab that the first line has most
// of, outside quotes.
CsvForm RecogniseCsv(QIODevice &file);

// Turns bytes into text, piece by piece.
class CsvDecoder {
public:
    explicit CsvDecoder(CsvEncoding encoding);
    ~CsvDecoder();
    // Adds the text of the bytes; what they have of a character only in part waits for the next piece.
    void Decode(QByteArrayView bytes, std::u16string &text);
    // Bytes came that the encoding has not.
    bool HasError() const;

private:
    struct State;
    std::unique_ptr<State> state_;
};

} // namespace storage
