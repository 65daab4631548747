// Keys of nodes, links, levels and all the rest, and the codes of undo groups.
#pragma once

#include <cstdint>
#include <QString>

namespace support {

class Random;

// Makes GUID strings: 38 characters, {XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}, upper case.
class clsGUID {
public:
    // Draws from the generator of the current desktop.
    QString CreateGUID() const;
    QString CreateGUID(Random &random) const;
};

// A new GUID string.
QString GetGUID();
// True when `text` has the form of a GUID string, upper or lower case. A comma passes in a digit's place:
// maps in use hold such keys.
bool CheckGUID(const QString &text);
// A random number from `lowest` to `highest`, both included, as a 16-bit integer. Reseeds from the timer at
// every call, so that two calls at one moment may give the same. Error 6 "Overflow" for a result outside 16
// bits.
std::int16_t GetRandom(std::int32_t lowest, std::int32_t highest);

} // namespace support
