// What the tests of the command line share: a folder for files, in which the program takes itself to stand,
// and what a command says.
#pragma once

#include "cli/Commands.h"
#include "tests/document/ProgramFolder.h"

#include <gtest/gtest.h>
#include <QTextStream>

namespace cli::testing {

class CliTest : public ::testing::Test {
protected:
    QString Path(const char *name) const { return folder_.File(QString::fromUtf8(name)); }
    int Run(const QStringList &arguments) {
        out.clear();
        err.clear();
        QTextStream outStream(&out), errStream(&err);
        return cli::Run(arguments, outStream, errStream);
    }
    document::testing::ProgramFolder folder_;
    QString out, err;
};

} // namespace cli::testing
