// Any bytes as a text file of columns: read record by record, and imported into a slice that has a node. What
// is refused must leave the slice as it was; what is read must go out and come in again.
#include "document/MemoryWindow.h"
#include "document/SurfaceArray.h"
#include "output/csv/ImportMap.h"
#include "storage/Database.h"
#include "storage/text/CsvReader.h"
#include "storage/text/TextMark.h"
#include "support/Error.h"
#include "support/headless/HeadlessDesktop.h"
#include "tests/fuzz/Require.h"

#include <algorithm>
#include <QBuffer>
#include <QFile>
#include <QTemporaryDir>

namespace {

void RequireMarksToComeOff(QStringView field) {
    const QString text = field.toString();
    const QString marked = storage::WithMark(text);
    Require(storage::WithoutMark(marked) == text);
}

void TryRead(QByteArray bytes) {
    QBuffer file(&bytes);
    file.open(QIODevice::ReadOnly);
    try {
        storage::CsvReader reader(file);
        while (reader.Next()) {
            Require(reader.FieldCount() > 0);
            for (int i = 0; i < reader.FieldCount(); ++i) RequireMarksToComeOff(reader.Field(i));
        }
    } catch (const support::Error &error) {
        Require(error.Number() == storage::kErrExternalFormat);
    }
}

void TryImport(support::Desktop &desktop, const QString &path) {
    document::MemoryWindow window(desktop, document::EmptyPools());
    diagram::Surface &surface = window.AddFlow1()[0];
    surface.Nodes().Add(0, 0, 10, 10);
    try {
        output::ImportMap(window, surface, path);
    } catch (const support::Error &error) {
        constexpr long kAllowed[] = {support::kErrInvalidProcedureCall,
                                     support::kErrOverflow,
                                     support::kErrSubscriptOutOfRange,
                                     support::kErrTypeMismatch,
                                     storage::kErrInvalidNull,
                                     support::kErrInvalidPropertyValue,
                                     support::kErrKeyInUse,
                                     storage::kErrFieldNotFound,
                                     storage::kErrFieldTwice,
                                     storage::kErrExternalFormat};
        Require(std::count(std::begin(kAllowed), std::end(kAllowed), error.Number()) == 1);
        Require(surface.Nodes().Count() == 1 && surface.Links().empty());
        return;
    }
    for (const auto &link : surface.Links()) Require(link->Route().size() >= 2);
    surface.Undo();
    Require(surface.Nodes().Count() == 1 && surface.Links().empty());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static support::HeadlessDesktop headless(std::make_unique<support::MemoryRegistryStore>());
    static const QTemporaryDir folder;
    Require(folder.isValid());
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    TryRead(bytes);
    QFile file(folder.filePath(QStringLiteral("in.csv")));
    Require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    file.close();
    TryImport(headless.Get(), file.fileName());
    return 0;
}
