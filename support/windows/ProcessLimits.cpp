#include "support/ProcessLimits.h"

#include <windows.h>

namespace support {

namespace {
constexpr LONGLONG kTicksPerSecond = 10000000; // of 100 nanoseconds
}

void LimitProcess(qint64 memoryBytes, int seconds) {
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
    const HANDLE job = CreateJobObjectW(nullptr, nullptr);
    if (!job) return;
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_PROCESS_MEMORY | JOB_OBJECT_LIMIT_PROCESS_TIME;
    limits.BasicLimitInformation.PerProcessUserTimeLimit.QuadPart = seconds * kTicksPerSecond;
    limits.ProcessMemoryLimit = static_cast<SIZE_T>(memoryBytes);
    if (SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits))
        AssignProcessToJobObject(job, GetCurrentProcess());
}

} // namespace support
