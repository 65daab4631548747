#include "settings/clsMRU.h"

#include "settings/Settings.h"
#include "support/clsPaths.h"
#include "support/cRegistry.h"
#include "support/Desktop.h"
#include "support/Files.h"

#include <algorithm>

namespace settings {

namespace {

constexpr int kSlots = 26;
constexpr char kOrder[] = "Order";

using support::RegistryRoot;

support::cRegistry ValueAt(support::RegistryStore &store, const QString &name,
                           RegistryRoot root = RegistryRoot::CurrentUser) {
    support::cRegistry registry(store);
    registry.ClassKey = static_cast<std::uint32_t>(root);
    registry.SectionKey = QStringLiteral("SOFTWARE\\Tessor\\") + Terms().TITLE + QStringLiteral("\\MRU");
    registry.ValueKey = name;
    registry.Default = QString();
    return registry;
}

QString Slot(int index) { return QString(QChar(u'a' + index)); }

// The slot for a new path when all are taken. The order is looked for under the root of classes on purpose:
// nothing ever writes it there, so the slot is always a, and the lists of all users have grown that way.
QString SlotOfFullList(support::RegistryStore &store) {
    const QString order = ValueAt(store, QLatin1String(kOrder), RegistryRoot::ClassesRoot).Value().toString();
    return order.size() == kSlots ? order.right(1) : Slot(0);
}

QString SlotFor(support::RegistryStore &store, const QString &path) {
    for (int index = 0; index < kSlots; ++index) {
        const QString stored = ValueAt(store, Slot(index)).Value().toString();
        if (stored.isEmpty() || support::IsSameFile(stored, path)) return Slot(index);
    }
    return SlotOfFullList(store);
}

// Lower case where the file system takes that for the same file.
QString ListedForm(const QString &path) {
    const QString lower = path.toLower();
    return support::FileExists(lower) && support::IsSameFile(lower, path) ? lower : path;
}

} // namespace

clsMRU::clsMRU() : clsMRU(support::CurrentDesktop().registry) {}

void clsMRU::AddFile(const QString &path) {
    const QString longName = support::clsPaths().LongName(path);
    const QString slot = SlotFor(store_, longName);
    ValueAt(store_, slot).SetValue(longName);
    support::cRegistry order = ValueAt(store_, QLatin1String(kOrder));
    order.SetValue(slot + order.Value().toString().remove(slot));
}

void clsMRU::RemoveFile(const QString &path) {
    support::cRegistry order = ValueAt(store_, QLatin1String(kOrder));
    QString letters = order.Value().toString();
    for (const QChar letter : QString(letters)) {
        if (!support::IsSameFile(File2(letter), path)) continue;
        ValueAt(store_, QString(letter)).SetValue(QString());
        letters.remove(letter);
    }
    order.SetValue(letters);
}

QString clsMRU::File2(QChar letter) const { return ValueAt(store_, QString(letter)).Value().toString(); }

QString clsMRU::File(int position) const {
    const QString order = ValueAt(store_, QLatin1String(kOrder)).Value().toString();
    if (position < 1 || order.size() < position) return QString();
    return File2(order[position - 1]);
}

QStringList clsMRU::GetFiles(int count, int start) const {
    QStringList files;
    for (int position = std::max(start, 1); position < std::min(count, kSlots); ++position) {
        const QString path = File(position);
        if (path.isEmpty() || !support::FileExists(path)) continue;
        const QString listed = ListedForm(path);
        if (!files.contains(listed)) files.append(listed);
    }
    return files;
}

} // namespace settings
