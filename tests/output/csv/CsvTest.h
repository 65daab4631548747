// What the tests of text files share: a window in memory and files to write and read.
#pragma once

#include "output/csv/ExportMap.h"
#include "output/csv/ImportMap.h"
#include "tests/document/MapTest.h"

namespace output::testing {

using document::testing::ErrorOf;
using document::testing::ExpectSameLines;

// The rows of a file as the columns' names in lower case say.
struct Table {
    QStringList names;
    QList<QStringList> rows;
    QString Cell(int row, const QString &name) const;
    void Set(int row, const QString &name, const QString &value);
    void RemoveColumn(const QString &name);
};

class CsvTest : public document::testing::MapTest {
protected:
    CsvTest();

    diagram::Node &AddNode(const QString &text, float left = 0);
    // The window's map saved, so that an export asks nothing.
    void Save();
    void Export() { ExportMap(*window, *flow, file); }
    void Import() { ImportMap(*window, *flow, file); }
    // The file's table, and a file of a table.
    Table Read() const;
    void Write(const Table &table, QChar separator = u',') const;
    void WriteBytes(const QByteArray &bytes) const;
    QByteArray Bytes() const;

    std::unique_ptr<document::MemoryWindow> window = NewWindow();
    diagram::Surface *flow = &window->AddFlow1()[0];
    QString file = MapFile(QStringLiteral("out.csv"));
};

// Every property that such a file carries, without keys, as sorted lines. The hidden node that gives the
// months their look is left out: laying the timeline out makes one where there is none.
QStringList Carried(document::MapWindow &window, diagram::Surface &surface);

} // namespace output::testing
