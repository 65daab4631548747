// Writing of PNG files as quickly as drawings allow: large even areas, and many rows like the one above.
#pragma once

#include <QByteArray>
#include <QImage>

namespace diagram {

// The bytes of a PNG file (ISO/IEC 15948) with three colours of eight bits; alpha is left out. A picture that
// is moved here is written without a copy of it.
QByteArray PngFile(QImage picture);

} // namespace diagram
