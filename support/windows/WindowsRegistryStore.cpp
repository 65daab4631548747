#include "support/windows/WindowsRegistryStore.h"

#include <QByteArray>
#include <QtEndian>
#include <string>
#include <vector>

#define WIN32_LEAN_AND_MEAN
#define NOMINMAX
#include <windows.h>

namespace support {

namespace {

constexpr std::size_t kLongestValueName = 16384, kLongestKeyName = 256; // with the zero at their ends

class OpenKey {
public:
    OpenKey(RegistryRoot root, const QString &path, REGSAM access, bool create = false) {
        const auto rootKey = reinterpret_cast<HKEY>(static_cast<LONG_PTR>(static_cast<LONG>(root)));
        const std::wstring section = path.toStdWString();
        const LSTATUS status =
            create ? RegCreateKeyExW(rootKey, section.c_str(), 0, nullptr, 0, access, nullptr, &key_, nullptr)
                   : RegOpenKeyExW(rootKey, section.c_str(), 0, access, &key_);
        if (status != ERROR_SUCCESS) key_ = nullptr;
    }
    ~OpenKey() {
        if (key_) RegCloseKey(key_);
    }
    OpenKey(const OpenKey &) = delete;
    OpenKey &operator=(const OpenKey &) = delete;
    explicit operator bool() const { return key_ != nullptr; }
    HKEY Get() const { return key_; }

private:
    HKEY key_ = nullptr;
};

QString TextOf(const QByteArray &bytes) {
    return QString::fromWCharArray(reinterpret_cast<const wchar_t *>(bytes.constData()),
                                   static_cast<int>(bytes.size() / static_cast<int>(sizeof(wchar_t))));
}

QByteArray BytesOf(const QString &text) {
    const std::wstring wide = text.toStdWString();
    return QByteArray(reinterpret_cast<const char *>(wide.c_str()),
                      static_cast<qsizetype>((wide.size() + 1) * sizeof(wchar_t)));
}

RegistryValue Decoded(DWORD type, const QByteArray &bytes) {
    const auto known = static_cast<RegistryType>(type);
    switch (known) {
    case RegistryType::Number:
        return {known, qFromLittleEndian<quint32>(bytes.leftJustified(4, '\0').constData())};
    case RegistryType::BigEndianNumber:
        return {known, qFromBigEndian<quint32>(bytes.leftJustified(4, '\0').constData())};
    case RegistryType::MultipleStrings:
        return {known, TextOf(bytes).split(QChar(u'\0'), Qt::SkipEmptyParts)};
    case RegistryType::String:
    case RegistryType::ExpandableString: {
        const QString text = TextOf(bytes);
        return {known, text.left(text.indexOf(QChar(u'\0')))};
    }
    default:
        return {RegistryType::Binary, bytes};
    }
}

QByteArray Encoded(const RegistryValue &value) {
    QByteArray bytes(4, '\0');
    switch (value.type) {
    case RegistryType::Number:
        qToLittleEndian(value.data.toUInt(), bytes.data());
        return bytes;
    case RegistryType::BigEndianNumber:
        qToBigEndian(value.data.toUInt(), bytes.data());
        return bytes;
    case RegistryType::Binary:
        return value.data.toByteArray();
    case RegistryType::MultipleStrings:
        return BytesOf(value.data.toStringList().join(QChar(u'\0')) + QChar(u'\0'));
    default:
        return BytesOf(value.data.toString());
    }
}

} // namespace

bool WindowsRegistryStore::KeyExists(RegistryRoot root, const QString &path) {
    return static_cast<bool>(OpenKey(root, path, KEY_READ));
}

bool WindowsRegistryStore::CreateKey(RegistryRoot root, const QString &path) {
    return static_cast<bool>(OpenKey(root, path, KEY_READ | KEY_WRITE, true));
}

bool WindowsRegistryStore::DeleteKey(RegistryRoot root, const QString &path) {
    const auto rootKey = reinterpret_cast<HKEY>(static_cast<LONG_PTR>(static_cast<LONG>(root)));
    return RegDeleteKeyW(rootKey, path.toStdWString().c_str()) == ERROR_SUCCESS;
}

std::optional<RegistryValue> WindowsRegistryStore::Read(RegistryRoot root, const QString &path,
                                                        const QString &name) {
    const OpenKey key(root, path, KEY_READ);
    if (!key) return std::nullopt;
    const std::wstring value = name.toStdWString();
    DWORD type = 0;
    DWORD size = 0;
    if (RegQueryValueExW(key.Get(), value.c_str(), nullptr, &type, nullptr, &size) != ERROR_SUCCESS)
        return std::nullopt;
    QByteArray bytes(static_cast<qsizetype>(size), '\0');
    if (RegQueryValueExW(key.Get(), value.c_str(), nullptr, &type, reinterpret_cast<BYTE *>(bytes.data()),
                         &size) != ERROR_SUCCESS)
        return std::nullopt;
    bytes.truncate(static_cast<qsizetype>(size));
    return Decoded(type, bytes);
}

bool WindowsRegistryStore::Write(RegistryRoot root, const QString &path, const QString &name,
                                 const RegistryValue &value) {
    const OpenKey key(root, path, KEY_READ | KEY_WRITE, true);
    if (!key) return false;
    const QByteArray bytes = Encoded(value);
    return RegSetValueExW(key.Get(), name.toStdWString().c_str(), 0, static_cast<DWORD>(value.type),
                          reinterpret_cast<const BYTE *>(bytes.constData()),
                          static_cast<DWORD>(bytes.size())) == ERROR_SUCCESS;
}

bool WindowsRegistryStore::DeleteValue(RegistryRoot root, const QString &path, const QString &name) {
    const OpenKey key(root, path, KEY_WRITE);
    return key && RegDeleteValueW(key.Get(), name.toStdWString().c_str()) == ERROR_SUCCESS;
}

QStringList WindowsRegistryStore::Values(RegistryRoot root, const QString &path) {
    const OpenKey key(root, path, KEY_READ);
    QStringList names;
    std::vector<wchar_t> name(kLongestValueName);
    for (DWORD index = 0; key; ++index) {
        auto size = static_cast<DWORD>(name.size());
        if (RegEnumValueW(key.Get(), index, name.data(), &size, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS)
            break;
        names.append(QString::fromWCharArray(name.data(), static_cast<int>(size)));
    }
    return names;
}

QStringList WindowsRegistryStore::Sections(RegistryRoot root, const QString &path) {
    const OpenKey key(root, path, KEY_READ);
    QStringList names;
    std::vector<wchar_t> name(kLongestKeyName);
    for (DWORD index = 0; key; ++index) {
        auto size = static_cast<DWORD>(name.size());
        if (RegEnumKeyExW(key.Get(), index, name.data(), &size, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS)
            break;
        names.append(QString::fromWCharArray(name.data(), static_cast<int>(size)));
    }
    return names;
}

} // namespace support
