// The Western code page of Windows, 1252.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace vector {

// One byte for each UTF-16 unit; what the code page lacks becomes its plain letter or '?', and the second
// half of a pair 0.
QByteArray ToWindows1252(const QString &text);
// Whether it has every letter of the text as it is.
bool IsInWindows1252(const QString &text);
// Bytes that stand for nothing become U+FFFD.
QString FromWindows1252(QByteArrayView bytes);

} // namespace vector
