#include "templates/TemplateDb.h"

#include "storage/Database.h"
#include "storage/Fields.h"
#include "support/AtomicFile.h"
#include "support/Error.h"
#include "support/Files.h"
#include "templates/ScratchFile.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>

namespace templates {

namespace {

const QString kTable = QStringLiteral("Template");
const QString kMap = QStringLiteral("MAP");
const QString kImage = QStringLiteral("IMAGE");
const QString kAllRecords = QStringLiteral("SELECT * FROM [Template]");

std::optional<QByteArray> ReadField(const QString &file, const QString &field) {
    storage::Database database = storage::OpenToRead(file);
    if (!storage::TableExistsDB(database, kTable)) return std::nullopt;
    const storage::Recordset records = database.OpenRecordset(kAllRecords);
    if (records.EndOfFile()) return std::nullopt;
    return records.Bytes(records.Column(field));
}

void AddRecord(const QString &file, const QByteArray &map, const QByteArray &image) {
    storage::Database database = storage::OpenDatabase(file);
    storage::Recordset records = database.OpenRecordset(kAllRecords);
    records.AddNew();
    records.AppendChunk(kMap, map);
    records.AppendChunk(kImage, image);
    records.Update();
    records.Close();
    database.Close();
}

void KeepFormer(const QString &file) {
    if (support::FileExists(file)) support::CopyFileTo(file, file + kKeptEnding);
}

} // namespace

void CreateTemplateDB(QString &File) {
    support::PassOn("CreateTemplateDB", [&] {
        if (File.isEmpty())
            File = support::AddBackslash(support::ProgramPath()) + QStringLiteral("TTemplate.mdb");
        if (support::FileExists(File)) support::Kill(File);
        storage::Database database = storage::CreateDatabase(File);
        database.CreateTable(
            {kTable, {{kMap, storage::FieldType::LongBinary}, {kImage, storage::FieldType::LongBinary}}});
        database.Close();
    });
}

void CreateTemplate(const QString &MapFile, const QString &IconFile, const QString &OutputFile) {
    support::PassOn("CreateTemplate", [&] {
        const ScratchFile scratch;
        QString made = scratch.Path();
        CreateTemplateDB(made);
        AddRecord(made, support::ReadWholeFile(MapFile), support::ReadWholeFile(IconFile));
        support::AtomicFile file(OutputFile);
        file.Write(support::ReadWholeFile(made));
        KeepFormer(OutputFile);
        file.Commit();
    });
}

std::optional<QByteArray> ReadMap(const QString &file) { return ReadField(file, kMap); }
std::optional<QByteArray> ReadImage(const QString &file) { return ReadField(file, kImage); }

bool IsIcon(const QByteArray &bytes) {
    QBuffer buffer;
    buffer.setData(bytes);
    QImageReader reader(&buffer, "ico");
    reader.setAutoDetectImageFormat(false);
    return reader.canRead() && !reader.read().isNull();
}

} // namespace templates
