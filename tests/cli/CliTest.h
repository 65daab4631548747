// What the tests of the commands share: a folder for files, which is the program's folder too, a map, and
// what a command says.
#pragma once

#include "cli/Commands.h"
#include "storage/Database.h"
#include "tests/document/ProgramFolder.h"
#include "tests/Paths.h"

#include <gtest/gtest.h>
#include <QTextStream>

namespace cli::testing {

// An old Jet map of three slices.
inline const QString kPlan = tests::Data(QStringLiteral("jet/plan.mdb"));

class CliTest : public ::testing::Test {
protected:
    QString Path(const char *name) const { return folder_.File(QString::fromUtf8(name)); }
    // What the process would end with; fills `out` and `err`.
    int Run(const QStringList &arguments) {
        out.clear();
        err.clear();
        QTextStream outStream(&out), errStream(&err);
        return cli::Run(arguments, outStream, errStream);
    }
    // That map in the program's own form.
    QString Map(const char *name) {
        EXPECT_EQ(Run({"convert", kPlan, Path(name)}), kGood) << err.toStdString();
        return Path(name);
    }
    static void Execute(const QString &map, const QStringList &statements) {
        storage::Database database = storage::OpenDatabase(map);
        for (const QString &sql : statements) database.Execute(sql);
    }
    // What a query of one number gives.
    static int Number(const QString &map, const QString &sql) {
        return int(storage::OpenDatabase(map).OpenRecordset(sql).Long(0));
    }

    document::testing::ProgramFolder folder_;
    QString out, err;
};

} // namespace cli::testing
