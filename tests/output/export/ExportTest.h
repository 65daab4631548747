// What the tests of the export share: a map with slices, the frameset that is delivered, and a folder for
// what is written.
#pragma once

#include "output/export/ExportReport.h"
#include "tests/document/MapTest.h"

namespace output::testing {

// Notes what it is told; gives up after a number of questions.
class NotedProgress : public ReportProgress {
public:
    void Slice(const QString &caption, int done, int slices) override {
        slicesTold << QStringLiteral("%1 %2/%3").arg(caption).arg(done).arg(slices);
    }
    void Nodes(int done, int nodes) override { nodesTold.emplace_back(done, nodes); }
    void Doing(const QString &text) override { steps << text; }
    bool GoOn() override { return questions-- != 0; }

    QStringList slicesTold, steps;
    std::vector<std::pair<int, int>> nodesTold;
    int questions = -1; // never
};

class ExportTest : public document::testing::MapTest {
protected:
    ExportTest();

    diagram::Surface &AddSlice(const QString &caption);
    diagram::Node &AddNode(diagram::Surface &surface, const QString &text);
    bool Export(const QString &name, ReportOptions options);
    QString Out(const QString &name) const { return QDir(out.path()).filePath(name); }
    QStringList Names() const {
        return QDir(out.path()).entryList(QDir::Files | QDir::Hidden | QDir::Dirs | QDir::NoDotAndDotDot);
    }
    QString Read(const QString &name) const;
    void Make(const QString &name, const QByteArray &content) const;

    QTemporaryDir out;
    std::unique_ptr<document::MemoryWindow> window = NewWindow();
    diagram::Surface &first = window->AddFlow1()[0];
    NotedProgress progress;
};

} // namespace output::testing
