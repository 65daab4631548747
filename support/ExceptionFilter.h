// The last resort for hardware exceptions and for errors that nothing caught: the process never ends
// silently.
//
// On Windows the filter is the process's unhandled exception filter. On POSIX systems it handles the
// synchronous signals on a stack of its own. There no error can be raised in the code that was running, for
// it was interrupted between any two instructions and may hold any lock; so the handler writes "Error NAME"
// to stderr, starts a fresh process that shows the same in a message box, and lets the signal end this one.
#pragma once

#include "support/Error.h"

#include <cstdint>
#include <optional>
#include <QString>
#include <QStringList>

namespace support {

class MessageBoxes;

constexpr long kErrHardwareException = 10000;

// A hardware exception, with the one that it followed from.
struct ExceptionRecord {
    std::uint32_t code = 0;
    const ExceptionRecord *next = nullptr;
};

// The code of the last record of the chain.
std::uint32_t InnermostCode(const ExceptionRecord &record);
// The name of a code: "Access Violation" and the like, "Unknown (&HXXXXXXXX)" for a code that the table
// lacks.
QString GetExceptionName(std::uint32_t code);
// The same as static text, null for a code that the table lacks; safe in a signal handler.
const char *KnownExceptionName(std::uint32_t code) noexcept;

// What the filter gives back to the system.
enum class FilterResult { EndProcess = 0, ExecuteHandler = 1 };

// An error goes on in the code that was running only when at least one form is open and the first one is
// visible.
FilterResult FilterDecision(bool firstFormVisible);

// Shows "Error " and the name of the innermost code. With the first form visible it then raises error 10000,
// source "MyExceptionFilter", with the name as its description; otherwise gives EndProcess.
FilterResult MyExceptionFilter(const ExceptionRecord &record, MessageBoxes &boxes, bool firstFormVisible);

// The code for a POSIX signal and the reason in its si_code; 0 for a signal that the filter leaves alone.
std::uint32_t CodeForSignal(int signal, int reason) noexcept;

// The program that shows the box of a process that is about to end: run with the arguments and, behind them,
// the text. An empty program means none: the message goes to stderr alone.
struct FaultBox {
    QString program;
    QStringList arguments;
};

// The argument by which this program is asked to show a fault box and end.
inline constexpr char kShowFaultArgument[] = "--show-fault";
// This executable with that argument.
FaultBox OwnFaultBox();
// The text to show when the command line (with the program's name first) asks for a fault box.
std::optional<QString> FaultToShow(const QStringList &commandLine);

// Installs the filter, and a handler for std::terminate that reports the error being handled the same way. To
// be called once, at the start of main, from the thread that runs the event loop.
void InstallExceptionFilter(const FaultBox &box);

} // namespace support
