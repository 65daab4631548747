#include "support/ExceptionFilter.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>

#define WIN32_LEAN_AND_MEAN
#define NOMINMAX
#include <windows.h>

namespace support {

namespace {

void ShowText(const QString &text) {
    std::fprintf(stderr, "%s\n", qPrintable(text));
    MessageBoxW(nullptr, text.toStdWString().c_str(), L"", MB_OK | MB_TASKMODAL);
}

BOOL CALLBACK TakeFirstVisible(HWND window, LPARAM found) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != GetCurrentProcessId() || !IsWindowVisible(window)) return TRUE;
    *reinterpret_cast<bool *>(found) = true;
    return FALSE;
}

// Whether a window of this process is visible.
bool FirstFormVisible() {
    bool visible = false;
    EnumWindows(TakeFirstVisible, reinterpret_cast<LPARAM>(&visible));
    return visible;
}

LONG WINAPI Filter(EXCEPTION_POINTERS *pointers) {
    ShowText(FaultText(InnermostCode(pointers->ExceptionRecord, &EXCEPTION_RECORD::ExceptionRecord,
                                     &EXCEPTION_RECORD::ExceptionCode)));
    // An error cannot be raised through frames that were interrupted at any instruction: executing the
    // handler ends the process without the system's own report, continuing the search ends it with that.
    return static_cast<LONG>(FilterDecision(FirstFormVisible()));
}

// For abort(), called by the program itself or by a library.
void HandleAbort(int) { ShowText(FaultText(kAbortCode)); }

[[noreturn]] void Terminate() {
    std::signal(SIGABRT, SIG_DFL);
    ShowText(std::current_exception() ? ReportText(CurrentError(QStringLiteral("Main")))
                                      : QStringLiteral("Error Unknown exception"));
    std::abort();
}

} // namespace

std::uint32_t CodeForSignal(int, int) noexcept { return 0; }

void InstallExceptionFilter(const FaultBox &) {
    SetUnhandledExceptionFilter(Filter);
    std::set_terminate(Terminate);
    std::signal(SIGABRT, HandleAbort);
}

} // namespace support
