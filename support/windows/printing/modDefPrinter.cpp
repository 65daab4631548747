#include "support/modDefPrinter.h"

#include <array>
#include <QStringList>
#include <string>

#define WIN32_LEAN_AND_MEAN
#define NOMINMAX
#include <windows.h>

namespace support {

namespace {

// Driver and port, joined by a comma; empty for a device that isn't listed.
QString LineOf(const std::wstring &device) {
    std::array<wchar_t, 1024> line{};
    GetProfileStringW(L"PrinterPorts", device.c_str(), L"", line.data(), static_cast<DWORD>(line.size()));
    return QString::fromWCharArray(line.data());
}

void TellAllWindows() {
    constexpr UINT kPatience = 1000; // milliseconds for a window that doesn't answer
    SendMessageTimeoutW(HWND_BROADCAST, WM_WININICHANGE, 0, reinterpret_cast<LPARAM>(L"windows"),
                        SMTO_ABORTIFHUNG, kPatience, nullptr);
}

} // namespace

void SetDefaultPrinter(const QString &device) {
    const QStringList parts = LineOf(device.toStdWString()).split(u',');
    if (parts.size() < 2) return;
    const QString value = QStringList{device, parts[0], parts[1]}.join(u',');
    WriteProfileStringW(L"windows", L"Device", value.toStdWString().c_str());
    TellAllWindows();
}

} // namespace support
