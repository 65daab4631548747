#include "storage/text/CsvForm.h"

#include "support/Windows1252.h"

#include <algorithm>
#include <QStringDecoder>

namespace storage {

namespace {

constexpr qint64 kPiece = 1 << 16; // bytes

struct ByteOrderMark {
    QByteArrayView bytes;
    CsvEncoding encoding;
};
constexpr ByteOrderMark kMarks[] = {{"\xEF\xBB\xBF", CsvEncoding::Utf8},
                                    {"\xFF\xFE", CsvEncoding::Utf16Le},
                                    {"\xFE\xFF", CsvEncoding::Utf16Be}};

QStringConverter::Encoding ConverterOf(CsvEncoding encoding) {
    switch (encoding) {
    case CsvEncoding::Utf16Le:
        return QStringConverter::Utf16LE;
    case CsvEncoding::Utf16Be:
        return QStringConverter::Utf16BE;
    default:
        return QStringConverter::Utf8;
    }
}

bool IsUtf8(QIODevice &file) {
    CsvDecoder decoder(CsvEncoding::Utf8);
    std::u16string text;
    for (QByteArray piece = file.read(kPiece); !piece.isEmpty(); piece = file.read(kPiece)) {
        text.clear();
        decoder.Decode(piece, text);
        if (decoder.HasError()) return false;
    }
    decoder.Decode("\n", text); // shows a character that the file ends in
    return !decoder.HasError();
}

// A header begins with letters that are one byte in every other encoding.
CsvEncoding EncodingWithoutMark(QIODevice &file, const QByteArray &start) {
    if (start.size() >= 2 && start[0] != 0 && start[1] == 0) return CsvEncoding::Utf16Le;
    if (start.size() >= 2 && start[0] == 0 && start[1] != 0) return CsvEncoding::Utf16Be;
    file.seek(0);
    return IsUtf8(file) ? CsvEncoding::Utf8 : CsvEncoding::Windows1252;
}

CsvForm EncodingOf(QIODevice &file) {
    file.seek(0);
    const QByteArray start = file.peek(4);
    CsvForm form;
    for (const ByteOrderMark &mark : kMarks) {
        if (!start.startsWith(mark.bytes)) continue;
        form.encoding = mark.encoding;
        form.start = mark.bytes.size();
        return form;
    }
    form.encoding = EncodingWithoutMark(file, start);
    return form;
}

char16_t SeparatorOf(const std::u16string &text) {
    constexpr std::u16string_view kSeparators = u",;\t";
    std::array<int, kSeparators.size()> counts{};
    bool quoted = false;
    for (const char16_t character : text) {
        if (character == u'"') quoted = !quoted;
        if (quoted) continue;
        if (character == u'\r' || character == u'\n') break;
        const std::size_t at = kSeparators.find(character);
        if (at != std::u16string_view::npos) ++counts[at];
    }
    return kSeparators[std::size_t(std::ranges::max_element(counts) - counts.begin())];
}

} // namespace

struct CsvDecoder::State {
    explicit State(CsvEncoding encoding)
        : isWindows1252(encoding == CsvEncoding::Windows1252),
          decoder(ConverterOf(encoding), QStringDecoder::Flag::ConvertInitialBom) {}
    bool isWindows1252;
    QStringDecoder decoder;
    QString piece;
};

CsvDecoder::CsvDecoder(CsvEncoding encoding) : state_(std::make_unique<State>(encoding)) {}
CsvDecoder::~CsvDecoder() = default;

void CsvDecoder::Decode(QByteArrayView bytes, std::u16string &text) {
    if (state_->isWindows1252) {
        for (const char byte : bytes)
            text.push_back(support::FromWindows1252(static_cast<unsigned char>(byte)));
        return;
    }
    state_->piece = state_->decoder.decode(bytes);
    text.append(reinterpret_cast<const char16_t *>(state_->piece.utf16()),
                static_cast<std::size_t>(state_->piece.size()));
}

bool CsvDecoder::HasError() const { return !state_->isWindows1252 && state_->decoder.hasError(); }

CsvForm RecogniseCsv(QIODevice &file) {
    CsvForm form = EncodingOf(file);
    file.seek(form.start);
    std::u16string text;
    CsvDecoder(form.encoding).Decode(file.read(kPiece), text);
    form.separator = SeparatorOf(text);
    return form;
}

} // namespace storage
