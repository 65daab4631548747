// Slices through the whole way to paper: page setup, pages, printer, and what came out beside the preview.
#include "diagram/model/Node.h"
#include "output/print/LoadedPrint.h"
#include "tests/support_real/cups/CupsTest.h"
#include "tests/support_real/cups/PdfReader.h"

using namespace cups_test;

namespace {

constexpr float kTwipsOfMillimetre = 1440 / 25.4F;
constexpr double kDotsOfMillimetre = kDotsPerInch / 25.4;

// A slice two pages wide, with a red box on each.
print::PrintedMap TwoPages(const print::PageSetup &) {
    diagram::Surface surface;
    for (const float left : {10.0F, 250.0F}) {
        diagram::Node &box = surface.Nodes().Add(left * kTwipsOfMillimetre, 30 * kTwipsOfMillimetre,
                                                 60 * kTwipsOfMillimetre, 40 * kTwipsOfMillimetre);
        box.SetShape(1);
        box.SetFillColor(support::Rgb(255, 0, 0));
        box.SetText(QStringLiteral("At%1").arg(int(left)));
    }
    print::PrintedMap map;
    map.slices.emplace_back(print::CopyOf(surface), QStringLiteral("Wide"));
    return map;
}

QRect RedPlace(const QImage &image) {
    QRect place;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (const QColor dot = image.pixelColor(x, y); dot.red() > 200 && dot.green() < 100)
                place |= QRect(x, y, 1, 1);
    return place;
}

class PrintedSlices : public CupsTest {
protected:
    // Prints at once, and keeps the control with its pages.
    std::optional<print::Printed> Print(int orientation) {
        form.emplace(desktop);
        form->SetOrientation(orientation);
        form->PrnFlow1.FitToPage = false;
        form->PrnFlow1.paper = QStringLiteral("A4");
        form->PrnFlow1.Footer = QStringLiteral("&[Slice] &[Page]/&[Pages]");
        form->PrnFlow1.SetSource(TwoPages);
        return form->PrintAtOnce(nullptr, [](int, int) { return true; });
    }
    QImage Preview(int sheet) {
        print::PrnFlow &flow = form->PrnFlow1;
        QImage image((flow.LayoutOf(sheet + 1).paper * kDotsOfMillimetre).toSize(), QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        print::PrintSlices(flow.Map(), flow, flow.TheSheets())
            .Paint(painter, sheet, kDotsOfMillimetre, false);
        return image;
    }

    std::optional<print::LoadedPrint> form;
};

} // namespace

TEST_F(PrintedSlices, ComeOutAsThePreviewShowsThem) {
    for (const int orientation : {print::kPortrait, print::kLandscape}) {
        const auto printed = Print(orientation);
        ASSERT_TRUE(printed);
        EXPECT_EQ(print::TextOf(*printed), QStringLiteral("2 pages went to the printer Office."));
        const QString pdf = cups->Printed(QStringLiteral("Office"));
        EXPECT_EQ(TextOf(pdf).count(QStringLiteral("Wide")), 2);
        EXPECT_TRUE(TextOf(pdf).contains(QStringLiteral("At10"))) << TextOf(pdf).toStdString();
        const QTemporaryDir folder;
        const std::vector<QImage> pages = PagesOf(pdf, folder.path());
        ASSERT_EQ(pages.size(), 2U);
        for (int sheet = 0; sheet < 2; ++sheet) {
            const QImage seen = Preview(sheet);
            const QRect here = RedPlace(Upright(pages[std::size_t(sheet)], seen.size())),
                        there = RedPlace(seen);
            constexpr int kSlack = 2; // dots: a dot of each picture
            EXPECT_NEAR(here.left(), there.left(), kSlack) << orientation << sheet;
            EXPECT_NEAR(here.top(), there.top(), kSlack) << orientation << sheet;
            EXPECT_NEAR(here.right(), there.right(), kSlack) << orientation << sheet;
            EXPECT_NEAR(here.bottom(), there.bottom(), kSlack) << orientation << sheet;
        }
    }
}
