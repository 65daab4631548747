// velmora-jetread SOURCE TARGET: reads the Jet file SOURCE and writes its tables into the new database
// TARGET. With --salvage in front: what can be read of them, going on behind the last table that TARGET has.
// The exit code tells the result; a program of its own, because the library may crash or hang on a damaged
// file.
#include "storage/jet/CopyTables.h"
#include "storage/jet/Failure.h"
#include "storage/JetExitCodes.h"
#include "support/ProcessLimits.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <QFile>
#include <sqlite3.h>
#include <SQLiteCpp/Exception.h>

namespace {

using namespace storage::jet;

int Fail(int code, const char *what) {
    std::fprintf(stderr, "velmora-jetread: %s\n", what);
    return code;
}

int Read(const QString &source, const QString &target, bool salvage) {
    try {
        JetFile file(source, salvage ? Reading::WhatCanBeRead : Reading::Whole);
        salvage ? CopyWhatCanBeRead(file, target) : CopyTables(file, target);
        return kExitDone;
    } catch (const NotRecognised &error) {
        return Fail(kExitNotRecognised, error.what());
    } catch (const SQLite::Exception &error) {
        const int code = error.getErrorCode();
        return Fail(code == SQLITE_FULL || code == SQLITE_IOERR ? kExitNoSpace : kExitDamaged, error.what());
    } catch (const std::exception &error) {
        return Fail(kExitDamaged, error.what());
    }
}

} // namespace

int main(int count, char **arguments) {
    constexpr qint64 kMemory = qint64(1) << 30;
    constexpr int kSeconds = 30;
    const bool salvage = count > 1 && std::strcmp(arguments[1], "--salvage") == 0;
    const int first = salvage ? 2 : 1; // of the two paths
    if (count != first + 2) return Fail(kExitUsage, "two paths are needed");
    support::LimitProcess(kMemory, kSeconds);
    for (const char *name : {"MDBICONV", "MDBOPTS", "MDBPATH", "MDB_JET3_CHARSET"}) qunsetenv(name);
    return Read(QFile::decodeName(arguments[first]), QFile::decodeName(arguments[first + 1]), salvage);
}
