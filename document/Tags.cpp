#include "document/Tags.h"

#include "diagram/model/Surface.h"
#include "support/clsGUID.h"

#include <QStringList>

namespace document {

namespace {

constexpr QLatin1Char kSeparator('|');
constexpr QLatin1Char kEquals('=');
constexpr int kLowestActionCode = 1001;
constexpr int kHighestActionCode = 32000;

// The last piece that begins with the key, or -1. Only the beginning is compared.
qsizetype LastMatch(const QStringList &pieces, const QString &upperKey) {
    for (qsizetype i = pieces.size() - 1; i >= 0; --i)
        if (pieces[i].left(upperKey.size()).toUpper() == upperKey) return i;
    return -1;
}

} // namespace

QString TagWithEntry(const QString &tag, const QString &key, const QString &value) {
    const QString upperKey = key.toUpper();
    const QString entry = upperKey + kEquals + value;
    if (tag.isEmpty()) return kSeparator + entry;
    QStringList pieces = tag.split(kSeparator);
    const qsizetype match = LastMatch(pieces, upperKey);
    if (match < 0) return tag + kSeparator + entry;
    pieces[match] = entry;
    return pieces.join(kSeparator);
}

QString EntryOfTag(const QString &tag, const QString &key) {
    if (tag.isEmpty()) return {};
    const QStringList pieces = tag.split(kSeparator);
    const qsizetype match = LastMatch(pieces, key.toUpper());
    return match < 0 ? QString() : pieces[match].mid(pieces[match].indexOf(kEquals) + 1);
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
