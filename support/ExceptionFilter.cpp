#include "support/ExceptionFilter.h"

#include "support/Files.h"
#include "support/Platform.h"

namespace support {

namespace {

struct ExceptionName {
    std::uint32_t code;
    const char *name;
};
constexpr ExceptionName kExceptionNames[] = {
    {0x80000001, "Guard Page Violation"},
    {0x80000002, "Data Type Misalignment"},
    {0x80000003, "Breakpoint"},
    {0x80000004, "Single Step"},
    {0xC0000005, "Access Violation"},
    {0xC0000006, "In Page Error"},
    {0xC0000008, "Invalid Handle"},
    {0xC000001D, "Illegal Instruction"},
    {0xC0000025, "Non Continuable Exception"},
    {0xC0000026, "Invalid Disposition"},
    {0xC000008C, "Array Bounds Exceeded"},
    {0xC000008D, "Float Denormal Operand"},
    {0xC000008E, "Divide By Zero"},
    {0xC000008F, "Floating Point Inexact Result"},
    {0xC0000090, "Invalid Operation"},
    {0xC0000091, "Float Overflow"},
    {0xC0000092, "Float Stack Check"},
    {0xC0000093, "Float Underflow"},
    {0xC0000094, "Integer Divide By Zero"},
    {0xC0000095, "Integer Overflow"},
    {0xC0000096, "Privileged Instruction"},
    {0xC00000FD, "Stack Overflow"},
    {0xC000013A, "Control-C Exit"},
};

} // namespace

const char *KnownExceptionName(std::uint32_t code) noexcept {
    for (const ExceptionName &row : kExceptionNames)
        if (row.code == code) return row.name;
    return nullptr;
}

QString GetExceptionName(std::uint32_t code) {
    if (const char *name = KnownExceptionName(code)) return QString::fromLatin1(name);
    const QString digits = QStringLiteral("%1").arg(code, 8, 16, QLatin1Char('0')).toUpper();
    return QStringLiteral("Unknown (&H%1)").arg(digits);
}

FilterResult FilterDecision(bool firstFormVisible) {
    return firstFormVisible ? FilterResult::ExecuteHandler : FilterResult::EndProcess;
}

QString FaultText(std::uint32_t code) { return QStringLiteral("Error ") + GetExceptionName(code); }

FaultBox OwnFaultBox() { return {platform::ExecutablePath(), {QString::fromLatin1(kShowFaultArgument)}}; }

std::optional<QString> FaultToShow(const QStringList &commandLine) {
    if (commandLine.size() != 3 || commandLine[1] != QLatin1String(kShowFaultArgument)) return std::nullopt;
    return commandLine[2];
}

} // namespace support
