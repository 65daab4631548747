#include "tests/output/export/ExportTest.h"

#include "support/AtomicFile.h"
#include "tests/document/Slices.h"
#include "tests/Paths.h"

#include <QFile>

namespace output::testing {

ExportTest::ExportTest() {
    QFile::copy(tests::Source(QStringLiteral("product/velmora/Default.htm")),
                ProgramFile(QStringLiteral("Default.htm")));
    window->TabStrip().SetCaption(QStringLiteral("One"));
}

diagram::Surface &ExportTest::AddSlice(const QString &caption) {
    return document::testing::AddSlice(*window, caption);
}

diagram::Node &ExportTest::AddNode(diagram::Surface &surface, const QString &text) {
    diagram::Node &node = surface.Nodes().Add(0, 0, 1500, 900);
    node.SetText(text);
    return node;
}

bool ExportTest::Export(const QString &name, ReportOptions options) {
    options.html = !name.endsWith(QStringLiteral("rtf"));
    return ExportReport(*window, first, Out(name), options, progress);
}

QString ExportTest::Read(const QString &name) const {
    return QString::fromUtf8(support::ReadWholeFile(Out(name)));
}

void ExportTest::Make(const QString &name, const QByteArray &content) const {
    QFile file(Out(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

} // namespace output::testing
