#include "document/Tags.h"

#include "diagram/model/Surface.h"
#include "support/clsGUID.h"

#include <optional>
#include <QStringView>

namespace document {

namespace {

constexpr QLatin1Char kSeparator('|');
constexpr QLatin1Char kEquals('=');
constexpr int kLowestActionCode = 1001;
constexpr int kHighestActionCode = 32000;

// Where the last piece that begins with the key stands in the tag. Only the beginning is compared.
struct Piece {
    qsizetype begin, length; // the length without the separator behind it
};
std::optional<Piece> LastMatch(QStringView tag, const QString &key) {
    for (qsizetype end = tag.size();;) {
        const qsizetype begin = tag.first(end).lastIndexOf(kSeparator) + 1;
        if (tag.sliced(begin, end - begin).startsWith(key, Qt::CaseInsensitive))
            return Piece{begin, end - begin};
        if (begin == 0) return std::nullopt;
        end = begin - 1;
    }
}

} // namespace

QString TagWithEntry(const QString &tag, const QString &key, const QString &value) {
    const QString entry = key.toUpper() + kEquals + value;
    const std::optional<Piece> match = LastMatch(tag, key);
    if (!match) return tag + kSeparator + entry;
    return QString(tag).replace(match->begin, match->length, entry);
}

QString EntryOfTag(const QString &tag, const QString &key) {
    const std::optional<Piece> match = LastMatch(tag, key);
    if (!match) return {};
    const QStringView entry = QStringView(tag).sliced(match->begin, match->length);
    return entry.sliced(entry.indexOf(kEquals) + 1).toString();
}

void ChangeGUIDs(diagram::Surface &surface, bool selectedOnly) {
    support::PassOn("ChangeGUIDs", [&] {
        for (diagram::Node &node : surface.Nodes())
            if (!selectedOnly || node.Selected()) node.SetKey(support::GetGUID());
        for (const auto &link : surface.Links())
            if (!selectedOnly || link->Selected()) link->SetKey(support::GetGUID());
    });
}

void BeginAction(diagram::Surface &surface) {
    surface.BeginAction(support::GetRandom(kLowestActionCode, kHighestActionCode));
}

} // namespace document
