#include "support/ExceptionFilter.h"

#include <array>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <pthread.h>
#include <QByteArray>
#include <QFile>
#include <sys/resource.h>
#ifdef __linux__
#include <sys/auxv.h>
#endif
#include <unistd.h>
#include <vector>

extern char **environ;

namespace support {

namespace {

struct SignalCode {
    int signal;
    int reason; // kAnyReason: every other reason of the signal
    std::uint32_t code;
};
constexpr int kAnyReason = -1000;
constexpr SignalCode kSignalCodes[] = {
    {SIGFPE, FPE_INTDIV, 0xC0000094},  {SIGFPE, FPE_INTOVF, 0xC0000095},  {SIGFPE, FPE_FLTDIV, 0xC000008E},
    {SIGFPE, FPE_FLTOVF, 0xC0000091},  {SIGFPE, FPE_FLTUND, 0xC0000093},  {SIGFPE, FPE_FLTRES, 0xC000008F},
    {SIGFPE, FPE_FLTSUB, 0xC000008C},  {SIGFPE, kAnyReason, 0xC0000090},  {SIGSEGV, kAnyReason, 0xC0000005},
    {SIGBUS, BUS_ADRALN, 0x80000002},  {SIGBUS, kAnyReason, 0xC0000006},  {SIGILL, ILL_PRVOPC, 0xC0000096},
    {SIGILL, ILL_PRVREG, 0xC0000096},  {SIGILL, ILL_BADSTK, 0xC00000FD},  {SIGILL, kAnyReason, 0xC000001D},
    {SIGTRAP, TRAP_TRACE, 0x80000004}, {SIGTRAP, kAnyReason, 0x80000003}, {SIGABRT, kAnyReason, kAbortCode},
};
constexpr std::array kHandledSignals = {SIGFPE, SIGSEGV, SIGBUS, SIGILL, SIGTRAP, SIGABRT};
constexpr std::uint32_t kAccessViolation = 0xC0000005;
constexpr std::uint32_t kStackOverflow = 0xC00000FD;

// Everything that the handler touches is made before it can run and never changed.
struct HandlerState;
HandlerState *state = nullptr;

struct HandlerState {
    HandlerState() = default;
    HandlerState(const HandlerState &) = delete;
    HandlerState &operator=(const HandlerState &) = delete;
    ~HandlerState() { state = nullptr; }

    std::array<char, 65536> stack{};
    std::uintptr_t stackEnd = 0; // the lowest address that the thread's stack may grow to; 0 when unknown
    std::vector<QByteArray> words;
    std::vector<char *> arguments; // ends in a place for the text and a null
};

void Write(const char *text) noexcept {
    // There is no one to tell of a failure.
    [[maybe_unused]] const ssize_t count = write(STDERR_FILENO, text, std::strlen(text));
}

pid_t ForkSafely() noexcept {
#if defined(__GLIBC__) && (__GLIBC__ > 2 || (__GLIBC__ == 2 && __GLIBC_MINOR__ >= 34))
    return _Fork();
#else
    return fork();
#endif
}

// Starts the program that shows `text`, and doesn't wait for it. Calls only what a signal handler may.
void StartFaultBox(char *text) noexcept {
    if (!state || state->arguments.empty() || ForkSafely() != 0) return;
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    state->arguments[state->arguments.size() - 2] = text;
    execve(state->arguments[0], state->arguments.data(), environ);
    _exit(127);
}

// Whether an access to the address looks like an overrun of the stack. It may fail somewhat below the stack's
// end, as the frame of one call can be large, and somewhat above it, as the end is an estimate.
bool IsAtStackEnd(const void *address) noexcept {
    constexpr std::uintptr_t kBelow = 2 << 20, kAbove = 1 << 20; // bytes
    const auto place = reinterpret_cast<std::uintptr_t>(address);
    return state && state->stackEnd != 0 && place + kBelow > state->stackEnd &&
           place < state->stackEnd + kAbove;
}

void Handle(int signal, siginfo_t *information, void *) {
    std::uint32_t code = CodeForSignal(signal, information->si_code);
    if (code == kAccessViolation && information->si_code > 0 && IsAtStackEnd(information->si_addr))
        code = kStackOverflow;
    std::array<char, 64> text{"Error "};
    std::strncat(text.data(), KnownExceptionName(code), text.size() - std::strlen(text.data()) - 1);
    Write(text.data());
    Write("\n");
    StartFaultBox(text.data());
    // Raised again: the signal's default action ends the process once this handler has returned.
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

QByteArray TextOfCurrentException() {
    if (!std::current_exception()) return "Error Unknown exception";
    const Error error = CurrentError(QStringLiteral("Main"));
    return ReportText(error).toUtf8();
}

[[noreturn]] void Terminate() {
    QByteArray text = TextOfCurrentException();
    Write(QByteArray(text).replace('\r', ' ').constData());
    Write("\n");
    StartFaultBox(text.data());
    std::signal(SIGABRT, SIG_DFL); // the error was told above: the handler must not tell of an abort as well
    std::abort();
}

#ifdef __linux__
// The program's name stands at the very top of the first thread's stack, and the limit tells how far it may
// grow. pthread_getattr_np would tell the end too, but for this thread reads the list of everything mapped,
// which would delay the start.
std::uintptr_t LowestOfFirstStack() {
    const std::uintptr_t top = getauxval(AT_EXECFN);
    rlimit limit{};
    const bool known = gettid() == getpid() && top != 0 && getrlimit(RLIMIT_STACK, &limit) == 0;
    return known && limit.rlim_cur < top ? top - limit.rlim_cur : 0;
}
#endif

std::uintptr_t LowestStackAddress() {
#ifdef __linux__
    if (const std::uintptr_t lowest = LowestOfFirstStack()) return lowest;
    pthread_attr_t attributes;
    if (pthread_getattr_np(pthread_self(), &attributes) != 0) return 0;
    void *lowest = nullptr;
    std::size_t size = 0;
    pthread_attr_getstack(&attributes, &lowest, &size);
    pthread_attr_destroy(&attributes);
    return reinterpret_cast<std::uintptr_t>(lowest);
#else
    const auto top = reinterpret_cast<std::uintptr_t>(pthread_get_stackaddr_np(pthread_self()));
    return top - pthread_get_stacksize_np(pthread_self());
#endif
}

void PrepareState(const FaultBox &box) {
    static HandlerState prepared;
    prepared.stackEnd = LowestStackAddress();
    prepared.words.clear();
    prepared.arguments.clear();
    if (!box.program.isEmpty()) {
        prepared.words.push_back(QFile::encodeName(box.program));
        for (const QString &argument : box.arguments) prepared.words.push_back(argument.toLocal8Bit());
        for (QByteArray &word : prepared.words) prepared.arguments.push_back(word.data());
        prepared.arguments.insert(prepared.arguments.end(), 2, nullptr);
    }
    state = &prepared;
}

} // namespace

std::uint32_t CodeForSignal(int signal, int reason) noexcept {
    for (const SignalCode &row : kSignalCodes)
        if (row.signal == signal && (row.reason == reason || row.reason == kAnyReason)) return row.code;
    return 0;
}

void InstallExceptionFilter(const FaultBox &box) {
    PrepareState(box);
    stack_t alternate{};
    alternate.ss_sp = state->stack.data();
    alternate.ss_size = state->stack.size();
    sigaltstack(&alternate, nullptr);
    struct sigaction action {};
    action.sa_sigaction = Handle;
    action.sa_flags = SA_SIGINFO | SA_ONSTACK;
    sigemptyset(&action.sa_mask);
    for (const int signal : kHandledSignals) sigaction(signal, &action, nullptr);
    std::set_terminate(Terminate);
}

} // namespace support
