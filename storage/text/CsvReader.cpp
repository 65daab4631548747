#include "storage/text/CsvReader.h"

#include "storage/text/ErrorNumbers.h"
#include "support/Error.h"

namespace storage {

namespace {

constexpr qint64 kPiece = 1 << 16; // bytes
constexpr std::size_t kMostFields = 4096;
constexpr std::size_t kMostCharacters = std::size_t(64) * 1024 * 1024;
constexpr char16_t kQuote = u'"';

bool IsLineEnd(char16_t character) { return character == u'\r' || character == u'\n'; }

} // namespace

CsvReader::CsvReader(QIODevice &file) : file_(file), form_(RecogniseCsv(file)), decoder_(form_.encoding) {
    file_.seek(form_.start);
}

void CsvReader::RaiseFormat(const char *what) const {
    throw support::Error(kErrExternalFormat, QStringLiteral("Storage.Text"),
                         QStringLiteral("External table isn't in the expected format.\r\n\r\nRow %1: %2")
                             .arg(row_)
                             .arg(QLatin1String(what)));
}

// False at the end of the file.
bool CsvReader::Fill() {
    piece_.clear();
    at_ = 0;
    while (piece_.empty()) {
        const QByteArray bytes = file_.read(kPiece);
        if (bytes.isEmpty()) return false;
        decoder_.Decode(bytes, piece_);
    }
    return true;
}

bool CsvReader::Take(char16_t &character) {
    if (at_ >= piece_.size() && !Fill()) return false;
    character = piece_[at_++];
    return true;
}

void CsvReader::EndField() {
    if (ends_.size() >= kMostFields) RaiseFormat("too many fields.");
    ends_.push_back(text_.size());
}

// Outside quotes; CR LF is one end.
bool CsvReader::HasEnded(char16_t character) {
    if (!IsLineEnd(character)) return false;
    if (character == u'\r' && (at_ < piece_.size() || Fill()) && piece_[at_] == u'\n') ++at_;
    return true;
}

void CsvReader::TakeInto(Place &place, char16_t character) {
    if (place == Place::Quoted && character == kQuote) {
        place = Place::QuoteInQuoted;
    } else if (place == Place::FieldStart && character == kQuote) {
        place = Place::Quoted;
    } else if (place != Place::Quoted && character == form_.separator) {
        EndField();
        place = Place::FieldStart;
    } else {
        // What stands behind closed quotes belongs to the field.
        if (place == Place::QuoteInQuoted) place = character == kQuote ? Place::Quoted : Place::Plain;
        if (place == Place::FieldStart) place = Place::Plain;
        if (text_.size() >= kMostCharacters) RaiseFormat("too long.");
        text_.push_back(character);
    }
}

bool CsvReader::Next() {
    text_.clear();
    ends_.clear();
    ++row_;
    Place place = Place::FieldStart;
    char16_t character = 0;
    bool any = false;
    while (Take(character)) {
        if (!any) beginsQuoted_ = character == kQuote;
        any = true;
        if (place != Place::Quoted && HasEnded(character)) {
            EndField();
            return true;
        }
        TakeInto(place, character);
    }
    if (place == Place::Quoted) RaiseFormat("a quotation mark is missing.");
    if (any) EndField();
    return any;
}

QStringView CsvReader::Field(int column) const {
    if (column < 0 || column >= FieldCount()) return {};
    const auto at = static_cast<std::size_t>(column);
    const std::size_t begin = at == 0 ? 0 : ends_[at - 1];
    return QStringView(text_).mid(qsizetype(begin), qsizetype(ends_[at] - begin));
}

int CsvReader::Percent() const {
    constexpr qint64 kWhole = 100;
    return file_.size() > 0 ? int(file_.pos() * kWhole / file_.size()) : 0;
}

} // namespace storage
