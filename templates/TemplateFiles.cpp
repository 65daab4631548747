#include "templates/TemplateFiles.h"

#include "diagram/format/Content.h"
#include "diagram/format/SurfaceFile.h"
#include "diagram/model/Surface.h"
#include "settings/Settings.h"
#include "storage/Database.h"
#include "storage/FileForm.h"
#include "support/AtomicFile.h"
#include "support/Error.h"
#include "templates/DiagramNode.h"
#include "templates/TemplateDb.h"

namespace templates {

namespace {

constexpr int kEndingLength = 3;

bool IsDatabase(const QString &file) { return storage::RecogniseFile(file) != storage::FileForm::Unknown; }

[[noreturn]] void RaiseNoTemplate(const QString &file) {
    throw support::Error(storage::kErrTableNotFound, QStringLiteral("Template"),
                         QStringLiteral("The database engine cannot find the input table or query "
                                        "'Template' in '%1'.")
                             .arg(file));
}

} // namespace

bool HasTemplateEnding(const QString &file) {
    return file.right(kEndingLength).toLower() == settings::Terms().TEMPLATE.toLower();
}

void TestTemplateFile(const QString &File, bool &Result) {
    Result = false;
    try {
        if (IsDatabase(File)) return; // without reading it whole
        diagram::Decode(support::ReadWholeFile(File), diagram::ContentKind::Surface);
        Result = true;
    } catch (const std::exception &) {
        // A load would refuse the file, too.
    }
}

QByteArray SurfaceFileOf(const QString &file) {
    bool flat = false;
    TestTemplateFile(file, flat);
    if (flat) return support::ReadWholeFile(file);
    const std::optional<QByteArray> map = ReadMap(file);
    if (!map) RaiseNoTemplate(file);
    return *map;
}

void ReadTemplate(diagram::Surface &surface, const QString &file) {
    diagram::LoadBytes(surface, SurfaceFileOf(file));
    TakeDiagramNode(surface);
}

} // namespace templates
