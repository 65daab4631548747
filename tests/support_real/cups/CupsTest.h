// What the tests on a real print server share.
#pragma once

#include "support/Error.h"
#include "support/real/RealDesktop.h"
#include "tests/EnvironmentVariable.h"
#include "tests/Errors.h"
#include "tests/support_real/cups/PrivateCups.h"

#include <gtest/gtest.h>
#include <optional>
#include <QDir>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QTemporaryDir>

namespace cups_test {

// A folder that this program takes for the temporary one.
class OwnTemporaryFolder {
public:
    QStringList Names() const {
        return QDir(folder_.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    }

private:
    const QTemporaryDir folder_;
    const tests::EnvironmentVariable variable_{"TMPDIR", folder_.path().toLocal8Bit()};
};

// A print server and a desktop on it, of each test's own.
class CupsTest : public ::testing::Test {
protected:
    void SetUp() override {
        const QString whyNot = PrivateCups::WhyNot();
        if (!whyNot.isEmpty()) GTEST_SKIP() << whyNot.toStdString();
        cups.emplace();
    }

private:
    support::RealDesktop real_{std::make_unique<support::MemoryRegistryStore>()};

protected:
    std::optional<PrivateCups> cups;
    support::Desktop &desktop = real_.Get();
    support::Printers *printers = &desktop.printers;
};

// Begins a job for the program's printer as `printer` says, and paints such a page for each text.
std::unique_ptr<support::PrintJob> Painted(support::Printers &printers, const support::SystemPrinter &printer,
                                           const QStringList &texts);
// A frame 10 mm inside the edges of the sheet, a slanted line, an area of red, and the text.
void PaintPage(QPainter &painter, const QString &text);
constexpr double kFrameInset = 10; // millimetres

} // namespace cups_test
