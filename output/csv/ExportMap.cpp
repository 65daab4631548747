#include "output/csv/ExportMap.h"

#include "diagram/model/Surface.h"
#include "document/BusyWindow.h"
#include "document/clsfrmMain.h"
#include "document/DoSave.h"
#include "document/MapSchema.h"
#include "document/OpenMap.h"
#include "output/csv/CsvColumns.h"
#include "settings/Settings.h"
#include "storage/Fields.h"
#include "storage/text/CsvWriter.h"
#include "support/AtomicFile.h"
#include "support/Error.h"
#include "support/Files.h"

#include <algorithm>
#include <optional>
#include <QCoreApplication>
#include <QFile>

namespace output {

namespace {

using document::MapWindow;
using storage::FieldType;
using storage::Recordset;

// Asks to save a map that differs from its file. True when the file holds what the window does.
bool HasSaved(MapWindow &window) {
    const QString &database = window.clsSettings().Database();
    if (!database.isEmpty() && !document::MustAskBeforeLosing(window)) return true;
    const support::Answer answer = window.Desktop().messageBoxes.Show(
        // "requirers" is a misspelling that users know; the text stays letter for letter.
        QStringLiteral("This operation requirers the %1 to be saved.\r\rSave changes and continue?")
            .arg(settings::Terms().MAP),
        support::Buttons::YesNo, support::Icon::Question, settings::Terms().TITLE);
    return answer == support::Answer::Yes && document::DoSave(window) && !database.isEmpty();
}

void RefuseTheMap(MapWindow &window, const QString &file) {
    if (support::IsSameFile(file, window.clsSettings().Database()))
        support::Raise(support::kErrPathFileAccess, QStringLiteral("ExportMap"), file);
}

class Export {
public:
    Export(MapWindow &window, storage::Database &database, QIODevice &file, const QSet<QString> &without,
           const GoOn &goOn)
        : window_(window),
          database_(database),
          without_(without),
          goOn_(goOn),
          columns_(ColumnsOfMap(database)),
          writer_(file, NamesOf(columns_)) {}

    // False when it was given up.
    bool Run(const diagram::Surface &flow);

private:
    bool WriteRows(const document::TableLayout &table, const char *type, int slice);
    void WriteRow(const Recordset &rows, const char *type);
    void WriteCell(const Recordset &rows, int at, const CsvColumn &column);
    bool IsLeftOut(const Recordset &rows) const;

    MapWindow &window_;
    storage::Database &database_;
    const QSet<QString> &without_;
    NowAndThen goOn_;
    std::vector<CsvColumn> columns_;
    storage::CsvWriter writer_;
    std::vector<int> at_;   // positions of columns_ in the table at hand; -1 for one that it lacks
    std::vector<int> ends_; // positions of the columns there that hold keys of nodes
    std::optional<document::Progress> progress_;
    std::size_t rows_ = 0;
};

bool Export::Run(const diagram::Surface &flow) {
    window_.DoStatus(QStringLiteral("Filling output file..."));
    progress_.emplace(window_, std::size_t(flow.Nodes().Count()) + flow.Links().size());
    if (!WriteRows(document::schema::kNodes, kNodeType, flow.Index())) return false;
    if (!WriteRows(document::schema::kLinks, kLinkType, flow.Index())) return false;
    writer_.Finish();
    return true;
}

bool Export::WriteRows(const document::TableLayout &table, const char *type, int slice) {
    Recordset rows = database_.OpenRecordset(SelectAll(table) + QStringLiteral(" WHERE [Slice]=?"), {slice});
    at_.clear();
    for (const CsvColumn &column : columns_) at_.push_back(rows.FindColumn(column.name));
    ends_.clear();
    for (const char *name : {"Key", "KeySource", "KeyDest"})
        if (const int at = rows.FindColumn(QLatin1String(name)); at >= 0) ends_.push_back(at);
    for (; !rows.EndOfFile(); rows.MoveNext()) {
        progress_->Show(rows_++);
        if (!IsLeftOut(rows)) WriteRow(rows, type);
        if (!goOn_.Ask()) return false;
    }
    return true;
}

bool Export::IsLeftOut(const Recordset &rows) const {
    return !without_.isEmpty() &&
           std::ranges::any_of(ends_, [&](int at) { return without_.contains(rows.Text(at)); });
}

void Export::WriteRow(const Recordset &rows, const char *type) {
    writer_.Text(QLatin1String(type));
    for (std::size_t i = 1; i < columns_.size(); ++i) WriteCell(rows, at_[i], columns_[i]);
    writer_.EndRecord();
}

// Files of early versions may have Null where a number belongs; a load takes that for 0.
void Export::WriteCell(const Recordset &rows, int at, const CsvColumn &column) {
    if (at < 0 || rows.IsNull(at)) return at >= 0 && column.isNumber ? writer_.Long(0) : writer_.Null();
    switch (column.type) {
    case FieldType::Boolean:
        return writer_.Long(rows.Boolean(at) ? 1 : 0);
    case FieldType::Integer:
    case FieldType::Long:
        return writer_.Long(rows.Long(at));
    case FieldType::Single:
        return writer_.Single(rows.Single(at));
    case FieldType::Double:
    case FieldType::Currency:
        return writer_.Double(rows.Double(at));
    default:
        return writer_.Text(rows.Text(at));
    }
}

bool WriteTo(MapWindow &window, storage::Database &database, const diagram::Surface &flow,
             const QString &path, const QSet<QString> &without, const GoOn &goOn) {
    QFile device(path);
    if (!device.open(QIODevice::WriteOnly))
        support::Raise(support::kErrPathFileAccess, QStringLiteral("ExportMap"), path);
    if (!Export(window, database, device, without, goOn).Run(flow)) return false;
    if (!device.flush()) support::Raise(support::kErrDiskFull, QStringLiteral("ExportMap"));
    return true;
}

bool Write(MapWindow &window, const diagram::Surface &flow, const QString &target,
           const QSet<QString> &without, const GoOn &goOn) {
    const document::BusyWindow busy(window);
    RefuseTheMap(window, target);
    QString map = window.clsSettings().Database();
    std::optional<storage::Database> database = document::OpenMapToRead(map);
    if (!database) return true;
    window.DoStatus(QStringLiteral("Creating output file..."));
    support::AtomicFile file(target);
    const bool whole = WriteTo(window, *database, flow, file.Path(), without, goOn);
    if (whole) {
        window.DoStatus(QStringLiteral("Finishing..."));
        file.Commit();
    }
    database->Close();
    window.SetProgress(0);
    window.DoStatus(QString());
    return whole;
}

} // namespace

bool ExportMap(MapWindow &window, diagram::Surface &Flow, const QString &File, const QSet<QString> &without,
               const GoOn &goOn) {
    return support::PassOn("ExportMap", [&] {
        window.DoStatus(NotInTextFiles());
        const bool saved = HasSaved(window);
        window.DoStatus(QString());
        return saved && Write(window, Flow, File, without, goOn);
    });
}

QString NotInTextFiles() {
    return QCoreApplication::translate(
        "ExportMap", "A text file carries no fonts, second texts, pictures and points of links.");
}

} // namespace output
