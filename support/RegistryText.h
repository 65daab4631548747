// The text form in which registries are kept in files.
//
// A file holds keys in brackets and one value a line:
//     [HKEY_CURRENT_USER\SOFTWARE\Orbelle\Velmora]
//     "LastPath"=string:"/home/ann/plans"
//     "Left"=number:120
// Types are string, expand, binary (hexadecimal bytes), number, bigendian, and strings (texts with commas
// between). In texts \\, \", \n, \r, \t and \uXXXX stand for the characters that they name; @ is the name of
// a key's default value. Lines that cannot be read are left out, and lines that start with ; or # are
// comments; neither survives the next write.
#pragma once

#include "support/RegistryStore.h"

#include <QByteArray>

namespace support {

QByteArray WriteRegistryText(const RegistryTree &tree);
RegistryTree ReadRegistryText(const QByteArray &text);

} // namespace support
