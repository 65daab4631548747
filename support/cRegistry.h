// The one gate to the registry: set where it points, then read or write its value.
#pragma once

#include "support/RegistryStore.h"

#include <cstdint>
#include <map>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <vector>

namespace support {

constexpr long kErrRegistry = 26001;

// A further verb of a file type: name of its key, text in the menu, and the switch before the file on the
// command line, such as "/p".
struct AssociationVerb {
    QString name;
    QString text;
    QString commandSwitch;
};

// What CreateEXEAssociation writes besides the open verb. An empty text takes the default.
struct AssociationOptions {
    QString openText;
    bool print = false;
    QString printText;
    bool add = false;
    QString addText;
    bool createNew = false;
    QString newText;
};

// Reading never raises. Failures of writing, creating and deleting raise error 26001 with the source
// "NAME.cRegistry", NAME being the application's, and a text that names the root, the section and the value.
class cRegistry {
public:
    // On the store of the current desktop.
    cRegistry();
    // The store must outlive the object.
    explicit cRegistry(RegistryStore &store) : store_(store) {}

    std::uint32_t ClassKey = static_cast<std::uint32_t>(RegistryRoot::CurrentUser);
    QString SectionKey;
    QString ValueKey;
    RegistryType ValueType = RegistryType::String;
    QVariant Default;

    // The value by the type it was stored with: text, expanded text, signed 32-bit number or bytes; multiple
    // strings as their first. `Default` when it is absent.
    QVariant Value() const;
    // Writes by ValueType; a text with two % signs becomes expandable. Error 13 "Type mismatch" for a number
    // that is none.
    void SetValue(const QVariant &value);
    // Writes several values of the section at once, each under its name, by ValueType; ValueKey has no part.
    void SetValues(const std::map<QString, QVariant> &values);

    bool KeyExists() const;
    void CreateKey();
    void DeleteKey();
    void DeleteValue();
    // False when the section does not exist; names and count are then empty and 0.
    bool EnumerateValues(QStringList &names, long &count) const;
    bool EnumerateSections(QStringList &names, long &count) const;

    // Registers `path` as the program for files with `extension` (without a point) under `className`, in the
    // machine's root. Leaves the properties of this object as they were.
    void CreateEXEAssociation(const QString &path, const QString &className, const QString &description,
                              const QString &extension, const AssociationOptions &options = {});
    // Adds verbs that start `path` to an association.
    void CreateAdditionalEXEAssociations(const QString &path, const QString &className,
                                         const std::vector<AssociationVerb> &verbs);

private:
    RegistryRoot Root() const { return static_cast<RegistryRoot>(ClassKey); }
    RegistryStore &store_;
};

} // namespace support
