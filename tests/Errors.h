// The error that a call raises, for expectations.
#pragma once

#include "support/Error.h"

namespace tests {

// The error that `body` raises; number 0 for none.
template <typename Body>
support::Error ErrorOf(Body &&body) {
    try {
        body();
    } catch (const support::Error &error) {
        return error;
    }
    return support::Error(0, QString(), QStringLiteral("no error"));
}

// Its number; 0 for none.
template <typename Body>
long NumberOf(Body &&body) {
    return ErrorOf(body).Number();
}

// The error as "number text"; empty for none.
template <typename Body>
QString Raised(Body &&body) {
    const support::Error error = ErrorOf(body);
    return error.Number() == 0 ? QString()
                               : QStringLiteral("%1 %2").arg(error.Number()).arg(error.Description());
}

} // namespace tests
