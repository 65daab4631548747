#include "support/clsGUID.h"

#include "support/Desktop.h"
#include "support/Val.h"

#include <cmath>
#include <QByteArray>

namespace support {

namespace {
// # stands for a digit.
constexpr char kGuidPattern[] = "{########-####-####-####-############}";

bool IsGuidDigit(QChar character) {
    const char16_t unit = character.unicode();
    return (unit >= u'0' && unit <= u'9') || (unit >= u'A' && unit <= u'F') || unit == u',';
}
} // namespace

QString clsGUID::CreateGUID() const { return CreateGUID(CurrentDesktop().random); }

QString clsGUID::CreateGUID(Random &random) const {
    const std::array<std::uint8_t, 16> bytes = random.NewGuid();
    const QByteArray digits = QByteArray(reinterpret_cast<const char *>(bytes.data()), 16).toHex().toUpper();
    QString text = QString::fromLatin1(kGuidPattern);
    qsizetype next = 0;
    for (QChar &character : text)
        if (character == QLatin1Char('#')) character = QLatin1Char(digits[next++]);
    return text;
}

QString GetGUID() {
    const clsGUID guid;
    return guid.CreateGUID();
}

bool CheckGUID(const QString &text) {
    const QString upper = text.toUpper();
    const QLatin1String pattern(kGuidPattern);
    if (upper.size() != pattern.size()) return false;
    for (qsizetype i = 0; i < upper.size(); ++i) {
        const QChar expected = pattern[i];
        if (expected == QLatin1Char('#') ? !IsGuidDigit(upper[i]) : upper[i] != expected) return false;
    }
    return true;
}

std::int16_t GetRandom(std::int32_t lowest, std::int32_t highest) {
    Desktop &desktop = CurrentDesktop();
    desktop.random.Seed(desktop.clock.Timer());
    const double span = static_cast<double>(highest) - lowest + 1;
    return CInt(std::floor(desktop.random.Next() * span + lowest));
}

} // namespace support
