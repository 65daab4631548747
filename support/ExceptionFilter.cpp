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
    {faults::kGuardPage, "Guard Page Violation"},
    {faults::kMisalignment, "Data Type Misalignment"},
    {faults::kBreakpoint, "Breakpoint"},
    {faults::kSingleStep, "Single Step"},
    {faults::kAccessViolation, "Access Violation"},
    {faults::kInPageError, "In Page Error"},
    {faults::kInvalidHandle, "Invalid Handle"},
    {faults::kIllegalInstruction, "Illegal Instruction"},
    {faults::kNonContinuable, "Non Continuable Exception"},
    {faults::kInvalidDisposition, "Invalid Disposition"},
    {faults::kArrayBounds, "Array Bounds Exceeded"},
    {faults::kFloatDenormal, "Float Denormal Operand"},
    {faults::kFloatDivideByZero, "Divide By Zero"},
    {faults::kFloatInexact, "Floating Point Inexact Result"},
    {faults::kFloatInvalid, "Invalid Operation"},
    {faults::kFloatOverflow, "Float Overflow"},
    {faults::kFloatStackCheck, "Float Stack Check"},
    {faults::kFloatUnderflow, "Float Underflow"},
    {faults::kIntegerDivideByZero, "Integer Divide By Zero"},
    {faults::kIntegerOverflow, "Integer Overflow"},
    {faults::kPrivilegedInstruction, "Privileged Instruction"},
    {faults::kStackOverflow, "Stack Overflow"},
    {faults::kControlC, "Control-C Exit"},
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
