// Where tests find their data, the sources and the programs that were built with them.
#pragma once

#include <QString>

namespace tests {

QString Data(const QString &name);    // the path of `name` below tests/data
QString Source(const QString &name);  // below the root of the sources
QString Program(const QString &name); // below the folder of the executables

} // namespace tests
