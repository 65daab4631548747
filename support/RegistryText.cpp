#include "support/RegistryText.h"

#include <algorithm>
#include <optional>
#include <QStringList>

namespace support {

namespace {

struct TypeName {
    RegistryType type;
    const char *name;
};
constexpr TypeName kTypeNames[] = {
    {RegistryType::String, "string"},
    {RegistryType::ExpandableString, "expand"},
    {RegistryType::Binary, "binary"},
    {RegistryType::Number, "number"},
    {RegistryType::BigEndianNumber, "bigendian"},
    {RegistryType::MultipleStrings, "strings"},
};

struct Escape {
    char16_t character;
    char16_t letter;
};
constexpr Escape kEscapes[] = {{u'\\', u'\\'}, {u'"', u'"'}, {u'\n', u'n'}, {u'\r', u'r'}, {u'\t', u't'}};

constexpr char kDefaultValueName = '@';
constexpr char kComment[] =
    "; Settings of the editor. Values may be edited while no program that uses them runs.\n";

QString Quoted(const QString &text) {
    QString quoted(u'"');
    for (const QChar character : text) {
        const auto *escape = std::find_if(std::begin(kEscapes), std::end(kEscapes),
                                          [&](const Escape &row) { return row.character == character; });
        if (escape != std::end(kEscapes))
            quoted.append(u'\\').append(QChar(escape->letter));
        else if (character.unicode() < 0x20 || character.isSurrogate() || character.unicode() == 0x2028)
            quoted.append(QStringLiteral("\\u%1").arg(character.unicode(), 4, 16, QLatin1Char('0')));
        else
            quoted.append(character);
    }
    return quoted.append(u'"');
}

QString DataText(const RegistryValue &value) {
    switch (value.type) {
    case RegistryType::Binary:
        return QString::fromLatin1(value.data.toByteArray().toHex());
    case RegistryType::Number:
    case RegistryType::BigEndianNumber:
        return QString::number(value.data.toUInt());
    case RegistryType::MultipleStrings: {
        QStringList texts;
        for (const QString &text : value.data.toStringList()) texts.append(Quoted(text));
        return texts.join(u',');
    }
    default:
        return Quoted(value.data.toString());
    }
}

QString TypeText(RegistryType type) {
    for (const TypeName &row : kTypeNames)
        if (row.type == type) return QString::fromLatin1(row.name);
    return QString::fromLatin1(kTypeNames[0].name);
}

// Walks over one line. A Take... that doesn't find what it is called after gives nothing; the caller then
// leaves the line out.
class LineReader {
public:
    explicit LineReader(const QString &line) : line_(line) {}

    bool Take(char16_t character) {
        if (at_ >= line_.size() || line_[at_] != character) return false;
        ++at_;
        return true;
    }
    QString Rest() const { return line_.mid(at_); }
    bool AtEnd() const { return at_ >= line_.size(); }

    std::optional<QString> TakeQuoted() {
        if (!Take(u'"')) return std::nullopt;
        QString text;
        while (!Take(u'"')) {
            if (AtEnd()) return std::nullopt;
            const std::optional<QChar> character = TakeCharacter();
            if (!character) return std::nullopt;
            text.append(*character);
        }
        return text;
    }

    std::optional<QString> TakeName() { return Take(kDefaultValueName) ? QStringLiteral("") : TakeQuoted(); }

    std::optional<RegistryType> TakeType() {
        for (const TypeName &row : kTypeNames) {
            const QString start = QString::fromLatin1(row.name) + u':';
            if (line_.mid(at_).startsWith(start)) {
                at_ += start.size();
                return row.type;
            }
        }
        return std::nullopt;
    }

private:
    std::optional<QChar> TakeCharacter() {
        const QChar character = line_[at_++];
        if (character != u'\\') return character;
        if (AtEnd()) return std::nullopt;
        const QChar letter = line_[at_++];
        for (const Escape &row : kEscapes)
            if (letter == row.letter) return QChar(row.character);
        if (letter != u'u') return std::nullopt;
        bool ok = false;
        const ushort code = line_.mid(at_, 4).toUShort(&ok, 16);
        at_ += 4;
        return ok ? std::optional<QChar>(code) : std::nullopt;
    }

    const QString &line_;
    qsizetype at_ = 0;
};

std::optional<QVariant> TakeTexts(LineReader &reader) {
    QStringList texts;
    if (reader.AtEnd()) return texts;
    do {
        const std::optional<QString> text = reader.TakeQuoted();
        if (!text) return std::nullopt;
        texts.append(*text);
    } while (reader.Take(u','));
    return texts;
}

std::optional<QVariant> TakeData(LineReader &reader, RegistryType type) {
    if (type == RegistryType::Binary) return QByteArray::fromHex(reader.Rest().toLatin1());
    if (type == RegistryType::Number || type == RegistryType::BigEndianNumber) {
        bool ok = false;
        const quint32 number = reader.Rest().toUInt(&ok);
        return ok ? std::optional<QVariant>(number) : std::nullopt;
    }
    if (type == RegistryType::MultipleStrings) return TakeTexts(reader);
    const std::optional<QString> text = reader.TakeQuoted();
    return text ? std::optional<QVariant>(*text) : std::nullopt;
}

void ReadValueLine(const QString &line, RegistryTree::Key &key) {
    LineReader reader(line);
    const std::optional<QString> name = reader.TakeName();
    if (!name || !reader.Take(u'=')) return;
    const std::optional<RegistryType> type = reader.TakeType();
    if (!type) return;
    const std::optional<QVariant> data = TakeData(reader, *type);
    if (data) key[*name] = RegistryValue{*type, *data};
}

} // namespace

QByteArray WriteRegistryText(const RegistryTree &tree) {
    QString text = QString::fromLatin1(kComment);
    for (const auto &[path, key] : tree.Keys()) {
        text += QStringLiteral("\n[") + path + QStringLiteral("]\n");
        for (const auto &[name, value] : key)
            text += (name.isEmpty() ? QString(QLatin1Char(kDefaultValueName)) : Quoted(name)) + u'=' +
                    TypeText(value.type) + u':' + DataText(value) + u'\n';
    }
    return text.toUtf8();
}

RegistryTree ReadRegistryText(const QByteArray &text) {
    RegistryTree tree;
    RegistryTree::Key *key = nullptr;
    for (const QString &whole : QString::fromUtf8(text).split(u'\n')) {
        const QString line = whole.trimmed();
        if (line.size() > 2 && line.startsWith(u'[') && line.endsWith(u']'))
            key = &tree.Create(line.mid(1, line.size() - 2));
        else if (key)
            ReadValueLine(line, *key);
    }
    return tree;
}

} // namespace support
