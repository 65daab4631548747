// British English, in which tests write dates.
#pragma once

#include <QLocale>

namespace tests {

// The default locale while it lives; then that is the C locale again, with which tests begin.
class BritishLocale {
public:
    BritishLocale() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom)); }
    ~BritishLocale() { QLocale::setDefault(QLocale::c()); }
    BritishLocale(const BritishLocale &) = delete;
    BritishLocale &operator=(const BritishLocale &) = delete;
};

} // namespace tests
