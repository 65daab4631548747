// A folder in which the program takes itself to stand.
#pragma once

#include "document/MapSchema.h"
#include "support/Files.h"

#include <QTemporaryDir>

namespace document::testing {

// With the empty map that a save begins with. When it goes, the program stands nowhere again.
class ProgramFolder {
public:
    explicit ProgramFolder(std::span<const LevelRow> levels = {}, std::span<const GroupRow> groups = {}) {
        support::SetProgramPath(Path());
        WriteTemplate(File(QStringLiteral("template.tpl")), levels, groups);
    }
    ~ProgramFolder() { support::SetProgramPath(QString()); }
    ProgramFolder(const ProgramFolder &) = delete;
    ProgramFolder &operator=(const ProgramFolder &) = delete;

    QString Path() const { return folder_.path(); }
    QString File(const QString &name) const { return folder_.filePath(name); }

private:
    QTemporaryDir folder_;
};

} // namespace document::testing
