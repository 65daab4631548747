#include "tests/Paths.h"

namespace tests {

QString Data(const QString &name) { return Source(QStringLiteral("tests/data/") + name); }
QString Source(const QString &name) { return QStringLiteral(VELMORA_SOURCE_DIR "/") + name; }
QString Program(const QString &name) { return QStringLiteral(VELMORA_BIN_DIR "/") + name; }

} // namespace tests
