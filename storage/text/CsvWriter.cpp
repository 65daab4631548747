#include "storage/text/CsvWriter.h"

#include "storage/text/TextMark.h"
#include "support/Error.h"

#include <charconv>
#include <cmath>

namespace storage {

namespace {

constexpr qsizetype kPiece = 1 << 16; // bytes
constexpr char kLineEnd[] = "\r\n";

constexpr double kLargestInDigits = 1e15; // a larger number is written with its exponent

// The shortest text that reads back as the same number.
template <typename Real>
void AppendReal(QByteArray &bytes, Real number) {
    char text[64];
    const auto format =
        std::abs(number) < Real(kLargestInDigits) ? std::chars_format::fixed : std::chars_format::general;
    const auto end = std::to_chars(text, text + sizeof text, number, format).ptr;
    bytes.append(text, end - text);
}

} // namespace

CsvWriter::CsvWriter(QIODevice &file, const QStringList &names) : file_(file) {
    bytes_ = "\xEF\xBB\xBF" + names.join(QStringLiteral(", ")).toUtf8() + kLineEnd;
}

void CsvWriter::Separate() {
    if (!first_) bytes_.append(',');
    first_ = false;
}

void CsvWriter::Null() { Separate(); }

void CsvWriter::Text(const QString &text) {
    Separate();
    bytes_.append('"').append(WithMark(text).toUtf8().replace("\"", "\"\"")).append('"');
}

void CsvWriter::Long(std::int64_t number) {
    Separate();
    bytes_.append(QByteArray::number(qlonglong(number)));
}

void CsvWriter::Single(float number) {
    Separate();
    AppendReal(bytes_, number);
}

void CsvWriter::Double(double number) {
    Separate();
    AppendReal(bytes_, number);
}

void CsvWriter::EndRecord() {
    bytes_.append(kLineEnd);
    first_ = true;
    if (bytes_.size() >= kPiece) Write();
}

void CsvWriter::Write() {
    if (file_.write(bytes_) != bytes_.size())
        support::Raise(support::kErrDiskFull, QStringLiteral("CsvWriter"));
    bytes_.clear();
}

void CsvWriter::Finish() { Write(); }

} // namespace storage
