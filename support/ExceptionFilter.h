// The last resort for hardware exceptions and for errors that nothing caught: the process never ends
// silently.
//
// On Windows the filter is the process's unhandled exception filter. On POSIX systems it handles the
// synchronous signals, and that of an abort, on a stack of its own. There no error can be raised in the code
// that was running, for it was interrupted between any two instructions and may hold any lock; so the handler
// writes "Error NAME" to stderr, starts a fresh process that shows the same in a message box, and lets the
// signal end this one. Nowhere does the program go on: what isn't saved stands in the journals of the windows
// (recovery/), which the next start offers.
#pragma once

#include "support/Error.h"

#include <cstdint>
#include <optional>
#include <QString>
#include <QStringList>

namespace support {

// The code of the last record of a chain, in which `next` leads to the exception that a record followed from.
template <typename Record, typename Next, typename Code>
std::uint32_t InnermostCode(const Record *record, Next Record::*next, Code Record::*code) {
    while (record->*next) record = record->*next;
    return std::uint32_t(record->*code);
}

// The code under which a process that aborts itself is told.
constexpr std::uint32_t kAbortCode = 0xC0000025;

// The name of a code: "Access Violation" and the like, "Unknown (&HXXXXXXXX)" for a code that the table
// lacks.
QString GetExceptionName(std::uint32_t code);
// The same as static text, null for a code that the table lacks; safe in a signal handler.
const char *KnownExceptionName(std::uint32_t code) noexcept;

// What the filter gives back to the system.
enum class FilterResult { EndProcess = 0, ExecuteHandler = 1 };

// What the box says of a hardware exception: "Error " and its name.
QString FaultText(std::uint32_t code);

// With the first form visible the process ends without the system's own report: the box has told the user.
FilterResult FilterDecision(bool firstFormVisible);

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
