// A map whose slices are made to slides, and the parts of the file.
#pragma once

#include "diagram/model/Surface.h"
#include "output/powerpoint/CreatePowerpoint.h"
#include "support/AtomicFile.h"
#include "tests/document/MapTest.h"
#include "tests/document/Slices.h"
#include "tests/output/package/ZipReader.h"

#include <map>
#include <pugixml.hpp>

namespace powerpoint::testing {

using Parts = std::map<QString, QByteArray>;

inline Parts PartsOf(const QByteArray &file) {
    Parts parts;
    for (const package::testing::ReadEntry &entry : package::testing::ReadZip(file))
        parts[entry.name] = entry.bytes;
    return parts;
}

inline QString SlideName(int number) { return QStringLiteral("ppt/slides/slide%1.xml").arg(number); }

// The texts of the elements found, in order.
inline QStringList TextsAt(const pugi::xml_node &root, const char *path) {
    QStringList texts;
    for (const pugi::xpath_node &found : root.select_nodes(path)) {
        const pugi::xml_attribute attribute = found.attribute();
        texts << QString::fromUtf8(attribute ? attribute.value() : found.node().text().get());
    }
    return texts;
}

class PptxTest : public document::testing::MapTest {
protected:
    PptxTest() : window(NewWindow()) { window->TabStrip().SetCaption(QStringLiteral("First")); }

    // A further slice.
    diagram::Surface &AddSlice(const QString &caption) {
        return document::testing::AddSlice(*window, caption);
    }
    diagram::Surface &Slice(int index = 0) { return window->AddFlow1()[index]; }
    diagram::Node &AddNode(double left, double top, const QString &text, int slice = 0) {
        diagram::Node &node = Slice(slice).Nodes().Add(float(left), float(top), 1500, 900);
        node.SetText(text);
        return node;
    }
    static diagram::Link &Connect(diagram::Node &from, diagram::Node &to) { return from.Links().Add(to); }

    QString Target() const { return MapFile(QStringLiteral("out.pptx")); }
    bool Create(const PowerpointOptions &options, const GoOn &goOn = {}) {
        return CreatePowerpoint(Target(), *window, options, goOn);
    }
    // The parts of the file that these options give.
    Parts Made(const PowerpointOptions &options) {
        EXPECT_TRUE(Create(options));
        return PartsOf(support::ReadWholeFile(Target()));
    }
    // The same, and one part of it as a tree.
    const pugi::xml_document &Part(const PowerpointOptions &options, const QString &name = SlideName(1)) {
        parts = Made(options);
        const auto result = document_.load_buffer(parts[name].constData(), std::size_t(parts[name].size()));
        EXPECT_TRUE(result) << qPrintable(name) << ": " << result.description();
        return document_;
    }

    std::unique_ptr<document::MemoryWindow> window;
    Parts parts;

private:
    pugi::xml_document document_;
};

constexpr PowerpointOptions kAllBlank{kLayoutBlank, false, false};
constexpr PowerpointOptions kAllTitled{kLayoutTitle, false, false};
constexpr PowerpointOptions kAllShapes{kLayoutBlank, false, true};

} // namespace powerpoint::testing
