// Reading a Jet database into a copy in the program's own form.
#pragma once

#include "storage/Connection.h"

namespace storage {

// How long the reader may take, unless told otherwise.
constexpr int kJetMilliseconds = 30000;

// Reads all tables of a Jet 3 or Jet 4 file into a database in memory. The reading is done by a program of
// its own, velmora-jetread beside the executable, within a limit of time and memory, since the reader may
// crash or hang on damaged files. 3343 for a file of another version or an encoded one, 3049 for one that
// could not be read whole, 53 "File not found: 'velmora-jetread'" when the reader is missing.
std::shared_ptr<Connection> ImportJet(const QString &path, int milliseconds = kJetMilliseconds);

// Reads what can be read of the file; a table at which the reader crashes or hangs ends there, and the next
// one follows. `lost` gets a line for each thing that could not be read. 3049 when there is no table at all.
std::shared_ptr<Connection> SalvageJet(const QString &path, QStringList &lost,
                                       int milliseconds = kJetMilliseconds);

} // namespace storage
