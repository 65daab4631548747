// The language in which dates of tests are written.
#pragma once

#include <QLocale>

namespace tests {

// British English while it stands, then the plain locale with which tests begin.
class BritishLocale {
public:
    BritishLocale() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom)); }
    ~BritishLocale() { QLocale::setDefault(QLocale::c()); }
    BritishLocale(const BritishLocale &) = delete;
    BritishLocale &operator=(const BritishLocale &) = delete;
};

} // namespace tests
