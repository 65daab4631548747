#include "support/cRegistry.h"

#include "support/Desktop.h"
#include "support/Error.h"
#include "support/Val.h"

#include <QCoreApplication>
#include <QRegularExpression>

namespace support {

namespace {

constexpr char kClasses[] = "SOFTWARE\\Classes\\";

[[noreturn]] void Raise(const QString &description) {
    throw Error(kErrRegistry, QCoreApplication::applicationName() + QStringLiteral(".cRegistry"),
                description);
}

QString UpToTerminator(const QString &text) {
    const qsizetype end = text.indexOf(QChar(u'\0'));
    return end < 0 ? text : text.left(end);
}

// Puts the environment's values in place of %NAME%; a name that the environment lacks stays as it is.
QString Expanded(const QString &text) {
    static const QRegularExpression name(QStringLiteral("%([^%]+)%"));
    QString result;
    qsizetype from = 0;
    for (auto matches = name.globalMatch(text); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        const QByteArray variable = match.captured(1).toLocal8Bit();
        result += text.mid(from, match.capturedStart() - from);
        result += qEnvironmentVariableIsSet(variable.constData()) ? qEnvironmentVariable(variable.constData())
                                                                  : match.captured(0);
        from = match.capturedEnd();
    }
    return result + text.mid(from);
}

QVariant PlainValue(const RegistryValue &value) {
    switch (value.type) {
    case RegistryType::String:
        return UpToTerminator(value.data.toString());
    case RegistryType::MultipleStrings:
        return UpToTerminator(value.data.toStringList().value(0));
    case RegistryType::ExpandableString:
        return Expanded(UpToTerminator(value.data.toString()));
    case RegistryType::Number:
    case RegistryType::BigEndianNumber:
        return static_cast<qint32>(value.data.toUInt());
    case RegistryType::Binary:
        return value.data.toByteArray();
    }
    return QVariant();
}

quint32 NumberOf(const QVariant &value) {
    bool ok = false;
    const double number = value.toString().toDouble(&ok);
    if (!ok && value.typeId() != QMetaType::Bool)
        support::Raise(kErrTypeMismatch, QStringLiteral("cRegistry"));
    if (!ok) return value.toBool() ? 1 : 0;
    if (number > INT32_MAX && number <= UINT32_MAX) return static_cast<quint32>(number);
    return static_cast<quint32>(CLng(number));
}

RegistryValue TypedValue(RegistryType type, const QVariant &value) {
    switch (type) {
    case RegistryType::Binary:
        return {type, value.toByteArray()};
    case RegistryType::Number:
    case RegistryType::BigEndianNumber:
        return {type, NumberOf(value)};
    case RegistryType::MultipleStrings:
        return {type, value.typeId() == QMetaType::QStringList ? value.toStringList()
                                                               : QStringList{value.toString()}};
    default:
        break;
    }
    const QString text = value.toString();
    const bool expandable = text.count(u'%') >= 2;
    return {expandable ? RegistryType::ExpandableString : type, text};
}

QString WithQuotes(const QString &path) {
    QString quoted = path.trimmed();
    if (!quoted.startsWith(u'"')) quoted.prepend(u'"');
    if (!quoted.endsWith(u'"') || quoted.size() == 1) quoted.append(u'"');
    return quoted;
}

QString OrDefault(const QString &text, const QString &defaultText) {
    return text.isEmpty() ? defaultText : text;
}

// Writes texts below the classes of the machine, each as the default value of its key.
class ClassWriter {
public:
    explicit ClassWriter(RegistryStore &store) : registry_(store) {
        registry_.ClassKey = static_cast<std::uint32_t>(RegistryRoot::LocalMachine);
    }
    void Write(const QString &path, const QString &text) {
        registry_.SectionKey = QString::fromLatin1(kClasses) + path;
        registry_.SetValue(text);
    }
    void WriteVerb(const QString &className, const AssociationVerb &verb, const QString &program) {
        const QString section = className + QStringLiteral("\\shell\\") + verb.name;
        Write(section, verb.text);
        const QString command = verb.commandSwitch.isEmpty() ? program : program + u' ' + verb.commandSwitch;
        Write(section + QStringLiteral("\\command"), command + QStringLiteral(" \"%1\""));
    }

private:
    cRegistry registry_;
};

} // namespace

cRegistry::cRegistry() : cRegistry(CurrentDesktop().registry) {}

QVariant cRegistry::Value() const {
    const std::optional<RegistryValue> value = store_.Read(Root(), SectionKey, ValueKey);
    return value ? PlainValue(*value) : Default;
}

void cRegistry::SetValue(const QVariant &value) { SetValues({{ValueKey, value}}); }

void cRegistry::SetValues(const std::map<QString, QVariant> &values) {
    RegistryValues typed;
    QStringList names, texts;
    for (const auto &[name, value] : values) {
        typed[name] = TypedValue(ValueType, value);
        names.append(name);
        texts.append(value.toString());
    }
    if (!store_.WriteAll(Root(), SectionKey, typed))
        Raise(QStringLiteral("Failed to set registry value Key: '%1',Section: '%2',Key: '%3' to value: '%4'")
                  .arg(RegistryRootName(ClassKey), SectionKey, names.join(u','), texts.join(u',')));
}

bool cRegistry::KeyExists() const { return store_.KeyExists(Root(), SectionKey); }

void cRegistry::CreateKey() {
    if (!store_.CreateKey(Root(), SectionKey))
        Raise(QStringLiteral("Failed to create registry Key: '%1'").arg(RegistryRootName(ClassKey)));
}

void cRegistry::DeleteKey() {
    if (!store_.DeleteKey(Root(), SectionKey))
        Raise(QStringLiteral("Failed to delete registry Key: '%1',Section: '%2'")
                  .arg(RegistryRootName(ClassKey), SectionKey));
}

void cRegistry::DeleteValue() {
    if (!KeyExists())
        Raise(QStringLiteral("Failed to open key '%1',Section: '%2' for delete access")
                  .arg(RegistryRootName(ClassKey), SectionKey));
    if (!store_.DeleteValue(Root(), SectionKey, ValueKey))
        Raise(QStringLiteral("Failed to delete registry Key: '%1',Section: '%2',Key: '%3'")
                  .arg(RegistryRootName(ClassKey), SectionKey, ValueKey));
}

bool cRegistry::EnumerateValues(QStringList &names, long &count) const {
    names = store_.Values(Root(), SectionKey);
    count = static_cast<long>(names.size());
    return KeyExists();
}

bool cRegistry::EnumerateSections(QStringList &names, long &count) const {
    names = store_.Sections(Root(), SectionKey);
    count = static_cast<long>(names.size());
    return KeyExists();
}

void cRegistry::CreateEXEAssociation(const QString &path, const QString &className,
                                     const QString &description, const QString &extension,
                                     const AssociationOptions &options) {
    std::vector<AssociationVerb> verbs{
        {QStringLiteral("open"), OrDefault(options.openText, QStringLiteral("&Open")), QString()}};
    if (options.print)
        verbs.push_back({QStringLiteral("print"), OrDefault(options.printText, QStringLiteral("&Print")),
                         QStringLiteral("/p")});
    if (options.add)
        verbs.push_back({QStringLiteral("add"),
                         OrDefault(options.addText, QStringLiteral("&Install ") + className),
                         QStringLiteral("/a")});
    if (options.createNew)
        verbs.push_back({QStringLiteral("new"), OrDefault(options.newText, QStringLiteral("&New")),
                         QStringLiteral("/n")});
    ClassWriter classes(store_);
    classes.Write(u'.' + extension, className);
    classes.Write(className, description);
    CreateAdditionalEXEAssociations(path, className, verbs);
}

void cRegistry::CreateAdditionalEXEAssociations(const QString &path, const QString &className,
                                                const std::vector<AssociationVerb> &verbs) {
    ClassWriter classes(store_);
    for (const AssociationVerb &verb : verbs) classes.WriteVerb(className, verb, WithQuotes(path));
}

} // namespace support
