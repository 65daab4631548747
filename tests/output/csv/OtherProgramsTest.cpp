// The same slice as spreadsheets save it again.
#include "diagram/model/Surface.h"
#include "tests/output/csv/CsvTest.h"
#include "tests/Paths.h"

#include <QDirIterator>
#include <QProcess>
#include <QStandardPaths>

namespace output::testing {

namespace {

class OtherPrograms : public CsvTest {
protected:
    // What an import of the file into the empty slice gives.
    QStringList Imported(const QString &path) {
        auto plan = Loaded(tests::Data("jet/plan.mdb"));
        diagram::Surface &slice = plan->AddFlow1()[0];
        slice.Nodes().Clear();
        ImportMap(*plan, slice, path);
        return Carried(*plan, slice);
    }
};

// Runs LibreOffice with a profile of its own.
bool Convert(const QString &folder, const QStringList &arguments) {
    QProcess process;
    process.start(
        QStringLiteral("soffice"),
        QStringList{QStringLiteral("-env:UserInstallation=file://%1/profile").arg(folder), "--headless"} +
            arguments);
    return process.waitForFinished(120000) && process.exitCode() == 0;
}

} // namespace

TEST_F(OtherPrograms, WhatTheySaveAgainIsTheSameSlice) {
    const QStringList expected = Imported(tests::Data("csv/plan.csv"));
    EXPECT_GT(expected.size(), 20);
    int files = 0;
    for (QDirIterator walk(tests::Data("csv"), {"*.csv", "*.txt"}); walk.hasNext(); ++files) {
        const QString path = walk.next();
        SCOPED_TRACE(path.toStdString());
        ExpectSameLines(Imported(path), expected);
    }
    EXPECT_EQ(files, 8);
}

TEST_F(OtherPrograms, CalcSavesItAgainAndItComesBack) {
    if (QStandardPaths::findExecutable(QStringLiteral("soffice")).isEmpty())
        GTEST_SKIP() << "LibreOffice is not installed";
    for (const char *text :
         {"=1+1", "+x", "-x", "@x", "\tx", "007", "1,5", "March 2004", "true", "two\r\nlines", "say \"hi\"",
          "\xD7\xA9\xD7\x9C", "\xF0\x9F\x98\x80", "'quoted'", "''=1", "3"})
        AddNode(QString::fromUtf8(text), 1234.5f);
    flow->Nodes().Item(1).Links().Add(flow->Nodes().Item(2)).SetText(QStringLiteral("=2"));
    Save();
    Export();
    const QStringList before = Carried(*window, *flow);
    ASSERT_TRUE(
        Convert(MapFile(QString()), {"--convert-to", "csv:Text - txt - csv (StarCalc):44,34,76,1", "--outdir",
                                     MapFile("saved"), "--infilter=CSV:44,34,76,1", file}));
    flow->Nodes().Clear();
    ImportMap(*window, *flow, MapFile("saved/out.csv"));
    ExpectSameLines(Carried(*window, *flow), before);
}

} // namespace output::testing
