// What the tests of the document share: a program folder with an empty map, folders of their own for maps and
// for temporary files, and a scripted desktop.
#pragma once

#include "document/DoLoad.h"
#include "document/DoSave.h"
#include "document/MapSchema.h"
#include "document/MemoryWindow.h"
#include "support/testing/ScriptedDesktop.h"
#include "tests/EnvironmentVariable.h"
#include "tests/Errors.h"

#include <gtest/gtest.h>
#include <memory>
#include <QDir>
#include <QImage>
#include <QTemporaryDir>

namespace document::testing {

class MapTest : public ::testing::Test {
protected:
    MapTest();
    ~MapTest() override;

    QString ProgramFile(const QString &name) const { return program_.filePath(name); }
    QString MapFile(const QString &name) const { return maps_.filePath(name); }
    QString TempFolder() const { return temp_.path(); }
    QStringList MapFiles() const { return QDir(maps_.path()).entryList(QDir::Files | QDir::Hidden); }
    // A new window with the pools of the template.
    std::unique_ptr<MemoryWindow> NewWindow() { return std::make_unique<MemoryWindow>(desktop.Get()); }
    // A new window with the map in it.
    std::unique_ptr<MemoryWindow> Loaded(const QString &path);
    void SaveAs(MapWindow &window, const QString &path);
    // An empty map made by the tables' layouts, to be filled by SQL.
    QString EmptyMap(const QString &name);
    // One that these statements have filled.
    QString Map(const QStringList &statements);
    void Run(const QString &path, const QString &sql);
    // The first column of the first row.
    QVariant Cell(const QString &path, const QString &sql);

    support::testing::ScriptedDesktop desktop;

private:
    static const QByteArray &TemplateBytes();
    QTemporaryDir program_, maps_, temp_;
    const tests::EnvironmentVariable tmpdir_{"TMPDIR", temp_.path().toLocal8Bit()};
    const tests::EnvironmentVariable tmp_{"TMP", temp_.path().toLocal8Bit()};
};

using tests::ErrorOf;
// Everything of the window that a map keeps, as lines to compare. Groups and levels by name.
QStringList Describe(MapWindow &window);
// Fails for the first line that differs.
void ExpectSameLines(const QStringList &actual, const QStringList &expected);
// A PNG of one colour.
diagram::Picture OneColour(QRgb colour, int side = 4);
// SQL that adds a row: those columns that are not named get the values that the program gives to new items.
QString InsertNode(const QString &key, int slice = 0, const QString &columns = QString(),
                   const QString &values = QString());
QString InsertLink(const QString &key, const QString &source, const QString &destination, int slice = 0,
                   const QString &columns = QString(), const QString &values = QString());
QString InsertSlice(int index, const QString &text);

} // namespace document::testing
