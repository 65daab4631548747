// What the tests on a real print server share.
#pragma once

#include "support/Error.h"
#include "support/real/RealDesktop.h"
#include "tests/support_real/cups/PrivateCups.h"

#include <gtest/gtest.h>
#include <optional>
#include <QPainter>
#include <QPdfWriter>

namespace cups_test {

// A print server and a desktop on it, of each test's own.
class CupsTest : public ::testing::Test {
protected:
    void SetUp() override {
        const QString whyNot = PrivateCups::WhyNot();
        if (!whyNot.isEmpty()) GTEST_SKIP() << whyNot.toStdString();
        cups.emplace();
        printers = &real_.Get().printers;
    }

    std::optional<PrivateCups> cups;
    support::Printers *printers = nullptr;

private:
    support::RealDesktop real_{std::make_unique<support::MemoryRegistryStore>()};
};

// Begins a job for the program's printer as `printer` says, and paints such a page for each text.
std::unique_ptr<support::PrintJob> Painted(support::Printers &printers, const support::SystemPrinter &printer,
                                           const QStringList &texts);
// A frame 10 mm inside the edges of the sheet, a slanted line, an area of red, and the text.
void PaintPage(QPainter &painter, const QString &text);
constexpr double kFrameInset = 10; // millimetres

// What `body` raises; number 0 when it raises nothing.
template <typename Body>
support::Error RaisedBy(Body &&body) {
    try {
        std::forward<Body>(body)();
    } catch (const support::Error &error) {
        return error;
    }
    return support::Error(0, QString(), QString());
}

} // namespace cups_test
