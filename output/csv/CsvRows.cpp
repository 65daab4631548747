#include "output/csv/CsvRows.h"

#include "diagram/model/Surface.h"
#include "document/clsfrmMain.h"
#include "document/ItemColumns.h"
#include "document/Tags.h"
#include "output/csv/CsvColumns.h"
#include "storage/EngineError.h"
#include "storage/text/TextMark.h"
#include "support/clsGUID.h"

#include <cmath>

namespace output {

namespace {

using document::ItemColumn;
namespace schema = document::schema;

constexpr long kErrInvalidNull = 94;

// Columns that a load reads and an import doesn't: there the surface's defaults for new nodes count.
const std::vector<int> kLeftOutOfNodes = {schema::node::kAlignment, schema::node::kAutoSize,
                                          schema::node::kEvent, schema::node::kTransparent};

support::Error Failure(long number, const QString &text) {
    return support::Error(number, QStringLiteral("ImportMap"), text);
}

// Most cells hold whole numbers; reading these takes a fraction of what toDouble does.
bool TakeWholeNumber(QStringView text, double &number) {
    constexpr qsizetype kMostDigits = 9;
    const bool negative = text.startsWith(u'-');
    const QStringView digits = text.mid(negative ? 1 : 0);
    if (digits.isEmpty() || digits.size() > kMostDigits) return false;
    int whole = 0;
    for (const QChar digit : digits) {
        if (digit < u'0' || digit > u'9') return false;
        whole = whole * 10 + (digit.unicode() - u'0');
    }
    number = negative ? -whole : whole;
    return true;
}

// The decimal sign may be a comma where fields are separated by something else.
bool TakeNumber(QStringView text, char16_t separator, double &number) {
    if (TakeWholeNumber(text, number)) return true;
    bool good = false;
    number = text.toDouble(&good);
    if (!good && separator != u',' && text.count(u',') == 1)
        number = text.toString().replace(u',', u'.').toDouble(&good);
    return good && std::isfinite(number);
}

bool TakeTruth(QStringView text, double &number) {
    number = text.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0 ? 1 : 0;
    return number != 0 || text.compare(QLatin1String("false"), Qt::CaseInsensitive) == 0;
}

// Whether the record is as ExportMap writes it; otherwise another program has saved the file.
bool IsOurForm(const storage::CsvReader &reader) {
    const storage::CsvForm &form = reader.Form();
    return form.encoding == storage::CsvEncoding::Utf8 && form.start > 0 && form.separator == u',' &&
           reader.BeginsQuoted();
}

// Spreadsheets cut line ends inside of texts down to LF: the program's are CR LF.
QString WithUsualLineEnds(QString text) {
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    return text.replace(u'\n', QLatin1String("\r\n"));
}

} // namespace

CsvRows::CsvRows(QIODevice &file, document::clsfrmMain &settings, const diagram::Surface &flow)
    : reader_(file), settings_(settings), flow_(flow) {
    ReadHeader();
    type_ = Position(kTypeColumn);
    nodeCells_ = CellsOf<diagram::NodeData>(document::kNodeColumns, kLeftOutOfNodes);
    key_ = Position("Key");
    tag_ = Position("Tag");
    group_ = Position("Group");
    level_ = Position("Level");
    source_ = Position("KeySource");
    destination_ = Position("KeyDest");
    linkCells_ = CellsOf<diagram::LinkData>(document::kLinkColumns, {});
}

void CsvRows::ReadHeader() {
    if (!reader_.Next()) return;
    for (int at = 0; at < reader_.FieldCount(); ++at) {
        header_.append(storage::WithoutMark(reader_.Field(at).trimmed()).toString());
        const QString name = header_.last().toLower();
        if (names_.contains(name))
            throw Failure(
                storage::kErrFieldTwice,
                QStringLiteral("Cannot define field more than once.\r\n\r\nColumn %1").arg(header_.last()));
        if (!name.isEmpty()) names_.insert(name, at);
    }
}

bool CsvRows::HasColumn(const char *name) const {
    return names_.contains(QString::fromLatin1(name).toLower());
}

int CsvRows::Position(const char *name) const {
    if (HasColumn(name)) return names_[QString::fromLatin1(name).toLower()];
    const support::Error error = storage::FieldNotFound();
    throw support::Error(error.Number(), error.Source(),
                         QStringLiteral("%1\r\n\r\nColumn %2").arg(error.Description(), QLatin1String(name)));
}

template <typename Data, typename ItemColumns>
std::vector<CsvRows::Cell<Data>> CsvRows::CellsOf(const ItemColumns &columns,
                                                  const std::vector<int> &leftOut) {
    std::vector<Cell<Data>> cells;
    for (const ItemColumn<Data> &column : columns) {
        const bool isRead = column.isRead && std::ranges::find(leftOut, column.position) == leftOut.end();
        // Files from before such a column came lack it.
        const bool mayBeMissing = column.isLater && !HasColumn(column.def.name);
        if (isRead && !mayBeMissing) cells.push_back({&column, Position(column.def.name)});
    }
    return cells;
}

QString CsvRows::Text(int at) {
    at_ = at;
    const QString text = storage::WithoutMark(reader_.Field(at)).toString();
    return IsOurForm(reader_) ? text : WithUsualLineEnds(text);
}

double CsvRows::Number(int at, bool isBoolean) {
    at_ = at;
    const QStringView text = reader_.Field(at).trimmed();
    double number = 0;
    if (text.isEmpty()) throw Failure(kErrInvalidNull, QStringLiteral("Invalid use of Null"));
    if (TakeNumber(text, reader_.Form().separator, number) || (isBoolean && TakeTruth(text, number)))
        return number;
    throw Failure(support::kErrTypeMismatch, support::ErrorText(support::kErrTypeMismatch));
}

template <typename Data>
void CsvRows::ReadCells(Data &data, const std::vector<Cell<Data>> &cells) {
    for (const Cell<Data> &cell : cells) {
        const ItemColumn<Data> &column = *cell.column;
        if (column.setText)
            column.setText(data, Text(cell.at));
        else
            column.setNumber(data, Number(cell.at, column.def.type == storage::FieldType::Boolean));
    }
}

// A level is stored as a number, and the number's text is its name; a spreadsheet may have given the number
// another form.
QString CsvRows::LevelName() {
    const QString text = Text(level_);
    double number = 0;
    return TakeNumber(text, reader_.Form().separator, number) ? support::CStr(number) : text;
}

QString CsvRows::TagOfRow() {
    const QString tag = Text(tag_), group = Text(group_), level = LevelName();
    const QString stored = tag + QChar(0) + group + QChar(0) + level;
    if (const auto known = tags_.constFind(stored); known != tags_.constEnd()) return *known;
    QString withKeys =
        document::TagWithEntry(tag, document::tags::kGroup, settings_.Groups().KeyForGroupName(group));
    withKeys =
        document::TagWithEntry(withKeys, document::tags::kLevel, settings_.Levels().KeyForLevelName(level));
    return *tags_.insert(stored, withKeys);
}

void CsvRows::ReadNode(CsvContent &content) {
    diagram::NodeData data;
    static_cast<diagram::NodeLook &>(data) = flow_.Defaults();
    ReadCells(data, nodeCells_);
    data.tag = TagOfRow();
    const QString key = Text(key_);
    if (!key.isEmpty() && positions_.contains(key))
        throw Failure(support::kErrKeyInUse,
                      QStringLiteral("This key is already associated with an element of this collection"));
    if (!key.isEmpty()) positions_.insert(key, content.nodes.size());
    data.key = support::GetGUID();
    content.nodes.push_back(std::move(data));
}

CsvEnd CsvRows::EndOf(int at) {
    const QString key = Text(at);
    if (const auto found = positions_.constFind(key); found != positions_.constEnd())
        return {*found, nullptr};
    if (diagram::Node *node = key.isEmpty() ? nullptr : flow_.Nodes().Find(key)) return {0, node};
    throw Failure(support::kErrInvalidProcedureCall, support::ErrorText(support::kErrInvalidProcedureCall));
}

void CsvRows::ReadLink(CsvContent &content) {
    CsvLink link;
    link.destination = EndOf(destination_);
    link.source = EndOf(source_);
    ReadCells(link.data, linkCells_);
    content.links.push_back(std::move(link));
}

QString CsvRows::Place() const {
    const QString row = QStringLiteral("\r\n\r\nRow %1").arg(reader_.Row());
    return at_ < 0 ? row : QStringLiteral("%1, column %2").arg(row, header_.value(at_));
}

bool CsvRows::ReadRow(CsvContent &content) {
    if (!reader_.Next()) return false;
    if (reader_.IsEmpty()) return true;
    at_ = -1;
    try {
        if (reader_.Field(type_) == QLatin1String(kNodeType))
            ReadNode(content);
        else
            ReadLink(content);
    } catch (const support::Error &error) {
        throw support::Error(error.Number(), error.Source(), error.Description() + Place());
    }
    return true;
}

} // namespace output
