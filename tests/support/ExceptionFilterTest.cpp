#include "support/ExceptionFilter.h"

#include <gtest/gtest.h>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>
#include <stdexcept>

#ifndef Q_OS_WIN
#include <csignal>
#endif

using namespace support;

namespace {
struct NameRow {
    std::uint32_t code;
    const char *name;
};
constexpr NameRow kNames[] = {
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

TEST(ExceptionFilter, GetExceptionName_KnowsEveryCodeOfTheTable) {
    for (const NameRow &row : kNames) EXPECT_EQ(GetExceptionName(row.code), row.name);
}

TEST(ExceptionFilter, GetExceptionName_WritesAnUnknownCodeWithEightDigits) {
    EXPECT_EQ(GetExceptionName(0xE06D7363), "Unknown (&HE06D7363)");
    EXPECT_EQ(GetExceptionName(0x1a), "Unknown (&H0000001A)");
}

TEST(ExceptionFilter, OfAChainOfExceptionsTheInnermostIsTold) {
    struct Record {
        std::uint32_t code;
        const Record *next;
    };
    const Record inner{0xE06D7363, nullptr};
    const Record middle{0xC0000026, &inner};
    const Record outer{0xC0000005, &middle};
    EXPECT_EQ(FaultText(InnermostCode(&outer, &Record::next, &Record::code)), "Error Unknown (&HE06D7363)");
    EXPECT_EQ(FaultText(InnermostCode(&inner, &Record::next, &Record::code)), "Error Unknown (&HE06D7363)");
    EXPECT_EQ(FaultText(0xC0000094), "Error Integer Divide By Zero");
}

TEST(ExceptionFilter, FilterDecision_EndsTheProcessQuietlyWhileTheFirstFormIsVisible) {
    EXPECT_EQ(FilterDecision(true), FilterResult::ExecuteHandler);
    EXPECT_EQ(FilterDecision(false), FilterResult::EndProcess);
}

TEST(ExceptionFilter, FaultToShow_IsTheTextBehindTheArgument) {
    EXPECT_EQ(FaultToShow({"velmora", "--show-fault", "Error Breakpoint"}), QString("Error Breakpoint"));
    EXPECT_FALSE(FaultToShow({"velmora", "plan.map"}));
    EXPECT_FALSE(FaultToShow({"velmora", "--show-fault"}));
    EXPECT_FALSE(FaultToShow({"velmora"}));
    EXPECT_EQ(OwnFaultBox().arguments, QStringList{"--show-fault"});
    EXPECT_TRUE(QFile::exists(OwnFaultBox().program));
}

#ifndef Q_OS_WIN
TEST(ExceptionFilter, CodeForSignal_TellsTheReasonsApart) {
    EXPECT_EQ(CodeForSignal(SIGFPE, FPE_INTDIV), 0xC0000094);
    EXPECT_EQ(CodeForSignal(SIGFPE, FPE_INTOVF), 0xC0000095);
    EXPECT_EQ(CodeForSignal(SIGFPE, FPE_FLTDIV), 0xC000008E);
    EXPECT_EQ(CodeForSignal(SIGFPE, FPE_FLTOVF), 0xC0000091);
    EXPECT_EQ(CodeForSignal(SIGFPE, FPE_FLTUND), 0xC0000093);
    EXPECT_EQ(CodeForSignal(SIGFPE, FPE_FLTRES), 0xC000008F);
    EXPECT_EQ(CodeForSignal(SIGFPE, FPE_FLTINV), 0xC0000090);
    EXPECT_EQ(CodeForSignal(SIGFPE, FPE_FLTSUB), 0xC000008C);
    EXPECT_EQ(CodeForSignal(SIGSEGV, SEGV_MAPERR), 0xC0000005);
    EXPECT_EQ(CodeForSignal(SIGBUS, BUS_ADRALN), 0x80000002);
    EXPECT_EQ(CodeForSignal(SIGBUS, BUS_ADRERR), 0xC0000006);
    EXPECT_EQ(CodeForSignal(SIGILL, ILL_ILLOPC), 0xC000001D);
    EXPECT_EQ(CodeForSignal(SIGILL, ILL_PRVOPC), 0xC0000096);
    EXPECT_EQ(CodeForSignal(SIGTRAP, TRAP_BRKPT), 0x80000003);
    EXPECT_EQ(CodeForSignal(SIGTRAP, TRAP_TRACE), 0x80000004);
    EXPECT_EQ(CodeForSignal(SIGABRT, 0), 0xC0000025);
    EXPECT_EQ(CodeForSignal(SIGTERM, 0), 0u);
}

namespace {

// Overruns the stack. The result is used, so that no call can be left out.
int Deeper(int level) {
    volatile char block[4096];
    block[0] = static_cast<char>(level);
    if (level < 0) return 0;
    return Deeper(level + 1) + block[0];
}

void Raise() { throw Error(3024, "x", "Could not find file"); }
void Escape() noexcept { Raise(); }

void FaultWithBox(const QString &record) {
    InstallExceptionFilter({"/bin/sh", {"-c", "printf %s \"$0\" > " + record}});
    std::raise(SIGILL);
}

} // namespace

TEST(ExceptionFilterDeathTest, ASignal_IsNamedOnStderrAndEndsTheProcessTheSystemsWay) {
    struct {
        int signal;
        const char *text;
    } constexpr kRows[] = {
        {SIGSEGV, "Error Access Violation"},   {SIGBUS, "Error In Page Error"},
        {SIGILL, "Error Illegal Instruction"}, {SIGFPE, "Error Invalid Operation"},
        {SIGTRAP, "Error Breakpoint"},         {SIGABRT, "Error Non Continuable Exception"}};
    for (const auto &row : kRows)
        EXPECT_EXIT(
            {
                InstallExceptionFilter({});
                std::raise(row.signal);
            },
            ::testing::KilledBySignal(row.signal), row.text);
}

TEST(ExceptionFilterDeathTest, AnOverrunStack_IsNamedOnItsOwnStack) {
    EXPECT_EXIT(
        {
            InstallExceptionFilter({});
            std::exit(Deeper(1));
        },
        ::testing::KilledBySignal(SIGSEGV), "Error Stack Overflow");
}

TEST(ExceptionFilterDeathTest, AnErrorThatNothingCaught_IsReportedBeforeTheEnd) {
    EXPECT_EXIT(
        {
            InstallExceptionFilter({});
            Escape();
        },
        ::testing::KilledBySignal(SIGABRT), "^Could not find file.*Error #3024[^\n]*\n?$"); // told once
}

TEST(ExceptionFilterDeathTest, TheFaultBox_GetsTheTextAsItsLastArgument) {
    const QTemporaryDir folder;
    const QString record = folder.filePath("record");
    EXPECT_EXIT(FaultWithBox(record), ::testing::KilledBySignal(SIGILL), "Error Illegal Instruction");
    // The box is a process of its own; wait for its file.
    QByteArray text;
    for (int attempt = 0; attempt < 2000 && text.isEmpty(); ++attempt) {
        QThread::msleep(5);
        QFile file(record);
        if (file.open(QIODevice::ReadOnly)) text = file.readAll();
    }
    EXPECT_EQ(text, "Error Illegal Instruction");
}
#endif
