// Writing of PNG files, quickly for drawings: these have large even areas and many rows like the one above.
#pragma once

#include <QByteArray>
#include <QImage>

namespace diagram {

// The bytes of a PNG file (ISO/IEC 15948) with three colours of eight bits, and alpha where the picture has
// any. A picture without alpha that is moved here is written without a copy of it. The file tells of the
// resolution unless that is 0.
QByteArray PngFile(QImage picture, int dotsPerInch = 0);

} // namespace diagram
