// The rows of a slice's text file as values of nodes and links.
#pragma once

#include "diagram/model/Link.h"
#include "diagram/model/Node.h"
#include "storage/text/CsvReader.h"

#include <QHash>
#include <vector>

namespace diagram {
class Surface;
}
namespace document {
class clsfrmMain;
template <typename Data>
struct ItemColumn;
} // namespace document

namespace output {

// An end of a link: a node that the surface has, or one of the file.
struct CsvEnd {
    std::size_t position = 0;         // in CsvContent::nodes, where `present` is null
    diagram::Node *present = nullptr; // on the surface
};

struct CsvLink {
    diagram::LinkData data; // without ends
    CsvEnd source, destination;
};

struct CsvContent {
    std::vector<diagram::NodeData> nodes; // with new keys; what the file doesn't carry is as in a new node
    std::vector<CsvLink> links;
};

class CsvRows {
public:
    // Reads the header. Errors are those of ImportMap, here and below.
    CsvRows(QIODevice &file, document::clsfrmMain &settings, const diagram::Surface &flow);

    // Reads the next row into the content, to which an empty one adds nothing; false behind the last.
    bool ReadRow(CsvContent &content);
    int Percent() const { return reader_.Percent(); }

private:
    void ReadHeader();
    bool HasColumn(const char *name) const;
    int Position(const char *name) const;
    template <typename Data>
    struct Cell {
        const document::ItemColumn<Data> *column;
        int at; // in the file
    };
    template <typename Data, typename ItemColumns>
    std::vector<Cell<Data>> CellsOf(const ItemColumns &columns, const std::vector<int> &leftOut);
    template <typename Data>
    void ReadCells(Data &data, const std::vector<Cell<Data>> &cells);
    void ReadNode(CsvContent &content);
    void ReadLink(CsvContent &content);
    QString Text(int at);
    double Number(int at, bool isBoolean);
    CsvEnd EndOf(int at);
    QString TagOfRow();
    QString LevelName();
    QString Place() const;

    storage::CsvReader reader_;
    document::clsfrmMain &settings_;
    const diagram::Surface &flow_;
    QHash<QString, int> names_; // positions of columns by their names in lower case
    QStringList header_;
    std::vector<Cell<diagram::NodeData>> nodeCells_;
    std::vector<Cell<diagram::LinkData>> linkCells_;
    int type_, key_, tag_, group_, level_, source_, destination_;
    int at_ = -1;                           // the column being read; -1 for none
    QHash<QString, std::size_t> positions_; // of the nodes, by the file's keys
    QHash<QString, QString> tags_;          // tags with keys, by tag, group and level as the file has them
};

} // namespace output
