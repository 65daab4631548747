#include "diagram/format/SurfaceFile.h"
#include "tests/diagram/view/ViewFixture.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>

namespace diagram::testing {

class Clipboard : public ViewTest {
protected:
    Clipboard() : a(AddNode("a", 50, 50)), b(AddNode("b", 250, 50)), link(AddLink(a, b)) {
        a.SetText(QStringLiteral("first\r\nline"));
        b.SetText(QStringLiteral("second"));
        Settle();
    }
    const QMimeData &Held() const { return *QApplication::clipboard()->mimeData(); }
    Node &a, &b;
    Link &link;
};

TEST_F(Clipboard, CopyAndPaste_GivesTheNodesWithTheLinkBetweenThem) {
    a.SetSelected(true);
    b.SetSelected(true);
    view->Copy();
    EXPECT_TRUE(view->CanPaste());
    EXPECT_FALSE(surface.CanUndo());
    view->Paste();
    EXPECT_EQ(surface.Nodes().Count(), 4);
    EXPECT_EQ(surface.Links().size(), 2U);
    ASSERT_EQ(surface.SelectedNodes().size(), 2U);
    EXPECT_FALSE(a.Selected());
    EXPECT_EQ(surface.SelectedNodes()[0]->Text(), a.Text());
    EXPECT_NE(surface.SelectedNodes()[0]->Bounds(), a.Bounds()) << "hides what it was copied from";
    EXPECT_EQ(UndoSteps(), 1);
    EXPECT_EQ(events.Count("AfterSelect"), 1);
    surface.Undo();
    EXPECT_EQ(surface.Nodes().Count(), 2);
}

TEST_F(Clipboard, PastedTwice_StandsBesideItself) {
    a.SetSelected(true);
    view->Copy();
    view->Paste();
    const QRectF first = surface.SelectedNode()->Bounds();
    view->Paste();
    EXPECT_NE(surface.SelectedNode()->Bounds(), first);
}

TEST_F(Clipboard, Copy_CarriesPicturesAndText) {
    a.SetSelected(true);
    b.SetSelected(true);
    view->Copy();
    EXPECT_TRUE(Held().hasFormat(QString::fromLatin1(kSelectionMimeType)));
    EXPECT_EQ(Held().text(), QStringLiteral("first line\nsecond"));
    const QImage png = QImage::fromData(Held().data(QStringLiteral("image/png")), "png");
    EXPECT_GT(png.width(), 300);
    EXPECT_TRUE(Held().data(QStringLiteral("image/svg+xml")).contains("<svg"));
    EXPECT_EQ(qvariant_cast<QImage>(Held().imageData()).size(), png.size());
}

TEST_F(Clipboard, CopyOfNothing_LeavesTheClipboard) {
    QApplication::clipboard()->setText(QStringLiteral("kept"));
    view->Copy();
    EXPECT_EQ(Held().text(), QStringLiteral("kept"));
}

TEST_F(Clipboard, Cut_IsOneStep) {
    a.SetSelected(true);
    view->Cut();
    EXPECT_EQ(surface.Nodes().Count(), 1);
    EXPECT_EQ(UndoSteps(), 1);
    view->Paste();
    EXPECT_EQ(surface.Nodes().Count(), 2);
    EXPECT_EQ(surface.SelectedNode()->Bounds(), QRectF(750, 750, 1500, 900));
}

TEST_F(Clipboard, PlainText_GivesOneNodeALine) {
    QApplication::clipboard()->setText(QStringLiteral("one\r\n\n  two \nthree"));
    view->Paste();
    ASSERT_EQ(surface.SelectedNodes().size(), 3U);
    EXPECT_EQ(surface.SelectedNodes()[0]->Text(), QStringLiteral("one"));
    EXPECT_EQ(surface.SelectedNodes()[1]->Text(), QStringLiteral("two"));
    EXPECT_EQ(surface.SelectedNodes()[2]->Text(), QStringLiteral("three"));
    EXPECT_GT(surface.SelectedNodes()[1]->Top(), surface.SelectedNodes()[0]->Top());
    EXPECT_EQ(UndoSteps(), 1);
    EXPECT_EQ(events.Count("AfterAddNode"), 3);
}

TEST_F(Clipboard, Image_GivesANodeWithThatPicture) {
    QImage image(64, 32, QImage::Format_RGB32);
    image.fill(Qt::green);
    QApplication::clipboard()->setImage(image);
    view->Paste();
    Node *node = surface.SelectedNode();
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(node->Picture().PixelSize(), QSize(64, 32));
    EXPECT_NEAR(node->Width() / node->Height(), 2, 0.01);
    EXPECT_EQ(UndoSteps(), 1);
    EXPECT_EQ(events.Count("AfterAddNode"), 1);
}

TEST_F(Clipboard, DamagedData_ChangeNothingAndRaiseError) {
    a.SetSelected(true);
    QByteArray bytes = SaveSelection(surface);
    bytes.truncate(bytes.size() / 2);
    auto *data = new QMimeData; // the clipboard takes it over
    data->setData(QString::fromLatin1(kSelectionMimeType), bytes);
    QApplication::clipboard()->setMimeData(data);
    view->Paste();
    EXPECT_EQ(surface.Nodes().Count(), 2);
    EXPECT_TRUE(a.Selected());
    EXPECT_FALSE(surface.CanUndo());
    EXPECT_EQ(events.details.filter(QStringLiteral("Error 321")).size(), 1);
}

TEST_F(Clipboard, PasteOutOfSight_ComesIntoSight) {
    a.SetSelected(true);
    view->Copy();
    AddNode("far", 4000, 4000);
    Settle();
    view->EnsureVisible(QRectF(4000 * 15, 4000 * 15, 1500, 900));
    Settle();
    view->Paste();
    const QRectF seen(view->ToSurface(QPointF(0, 0)), view->ToSurface(QPointF(800, 600)));
    EXPECT_TRUE(seen.intersects(surface.SelectedNode()->Bounds()));
}

} // namespace diagram::testing
