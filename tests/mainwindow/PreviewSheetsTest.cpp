#include "output/print/form/PreviewSheets.h"
#include "tests/mainwindow/PrintTest.h"

#include <QApplication>
#include <QComboBox>
#include <QScrollBar>
#include <QWheelEvent>

namespace mainwindow::testing {

namespace {

using print::PreviewSheets;
class PreviewOfPages : public PrintTest {};

TEST_F(PreviewOfPages, SheetsStandBesideEachOtherWhereTheyHaveRoom) {
    Preview();
    form->resize(1000, 700);
    ProcessEvents();
    PreviewSheets &sheets = form->Sheets();
    EXPECT_EQ(sheets.Columns(), 1);
    form->cboZoom()->setCurrentIndex(2);
    form->cboZoom_Click();
    EXPECT_EQ(sheets.Columns(), 3);
    EXPECT_EQ(sheets.SheetRect(1).top(), sheets.SheetRect(0).top());
    EXPECT_GT(sheets.SheetRect(1).left(), sheets.SheetRect(0).right());
    EXPECT_GT(sheets.SheetRect(3).top(), sheets.SheetRect(0).bottom());
    const double millimetre = sheets.PixelsOfMillimetre();
    EXPECT_NEAR(sheets.SheetRect(0).width(), 210 * millimetre, 0.6);
    EXPECT_NEAR(sheets.SheetRect(0).height(), 297 * millimetre, 0.6);
}

TEST_F(PreviewOfPages, OnlySheetsInSightArePainted) {
    Preview();
    ASSERT_TRUE(QTest::qWaitFor([this] { return form->Sheets().IsPainted(0); }));
    EXPECT_FALSE(form->Sheets().IsPainted(5));
    QTest::keyClick(&form->Sheets(), Qt::Key_End);
    EXPECT_TRUE(QTest::qWaitFor([this] { return form->Sheets().IsPainted(5); }));
}

TEST_F(PreviewOfPages, KeysTurnPages) {
    Preview();
    const auto page = [this](Qt::Key key) {
        QTest::keyClick(&form->Sheets(), key);
        return form->PrnFlow1().Page();
    };
    EXPECT_EQ(page(Qt::Key_PageDown), 2);
    EXPECT_EQ(page(Qt::Key_PageDown), 3);
    EXPECT_EQ(page(Qt::Key_PageUp), 2);
    EXPECT_EQ(page(Qt::Key_End), 6);
    EXPECT_EQ(page(Qt::Key_PageDown), 6);
    EXPECT_EQ(page(Qt::Key_Home), 1);
    EXPECT_EQ(form->Panel(QStringLiteral("PAGE")), QStringLiteral("Pages: 1/6"));
}

TEST_F(PreviewOfPages, TheWheelScrollsAndZooms) {
    Preview();
    PreviewSheets &sheets = form->Sheets();
    const auto turn = [&](int by, Qt::KeyboardModifiers modifiers) {
        QWheelEvent event({100, 100}, sheets.viewport()->mapToGlobal(QPointF(100, 100)), {}, {0, by},
                          Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
        QApplication::sendEvent(sheets.viewport(), &event);
    };
    turn(-240, Qt::NoModifier);
    EXPECT_GT(sheets.verticalScrollBar()->value(), 0);
    turn(-240, Qt::ControlModifier);
    EXPECT_EQ(sheets.Zoom(), 80);
    EXPECT_EQ(form->cboZoom()->currentData().toInt(), 80);
    turn(120, Qt::ControlModifier);
    EXPECT_EQ(form->PrnFlow1().Zoom, 90);
    for (int i = 0; i < 30; ++i) turn(120, Qt::ControlModifier);
    EXPECT_EQ(sheets.Zoom(), 200);
}

TEST_F(PreviewOfPages, ScrollingFarEnoughTurnsThePage) {
    Preview();
    PreviewSheets &sheets = form->Sheets();
    sheets.verticalScrollBar()->setValue(int(sheets.SheetRect(1).top()));
    EXPECT_EQ(form->PrnFlow1().Page(), 2);
    EXPECT_EQ(form->Panel(QStringLiteral("PAGE")), QStringLiteral("Pages: 2/6"));
}

TEST_F(PreviewOfPages, TheHandDragsAndAClickChooses) {
    Preview();
    PreviewSheets &sheets = form->Sheets();
    sheets.verticalScrollBar()->setValue(50);
    QWidget *place = sheets.viewport();
    QTest::mousePress(place, Qt::LeftButton, {}, {200, 300});
    EXPECT_EQ(place->cursor().shape(), Qt::ClosedHandCursor);
    QTest::mouseMove(place, {200, 200});
    QTest::mouseRelease(place, Qt::LeftButton, {}, {200, 200});
    EXPECT_EQ(place->cursor().shape(), Qt::OpenHandCursor);
    EXPECT_EQ(sheets.verticalScrollBar()->value(), 150);
    form->cboZoom()->setCurrentIndex(1);
    form->cboZoom_Click();
    QTest::mouseClick(place, Qt::LeftButton, {}, sheets.SheetRect(1).center().toPoint());
    EXPECT_EQ(form->PrnFlow1().Page(), 2);
}

TEST_F(PreviewOfPages, PaperIsWhiteInADarkTheme) {
    const QPalette former = QApplication::palette();
    QApplication::setPalette(QPalette(QColor(40, 40, 40)));
    Preview();
    ASSERT_TRUE(QTest::qWaitFor([this] { return form->Sheets().IsPainted(0); }));
    const QImage picture = form->Sheets().viewport()->grab().toImage();
    const QPoint corner = (form->Sheets().SheetRect(0).topLeft() + QPointF(10, 10)).toPoint();
    EXPECT_EQ(picture.pixelColor(corner * picture.devicePixelRatio()), QColor(Qt::white));
    QApplication::setPalette(former);
}

TEST_F(PreviewOfPages, EscapeClosesThePreview) {
    Preview();
    QTest::keyClick(&form->Sheets(), Qt::Key_Escape);
    ProcessEvents();
    EXPECT_TRUE(form.isNull());
}

} // namespace

} // namespace mainwindow::testing
