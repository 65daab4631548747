// Where tests find their data, the sources and the programs that were built with them.
#pragma once

#include <QString>

namespace tests {

// The path of `name` below tests/data, below the root of the sources, and below the folder of the
// executables.
QString Data(const QString &name);
QString Source(const QString &name);
QString Program(const QString &name);

} // namespace tests
