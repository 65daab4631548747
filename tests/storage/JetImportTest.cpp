#include "storage/JetImport.h"

#include "storage/Fields.h"
#include "StorageFixture.h"
#include "tests/Paths.h"

#include <map>
#include <QCryptographicHash>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace storage::test {

namespace {

QString Data(const QString &name) { return tests::Data(QStringLiteral("jet/") + name); }

// The value of a cell in the form that the expectation has.
using CellReader = QJsonValue (*)(const Recordset &rows, int column);

QJsonValue Whole(const Recordset &rows, int column) { return rows.Long(column); }
QJsonValue Real(const Recordset &rows, int column) { return rows.Double(column); }
QJsonValue Text(const Recordset &rows, int column) { return rows.Text(column); }
QJsonValue Bytes(const Recordset &rows, int column) {
    const QByteArray bytes = rows.Bytes(column);
    const QByteArray hash = QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex();
    return QJsonObject{{"sha256", QString::fromLatin1(hash)}, {"length", bytes.size()}};
}

const std::map<QString, std::pair<FieldType, CellReader>> kTypes = {
    {"TEXT", {FieldType::Text, Text}},
    {"MEMO", {FieldType::Memo, Text}},
    {"OLE", {FieldType::LongBinary, Bytes}},
    {"LONG", {FieldType::Long, Whole}},
    {"INT",
     {FieldType::Integer,
      [](const Recordset &rows, int column) { return QJsonValue(rows.Integer(column)); }}},
    {"BOOLEAN",
     {FieldType::Boolean, [](const Recordset &r, int column) { return QJsonValue(r.Boolean(column)); }}},
    {"MONEY", {FieldType::Currency, Real}},
    {"NUMERIC", {FieldType::Currency, Real}},
    {"FLOAT", {FieldType::Single, Real}},
};

// A row as text; singles as the exact value of the single that the expectation's decimal means.
QString Serial(QJsonObject row, const QJsonArray &columns) {
    for (const QJsonValue column : columns) {
        const QString name = column["name"].toString();
        if (column["type"].toString() == "FLOAT" && row[name].isDouble())
            row[name] = static_cast<double>(static_cast<float>(row[name].toDouble()));
    }
    return QString::fromUtf8(QJsonDocument(row).toJson(QJsonDocument::Compact));
}

QStringList ExpectedRows(const QJsonObject &table) {
    QStringList rows;
    for (const auto &row : table["rows"].toArray())
        rows += Serial(row.toObject(), table["columns"].toArray());
    rows.sort();
    return rows;
}

QStringList RowsOf(Database &database, const QString &name, const QJsonArray &columns) {
    QStringList result;
    for (Recordset rows = database.OpenRecordset(QStringLiteral("SELECT * FROM [%1]").arg(name));
         !rows.EndOfFile(); rows.MoveNext()) {
        QJsonObject row;
        for (int i = 0; i < columns.size(); ++i) {
            const CellReader read = kTypes.at(columns[i]["type"].toString()).second;
            row[rows.FieldName(i)] = rows.IsNull(i) ? QJsonValue() : read(rows, i);
        }
        result += QString::fromUtf8(QJsonDocument(row).toJson(QJsonDocument::Compact));
    }
    result.sort();
    return result;
}

} // namespace

class JetImportTest : public StorageTest {
protected:
    static QJsonObject Expected(const QString &name) {
        const QByteArray json = Content(Data(name));
        EXPECT_FALSE(json.isEmpty());
        return QJsonDocument::fromJson(json).object()["tables"].toObject();
    }
    static void ExpectColumns(const TableDef &table, const QJsonArray &columns) {
        ASSERT_EQ(static_cast<qsizetype>(table.fields.size()), columns.size()) << table.name.toStdString();
        for (int i = 0; i < columns.size(); ++i) {
            EXPECT_EQ(table.fields[i].name, columns[i]["name"].toString());
            EXPECT_EQ(table.fields[i].type, kTypes.at(columns[i]["type"].toString()).first)
                << table.name.toStdString() << '.' << table.fields[i].name.toStdString();
        }
    }
    static void ExpectAsInJson(const QString &file, const QString &json) {
        Database database = OpenDatabase(Data(file));
        const QJsonObject tables = Expected(json);
        QStringList names;
        for (const TableDef &table : database.TableDefs()) {
            names += table.name;
            const QJsonObject wanted = tables[table.name].toObject();
            const QJsonArray columns = wanted["columns"].toArray();
            ExpectColumns(table, columns);
            const QStringList rows = RowsOf(database, table.name, columns);
            const QStringList wantedRows = ExpectedRows(wanted);
            ASSERT_EQ(rows.size(), wantedRows.size()) << table.name.toStdString();
            for (qsizetype i = 0; i < rows.size(); ++i)
                EXPECT_EQ(rows[i], wantedRows[i]) << table.name.toStdString();
        }
        names.sort();
        EXPECT_EQ(names, tables.keys());
    }
};

TEST_F(JetImportTest, Jet4_ReadsToTheCell) { ExpectAsInJson("plan.mdb", "plan.json"); }

TEST_F(JetImportTest, Jet3_ReadsToTheCell) { ExpectAsInJson("plan97.mdb", "plan97.json"); }

TEST_F(JetImportTest, EarlyMap_ReadsToTheCell) { ExpectAsInJson("old.mdb", "old.json"); }

TEST_F(JetImportTest, Template_ReadsToTheCell) { ExpectAsInJson("template.mdb", "template.json"); }

TEST_F(JetImportTest, RandomBytes_AreNotRecognized) {
    const QString path = QDir::toNativeSeparators(QFileInfo(Data("notjet.mdb")).absoluteFilePath());
    EXPECT_EQ(Raised([] { OpenDatabase(Data("notjet.mdb")); }),
              "3343 Unrecognized database format '" + path + "'.");
}

TEST_F(JetImportTest, Form_IsToldByContentAndNotByName) {
    WriteContent(Path("plan.map"), Content(Data("plan.mdb")));
    Sample("own.mdb").Close();
    EXPECT_FALSE(OpenDatabase(Path("plan.map")).IsNative());
    EXPECT_TRUE(OpenDatabase(Path("own.mdb")).IsNative());
}

TEST_F(JetImportTest, AnyPath_Works) {
    for (const char *name : {"it's 100%?.map", "-option.map", "\xD0\xBF\xD0\xBB\xD0\xB0\xD0\xBD #1.map"}) {
        const QString path = Path(QString::fromUtf8(name));
        WriteContent(path, Content(Data("old.mdb")));
        Database database = OpenDatabase(path);
        EXPECT_EQ(database.Name(), QDir::toNativeSeparators(path));
        EXPECT_EQ(database.OpenRecordset("SELECT COUNT(*) FROM Nodes").Long(0), 18);
    }
}

TEST_F(JetImportTest, Changes_DoNotReachTheFile) {
    const QByteArray before = Content(Data("old.mdb"));
    WriteContent(Path("old.map"), before);
    {
        Database database = OpenDatabase(Path("old.map"));
        AddField(database, "Nodes", "Alignment", FieldType::Long);
        database.Execute("UPDATE [Nodes] SET [Alignment]=7");
        EXPECT_EQ(database.OpenRecordset("SELECT alignment FROM nodes").Long(0), 7);
        EXPECT_EQ(Files(), QStringList{"old.map"});
    }
    EXPECT_EQ(Content(Path("old.map")), before);
    EXPECT_EQ(Files(), QStringList{"old.map"});
}

TEST_F(JetImportTest, Copy_LeavesNoTemporaryFile) {
    const QStringList before = QDir(QDir::tempPath()).entryList({"jet*"}, QDir::Files);
    Database database = OpenDatabase(Data("old.mdb"));
    for (const QString &file : QDir(QDir::tempPath()).entryList({"jet*"}, QDir::Files))
        EXPECT_TRUE(before.contains(file)) << file.toStdString();
}

TEST_F(JetImportTest, OpenForBuilding_RefusesAJetFile) {
    EXPECT_EQ(NumberOf([] { OpenForBuilding(Data("old.mdb")); }), kErrUnrecognizedFormat);
}

TEST_F(JetImportTest, CompactDatabase_WritesTheProgramsOwnForm) {
    CompactDatabase(Data("old.mdb"), Path("own.map"), QString(), 32);
    Database database = OpenDatabase(Path("own.map"));
    EXPECT_TRUE(database.IsNative());
    EXPECT_EQ(database.OpenRecordset("SELECT COUNT(*) FROM LinkPoints").Long(0), 45);
}

TEST_F(JetImportTest, AReaderThatTakesTooLong_IsEnded) {
    const QString path = Data("plan.mdb");
    EXPECT_EQ(
        Raised([&] { ImportJet(path, 0); }),
        "3049 Cannot open database '" + path +
            "'.  It may not be a database that your application recognizes, or the file may be corrupt.");
}

} // namespace storage::test
