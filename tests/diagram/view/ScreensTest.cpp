// Screens of any resolution, and light and dark desktops. Run at other scale factors too.
#include "diagram/export/Export.h"
#include "diagram/format/SurfaceFile.h"
#include "diagram/render/Renderer.h"
#include "diagram/scene/Scene.h"
#include "tests/diagram/view/ViewFixture.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QPainter>
#include <QPalette>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTextEdit>

namespace diagram::testing {

namespace {

class DarkDesktop {
public:
    DarkDesktop() : before_(QApplication::palette()) {
        QPalette dark(QColor(30, 30, 34), QColor(24, 24, 28));
        for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
            dark.setColor(role, Qt::white);
        dark.setColor(QPalette::Highlight, QColor(200, 120, 0));
        QApplication::setPalette(dark);
    }
    ~DarkDesktop() { QApplication::setPalette(before_); }
    DarkDesktop(const DarkDesktop &) = delete;
    DarkDesktop &operator=(const DarkDesktop &) = delete;

private:
    QPalette before_;
};

QByteArray WithoutTime(const QByteArray &bytes) {
    static const QRegularExpression kTime(
        QStringLiteral("CreationDate[^\n]*|CreateDate[^\n]*|"
                       "MetadataDate[^\n]*|ModifyDate[^\n]*|uuid:[-0-9a-f]*|"
                       "/ID[^\n]*\n[^\n]*"));
    return QString::fromLatin1(bytes).remove(kTime).toLatin1();
}

} // namespace

class Screens : public ViewTest {
protected:
    Screens() : a(AddNode("a", 40, 40)), b(AddNode("b", 260, 190, 140, 80)), link(AddLink(a, b)) {
        a.SetText(QStringLiteral("A text"));
        b.SetShape(0);
        b.SetShadow(1);
        b.SetFillColor(support::Rgb(255, 240, 200));
        link.SetText(QStringLiteral("leads to"));
        link.SetStyle(5);
        Settle();
    }
    // The same part painted anew, each pixel of the screen by itself.
    QImage Painted() {
        const double ratio = view->viewport()->devicePixelRatioF();
        QImage image((QSizeF(view->viewport()->size()) * ratio).toSize(),
                     QImage::Format_ARGB32_Premultiplied);
        constexpr double kBias = -1e-4; // edges just between two pixels go the same way
        RenderOptions options;
        options.xScale = options.yScale = view->ShownZoom() / 1500 * ratio;
        options.marks = true;
        Scene scene(surface);
        Renderer renderer;
        QPainter painter(&image);
        renderer.Paint(painter, scene, QRectF(QPointF(kBias, kBias), QSizeF(image.size()) / options.xScale),
                       options);
        painter.end();
        image.setDevicePixelRatio(ratio);
        return image;
    }
    // Everything that leaves the program, by name.
    std::vector<std::pair<std::string, QByteArray>> Outputs() {
        std::vector<std::pair<std::string, QByteArray>> outputs;
        constexpr std::pair<const char *, PictureFormat> kFormats[] = {{"png", PictureFormat::Png},
                                                                       {"svg", PictureFormat::Svg},
                                                                       {"pdf", PictureFormat::Pdf},
                                                                       {"wmf", PictureFormat::Wmf},
                                                                       {"emf", PictureFormat::Emf}};
        for (const auto &[name, format] : kFormats)
            outputs.emplace_back(name, WithoutTime(ExportPicture(surface, format)));
        view->Copy();
        const QMimeData *held = QApplication::clipboard()->mimeData();
        for (const QString &format : held->formats())
            if (!held->data(format).isEmpty())
                outputs.emplace_back("clipboard " + format.toStdString(), held->data(format));
        outputs.emplace_back("map", SaveBytes(surface));
        return outputs;
    }
    Node &a, &b;
    Link &link;
};

TEST_F(Screens, EveryPixelOfTheScreen_IsPaintedFromTheDiagram) {
    for (const int percent : {100, 160, 60}) {
        view->ZoomAt(percent, QPointF());
        const QImage shown = Shown();
        const QImage painted = Painted();
        ASSERT_EQ(shown.size(), painted.size());
        EXPECT_EQ(DifferingPixels(shown, painted), 0) << percent;
    }
}

TEST_F(Screens, ScrolledThereAndBack_EveryPixelIsStillSharp) {
    AddNode("far", 2500, 1800);
    Settle();
    for (const int place : {900, 333, 0}) {
        view->horizontalScrollBar()->setValue(place);
        view->verticalScrollBar()->setValue(place);
        Shown();
    }
    const QImage shown = Shown();
    EXPECT_EQ(DifferingPixels(shown, Painted()), 0);
}

TEST_F(Screens, DarkDesktop_ChangesNothingThatLeavesTheProgram) {
    a.SetSelected(true);
    b.SetSelected(true);
    const auto light = Outputs();
    const DarkDesktop desktop;
    Settle();
    const auto dark = Outputs();
    ASSERT_EQ(light.size(), dark.size());
    EXPECT_GE(light.size(), 10U);
    for (size_t i = 0; i < light.size(); ++i) {
        EXPECT_FALSE(light[i].second.isEmpty()) << light[i].first;
        EXPECT_TRUE(light[i] == dark[i]) << light[i].first;
    }
}

TEST_F(Screens, DarkDesktop_LeavesThePageAsItIs) {
    const QImage light = Shown();
    const DarkDesktop desktop;
    Settle();
    EXPECT_EQ(DifferingPixels(light, Shown()), 0);
    a.SetSelected(true);
    Key(Qt::Key_F2);
    const auto *editor = view->findChild<QTextEdit *>();
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(editor->palette().color(QPalette::Text), QColor(Qt::black)) << "as the node has it";
    EXPECT_EQ(editor->palette().color(QPalette::Base), QColor(Qt::white));
    view->EndEdit(false);
}

} // namespace diagram::testing
