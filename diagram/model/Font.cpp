#include "diagram/model/Font.h"

#include "diagram/model/Ranges.h"

#include <cmath>
#include <QHashFunctions>
#include <QSharedData>

namespace diagram {

struct Font::Data : QSharedData {
    QString name = QStringLiteral("Arial");
    double size = 8;
    bool bold = false, italic = false, underline = false, strike = false;

    auto Flags() const { return int(bold) | int(italic) << 1 | int(underline) << 2 | int(strike) << 3; }
};

namespace {

double CheckedSize(double points) {
    if (!(points > 0 && points <= kLargestFontSize)) RaiseInvalidValue("Font");
    return std::max(std::round(points * 10000) / 10000, 0.0001);
}

} // namespace

Font::Font() {
    // All default fonts share one set of values.
    static const QSharedDataPointer<Data> plain(new Data);
    d_ = plain;
}

Font::Font(const QString &name, double size, bool bold, bool italic, bool underline, bool strike)
    : d_(new Data) {
    d_->name = name;
    d_->size = CheckedSize(size);
    d_->bold = bold;
    d_->italic = italic;
    d_->underline = underline;
    d_->strike = strike;
}

Font::Font(const Font &) = default;
Font::Font(Font &&) noexcept = default;
Font &Font::operator=(const Font &) = default;
Font &Font::operator=(Font &&) noexcept = default;
Font::~Font() = default;

const QString &Font::Name() const { return d_->name; }
double Font::Size() const { return d_->size; }
bool Font::Bold() const { return d_->bold; }
bool Font::Italic() const { return d_->italic; }
bool Font::Underline() const { return d_->underline; }
bool Font::Strike() const { return d_->strike; }

void Font::SetName(const QString &name) { d_->name = name; }
void Font::SetSize(double points) { d_->size = CheckedSize(points); }
void Font::SetBold(bool on) { d_->bold = on; }
void Font::SetItalic(bool on) { d_->italic = on; }
void Font::SetUnderline(bool on) { d_->underline = on; }

bool operator==(const Font &a, const Font &b) {
    if (a.d_ == b.d_) return true;
    return a.d_->size == b.d_->size && a.d_->Flags() == b.d_->Flags() && a.d_->name == b.d_->name;
}

std::size_t Font::Hash() const { return qHashMulti(0, d_->name, d_->size, d_->Flags()); }

} // namespace diagram
