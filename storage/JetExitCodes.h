// How the reader of Jet files tells its result to the program that started it: by its exit code, and when it
// salvages by a table.
#pragma once

namespace storage::jet {

constexpr int kExitDone = 0;          // everything was read; the copy is complete
constexpr int kExitUsage = 1;         // it was called in another way than its source tells
constexpr int kExitNotRecognised = 2; // no file that the reader knows
constexpr int kExitDamaged = 3;       // something is missing or cannot be
constexpr int kExitNoSpace = 4;       // the copy could not be written

// The table of a salvaged copy that tells what was lost: a line a row.
inline constexpr const char *kLostTable = "velmora lost";

} // namespace storage::jet
